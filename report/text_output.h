#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "report/list_words.h"

namespace korv {

/// Output to a text box, whose room is limited: once it has refused a text it says that it is full, and what
/// comes later is ignored until it is cleared.
class TextOutput {
 public:
  virtual ~TextOutput() = default;
  /// Appends a text, whole: it may go beyond the capacity, the next one then finds the box full. False
  /// when it was not taken.
  virtual bool OutputToTxb(std::string_view text) = 0;
  /// Empties the box; it takes text again.
  virtual void Clear() = 0;
  virtual bool Full() const = 0;
  /// Characters of what was appended that a full box still shows, above the notice that it is full.
  virtual size_t Kept() const = 0;
  /// Characters that the box takes before it is full.
  virtual size_t Room() const = 0;
};

/// Hands a listing to the box in pieces of a couple of thousand characters, so that the user sees it grow.
/// The last piece before the box is full ends with the line that passes its capacity.
class TextBoxReportSink final : public ReportSink {
 public:
  explicit TextBoxReportSink(TextOutput& box);
  bool Write(std::string_view piece) override;
  size_t PieceSize() const override { return pieceSize_; }
  void PhraseEnds(size_t bytes) override { endsInPiece_.push_back(bytes); }

  /// How many phrases end within the first `characters` characters of what the box took. The listing has to
  /// be the first thing in the box.
  uint32_t PhrasesWithin(size_t characters) const;

 private:
  // Asked for once per line of the report, whereas a window's text box may have to count its characters.
  void UpdatePieceSize();

  TextOutput& box_;
  size_t pieceSize_ = 0;
  std::vector<size_t> endsInPiece_;  ///< In bytes.
  std::vector<size_t> ends_;         ///< In characters; ascending, and as few as the box has room for.
  size_t taken_ = 0;                 ///< Characters.
};

/// Lists into the box, in place of what it holds, with the notice of a stop.
ListResult ListWordsToTextBox(const Report& report, TextOutput& box, Yielder& yielder);

}  // namespace korv
