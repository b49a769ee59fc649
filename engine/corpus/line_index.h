#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/corpus/indices.h"

namespace korv {

/// A line of a text, or a piece of a long one, at which reading may be taken up again.
class LineAnchor {
 public:
  LineAnchor() = default;
  LineAnchor(uint64_t offset, bool startsLine, Place token, uint32_t line)
      : offsetAndStart_(offset << 1 | uint64_t{startsLine}), token_(token), line_(line) {}

  /// Of its first byte: in the file, or in the text extracted from it.
  uint64_t Offset() const { return offsetAndStart_ >> 1; }
  /// False for a piece that goes on a line.
  bool StartsLine() const { return (offsetAndStart_ & 1) != 0; }
  /// Index of the first token that it may give.
  Place Token() const { return token_; }
  /// Counted from 1.
  uint32_t Line() const { return line_; }

 private:
  uint64_t offsetAndStart_ = 0;
  Place token_{};
  uint32_t line_ = 0;
};
static_assert(sizeof(LineAnchor) == 16);

/// Leads from a token back to the lines of the texts: about every kAnchorEvery tokens, and at the begin of
/// each text, it remembers the line that was read then. Where pieces of a long line are remembered, its begin
/// is too. 16 bytes an anchor, a sixteenth of a byte a word at most but in texts of few words.
class LineIndex {
 public:
  static constexpr uint32_t kAnchorEvery = 256;

  /// The next line belongs to another text.
  void BeginSource() { first_ = true; }
  /// Before a line's words are taken. `resumable`: nothing is known of the lines before that this one's words
  /// depend on. The first line of a text always is.
  void AtLine(const LineAnchor& line, bool resumable);

  /// In the order of tokens and of reading.
  const std::vector<LineAnchor>& Anchors() const { return anchors_; }
  /// The last anchor whose token is `token` or one before it; there must be one. Logarithmic.
  const LineAnchor& Before(Place token) const;
  /// The first line of the text that `anchor`, one of Anchors(), belongs to. Linear in what lies between.
  const LineAnchor& BeginOfText(const LineAnchor& anchor) const;
  /// The begin of the line that `anchor`, one of Anchors(), is a piece of.
  const LineAnchor& LineOf(const LineAnchor& anchor) const;

 private:
  std::vector<LineAnchor> anchors_;
  LineAnchor lineStart_;
  bool first_ = true;
};

}  // namespace korv
