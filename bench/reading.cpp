// Reading by itself: from bytes to lines, and from lines to words, for plain text, mark-up and text beyond
// ASCII. The words go to a sink that only counts them.
//     bench_reading

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "bench/made_text.h"
#include "engine/text/word_rules.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/text_reader.h"
#include "sources/scan/line_scanner.h"

namespace {

using namespace korv;

enum Kind : int64_t {
  kPlain,     ///< Words, blanks and periods: what nearly all of a book is.
  kAccented,  ///< Every fourth word holds a character of two bytes.
  kMarkup,    ///< HTML: a tag every few words, now and then an entity.
};

std::string MakeText(int64_t kind) {
  std::string text = bench::MadeText(2'000'000).AsPlainText();
  if (kind == kPlain) return text;
  std::string changed;
  size_t words = 0;
  for (const char c : text) {
    if (c != ' ' && c != '\n') {
      changed += c;
      continue;
    }
    ++words;
    if (kind == kAccented && words % 4 == 0) changed += "\u00E9";
    if (kind == kMarkup && words % 9 == 0) changed += "<span class=\"note\">";
    if (kind == kMarkup && words % 9 == 5) changed += "</span>";
    if (kind == kMarkup && words % 50 == 0) changed += "&eacute;&nbsp;&#8212;";
    changed += c;
  }
  return changed;
}

const std::string& Text(int64_t kind) {
  static const std::string texts[] = {MakeText(kPlain), MakeText(kAccented), MakeText(kMarkup)};
  return texts[kind];
}

CommentMarkers MarkersOf(int64_t kind) {
  CommentMarkers markers;
  SetMarkupLanguageFromExtension(markers, kind == kMarkup ? "html" : "txt");
  return markers;
}

struct CountingSink final : WordSink {
  void TakeWord(std::string_view word) override { Bytes += word.size(); }
  void ResetPhrases() override {}
  size_t Bytes = 0;
};

void ReadLines(benchmark::State& state) {
  const std::string& text = Text(state.range(0));
  for (auto _ : state) {
    TextReader reader(text, nullptr, TextEncoding::Utf8);
    size_t lines = 0;
    while (reader.NextLine()) ++lines;
    benchmark::DoNotOptimize(lines);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

void ReadWords(benchmark::State& state) {
  const std::string& text = Text(state.range(0));
  WordRules rules;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  CountingSink sink;
  for (auto _ : state) {
    TextReader reader(text, nullptr, TextEncoding::Utf8);
    LineScanner<WordSink> scanner(rules, MarkersOf(state.range(0)), sink);
    scanner.BeginSource();
    while (reader.NextLine()) scanner.ScanLine(reader.Line(), reader.StartsLine());
    benchmark::DoNotOptimize(sink.Bytes);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

BENCHMARK(ReadLines)->ArgName("kind")->DenseRange(kPlain, kMarkup)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadWords)->ArgName("kind")->DenseRange(kPlain, kMarkup)->Unit(benchmark::kMillisecond);

}  // namespace
