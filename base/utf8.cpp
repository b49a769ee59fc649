#include "base/utf8.h"

namespace korv {

namespace {

// What the second byte after a lead byte may be, and how many bytes there are in all.
struct Lead {
  size_t Length;
  unsigned char Low;
  unsigned char High;
};

Lead LeadOf(unsigned char byte) {
  if (byte < 0xC2 || byte > 0xF4) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte < 0xF0) {
    const unsigned char low = byte == 0xE0 ? 0xA0 : 0x80;
    const unsigned char high = byte == 0xED ? 0x9F : 0xBF;
    return {3, low, high};
  }
  const unsigned char low = byte == 0xF0 ? 0x90 : 0x80;
  const unsigned char high = byte == 0xF4 ? 0x8F : 0xBF;
  return {4, low, high};
}

}  // namespace

Utf8Sequence Utf8SequenceAt(std::string_view text, size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  if (first < 0x80) return {Utf8Kind::WellFormed, 1};
  Lead lead = LeadOf(first);
  if (lead.Length == 0) return {Utf8Kind::IllFormed, 1};
  for (size_t k = 1; k < lead.Length; ++k) {
    if (at + k == text.size()) return {Utf8Kind::CutOff, k};
    const auto byte = static_cast<unsigned char>(text[at + k]);
    if (byte < lead.Low || byte > lead.High) return {Utf8Kind::IllFormed, k};
    lead.Low = 0x80;
    lead.High = 0xBF;
  }
  return {Utf8Kind::WellFormed, lead.Length};
}

std::string MendedUtf8(std::string_view text) {
  std::string mended;
  mended.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    const Utf8Sequence sequence = Utf8SequenceAt(text, at);
    if (sequence.Kind == Utf8Kind::WellFormed)
      mended.append(text, at, sequence.Length);
    else
      mended.append("\xEF\xBF\xBD");
    at += sequence.Length;
  }
  return mended;
}

}  // namespace korv
