#include "sources/detect/encoding_sample.h"

#include "base/utf8.h"
#include "engine/text/unicode.h"

namespace korv {

bool LooksLikeUtf8(std::string_view bytes) {
  constexpr size_t kOneIn = 20;
  size_t well = 0;
  size_t ill = 0;
  for (size_t at = PastAscii(bytes, 0); at < bytes.size(); at = PastAscii(bytes, at)) {
    const Utf8Sequence sequence = Utf8SequenceAt(bytes, at);
    well += sequence.Kind == Utf8Kind::WellFormed;
    ill += sequence.Kind == Utf8Kind::IllFormed;
    at += sequence.Length;
  }
  return well > 0 && ill * kOneIn <= ill + well;
}

}  // namespace korv
