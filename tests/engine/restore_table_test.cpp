// Parts of a finished run that come from anywhere: only those that a run may have become a table again.

#include "engine/counting/restore_table.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"

namespace korv {
namespace {

struct Parts {
  StoredTable Table;
  WordCounts Words;
};

/// Those of a run over two files; "stop" ends phrases.
Parts PartsOfARun() {
  static const WordFilters kLists = [] {
    WordFilterSpec entries;
    entries.TypedWordsToIgnore = {"stop"};
    return WordFilters(entries);
  }();
  WordRules rules;
  rules.IgnoreShortWords = false;
  RunOptions options;
  options.MinWords = 2;
  options.MaxWords = 3;
  options.MinFrequency = 1;
  options.IgnoreMode = IgnoreRule::ExcludeWith;
  options.SourceKind = TextSource::Folder;
  options.KeepPlaces = true;
  CorpusBuilder builder(rules, options, kLists);
  uint64_t offset = 0;
  for (const char* text : {"a b c d a b c stop a b", "e a b c côte cote b c", "lone"}) {
    builder.BeginSource(std::string(1, text[0]) + ".txt");
    builder.BeginLine(offset++, 1, true, true);
    std::istringstream words(text);
    for (std::string word; words >> word;) builder.TakeWord(word);
    builder.ResetPhrases();
  }
  PhraseTable table;
  NoYielder yielder;
  const WordCounts counts = builder.Counts();
  TakeText(std::move(builder), table);
  CountPhrases(table, yielder);
  SortPhrases(table, yielder);
  ListByFrequency(table, 1);
  Parts parts;
  parts.Words = counts;
  PhraseTableData& data = table.Data();
  parts.Table.SourceHasPhrase = SourcesWithPhrase(data);
  parts.Table.PhraseCount = data.PhraseCount;
  parts.Table.Occurrences = data.Occurrences;
  parts.Table.Entries = std::move(data.Entries);
  parts.Table.Corpus = std::move(data.Corpus);
  return parts;
}

bool BecomeATable(Parts parts, PhraseTable& table) {
  NoYielder yielder;
  return RestoreTable(std::move(parts.Table), parts.Words, table, yielder);
}

TEST(RestoredTable, IsTheOneThatTheRunHad) {
  Parts parts = PartsOfARun();
  const std::vector<PhraseEntry> entries = parts.Table.Entries;
  for (PhraseEntry& entry : parts.Table.Entries) entry.First = Place{0};
  PhraseTable table;
  ASSERT_TRUE(BecomeATable(std::move(parts), table));
  ASSERT_EQ(table.EntryCount(), entries.size());
  for (const PhraseIndex i : table.All())
    EXPECT_EQ(table.First(i), entries[ValueOf(i) - 1].First) << table.Text(i);
  EXPECT_EQ(table.FilePaths().size(), 2U) << "the third file has no phrase";
  NoYielder yielder;
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByFiles, yielder));
  EXPECT_EQ(table.FileCount(table.ChainHead()), 2U);
}

TEST(RestoredTable, OfARunWithoutATextIsEmpty) {
  const WordFilters lists;
  CorpusBuilder builder({}, {.SourceKind = TextSource::Folder, .KeepPlaces = true}, lists);
  PhraseTable counted;
  NoYielder yielder;
  TakeText(std::move(builder), counted);
  CountPhrases(counted, yielder);
  Parts parts;
  parts.Table.Corpus = std::move(counted.Data().Corpus);
  PhraseTable table;
  EXPECT_TRUE(BecomeATable(std::move(parts), table));
  EXPECT_EQ(table.EntryCount(), 0U);
}

TEST(RestoredTable, CanBeStopped) {
  class Stopped final : public Yielder {
   protected:
    void HandOver() override {}
  } yielder;
  yielder.RequestStop();
  Parts parts = PartsOfARun();
  PhraseTable table;
  EXPECT_FALSE(RestoreTable(std::move(parts.Table), parts.Words, table, yielder));
}

