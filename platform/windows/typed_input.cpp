#include "platform/windows/typed_input.h"

#include <algorithm>

#include "platform/windows/wide_text.h"

namespace korv {

namespace {

constexpr wchar_t kCtrlZ = 0x1A;

bool IsFirstHalf(wchar_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

/// Where the text ends: at a Ctrl-Z that begins a line.
size_t EndOf(std::wstring_view units, bool atLineBegin) {
  for (size_t k = 0; k < units.size(); ++k) {
    if (units[k] == kCtrlZ && atLineBegin) return k;
    atLineBegin = units[k] == L'\n';
  }
  return std::wstring_view::npos;
}

}  // namespace

size_t TypedInput::Read(std::span<char> buffer) {
  while (bytes_.empty() && !ended_) ReadMore();
  const size_t count = std::min(buffer.size(), bytes_.size());
  std::copy_n(bytes_.begin(), count, buffer.begin());
  bytes_.erase(0, count);
  return count;
}

void TypedInput::ReadMore() {
  // The console hands out a line at a time; a longer one comes in pieces.
  wchar_t units[4096];
  const size_t count = read_(units);
  Take({units, count});
}

void TypedInput::Take(std::wstring_view units) {
  const size_t end = units.empty() ? 0 : EndOf(units, atLineBegin_);
  ended_ = end != units.npos;
  std::wstring text = pending_ != 0 ? std::wstring(1, pending_) : std::wstring();
  text += units.substr(0, end);
  pending_ = 0;
  if (text.empty()) return;
  atLineBegin_ = text.back() == L'\n';
  if (!ended_ && IsFirstHalf(text.back())) {
    pending_ = text.back();
    text.pop_back();
  }
  bytes_ += ToUtf8(text);
}

}  // namespace korv
