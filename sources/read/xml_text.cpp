#include "sources/read/xml_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/text/unicode.h"

namespace korv {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::string_view kBlanks = " \t\r\n";

bool EndsName(char c) {
  return c == '>' || c == '/' || kBlanks.find(c) != kNone;
}

struct Reference {
  char32_t Character;
  size_t Length;  // In bytes, "&" and ";" included.
};

constexpr int kNoDigit = 99;

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return kNoDigit;
}

// "&#65;" or "&#x41;" at the beginning of `raw`.
std::optional<Reference> NumericReference(std::string_view raw) {
  constexpr uint32_t kBeyond = 0x110000;
  const bool isHexadecimal = raw.substr(2, 1) == "x";
  const int base = isHexadecimal ? 16 : 10;
  const size_t first = isHexadecimal ? 3 : 2;
  uint32_t value = 0;
  size_t at = first;
  for (; at < raw.size() && DigitValue(raw[at]) < base; ++at)
    value =
        std::min(kBeyond, value * static_cast<uint32_t>(base) + static_cast<uint32_t>(DigitValue(raw[at])));
  const bool isWhole = at > first && at < raw.size() && raw[at] == ';';
  const bool isCharacter = value != 0 && value < kBeyond && (value < 0xD800 || value > 0xDFFF);
  if (!isWhole || !isCharacter) return std::nullopt;
  return Reference{value, at + 1};
}

std::optional<Reference> ReferenceAt(std::string_view raw) {
  struct Named {
    std::string_view Name;
    char32_t Character;
  };
  static constexpr std::array<Named, 5> kNamed = {
      {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
  if (raw.starts_with("&#")) return NumericReference(raw);
  const auto named = std::ranges::find_if(kNamed, [&](const Named& n) { return raw.starts_with(n.Name); });
  if (named == kNamed.end()) return std::nullopt;
  return Reference{named->Character, named->Name.size()};
}

}  // namespace

bool IsXmlTag(std::string_view rest, std::string_view start) {
  return rest.starts_with(start) && rest.size() > start.size() && EndsName(rest[start.size()]);
}

size_t XmlTagEnd(std::string_view xml, size_t at) {
  char quote = 0;
  for (; at < xml.size(); ++at) {
    const char c = xml[at];
    if (quote != 0)
      quote = c == quote ? '\0' : quote;
    else if (c == '"' || c == '\'')
      quote = c;
    else if (c == '>')
      return at;
  }
  return kNone;
}

std::optional<std::string> XmlAttribute(std::string_view tag, std::string_view name) {
  size_t at = tag.find_first_of(kBlanks);
  while ((at = tag.find_first_not_of(kBlanks, at)) != kNone) {
    const size_t equals = tag.find('=', at);
    const size_t open = tag.find_first_of("\"'", equals);
    if (equals == kNone || open == kNone) return std::nullopt;
    const size_t close = tag.find(tag[open], open + 1);
    if (close == kNone) return std::nullopt;
    const std::string_view found = tag.substr(at, tag.find_first_of(" \t\r\n=", at) - at);
    if (found == name) {
      std::string value;
      AppendXmlDecoded(tag.substr(open + 1, close - open - 1), value);
      return value;
    }
    at = close + 1;
  }
  return std::nullopt;
}

void AppendXmlDecoded(std::string_view raw, std::string& text) {
  while (!raw.empty()) {
    const size_t plain = std::min(raw.find('&'), raw.size());
    text.append(raw, 0, plain);
    raw.remove_prefix(plain);
    if (raw.empty()) return;
    if (const auto reference = ReferenceAt(raw)) {
      AppendCharacter(reference->Character, text);
      raw.remove_prefix(reference->Length);
    } else {
      text += '&';
      raw.remove_prefix(1);
    }
  }
}

}  // namespace korv
