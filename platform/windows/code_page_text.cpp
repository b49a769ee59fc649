#include "platform/code_page_text.h"

#include <windows.h>

#include <algorithm>
#include <charconv>
#include <vector>

namespace korv {

namespace {

constexpr UINT kUnknown = 0;

/// Windows has numbers instead of names. Those of the families tell theirs.
UINT NumberOf(std::string_view encoding) {
  std::string name(encoding);
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  struct Family {
    std::string_view Prefix;
    UINT Base;
  };
  for (const Family& family :
       {Family{"windows-", 0}, Family{"cp", 0}, Family{"iso-8859-", 28590}, Family{"iso8859-", 28590}}) {
    if (!name.starts_with(family.Prefix)) continue;
    UINT number = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + family.Prefix.size(), end, number);
    if (error == std::errc{} && stop == end && IsValidCodePage(family.Base + number))
      return family.Base + number;
  }
  struct Named {
    std::string_view Name;
    UINT Number;
  };
  for (const Named& named :
       {Named{"koi8-r", 20866}, Named{"koi8-u", 21866}, Named{"shift_jis", 932}, Named{"euc-jp", 20932},
        Named{"gbk", 936}, Named{"gb2312", 936}, Named{"gb18030", 54936}, Named{"big5", 950},
        Named{"euc-kr", 949}, Named{"tis-620", 874}, Named{"macintosh", 10000}}) {
    if (name == named.Name && IsValidCodePage(named.Number)) return named.Number;
  }
  return kUnknown;
}

std::string Utf8Of(const std::wstring& wide) {
  if (wide.empty()) return {};
  const int size = static_cast<int>(wide.size());
  std::string text(wide.size() * 3, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(),
                                         static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<size_t>(std::max(length, 0)));
  return text;
}

}  // namespace

std::optional<std::string> TextOfBytes(std::string_view bytes, const std::string& encoding) {
  const UINT number = NumberOf(encoding);
  if (number == kUnknown) return std::nullopt;
  // Lengths are ints.
  constexpr size_t kPiece = size_t{1} << 24;
  std::string text;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kPiece, bytes.size()))) {
    const std::string_view piece = bytes.substr(0, kPiece);
    std::wstring wide(piece.size() * 2, L'\0');
    const int length = MultiByteToWideChar(number, 0, piece.data(), static_cast<int>(piece.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<size_t>(std::max(length, 0)));
    text += Utf8Of(wide);
  }
  return text;
}

std::optional<ByteTable> SingleByteTable(const std::string& encoding) {
  const UINT number = NumberOf(encoding);
  CPINFO facts{};
  if (number == kUnknown || !GetCPInfo(number, &facts) || facts.MaxCharSize != 1) return std::nullopt;
  ByteTable table{};
  for (size_t code = 0; code < table.size(); ++code) {
    const char byte = static_cast<char>(code);
    wchar_t wide = 0;
    const int length = MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, &byte, 1, &wide, 1);
    table[code] = length == 1 ? static_cast<char32_t>(wide) : kNoCharacter;
  }
  return table;
}

}  // namespace korv
