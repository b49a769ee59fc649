#include "report/writers/sheet_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace korv {

namespace {

constexpr std::string_view kReplacement = "\uFFFD";
constexpr std::string_view kEllipsis = "\u2026";
/// How "_" is written where it would begin the number of a character.
constexpr std::string_view kUnderscore = "_x005F_";

bool IsHex(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

/// Whether `text` begins like the number of a character: "_x0041_".
bool BeginsWithNumber(std::string_view text) {
  constexpr size_t kLength = 7;
  return text.size() >= kLength && text.starts_with("_x") && text[kLength - 1] == '_' &&
         std::all_of(text.begin() + 2, text.begin() + kLength - 1, IsHex);
}

/// How the first character of `text` is written.
std::string_view Written(std::string_view text, const Utf8Sequence& sequence) {
  const std::string_view character = text.substr(0, sequence.Length);
  if (sequence.Kind != Utf8Kind::WellFormed || character == std::string_view("\0", 1)) return kReplacement;
  // U+FFFE and U+FFFF are no characters of XML.
  if (character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF") return kReplacement;
  return BeginsWithNumber(text) ? kUnderscore : character;
}

/// In UTF-16.
size_t Units(std::string_view written) {
  constexpr size_t kBytesOfPair = 4;
  if (written == kUnderscore) return kUnderscore.size();
  return written.size() == kBytesOfPair ? 2 : 1;
}

}  // namespace

std::string TakeSheetText(std::string_view& text, size_t most) {
  std::string taken;
  taken.reserve(std::min(text.size(), most));
  size_t units = 0;
  while (!text.empty()) {
    const Utf8Sequence sequence = Utf8SequenceAt(text, 0);
    const std::string_view written = Written(text, sequence);
    units += Units(written);
    if (units > most && !taken.empty()) break;
    taken += written;
    text.remove_prefix(sequence.Length);
  }
  return taken;
}

std::string SheetText(std::string_view text, size_t most) {
  std::string_view rest = text;
  std::string whole = TakeSheetText(rest, most);
  if (rest.empty()) return whole;
  return TakeSheetText(text, most - 1) += kEllipsis;
}

}  // namespace korv
