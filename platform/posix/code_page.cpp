#include "platform/code_page.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace korv {

namespace {

class Converter {
 public:
  explicit Converter(const std::string& name) : handle_(::iconv_open(name.c_str(), "UTF-8")) {}
  Converter(Converter&& other) noexcept : handle_(std::exchange(other.handle_, kNone)) {}
  Converter& operator=(Converter&&) = delete;
  ~Converter() {
    if (Known()) ::iconv_close(handle_);
  }
  bool Known() const { return handle_ != kNone; }
  iconv_t Handle() const { return handle_; }

 private:
  static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
  iconv_t handle_;
};

size_t LengthOfCharacter(std::string_view text) {
  const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  return static_cast<size_t>(std::find_if_not(text.begin() + 1, text.end(), continues) - text.begin());
}

class IconvCodePage final : public CodePage {
 public:
  explicit IconvCodePage(Converter converter) : converter_(std::move(converter)) {}

  void Encode(std::string_view text, std::string& bytes) override {
    while (!text.empty()) {
      if (Convert(text, bytes)) continue;
      // Encodings with shifts must be back at ASCII before the "?" and at the end of a piece.
      Unshift(bytes);
      if (text.empty()) break;
      bytes += '?';
      text.remove_prefix(LengthOfCharacter(text));
    }
    Unshift(bytes);
  }

 private:
  /// Takes what it converts off `text`; false where a character stands that cannot be converted.
  bool Convert(std::string_view& text, std::string& bytes) {
    char buffer[4096];
    char* out = buffer;
    size_t room = sizeof buffer;
    // iconv() takes its input as changeable for historical reasons and leaves it alone.
    char* in = const_cast<char*>(text.data());
    size_t left = text.size();
    const size_t result = ::iconv(converter_.Handle(), &in, &left, &out, &room);
    const int error = errno;
    bytes.append(buffer, out);
    text.remove_prefix(text.size() - left);
    return result != static_cast<size_t>(-1) || error == E2BIG;
  }

  void Unshift(std::string& bytes) {
    char buffer[16];
    char* out = buffer;
    size_t room = sizeof buffer;
    ::iconv(converter_.Handle(), nullptr, nullptr, &out, &room);
    bytes.append(buffer, out);
  }

  Converter converter_;
};

bool NeedsNoConversion(const std::string& name) {
  static constexpr std::string_view kNames[] = {"UTF-8", "utf-8", "UTF8",     "utf8",
                                                "",      "ASCII", "US-ASCII", "ANSI_X3.4-1968"};
  return std::ranges::find(kNames, name) != std::end(kNames);
}

}  // namespace

std::unique_ptr<CodePage> CodePageOfName(const std::string& name) {
  if (NeedsNoConversion(name)) return nullptr;
  Converter converter(name);
  if (!converter.Known()) return nullptr;
  return std::make_unique<IconvCodePage>(std::move(converter));
}

std::unique_ptr<CodePage> SystemCodePage() {
  const locale_t locale = ::newlocale(LC_CTYPE_MASK, "", locale_t{});
  if (locale == locale_t{}) return nullptr;
  const std::string name = ::nl_langinfo_l(CODESET, locale);
  ::freelocale(locale);
  return CodePageOfName(name);
}

}  // namespace korv
