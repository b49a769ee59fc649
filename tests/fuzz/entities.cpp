// One line through each step of the cleaning, against the naive model.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/text/unicode.h"
#include "sources/read/text_decoder.h"
#include "sources/scan/markup.h"
#include "tests/reference/naive_scanner.h"
#include "tests/reference/naive_text.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korv;
  constexpr size_t kEnough = 4096;  // The model is quadratic.
  if (size > kEnough) return 0;
  std::string buffer;
  const std::string line(DecodeText({reinterpret_cast<const char*>(data), size}, TextEncoding::Utf8, buffer));
  const std::u32string characters = reference::Decode(line);

  Require(ReplaceDoubleHyphens(line) ==
          reference::Encode(reference::Scanner::ReplaceDoubleHyphens(characters)));
  std::string replaced = line;
  ReplaceNamedEntities(replaced);
  Require(replaced == reference::Encode(reference::Scanner::ReplaceNamedEntities(characters)));
  Require(IsNegativeContractionStem(line) == reference::Scanner::IsNegativeContractionStem(characters));
  for (size_t at = line.find('&'); at != std::string::npos; at = line.find('&', at + 1)) {
    const std::string_view rest = std::string_view(line).substr(at);
    Require(static_cast<size_t>(EntityLength(rest)) ==
            reference::Scanner::EntityLength(reference::Decode(rest)));
  }
  return 0;
}
