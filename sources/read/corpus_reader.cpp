#include "sources/read/corpus_reader.h"

#include <algorithm>
#include <utility>

#include "sources/scan/corpus_sink.h"
#include "sources/scan/word_cutter.h"

namespace korv {

namespace {

constexpr size_t kStreamPieceBytes = size_t{64} * 1024;

}  // namespace

TextSummary CorpusReader::Read(const std::filesystem::path& path, DocumentText text, EncodingPlan encoding,
                               AfterStop afterStop) {
  corpus_.BeginSource(path);
  TextSummary summary;
  // What a reader sees of a line may depend on the lines before it.
  if (IsPlainText(text.Markers) && text.Marks.empty() && !WordCutter::IsNeeded(rules_)) {
    // A stream may come slowly, and its words are counted as they come.
    const bool isStream = text.Rest && text.Rest->Size() == 0;
    TextPieces pieces(std::move(text.Head), text.Rest.get(), std::move(encoding),
                      isStream ? std::min(shares_.PieceBytes, kStreamPieceBytes) : shares_.PieceBytes);
    summary = ReadPieces(pieces, afterStop);
  } else {
    TextReader reader(std::move(text.Head), text.Rest.get(), std::move(encoding), LongLines::Anywhere);
    summary = ReadLines(reader, text.Markers, text.Marks, text.LinesAreBlocks, {}, afterStop);
  }
  text.Origin.IsUtf8 = summary.ReadAs == ReadAs::Utf8;
  corpus_.DescribeSource(text.Origin);
  return summary;
}

TextSummary CorpusReader::ReadPieces(TextPieces& pieces, AfterStop afterStop) {
  std::optional<TextPiece> piece = pieces.Next();
  if (piece && pieces.AtEnd()) {
    TextReader reader(std::move(piece->Bytes), nullptr,
                      piece->Encoding ? EncodingPlan(*piece->Encoding) : EncodingPlan(nullptr),
                      LongLines::Anywhere, piece->Part);
    TextSummary summary = ReadLines(reader, {}, {}, false, {}, afterStop);
    summary.Error = pieces.Error();
    return summary;
  }
  cutter_.BeginText(afterStop == AfterStop::WhatIsThere);
  for (; piece; piece = GoesOn(afterStop) ? pieces.Next() : std::nullopt) {
    cutter_.Add(std::move(*piece));
    progress_.BytesRead = pieces.BytesRead();
    progress_.Words = corpus_.Counts().Taken;
    yielder_.Yield();
  }
  CutFacts cut = cutter_.Finish();
  if (pieces.Encoding().Settled == TextEncoding::Utf8) cut.ReadAs = ReadAs::Utf8;
  progress_.Words = corpus_.Counts().Taken;
  TextSummary summary{cut.ReadAs, cut.IllFormed, pieces.BytesRead(), cut.TextBytes, pieces.Error()};
  if (!pieces.HoldsLongLine()) return summary;
  const PieceBegin begin{pieces.Offset(), cut.Lines};
  const TextPart part = pieces.Part();
  TextReader rest(pieces.TakeBytes(), pieces.Rest(), pieces.Encoding(), LongLines::Anywhere, part);
  const TextSummary more = ReadLines(rest, {}, {}, false, begin, afterStop);
  return {std::max(cut.ReadAs, more.ReadAs), cut.IllFormed + more.IllFormed, more.BytesRead,
          cut.TextBytes + more.TextBytes, more.Error ? more.Error : pieces.Error()};
}

/// Reads the rest of a text, which begins at a line, on the calling thread.
TextSummary CorpusReader::ReadLines(TextReader& reader, const CommentMarkers& markers,
                                    std::span<const TextMark> marks, bool linesAreBlocks,
                                    const PieceBegin& begin, AfterStop afterStop) {
  const bool isPlain = IsPlainText(markers);
  if (!WordCutter::IsNeeded(rules_)) {
    LineScanner<CorpusBuilder> scanner(rules_, markers, corpus_);
    return ScanLines(reader, marks, begin, afterStop, isPlain, scanner, [] { return false; });
  }
  CorpusSink sink(corpus_);
  WordCutter cutter(rules_, sink);
  cutter.BeginSource(linesAreBlocks);
  LineScanner<WordCutter> scanner(rules_, markers, cutter);
  return ScanLines(reader, marks, begin, afterStop, isPlain, scanner,
                   [&cutter] { return cutter.HoldsBack(); });
}

/// `holdsBack`: whether the next line depends on those before it.
template <typename Scanner, typename HoldsBack>
TextSummary CorpusReader::ScanLines(TextReader& reader, std::span<const TextMark> marks,
                                    const PieceBegin& begin, AfterStop afterStop, bool isPlain,
                                    Scanner& scanner, HoldsBack holdsBack) {
  scanner.BeginSource();
  uint32_t line = begin.Lines;
  while (GoesOn(afterStop) && reader.NextLine()) {
    line += reader.StartsLine();
    // Pieces of mark-up depend on what came before them.
    const bool resumable =
        (reader.StartsLine() ? !scanner.InRegion() : isPlain && !scanner.HoldsBack()) && !holdsBack();
    corpus_.BeginLine(begin.Offset + reader.LineOffset(), line, reader.StartsLine(), resumable);
    if (!marks.empty() && reader.StartsLine() && EndsPhraseAt(marks, reader.LineOffset()))
      corpus_.ResetPhrases();
    scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
    progress_.BytesRead = begin.Offset + reader.BytesRead();
    progress_.Words = corpus_.Counts().Taken;
    yielder_.Yield();
  }
  return {reader.ReadAs(), reader.IllFormed(), begin.Offset + reader.BytesRead(), scanner.TextBytes(),
          reader.Error()};
}

}  // namespace korv
