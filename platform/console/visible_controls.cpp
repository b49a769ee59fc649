#include "platform/console/visible_controls.h"

namespace korv {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

void AppendHex(unsigned char byte, std::string& text) {
  text += "\\x";
  text += kDigits[byte >> 4];
  text += kDigits[byte & 0xF];
}

/// Whether the text begins with a sign that lets what follows be shown in another order, U+202A to U+202E or
/// U+2066 to U+2069.
bool TurnsAround(std::string_view text) {
  if (text.size() < 3 || text[0] != '\xE2') return false;
  return (text[1] == '\x80' && text[2] >= '\xAA' && text[2] <= '\xAE') ||
         (text[1] == '\x81' && text[2] >= '\xA6' && text[2] <= '\xA9');
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
    } else if (TurnsAround(text.substr(at))) {
      visible += text[at + 1] == '\x80' ? "\\u202" : "\\u206";
      visible += kDigits[static_cast<unsigned char>(text[at + 2]) & 0xF];
      at += 2;
    } else if ((byte < ' ' && byte != '\n' && byte != '\t') || byte == kDelete) {
      AppendHex(byte, visible);
    } else {
      visible += text[at];
    }
  }
  return visible;
}

}  // namespace korv
