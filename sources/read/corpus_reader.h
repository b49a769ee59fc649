#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

#include "base/gauge.h"
#include "base/workers.h"
#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/text/word_rules.h"
#include "sources/read/document_reader.h"
#include "sources/read/piece_cutter.h"
#include "sources/read/text_pieces.h"
#include "sources/read/text_reader.h"

namespace korv {

/// How far the reading of a text has come.
struct ReadProgress {
  Gauge<uint64_t>& BytesRead;  ///< Of the text that is being read.
  Gauge<uint64_t>& Words;      ///< Words taken, of all texts.
};

/// How much is still read after a stop.
enum class AfterStop {
  Nothing,
  WhatIsThere,  ///< All that the source gives; the source itself ends at a stop.
};

/// How the reading of a text went.
struct TextSummary {
  korv::ReadAs ReadAs = ReadAs::Ascii;
  uint64_t IllFormed = 0;          ///< Sequences of UTF-8 that became U+FFFD.
  uint64_t BytesRead = 0;          ///< Of the source, its signature among them.
  uint64_t TextBytes = 0;          ///< Bytes of its lines, as cleaned, that were no mark-up.
  std::optional<FileError> Error;  ///< It could be read only up to here.
};

/// How plain texts are parted among threads. The result is the same for any number of threads.
struct ReadingShares {
  size_t Threads = 0;                       ///< 0: as many as work for the loops of the yielder.
  size_t PieceBytes = size_t{1024} * 1024;  ///< Shorter texts are not parted. Those of streams are smaller.
};

/// Cuts texts into words, one text after the other, and hands the words to a corpus. Long plain texts are cut
/// by several threads, in pieces of whole lines; what regions are left out of a text depends on all that
/// stands before, so that mark-up and programs are not parted.
class CorpusReader {
 public:
  /// `rules` has its AllowedExtraChars. All must outlive the object.
  CorpusReader(const WordRules& rules, CorpusBuilder& corpus, Yielder& yielder, ReadProgress progress,
               ReadingShares shares = {})
      : rules_(rules),
        corpus_(corpus),
        yielder_(yielder),
        progress_(progress),
        shares_(shares),
        cutter_(rules, corpus, yielder, shares.Threads > 0 ? shares.Threads : WorkerCount(yielder)) {}

  /// Reads a text line by line to its end, or until a stop is requested. `path` names its file; it is empty
  /// for a text that is no file.
  TextSummary Read(const std::filesystem::path& path, DocumentText text, EncodingPlan encoding,
                   AfterStop afterStop = AfterStop::Nothing);

 private:
  TextSummary ReadPieces(TextPieces& pieces, AfterStop afterStop);
  TextSummary ReadLines(TextReader& reader, const CommentMarkers& markers, std::span<const TextMark> marks,
                        bool linesAreBlocks, const PieceBegin& begin, AfterStop afterStop);
  template <typename Scanner, typename HoldsBack>
  TextSummary ScanLines(TextReader& reader, std::span<const TextMark> marks, const PieceBegin& begin,
                        AfterStop afterStop, bool isPlain, Scanner& scanner, HoldsBack holdsBack);
  bool GoesOn(AfterStop afterStop) const {
    return !yielder_.Stopped() || afterStop == AfterStop::WhatIsThere;
  }

  const WordRules& rules_;
  CorpusBuilder& corpus_;
  Yielder& yielder_;
  ReadProgress progress_;
  ReadingShares shares_;
  PieceCutter cutter_;
};

}  // namespace korv
