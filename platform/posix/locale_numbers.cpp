#include <locale.h>
#include <wchar.h>

#include <memory>

#include "platform/locale_numbers.h"

namespace korv {

namespace {

struct FreeLocale {
  using pointer = locale_t;
  void operator()(locale_t locale) const { freelocale(locale); }
};
using LocaleHandle = std::unique_ptr<locale_t, FreeLocale>;

/// Makes a locale the calling thread's for as long as it lives; no other thread notices.
class LocaleInUse {
 public:
  explicit LocaleInUse(locale_t locale) : before_(uselocale(locale)) {}
  ~LocaleInUse() { uselocale(before_); }
  LocaleInUse(const LocaleInUse&) = delete;
  LocaleInUse& operator=(const LocaleInUse&) = delete;

 private:
  locale_t before_;
};

void AppendUtf8(uint32_t code, std::string& text) {
  const auto byte = [&](uint32_t value) { text += static_cast<char>(value); };
  if (code < 0x80) {
    byte(code);
  } else if (code < 0x800) {
    byte(0xC0 | (code >> 6));
    byte(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    byte(0xE0 | (code >> 12));
    byte(0x80 | ((code >> 6) & 0x3F));
    byte(0x80 | (code & 0x3F));
  } else {
    byte(0xF0 | (code >> 18));
    byte(0x80 | ((code >> 12) & 0x3F));
    byte(0x80 | ((code >> 6) & 0x3F));
    byte(0x80 | (code & 0x3F));
  }
}

/// A text in the encoding of the locale in use as UTF-8: separators may be no-break spaces of any kind.
std::string LocaleTextToUtf8(const char* text) {
  std::string utf8;
  mbstate_t state{};
  const char* end = text + std::char_traits<char>::length(text);
  while (text < end) {
    wchar_t wide = 0;
    const size_t taken = mbrtowc(&wide, text, static_cast<size_t>(end - text), &state);
    if (taken == 0 || taken > static_cast<size_t>(end - text)) break;
    AppendUtf8(static_cast<uint32_t>(wide), utf8);
    text += taken;
  }
  return utf8;
}

}  // namespace

NumberFormat NumberFormatOfLocale(const std::string& name, bool& known) {
  const LocaleHandle locale(newlocale(LC_NUMERIC_MASK | LC_CTYPE_MASK, name.c_str(), locale_t{}));
  known = locale != nullptr;
  if (!known) return {};
  const LocaleInUse inUse(locale.get());
  const lconv* conventions = localeconv();
  NumberFormat format;
  format.DecimalPoint = LocaleTextToUtf8(conventions->decimal_point);
  format.GroupSeparator = LocaleTextToUtf8(conventions->thousands_sep);
  format.Grouping = conventions->grouping;
  if (format.GroupSeparator.empty()) format.Grouping.clear();
  return format;
}

}  // namespace korv
