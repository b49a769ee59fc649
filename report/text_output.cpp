#include "report/text_output.h"

#include <algorithm>

#include "base/translation.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {
constexpr size_t kPiece = 2048;
}  // namespace

TextBoxReportSink::TextBoxReportSink(TextOutput& box) : box_(box) {
  UpdatePieceSize();
}

bool TextBoxReportSink::Write(std::string_view piece) {
  const bool taken = box_.OutputToTxb(piece);
  UpdatePieceSize();
  if (taken) {
    size_t from = 0;
    for (const size_t end : endsInPiece_) {
      taken_ += CharacterCount(piece.substr(from, end - from));
      ends_.push_back(taken_);
      from = end;
    }
    taken_ += CharacterCount(piece.substr(from));
  }
  endsInPiece_.clear();
  return taken;
}

uint32_t TextBoxReportSink::PhrasesWithin(size_t characters) const {
  return static_cast<uint32_t>(std::ranges::upper_bound(ends_, characters) - ends_.begin());
}

void TextBoxReportSink::UpdatePieceSize() {
  // Bytes are at least as many as characters, so near the end pieces become shorter than they need be,
  // never longer.
  pieceSize_ = std::min(kPiece, box_.Room());
}

ListResult ListWordsToTextBox(const Report& report, TextOutput& box, Yielder& yielder) {
  box.Clear();
  TextBoxReportSink sink(box);
  ListResult result = ListWords(report, {.SkippedFiles = true}, sink, yielder);
  if (result.Outcome == ListOutcome::Stopped)
    box.OutputToTxb(std::string("\r\n") + Tr("Listing stopped.") + "\r\n");
  // The notice that the box is full takes the place of the last lines.
  if (box.Full()) result.Shown = sink.PhrasesWithin(box.Kept());
  return result;
}

}  // namespace korv
