#include "platform/locale_numbers.h"

#include <windows.h>

#include <optional>

#include "platform/windows/wide_text.h"

namespace korv {

namespace {

std::optional<std::string> LocaleText(const wchar_t* locale, LCTYPE what) {
  wchar_t wide[32];
  const int length = GetLocaleInfoEx(locale, what, wide, static_cast<int>(std::size(wide)));
  if (length <= 0) return std::nullopt;
  return ToUtf8({wide, static_cast<size_t>(length) - 1});
}

/// Here groups are written "3;2;0": a final 0 means that the last size is repeated, its absence that the
/// grouping ends there.
std::string GroupSizes(const std::string& written) {
  std::string sizes;
  bool repeated = false;
  for (const char c : written) {
    if (c == '0') repeated = true;
    if (c >= '1' && c <= '9') sizes += static_cast<char>(c - '0');
  }
  if (!sizes.empty() && !repeated) sizes += '\0';
  return sizes;
}

/// Newer systems take every name that is well-formed, and find nothing behind those that are nobody's.
bool IsLocale(const wchar_t* name) {
  wchar_t found[LOCALE_NAME_MAX_LENGTH];
  constexpr int kEmptyName = 1;  // Its end alone.
  return IsValidLocaleName(name) &&
         ResolveLocaleName(name, found, static_cast<int>(std::size(found))) > kEmptyName;
}

}  // namespace

NumberFormat NumberFormatOfLocale(const std::string& name, bool& known) {
  // Names are written "de-DE" here; the form with an underscore and an encoding is understood too.
  std::string plain = name.substr(0, name.find('.'));
  for (char& c : plain)
    if (c == '_') c = '-';
  const std::wstring wide = ToWide(plain);
  const wchar_t* locale = plain.empty() ? LOCALE_NAME_USER_DEFAULT : wide.c_str();
  known = plain.empty() || plain == "C" || plain == "POSIX" || IsLocale(locale);
  if (!known) return {};
  NumberFormat format;
  if (plain == "C" || plain == "POSIX") {
    format.Grouping.clear();
    return format;
  }
  if (const auto point = LocaleText(locale, LOCALE_SDECIMAL)) format.DecimalPoint = *point;
  if (const auto separator = LocaleText(locale, LOCALE_STHOUSAND)) format.GroupSeparator = *separator;
  if (const auto groups = LocaleText(locale, LOCALE_SGROUPING)) format.Grouping = GroupSizes(*groups);
  if (const auto zero = LocaleText(locale, LOCALE_ILZERO)) format.LeadingZero = *zero != "0";
  if (format.GroupSeparator.empty()) format.Grouping.clear();
  return format;
}

}  // namespace korv
