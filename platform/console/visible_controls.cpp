#include "platform/console/visible_controls.h"

namespace korv {

namespace {

void AppendHex(unsigned char byte, std::string& text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text += "\\x";
  text += kDigits[byte >> 4];
  text += kDigits[byte & 0xF];
}

}  // namespace

std::string WithVisibleControls(std::string_view text) {
  constexpr unsigned char kDelete = 0x7F;
  // U+0080 to U+009F, which some terminals take for ESC and a letter.
  constexpr unsigned char kLeadOfC1 = 0xC2;
  constexpr unsigned char kLastOfC1 = 0x9F;
  std::string visible;
  visible.reserve(text.size());
  for (size_t at = 0; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = at + 1 < text.size() ? static_cast<unsigned char>(text[at + 1]) : 0U;
    if (byte == kLeadOfC1 && next >= 0x80 && next <= kLastOfC1) {
      AppendHex(static_cast<unsigned char>(next), visible);
      ++at;
    } else if ((byte < ' ' && byte != '\n' && byte != '\t') || byte == kDelete) {
      AppendHex(byte, visible);
    } else {
      visible += text[at];
    }
  }
  return visible;
}

}  // namespace korv
