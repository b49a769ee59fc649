#include "sources/places/raw_line.h"

#include <algorithm>

#include "engine/text/unicode.h"

namespace korv {

RawLine::RawLine(std::string_view bytes, TextEncoding encoding, bool startsLine, bool hasEntities)
    : bytes_(bytes), encoding_(encoding) {
  if (!hasEntities || bytes.find('&') == std::string_view::npos) return;
  std::string cut(DecodeText(bytes, encoding, buffer_));
  ReplaceDoubleHyphensInPlace(cut, startsLine ? 0 : 2);
  ReplaceNamedEntities(cut, &entities_);
}

RawSpan RawLine::Find(size_t begin, size_t end) {
  const size_t from = OldBegin(begin);
  if (from < begins_.Decoded) begins_ = {};
  RawSpan span = Begin(begins_, from);
  const size_t to = OldEnd(end);
  if (to <= ends_.Decoded) ends_ = {};
  span.End = End(ends_, to);
  return span;
}

/// Where byte `at` of the cut line comes from in the decoded one; of an entity, its first byte.
size_t RawLine::OldBegin(size_t at) const {
  const auto after = std::upper_bound(entities_.begin(), entities_.end(), at,
                                      [](size_t a, const ReplacedEntity& e) { return a < e.Begin; });
  if (after == entities_.begin()) return at;
  const ReplacedEntity& entity = *(after - 1);
  const size_t end = entity.Begin + entity.Size;
  return at < end ? entity.OldBegin : entity.OldBegin + entity.OldSize + (at - end);
}

/// The same for an end, which lies behind whole entities.
size_t RawLine::OldEnd(size_t end) const {
  const auto after = std::lower_bound(entities_.begin(), entities_.end(), end,
                                      [](const ReplacedEntity& e, size_t a) { return e.Begin < a; });
  if (after == entities_.begin()) return end;
  const ReplacedEntity& entity = *(after - 1);
  return entity.OldBegin + entity.OldSize + (end - std::min(end, entity.Begin + entity.Size));
}

size_t RawLine::PastCharacter(size_t raw) const {
  if (encoding_ != TextEncoding::Utf8) return raw + 1;
  NextCharacter(bytes_, raw);
  return raw;
}

size_t RawLine::DecodedSize(size_t begin, size_t end) const {
  return DecodeText(bytes_.substr(begin, end - begin), encoding_, buffer_).size();
}

/// Whether the character joins none before it. What is dropped stands in the way of none, so it begins
/// nothing.
bool RawLine::BeginsSegment(size_t begin, size_t end) const {
  if (encoding_ != TextEncoding::Utf8) return true;
  const std::string_view decoded = DecodeText(bytes_.substr(begin, end - begin), encoding_, buffer_);
  return !decoded.empty() && IsCertainlyNfc(decoded);
}

size_t RawLine::EndOfSegment(size_t raw) const {
  size_t end = PastCharacter(raw);
  while (end < bytes_.size()) {
    const size_t past = PastCharacter(end);
    if (BeginsSegment(end, past)) break;
    end = past;
  }
  return end;
}

/// To the segment that byte `decoded` of the decoded line belongs to, or to the end.
void RawLine::Advance(Pass& pass, size_t decoded) const {
  while (pass.Raw < bytes_.size()) {
    if (pass.AsciiEnd <= pass.Raw) pass.AsciiEnd = PastAscii(bytes_, pass.Raw);
    // The last one may be joined by what follows.
    if (pass.AsciiEnd > pass.Raw + 1) {
      const size_t steps = std::min(pass.AsciiEnd - pass.Raw - 1, decoded - pass.Decoded);
      pass.Raw += steps;
      pass.Characters += steps;
      pass.Decoded += steps;
      if (pass.Decoded == decoded) return;
    }
    const size_t end = EndOfSegment(pass.Raw);
    const size_t size = DecodedSize(pass.Raw, end);
    if (decoded < pass.Decoded + size) return;
    pass.Decoded += size;
    for (; pass.Raw < end; ++pass.Characters) pass.Raw = PastCharacter(pass.Raw);
  }
}

/// Of the character that byte `decoded` comes from first.
RawSpan RawLine::Begin(Pass& pass, size_t decoded) const {
  Advance(pass, decoded);
  RawSpan span{pass.Raw, pass.Raw, pass.Characters};
  while (span.Begin < bytes_.size()) {
    const size_t past = PastCharacter(span.Begin);
    if (pass.Decoded + DecodedSize(pass.Raw, past) > decoded) break;
    span.Begin = past;
    ++span.Characters;
  }
  return span;
}

/// Behind the last character that adds to the bytes before `decodedEnd`.
size_t RawLine::End(Pass& pass, size_t decodedEnd) const {
  Advance(pass, decodedEnd - 1);
  const size_t segmentEnd = pass.Raw < bytes_.size() ? EndOfSegment(pass.Raw) : pass.Raw;
  size_t end = pass.Raw;
  size_t reached = pass.Decoded;
  while (end < segmentEnd) {
    const size_t past = PastCharacter(end);
    const size_t size = pass.Decoded + DecodedSize(pass.Raw, past);
    if (reached >= decodedEnd && (size > decodedEnd || DecodedSize(end, past) == 0)) break;
    end = past;
    reached = size;
  }
  return end;
}

}  // namespace korv
