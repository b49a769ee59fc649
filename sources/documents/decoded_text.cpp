#include "sources/documents/decoded_text.h"

#include <string_view>

#include "base/utf8.h"
#include "engine/text/unicode.h"
#include "platform/code_page_text.h"
#include "sources/detect/encoding_sample.h"

namespace korv {

Expected<std::string, DocumentFault> ReadDecoded(ByteSource& source) {
  Expected<std::string, DocumentFault> bytes = ReadAll(source, kMostTextBytes);
  if (!bytes) return bytes;
  constexpr std::string_view kSignature = "\xEF\xBB\xBF";
  if (bytes->starts_with(kSignature)) return MendedUtf8(std::string_view(*bytes).substr(kSignature.size()));
  std::string encoding;
  if (bytes->starts_with("\xFF\xFE") || bytes->starts_with("\xFE\xFF")) {
    encoding = "UTF-16";
  } else {
    const size_t first = PastAscii(*bytes, 0);
    if (first == bytes->size()) return bytes;
    const bool isUtf8 = LooksLikeUtf8(std::string_view(*bytes).substr(first, kEncodingSample));
    if (isUtf8) return MendedUtf8(*bytes);
    encoding = "CP1252";
  }
  auto text = TextOfBytes(*bytes, encoding);
  if (!text) return DocumentFault::UnknownEncoding;
  return MendedUtf8(*text);
}

}  // namespace korv
