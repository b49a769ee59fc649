// Any bytes in any encoding that they declare or that is named: what comes out is well-formed UTF-8.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/utf8.h"
#include "sources/detect/declared_encoding.h"
#include "sources/read/whole_text.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  constexpr std::array kLanguages = {MarkupLanguage::None, MarkupLanguage::Xml, MarkupLanguage::Html,
                                     MarkupLanguage::Php};
  constexpr std::array kEncodings = {"UTF-16LE",     "UTF-16BE", "UTF-32LE", "UTF-32BE",
                                     "WINDOWS-1252", "CP932",    "GB18030",  "KOI8-R"};
  const std::string declared = DeclaredEncoding(bytes, kLanguages[data[0] % kLanguages.size()]);
  for (const char c : declared) Require(static_cast<unsigned char>(c) > ' ');
  for (const std::string& name : {declared, std::string(kEncodings[data[0] / 4 % kEncodings.size()])}) {
    const auto text = TextInUtf8(std::string(bytes), name);
    if (text && name != "UTF-8") Require(MendedUtf8(*text) == *text);
  }
  return 0;
}
