#include "app/run/output_box.h"

#include "base/translation.h"

namespace korv {

namespace {
// What is cut off a full box makes room for the notice that it is full.
constexpr size_t kCutFrom = 1024;
constexpr size_t kCut = 256;
}  // namespace

bool OutputBox::OutputToTxb(std::string_view text) {
  if (full_) return false;
  if (box_.Length() > kTextBoxCapacity) {
    MarkFull();
    return false;
  }
  box_.Append(text);
  box_.ShowEnd();
  return true;
}

void OutputBox::Clear() {
  box_.Clear();
  full_ = false;
}

void OutputBox::Restore(std::string_view text, bool full, size_t kept) {
  Clear();
  box_.Append(text);
  full_ = full;
  kept_ = kept;
}

size_t OutputBox::Room() const {
  const size_t length = box_.Length();
  return full_ || length > kTextBoxCapacity ? 0 : kTextBoxCapacity - length;
}

void OutputBox::MarkFull() {
  hooks_.ClearBusy();
  const size_t length = box_.Length();
  if (length > kCutFrom) box_.Truncate(length - kCut);
  std::string notice = std::string("\r\n\r\n") + Tr("Textbox is full.");
  if (const std::string soFar = hooks_.CountSoFar(); !soFar.empty())
    notice += "\r\n\r\n" + Fill(Tr("To this point: %1"), {soFar});
  kept_ = box_.Length();
  box_.Append(notice);
  box_.ShowEnd();
  full_ = true;
}

}  // namespace korv
