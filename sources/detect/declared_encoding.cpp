#include "sources/detect/declared_encoding.h"

#include <algorithm>
#include <array>

#include "sources/scan/find_marker.h"

namespace korv {

namespace {

using namespace std::string_view_literals;

struct Named {
  std::string_view Says;
  std::string_view Means;
};

/// UTF-32 first, for its signature begins as that of UTF-16 does.
constexpr std::array kSignatures = {
    Named{"\xFF\xFE\0\0"sv, "UTF-32LE"}, Named{"\0\0\xFE\xFF"sv, "UTF-32BE"}, Named{"\xFF\xFE"sv, "UTF-16LE"},
    Named{"\xFE\xFF"sv, "UTF-16BE"},     Named{"\xEF\xBB\xBF"sv, "UTF-8"},
};

/// What browsers take names for where that is something else, or where iconv does not know them.
constexpr std::array kTakenFor = {
    Named{"ISO-8859-1", "WINDOWS-1252"},
    Named{"ISO8859-1", "WINDOWS-1252"},
    Named{"LATIN1", "WINDOWS-1252"},
    Named{"LATIN-1", "WINDOWS-1252"},
    Named{"L1", "WINDOWS-1252"},
    Named{"US-ASCII", "WINDOWS-1252"},
    Named{"ASCII", "WINDOWS-1252"},
    Named{"ISO-8859-9", "WINDOWS-1254"},
    Named{"LATIN5", "WINDOWS-1254"},
    Named{"ISO-8859-11", "CP874"},
    Named{"TIS-620", "CP874"},
    Named{"WINDOWS-874", "CP874"},
    Named{"GB2312", "GB18030"},
    Named{"GBK", "GB18030"},
    Named{"GB_2312-80", "GB18030"},
    Named{"X-GBK", "GB18030"},
    Named{"SHIFT_JIS", "CP932"},
    Named{"SHIFT-JIS", "CP932"},
    Named{"SJIS", "CP932"},
    Named{"X-SJIS", "CP932"},
    Named{"WINDOWS-31J", "CP932"},
    Named{"EUC-KR", "CP949"},
    Named{"KS_C_5601-1987", "CP949"},
    Named{"BIG5", "BIG5-HKSCS"},
    Named{"X-EUC-JP", "EUC-JP"},
    Named{"X-MAC-ROMAN", "MACINTOSH"},
    Named{"UTF8", "UTF-8"},
    Named{"X-CP1252", "WINDOWS-1252"},
    Named{"CP1252", "WINDOWS-1252"},
};

bool IsNameCharacter(char c) {
  const unsigned char lower = LowerAscii(c);
  return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.' ||
         c == ':' || c == '+';
}

/// The value behind `name` and "=" in a tag, in quotes or not.
std::string_view ValueIn(std::string_view tag, std::string_view name) {
  for (size_t at = FindMarker(tag, 0, name); at != tag.npos; at = FindMarker(tag, at + 1, name)) {
    size_t value = tag.find_first_not_of(" \t\r\n", at + name.size());
    if (value == tag.npos || tag[value] != '=') continue;
    value = tag.find_first_not_of(" \t\r\n\"'", value + 1);
    if (value == tag.npos) return {};
    size_t end = value;
    while (end < tag.size() && IsNameCharacter(tag[end])) ++end;
    return tag.substr(value, end - value);
  }
  return {};
}

/// The tag of that beginning from `at` on, up to its ">"; empty for none.
std::string_view TagIn(std::string_view head, std::string_view start, size_t& at) {
  at = FindMarker(head, at, start);
  if (at == head.npos) return {};
  const std::string_view tag = head.substr(at, head.find('>', at) - at);
  at += start.size();
  return tag;
}

}  // namespace

std::string SignedEncoding(std::string_view head) {
  const auto* const found =
      std::ranges::find_if(kSignatures, [head](const Named& known) { return head.starts_with(known.Says); });
  return found == kSignatures.end() ? std::string() : std::string(found->Means);
}

std::string EncodingAsBrowsersHaveIt(std::string_view name) {
  std::string upper(name);
  std::ranges::transform(upper, upper.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  const auto* const found = std::ranges::find(kTakenFor, std::string_view(upper), &Named::Says);
  return found == kTakenFor.end() ? upper : std::string(found->Means);
}

std::string DeclaredEncoding(std::string_view head, MarkupLanguage language) {
  if (std::string name = SignedEncoding(head); !name.empty()) return name;
  if (!IsMarkup(language)) return {};
  size_t at = 0;
  std::string_view name;
  if (const std::string_view xml = TagIn(head, "<?xml", at); !xml.empty()) name = ValueIn(xml, "encoding");
  at = 0;
  while (name.empty()) {
    const std::string_view meta = TagIn(head, "<meta", at);
    if (meta.empty()) return {};
    name = ValueIn(meta, "charset");
  }
  std::string declared = EncodingAsBrowsersHaveIt(name);
  // What could be read so far has one byte for each character of ASCII.
  return declared.starts_with("UTF-16") || declared.starts_with("UTF-32") ? "UTF-8" : declared;
}

}  // namespace korv
