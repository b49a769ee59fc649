#include "tests/reference/naive_decoding.h"

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

enum class SequenceKind { Well, Ill, Cut };

struct Sequence {
  SequenceKind Kind;
  size_t Length;
  char32_t Character;
};

/// Every range of bytes that begins a character, in words of the standard's table of well-formed sequences.
struct Form {
  unsigned char FirstLow, FirstHigh;    // The lead byte.
  unsigned char SecondLow, SecondHigh;  // What may follow it.
  size_t Length;
};
constexpr Form kForms[] = {
    {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};

Sequence SequenceAt(std::string_view bytes, size_t at) {
  const auto byte = [&](size_t k) { return static_cast<unsigned char>(bytes[k]); };
  for (const Form& form : kForms) {
    if (byte(at) < form.FirstLow || byte(at) > form.FirstHigh) continue;
    if (form.Length == 1) return {SequenceKind::Well, 1, byte(at)};
    char32_t code = byte(at) & (0x7Fu >> form.Length);
    for (size_t k = 1; k < form.Length; ++k) {
      if (at + k == bytes.size()) return {SequenceKind::Cut, k, U'\uFFFD'};
      const unsigned char low = k == 1 ? form.SecondLow : 0x80;
      const unsigned char high = k == 1 ? form.SecondHigh : 0xBF;
      if (byte(at + k) < low || byte(at + k) > high) return {SequenceKind::Ill, k, U'\uFFFD'};
      code = code << 6 | (byte(at + k) & 0x3Fu);
    }
    return {SequenceKind::Well, form.Length, code};
  }
  return {SequenceKind::Ill, 1, U'\uFFFD'};
}

std::u32string WithReplacements(const std::u32string& characters) {
  std::u32string clean;
  for (const char32_t c : characters) {
    if (c == U'\u00AD' || c == U'\u2060' || c == U'\uFEFF') continue;
    if (c == U'\u2010' || c == U'\u2011')
      clean += U'-';
    else if (c == U'\u2018' || c == U'\u2019')
      clean += U'\'';
    else if (c == U'\u201D')
      clean += U'"';
    else
      clean += c;
  }
  return clean;
}

std::u32string CharactersOfUtf8(std::string_view bytes, uint64_t& illFormed) {
  std::u32string characters;
  for (size_t at = 0; at < bytes.size();) {
    const Sequence sequence = SequenceAt(bytes, at);
    characters += sequence.Character;
    illFormed += sequence.Kind != SequenceKind::Well;
    at += sequence.Length;
  }
  return characters;
}

std::u32string CharactersOfAnsi(std::string_view bytes) {
  std::u32string characters;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte == 0xAD) continue;
    characters += byte == 0x91 || byte == 0x92 ? U'\'' : byte == 0x94 ? U'"' : char32_t{byte};
  }
  return characters;
}

}  // namespace

std::vector<std::string_view> BytesOfLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  size_t begin = 0;
  for (size_t at = 0; at < bytes.size(); ++at) {
    if (bytes[at] != '\r' && bytes[at] != '\n') continue;
    lines.push_back(bytes.substr(begin, at - begin));
    if (bytes.substr(at, 2) == "\r\n") ++at;
    begin = at + 1;
  }
  if (begin < bytes.size()) lines.push_back(bytes.substr(begin));
  return lines;
}

std::u32string RawCharacters(std::string_view bytes, bool isUtf8) {
  uint64_t illFormed = 0;
  if (isUtf8) return CharactersOfUtf8(bytes, illFormed);
  std::u32string characters;
  for (const char c : bytes) characters += static_cast<unsigned char>(c);
  return characters;
}

std::u32string WithReplacements(const std::u32string& characters, bool isUtf8) {
  if (isUtf8) return WithReplacements(characters);
  std::string bytes;
  for (const char32_t c : characters) bytes += static_cast<char>(c);
  return CharactersOfAnsi(bytes);
}

bool TakesForUtf8(std::string_view bytes) {
  size_t first = 0;
  while (first < bytes.size() && static_cast<unsigned char>(bytes[first]) <= 127) ++first;
  const std::string_view sample = bytes.substr(first, 16384);
  int well = 0;
  int ill = 0;
  for (size_t at = 0; at < sample.size();) {
    const Sequence sequence = SequenceAt(sample, at);
    if (sequence.Kind == SequenceKind::Well && sequence.Length > 1) ++well;
    if (sequence.Kind == SequenceKind::Ill) ++ill;
    at += sequence.Length;
  }
  return well >= 1 && ill * 20 <= ill + well;
}

DecodedText DecodeBytes(std::string_view bytes, bool isUtf8) {
  DecodedText decoded;
  decoded.IsUtf8 = isUtf8;
  for (const std::string_view line : BytesOfLines(bytes)) {
    if (isUtf8)
      decoded.Lines.push_back(Nfc(Encode(WithReplacements(CharactersOfUtf8(line, decoded.IllFormed)))));
    else
      decoded.Lines.push_back(Encode(CharactersOfAnsi(line)));
  }
  return decoded;
}

std::string Clean(std::string_view text) {
  uint64_t illFormed = 0;
  return Nfc(Encode(WithReplacements(CharactersOfUtf8(text, illFormed))));
}

}  // namespace korv::reference
