#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sources/read/corpus_reader.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/sources/bitten_file.h"

// Texts cut in pieces by several threads against the same texts cut line by line by one.

namespace korv {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPieces[] = {"a"sv,
                                        "the cat sat"sv,
                                        "The"sv,
                                        "over"sv,
                                        "aaaa"sv,
                                        "no"sv,
                                        "well-known"sv,
                                        "isn't"sv,
                                        "word"sv,
                                        " "sv,
                                        " "sv,
                                        " "sv,
                                        "\t"sv,
                                        "."sv,
                                        ","sv,
                                        "\""sv,
                                        "--"sv,
                                        "&amp;"sv,
                                        "<b>"sv,
                                        "(x)"sv,
                                        "7"sv,
                                        "\n"sv,
                                        "\n"sv,
                                        "\n"sv,
                                        "\r"sv,
                                        "\r\n"sv,
                                        "\0"sv,
                                        "\u00E9t\u00E9"sv,
                                        "\u0436\u0443\u043A"sv,
                                        "\u6F22"sv,
                                        "e\u0301"sv,
                                        "\uFEFF"sv,
                                        "\u2019"sv,
                                        "\xE9"sv,
                                        "\xFF"sv,
                                        "\xE2\x80"sv};

std::string DrawBytes() {
  const auto pieces = rc::gen::container<std::vector<std::string_view>>(
      rc::gen::elementOf(std::vector<std::string_view>(std::begin(kPieces), std::end(kPieces))));
  std::string bytes = *rc::gen::element(std::string(), std::string("\xEF\xBB\xBF"));
  for (const std::string_view piece : *pieces) bytes += piece;
  return bytes;
}

struct Text {
  std::string Bytes;
  size_t Head;  ///< Bytes that were read when the file was opened.
  size_t Bite;
  int FailsAt;
  int Encoding;  ///< 0 UTF-8, 1 ANSI, 2 to be found out.
};

Text DrawText() {
  Text text;
  text.Bytes = DrawBytes();
  if (*rc::gen::inRange(0, 4) == 0) text.Bytes += std::string(17000, 'w') + "\n" + DrawBytes();
  text.Head = *rc::gen::inRange<size_t>(0, text.Bytes.size() + 1);
  text.Bite = *rc::gen::element<size_t>(1, 7, 100, 4000);  // Never more than is asked for.
  text.FailsAt = *rc::gen::element(-1, -1, -1, 0, 3, 5);
  text.Encoding = *rc::gen::inRange(0, 3);
  return text;
}

WordRules DrawRules() {
  WordRules rules;
  rules.IgnoreShortWords = *rc::gen::arbitrary<bool>();
  rules.CaseSignificant = *rc::gen::arbitrary<bool>();
  rules.TerminateAtEndOfLine = *rc::gen::arbitrary<bool>();
  rules.TerminateAtComma = *rc::gen::arbitrary<bool>();
  rules.AllowAmpersands = *rc::gen::arbitrary<bool>();
  rules.Only7bitASCII = *rc::gen::arbitrary<bool>();
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  return rules;
}

/// Everything that reading leaves, as text that can be compared.
std::string Everything(const Corpus& corpus, const WordCounts& counts) {
  std::string all;
  const auto add = [&all](uint64_t number) { all += std::to_string(number) + " "; };
  for (const WordNumber token : corpus.Tokens) {
    add(ValueOf(token));
    if (token != kNoWord) all += corpus.Words.Text(token);
  }
  all += "\nends: ";
  for (const Place end : corpus.WordsAtEnds) add(ValueOf(end));
  all += "\nlines: ";
  for (const LineIndex::LineBegin& begin : corpus.Lines.Begins()) {
    add(ValueOf(begin.Token));
    add(begin.Line);
  }
  all += "\ncounts: ";
  add(counts.Taken);
  for (const uint64_t dropped : counts.DroppedBy) add(dropped);
  all += "\nsources: ";
  for (const CorpusSource& source : corpus.Sources) {
    add(source.Begin);
    add(source.WordsBefore);
    add(source.Origin.IsUtf8);
  }
  return all;
}

/// What is kept of the lines can be an index of lines.
void CheckLines(const LineIndex& lines) {
  GrowingArray<LineIndex::LineBegin> begins;
  begins.append({lines.Begins().data(), lines.Begins().size()});
  LineIndex restored;
  RC_ASSERT(restored.Restore(lines.Anchors(), std::move(begins)));
}

std::string Read(const std::vector<Text>& texts, const WordRules& rules, const RunOptions& options,
                 const WordFilters& lists, ReadingShares shares, std::string& summaries) {
  NoYielder yielder;
  CorpusBuilder corpus(rules, options, lists);
  Gauge<uint64_t> bytes;
  Gauge<uint64_t> words;
  CorpusReader reader(rules, corpus, yielder, {bytes, words}, shares);
  for (const Text& text : texts) {
    DocumentText document;
    document.Head = text.Bytes.substr(0, text.Head);
    document.Rest =
        std::make_unique<BittenFile>(std::string_view(text.Bytes).substr(text.Head), text.Bite, text.FailsAt);
    const TextSummary summary = reader.Read(
        "/a.txt", std::move(document),
        text.Encoding == 2 ? EncodingPlan(nullptr)
                           : EncodingPlan(text.Encoding == 0 ? TextEncoding::Utf8 : TextEncoding::Ansi));
    for (const uint64_t fact : {static_cast<uint64_t>(summary.ReadAs), summary.IllFormed, summary.BytesRead,
                                summary.TextBytes, uint64_t{summary.Error.has_value()}, uint64_t{words}})
      summaries += std::to_string(fact) + " ";
    summaries += "\n";
  }
  CheckLines(corpus.Corpus().Lines);
  return Everything(corpus.Corpus(), corpus.Counts());
}

RC_GTEST_PROP(ReadingShares, ThreadsAndPiecesChangeNothing, ()) {
  std::vector<Text> texts;
  for (int count = *rc::gen::inRange(1, 4); count > 0; --count) texts.push_back(DrawText());
  const WordRules rules = DrawRules();
  RunOptions options;
  options.KeepPlaces = true;
  options.IgnoreMode = *rc::gen::element(IgnoreRule::ExcludeAll, IgnoreRule::Remove, IgnoreRule::ExcludeWith);
  WordFilterSpec ignored;
  ignored.FileWordsToIgnore = {"the", "over"};
  const WordFilters lists(ignored);

  std::string wholeSummaries;
  const std::string whole =
      Read(texts, rules, options, lists, {.Threads = 1, .PieceBytes = size_t{1} << 30}, wholeSummaries);
  for (const size_t threads : {size_t{1}, size_t{2}, size_t{3}, size_t{16}}) {
    const size_t pieceBytes = *rc::gen::element<size_t>(1, 2, 5, 30, 200, 20000);
    std::string summaries;
    RC_ASSERT(Read(texts, rules, options, lists, {threads, pieceBytes}, summaries) == whole);
    RC_ASSERT(summaries == wholeSummaries);
  }
}

}  // namespace
}  // namespace korv