TEST(RestoredTable, IsNotMadeOfWhatNoRunHas) {
  const struct Case {
    const char* Name;
    std::function<void(Parts&)> Harm;
  } cases[] = {
      {"a token that is no word",
       [](Parts& p) { p.Table.Corpus.Tokens[1] = WordNumber{p.Table.Corpus.Words.Size() + 1}; }},
      {"a word at the very beginning", [](Parts& p) { p.Table.Corpus.Tokens[0] = WordNumber{1}; }},
      {"a word at the very end",
       [](Parts& p) { p.Table.Corpus.Tokens[p.Table.Corpus.Tokens.size() - 1] = WordNumber{1}; }},
      {"no tokens", [](Parts& p) { p.Table.Corpus.Tokens = {}; }},
      {"more words than tokens", [](Parts& p) { ++p.Words.Taken; }},
      {"fewer words than tokens", [](Parts& p) { --p.Words.Taken; }},
      {"a text that begins in another place", [](Parts& p) { ++p.Table.Corpus.Sources[1].Begin; }},
      {"a text that begins behind the end", [](Parts& p) { p.Table.Corpus.Sources[2].Begin = 1000; }},
      {"a first text that begins later", [](Parts& p) { p.Table.Corpus.Sources[0].Begin = 2; }},
      {"texts in another order",
       [](Parts& p) { std::swap(p.Table.Corpus.Sources[1].Begin, p.Table.Corpus.Sources[2].Begin); }},
      {"no texts",
       [](Parts& p) {
         p.Table.Corpus.Sources.clear();
         p.Table.SourceHasPhrase.clear();
       }},
      {"no texts, and no lines of any",
       [](Parts& p) {
         p.Table.Corpus.Sources.clear();
         p.Table.SourceHasPhrase.clear();
         p.Table.Corpus.Lines = {};
       }},
      {"more words before a text", [](Parts& p) { ++p.Table.Corpus.Sources[2].WordsBefore; }},
      {"fewer words before a text", [](Parts& p) { --p.Table.Corpus.Sources[2].WordsBefore; }},
      {"an end of phrases that is a word", [](Parts& p) { p.Table.Corpus.WordsAtEnds[0] = Place{1}; }},
      {"an end of phrases behind the text", [](Parts& p) { p.Table.Corpus.WordsAtEnds[0] = Place{1000}; }},
      {"a place behind the text", [](Parts& p) { p.Table.Corpus.Places[0] = Place{1000}; }},
      {"a place where no word is", [](Parts& p) { p.Table.Corpus.Places[0] = Place{0}; }},
      {"places that are not sorted",
       [](Parts& p) { std::swap(p.Table.Corpus.Places[0], p.Table.Corpus.Places[1]); }},
      {"a place twice", [](Parts& p) { p.Table.Corpus.Places[1] = p.Table.Corpus.Places[0]; }},
      {"an entry beyond the places", [](Parts& p) { p.Table.Entries[0].Slice = 1000; }},
      {"an entry with a place that is not its", [](Parts& p) { ++p.Table.Entries[0].Count; }},
      {"an entry without one of its places", [](Parts& p) { --p.Table.Entries[0].Count; }},
      {"an entry without places", [](Parts& p) { p.Table.Entries[0].Count = 0; }},
      {"an entry of too few words", [](Parts& p) { p.Table.Entries[0].Words = 1; }},
      {"an entry of too many words", [](Parts& p) { p.Table.Entries[0].Words = 4; }},
      {"an entry below the minimum frequency", [](Parts& p) { p.Table.Corpus.Options.MinFrequency = 20; }},
      {"entries in another order", [](Parts& p) { std::swap(p.Table.Entries[0], p.Table.Entries[1]); }},
      {"an entry twice", [](Parts& p) { p.Table.Entries[1] = p.Table.Entries[0]; }},
      {"fewer phrases than entries", [](Parts& p) { p.Table.PhraseCount = p.Table.Entries.size() - 1; }},
      {"fewer occurrences than those of the entries",
       [](Parts& p) { p.Table.Occurrences = p.Table.PhraseCount; }},
      {"more phrases than occurrences", [](Parts& p) { p.Table.PhraseCount = p.Table.Occurrences + 1; }},
      {"a phrase in a file without a phrase", [](Parts& p) { p.Table.SourceHasPhrase[0] = 0; }},
      {"fewer files than texts", [](Parts& p) { p.Table.SourceHasPhrase.pop_back(); }},
      {"words that have no order", [](Parts& p) { p.Table.Corpus.Words = Vocabulary(); }},
      {"lines that begin behind the text",
       [](Parts& p) {
         std::vector<LineAnchor> anchors = p.Table.Corpus.Lines.Anchors();
         anchors.push_back({99, true, Place{1000}, 2});
         ASSERT_TRUE(p.Table.Corpus.Lines.Restore(std::move(anchors), {}));
       }},
      {"no lines", [](Parts& p) { p.Table.Corpus.Lines = {}; }},
  };
  for (const Case& c : cases) {
    Parts parts = PartsOfARun();
    c.Harm(parts);
    PhraseTable table;
    EXPECT_FALSE(BecomeATable(std::move(parts), table)) << c.Name;
  }
}

// ---- Words

