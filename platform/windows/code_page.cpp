#include "platform/code_page.h"

#include <windows.h>

#include <charconv>

namespace korv {

namespace {

/// No character outside the basic plane is in any code page that a system can be set to, and the converter
/// would write two replacements for it.
std::string WithinBasicPlane(std::string_view text) {
  std::string within;
  within.reserve(text.size());
  for (size_t k = 0; k < text.size(); ++k) {
    const auto byte = static_cast<unsigned char>(text[k]);
    if (byte < 0xF0) {
      within += text[k];
      continue;
    }
    within += '?';
    while (k + 1 < text.size() && (static_cast<unsigned char>(text[k + 1]) & 0xC0) == 0x80) ++k;
  }
  return within;
}

// A letter that merely looks alike would be another word.
constexpr DWORD kHow = WC_NO_BEST_FIT_CHARS;
constexpr const char* kReplacement = "?";

/// Some encodings, with shifts or for all characters there are, want to be asked otherwise; no system is set
/// to one of these.
bool CanBeAsked(UINT number) {
  return WideCharToMultiByte(number, kHow, L"a", 1, nullptr, 0, kReplacement, nullptr) == 1;
}

class WindowsCodePage final : public CodePage {
 public:
  explicit WindowsCodePage(UINT number) : number_(number) {}

  void Encode(std::string_view text, std::string& bytes) override {
    if (text.empty()) return;
    const std::string within = WithinBasicPlane(text);
    const int size = static_cast<int>(within.size());
    std::wstring wide(within.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, within.data(), size, wide.data(), size);
    const auto convert = [&](char* out, int room) {
      return WideCharToMultiByte(number_, kHow, wide.data(), length, out, room, kReplacement, nullptr);
    };
    const size_t before = bytes.size();
    const int needed = convert(nullptr, 0);
    bytes.resize(before + static_cast<size_t>(needed));
    convert(bytes.data() + before, needed);
  }

 private:
  UINT number_;
};

std::unique_ptr<CodePage> CodePageOfNumber(UINT number) {
  constexpr UINT kAscii = 20127;
  if (number == CP_UTF8 || number == kAscii || !CanBeAsked(number)) return nullptr;
  return std::make_unique<WindowsCodePage>(number);
}

}  // namespace

std::unique_ptr<CodePage> CodePageOfName(const std::string& name) {
  UINT number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc{} || end != name.data() + name.size()) return nullptr;
  return CodePageOfNumber(number);
}

std::unique_ptr<CodePage> SystemCodePage() {
  return CodePageOfNumber(GetACP());
}

}  // namespace korv
