#pragma once

#include <cstddef>
#include <string_view>

namespace korv {

/// Where the text of a report goes. It only carries what it is given.
class ReportSink {
 public:
  virtual ~ReportSink() = default;
  /// Takes the next piece of the report, whole characters and mostly whole lines. False when it takes no
  /// more.
  virtual bool Write(std::string_view piece) = 0;
  /// Pieces are handed over once they exceed this many bytes.
  virtual size_t PieceSize() const = 0;
  /// The text of one more phrase ends here: after `bytes` of the piece that comes next.
  virtual void PhraseEnds(size_t /*bytes*/) {}
};

}  // namespace korv
