#include "sources/read/corpus_reader.h"

#include <utility>

#include "sources/scan/line_scanner.h"

namespace korv {

TextSummary CorpusReader::Read(const std::filesystem::path& path, DocumentText text, EncodingPlan encoding,
                               AfterStop afterStop) {
  corpus_.BeginSource(path);
  TextReader reader(std::move(text.Head), text.Rest.get(), std::move(encoding), LongLines::Anywhere);
  LineScanner<CorpusBuilder> scanner(rules_, text.Markers, corpus_);
  scanner.BeginSource();
  const bool isPlain = IsPlainText(text.Markers);
  uint32_t line = 0;
  while ((!yielder_.Stopped() || afterStop == AfterStop::WhatIsThere) && reader.NextLine()) {
    line += reader.StartsLine();
    // Pieces of mark-up depend on what came before them.
    const bool resumable = reader.StartsLine() ? !scanner.InRegion() : isPlain && !scanner.HoldsBack();
    corpus_.BeginLine(reader.LineOffset(), line, reader.StartsLine(), resumable);
    if (!text.Marks.empty() && reader.StartsLine() && EndsPhraseAt(text.Marks, reader.LineOffset()))
      corpus_.ResetPhrases();
    scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
    progress_.BytesRead = reader.BytesRead();
    progress_.Words = corpus_.Counts().Taken;
    yielder_.Yield();
  }
  text.Origin.IsUtf8 = reader.ReadAs() == ReadAs::Utf8;
  corpus_.DescribeSource(text.Origin);
  return {reader.ReadAs(), reader.IllFormed(), reader.BytesRead(), scanner.TextBytes(), reader.Error()};
}

}  // namespace korv