/// Whether the words become a vocabulary, in this order.
bool BecomeAVocabulary(const std::vector<std::string>& words, Vocabulary& vocabulary) {
  RawVector<uint64_t> ends;
  GrowingArray<char> bytes;
  for (const std::string& word : words) {
    bytes.append(std::span(word));
    ends.push_back(bytes.size());
  }
  NoYielder yielder;
  return vocabulary.Restore(ends, std::move(bytes), yielder);
}

TEST(RestoredVocabulary, HasItsNumbersLengthsAndClasses) {
  Vocabulary words;
  ASSERT_TRUE(BecomeAVocabulary({"a", "cote", "coté", "z"}, words));
  EXPECT_EQ(words.Size(), 4U);
  EXPECT_EQ(words.Text(WordNumber{3}), "coté");
  EXPECT_EQ(words.Characters(WordNumber{3}), 4);
  EXPECT_FALSE(words.KeysDiffer());
  EXPECT_EQ(words.KeyClass(WordNumber{2}), words.KeyClass(WordNumber{3}));
  EXPECT_EQ(words.Find("z"), WordNumber{4});
  ASSERT_TRUE(BecomeAVocabulary({}, words));
  EXPECT_EQ(words.Size(), 0U);
  EXPECT_TRUE(words.Ranked());
}

TEST(RestoredVocabulary, IsNotMadeOfOtherTexts) {
  const struct Case {
    const char* Name;
    std::vector<std::string> Words;
  } cases[] = {
      {"in another order", {"b", "a"}},
      {"twice", {"a", "a"}},
      {"equal Keys in another order", {"coté", "cote"}},
      {"an empty one", {"a", "", "b"}},
      {"two in one", {"a b"}},
      {"a line feed", {"a\nb"}},
      {"no UTF-8", {"a\xFF"}},
      {"cut off UTF-8", {"a\xC3"}},
  };
  for (const Case& c : cases) {
    Vocabulary words;
    EXPECT_FALSE(BecomeAVocabulary(c.Words, words)) << c.Name;
  }
}

TEST(RestoredVocabulary, HasWordsThatTheBytesHold) {
  NoYielder yielder;
  for (const uint64_t end : {uint64_t{0}, uint64_t{2}, UINT64_MAX}) {
    GrowingArray<char> bytes;
    bytes.push_back('a');
    RawVector<uint64_t> ends(1, end);
    Vocabulary words;
    EXPECT_FALSE(words.Restore(ends, std::move(bytes), yielder)) << end;
  }
}

// ---- Lines

TEST(RestoredLines, AreThoseThatAnIndexMayHave) {
  using Anchors = std::vector<LineAnchor>;
  const LineAnchor first(0, true, Place{1}, 1);
  const struct Case {
    const char* Name;
    Anchors Lines;
    bool Fine;
  } cases[] = {
      {"none", {}, true},
      {"one", {first}, true},
      {"a later line", {first, {10, true, Place{5}, 3}}, true},
      {"a piece of the first line", {first, {10, false, Place{5}, 1}}, true},
      {"another text", {first, {10, true, Place{5}, 3}, {0, true, Place{7}, 1}}, true},
      {"a first one in the middle", {{10, true, Place{5}, 3}}, false},
      {"a first one that is a piece", {{0, false, Place{1}, 1}}, false},
      {"a first one before all tokens", {{0, true, Place{0}, 1}}, false},
      {"tokens that go back", {first, {10, true, Place{5}, 3}, {20, true, Place{4}, 4}}, false},
      {"offsets that go back", {first, {10, true, Place{5}, 3}, {9, true, Place{6}, 4}}, false},
      {"lines that go back", {first, {10, true, Place{5}, 3}, {20, true, Place{6}, 2}}, false},
      {"a piece of a line that is not there", {first, {10, false, Place{5}, 2}}, false},
  };
  for (const Case& c : cases) {
    LineIndex index;
    EXPECT_EQ(index.Restore(c.Lines, {}), c.Fine) << c.Name;
  }
}

TEST(RestoredLines, BeginInOrder) {
  const auto restore = [](std::initializer_list<LineIndex::LineBegin> begins) {
    GrowingArray<LineIndex::LineBegin> array;
    for (const LineIndex::LineBegin& begin : begins) array.push_back(begin);
    return LineIndex().Restore({}, std::move(array));
  };
  EXPECT_TRUE(restore({{Place{1}, 1}, {Place{5}, 7}, {Place{6}, 1}}));
  EXPECT_FALSE(restore({{Place{5}, 1}, {Place{1}, 2}}));
  EXPECT_FALSE(restore({{Place{5}, 1}, {Place{5}, 2}}));
  EXPECT_FALSE(restore({{Place{5}, 0}}));
}

}  // namespace
}  // namespace korv
