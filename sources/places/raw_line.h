#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sources/read/text_decoder.h"
#include "sources/scan/markup.h"

namespace korv {

/// A part of a line as the file has it.
struct RawSpan {
  size_t Begin;       ///< In bytes.
  size_t End;         ///< In bytes.
  size_t Characters;  ///< Code points of the line before it, each ill-formed sequence of UTF-8 being one.
};

/// Leads from a line as words are cut from it (decoded, in NFC, with entities and double hyphens replaced)
/// back to its bytes. Decodes the line step by step until it reaches the part that is asked for; parts that
/// are asked for in ascending order cost one pass together.
class RawLine {
 public:
  /// `bytes` must outlive the object. `startsLine` as for LineScanner::ScanLine; `hasEntities`: of the file.
  RawLine(std::string_view bytes, TextEncoding encoding, bool startsLine, bool hasEntities);

  /// The bytes of the cut line's bytes [begin, end), which are not empty and begin and end with a character.
  RawSpan Find(size_t begin, size_t end);

 private:
  /// How far one pass has come: a place before which cleaning treats the line by itself.
  struct Pass {
    size_t Raw = 0;         ///< Bytes of the line.
    size_t Characters = 0;  ///< Code points of the line.
    size_t Decoded = 0;     ///< Bytes of the decoded line.
    size_t AsciiEnd = 0;    ///< The line is ASCII from Raw to here at least.
  };

  size_t OldBegin(size_t at) const;
  size_t OldEnd(size_t end) const;
  void Advance(Pass& pass, size_t decoded) const;
  size_t EndOfSegment(size_t raw) const;
  size_t PastCharacter(size_t raw) const;
  size_t DecodedSize(size_t begin, size_t end) const;
  bool BeginsSegment(size_t begin, size_t end) const;
  RawSpan Begin(Pass& pass, size_t decoded) const;
  size_t End(Pass& pass, size_t decodedEnd) const;

  std::string_view bytes_;
  TextEncoding encoding_;
  std::vector<ReplacedEntity> entities_;
  Pass begins_;
  Pass ends_;
  mutable std::string buffer_;
};

}  // namespace korv
