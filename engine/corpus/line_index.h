#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/growing_array.h"
#include "engine/corpus/indices.h"

namespace korv {

/// A line of a text, or a piece of a long line, from which the text can be read again.
class LineAnchor {
 public:
  LineAnchor() = default;
  LineAnchor(uint64_t offset, bool startsLine, Place token, uint32_t line)
      : offsetAndStart_(offset << 1 | uint64_t{startsLine}), token_(token), line_(line) {}

  /// The offset of its first byte in the file, or in the text that was extracted from it.
  uint64_t Offset() const { return offsetAndStart_ >> 1; }
  /// False for a piece of a line other than the first.
  bool StartsLine() const { return (offsetAndStart_ & 1) != 0; }
  /// The first token that the line can give.
  Place Token() const { return token_; }
  /// The number of the line, from 1.
  uint32_t Line() const { return line_; }

 private:
  uint64_t offsetAndStart_ = 0;
  Place token_{};
  uint32_t line_ = 0;
};
static_assert(sizeof(LineAnchor) == 16);

/// Leads from a token back to the lines of the texts. The index keeps an anchor, the line that was being
/// read, at the begin of each text and about every kAnchorEvery tokens.
///
///   Anchors ascend by token, and those of one text by offset;
///   an anchor that does not start its line comes behind one of the same text that does.
///
/// It keeps the begin of every line with a token too, so that the number of a line needs no reading.
///
/// Memory: 16 bytes an anchor, that is a sixteenth of a byte a token, and 16 bytes a text; 8 bytes a line
/// with a token.
class LineIndex {
 public:
  static constexpr uint32_t kAnchorEvery = 256;

  /// A line with a token.
  struct LineBegin {
    Place Token;
    uint32_t Line;
  };

  /// Tells that the next line belongs to another text.
  void BeginSource() { first_ = true; }
  /// Call it for each line before its words are taken. `resumable`: its words do not depend on the lines
  /// before it. The first line of a text always is.
  void AtLine(const LineAnchor& line, bool resumable);

  /// Takes the lines of a piece of a text, in which offsets, line numbers and tokens are those of the piece.
  /// `placeOf` gives the place of a token.
  template <typename PlaceOf>
  void Append(const LineIndex& piece, uint64_t offset, uint32_t lines, PlaceOf placeOf) {
    for (const LineAnchor& a : piece.anchors_)
      anchors_.emplace_back(a.Offset() + offset, a.StartsLine(), placeOf(a.Token()), a.Line() + lines);
    for (const LineBegin& begin : piece.begins_) NoteBegin({placeOf(begin.Token), begin.Line + lines});
    if (!piece.anchors_.empty()) first_ = false;
  }
  /// Becomes empty and keeps its memory.
  void Clear() {
    anchors_.clear();
    begins_.clear();
    first_ = true;
  }

  /// In the order of reading.
  const std::vector<LineAnchor>& Anchors() const { return anchors_; }
  /// The last anchor with Token() <= token. There must be one. Cost: the logarithm of the anchors.
  const LineAnchor& Before(Place token) const;
  /// The first line of the text that `anchor`, one of Anchors(), belongs to. Linear in the anchors between.
  const LineAnchor& BeginOfText(const LineAnchor& anchor) const;
  /// The anchor at the start of the line that `anchor`, one of Anchors(), is a piece of.
  const LineAnchor& LineOf(const LineAnchor& anchor) const;
  /// The number, from 1, of the line in its text that `token` was cut from; 0 where the run kept no lines.
  /// Cost: the logarithm of the lines.
  uint32_t LineNumber(Place token) const;

  /// The begins of lines with a token: ascend by token, which no two have in common.
  const GrowingArray<LineBegin>& Begins() const { return begins_; }
  /// Becomes the index that had these once. False, and nothing taken, where no index has: its first anchor
  /// begins a text, and the rules above hold. Linear.
  bool Restore(std::vector<LineAnchor> anchors, GrowingArray<LineBegin> begins);

 private:
  void NoteBegin(LineBegin begin);

  std::vector<LineAnchor> anchors_;
  GrowingArray<LineBegin> begins_;
  LineAnchor lineStart_;
  bool first_ = true;
};

}  // namespace korv
