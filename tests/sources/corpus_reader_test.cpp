#include "sources/read/corpus_reader.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "tests/fakes/fake_yielder.h"
#include "tests/sources/bitten_file.h"

namespace korv {
namespace {

struct ReaderWorld {
  ReaderWorld() {
    SetAllowedExtraChars(Rules);
    SetAllowedExtraChars2(Rules);
    Options.KeepPlaces = true;
  }

  TextSummary Read(DocumentText text, EncodingPlan encoding = TextEncoding::Utf8,
                   AfterStop afterStop = AfterStop::Nothing) {
    CorpusReader reader(Rules, Corpus, Yielder, {BytesRead, Words});
    return reader.Read("/a.txt", std::move(text), std::move(encoding), afterStop);
  }
  /// "the cat | sat": the words of the corpus, and where phrases end.
  std::string Tokens() const {
    std::string text;
    const korv::Corpus& read = Corpus.Corpus();
    for (size_t i = 1; i < read.Tokens.size(); ++i) {
      const WordNumber word = read.Tokens[i];
      text += (i == 1 ? "" : " ") + std::string(word == kNoWord ? "|" : read.Words.Text(word));
    }
    return text;
  }

  WordRules Rules;
  RunOptions Options;
  WordFilters Filters;
  FakeYielder Yielder;
  CorpusBuilder Corpus{Rules, Options, Filters};
  Gauge<uint64_t> BytesRead;
  Gauge<uint64_t> Words;
};

DocumentText TextOf(std::string head, std::string_view rest = {}) {
  DocumentText text;
  text.Head = std::move(head);
  if (!rest.empty()) text.Rest = std::make_unique<BittenFile>(rest);
  return text;
}

TEST(CorpusReader, CutsTheWordsOfAText) {
  ReaderWorld world;
  const TextSummary summary = world.Read(TextOf("one two three. ", "four\nfive six\n"));
  EXPECT_EQ(world.Tokens(), "one two three | four five six");
  EXPECT_EQ(summary.ReadAs, ReadAs::Utf8);
  EXPECT_EQ(summary.TextBytes, 27u);
  EXPECT_FALSE(summary.Error);
  EXPECT_EQ(world.BytesRead, 29u);
  EXPECT_EQ(world.Words, 6u);
  const CorpusSource& source = world.Corpus.Corpus().Sources.front();
  EXPECT_EQ(source.Path, "/a.txt");
  EXPECT_TRUE(source.Origin.IsUtf8);
}

TEST(CorpusReader, LeavesOutWhatIsNoText) {
  ReaderWorld world;
  DocumentText text = TextOf("one <b two=three>four</b> five &amp; six");
  text.Markers = MarkersOfExtension("html");
  const TextSummary summary = world.Read(std::move(text));
  EXPECT_EQ(world.Tokens(), "one four five six");
  EXPECT_EQ(summary.TextBytes, std::string("one four five & six").size());
}

TEST(CorpusReader, TellsHowATextWasReadAndWhatFailed) {
  ReaderWorld world;
  DocumentText text;
  text.Rest = std::make_unique<BittenFile>("caf\xE9 noir\n\xFF word", 10, 1);
  const TextSummary summary = world.Read(std::move(text), EncodingPlan(nullptr));
  EXPECT_EQ(summary.ReadAs, ReadAs::Ansi);
  ASSERT_TRUE(summary.Error);
  EXPECT_EQ(summary.Error->Description, "worn out");
  EXPECT_EQ(world.Tokens(), "caf\u00E9 noir");
  EXPECT_FALSE(world.Corpus.Corpus().Sources.front().Origin.IsUtf8);
}

TEST(CorpusReader, EndsAtAStopUnlessTheSourceDoes) {
  for (const AfterStop afterStop : {AfterStop::Nothing, AfterStop::WhatIsThere}) {
    ReaderWorld world;
    world.Yielder.StopAtCall(2);
    world.Read(TextOf("one\ntwo\nthree\nfour\n"), TextEncoding::Utf8, afterStop);
    EXPECT_EQ(world.Tokens(), afterStop == AfterStop::Nothing ? "one two" : "one two three four");
  }
}

TEST(CorpusReader, SeesAStopWithinALongLine) {
  for (const char* unit : {"word ", "word,", "<b>word</b>", "\u6F22"}) {
    std::string line;
    while (line.size() < 8'000'000) line += unit;
    for (const char* extension : {"txt", "html"}) {
      ReaderWorld world;
      world.Yielder.StopAtCall(2);
      DocumentText text = TextOf("", line);
      text.Markers = MarkersOfExtension(extension);
      world.Read(std::move(text));
      EXPECT_LT(world.BytesRead, 4'000'000u) << unit << extension;
    }
  }
}

}  // namespace
}  // namespace korv
