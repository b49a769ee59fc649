#include "report/writers/json_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace korv {

namespace {

bool NeedsEscape(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void AppendEscaped(char c, std::string& to) {
  static constexpr char kHexDigits[] = "0123456789abcdef";
  switch (c) {
    case '"':
    case '\\':
      to += '\\';
      to += c;
      break;
    case '\n':
      to += "\\n";
      break;
    case '\r':
      to += "\\r";
      break;
    case '\t':
      to += "\\t";
      break;
    default:
      to += "\\u00";
      to += kHexDigits[static_cast<unsigned char>(c) >> 4];
      to += kHexDigits[c & 0xF];
  }
}

}  // namespace

std::string_view JsonText::Of(std::string_view text) {
  const std::string mended =
      std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) >= 0; }) ? std::string()
                                                                                         : MendedUtf8(text);
  if (!mended.empty()) text = mended;
  quoted_ = '"';
  for (const char c : text) {
    if (NeedsEscape(c))
      AppendEscaped(c, quoted_);
    else
      quoted_ += c;
  }
  quoted_ += '"';
  return quoted_;
}

}  // namespace korv
