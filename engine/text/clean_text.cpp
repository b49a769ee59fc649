#include "engine/text/clean_text.h"

#include "engine/text/unicode.h"

namespace korv {
namespace {

constexpr std::string_view kReplacement = "\uFFFD";

unsigned char ByteAt(std::string_view text, size_t at) {
  return static_cast<unsigned char>(text[at]);
}

/// Whether `character` is replaced, and by which text. U+FFFD may stand for an ill-formed sequence.
bool IsReplaced(char32_t character, std::string_view& by) {
  switch (character) {
    case U'\u00AD':
    case U'\u2060':
    case U'\uFEFF':
      by = {};
      return true;
    case U'\u2010':
    case U'\u2011':
      by = "-";
      return true;
    case U'\u2018':
    case U'\u2019':
      by = "'";
      return true;
    case U'\u201D':
      by = "\"";
      return true;
    case kReplacementCharacter:
      by = kReplacement;
      return true;
    default:
      return false;
  }
}

/// The offset from `at` on of the first sequence that is replaced; the size of the text where there is none.
size_t SkipFaithful(std::string_view text, size_t at) {
  constexpr unsigned char kSoftHyphenLead = 0xC2;
  while (at < text.size()) {
    const unsigned char lead = ByteAt(text, at);
    if (lead < 0x80) {
      at = PastAscii(text, at);
    } else if (lead > kSoftHyphenLead && lead <= 0xDF && at + 1 < text.size() &&
               (ByteAt(text, at + 1) & 0xC0) == 0x80) {
      at += 2;
    } else {
      const size_t begin = at;
      std::string_view by;
      if (IsReplaced(NextCharacter(text, at), by)) return begin;
    }
  }
  return at;
}

}  // namespace

std::string_view CleanText(std::string_view text, std::string& buffer, uint64_t* illFormed) {
  size_t at = SkipFaithful(text, 0);
  std::string_view clean = text;
  if (at < text.size()) {
    buffer.assign(text.substr(0, at));
    uint64_t faults = 0;
    while (at < text.size()) {
      const size_t begin = at;
      std::string_view by;
      IsReplaced(NextCharacter(text, at), by);
      buffer += by;
      // The replacement character may also stand in the text itself.
      faults += by == kReplacement && text.substr(begin, at - begin) != kReplacement;
      const size_t next = SkipFaithful(text, at);
      buffer.append(text, at, next - at);
      at = next;
    }
    if (illFormed != nullptr) *illFormed += faults;
    clean = buffer;
  }
  if (IsCertainlyNfc(clean)) return clean;
  buffer = ToNfc(clean);
  return buffer;
}

std::string CleanText(std::string_view text) {
  std::string buffer;
  return std::string(CleanText(text, buffer));
}

}  // namespace korv
