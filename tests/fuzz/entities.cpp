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
  const std::u32string characters = naive::Decode(line);

  Require(ReplaceDoubleHyphens(line) == naive::Encode(naive::Scanner::ReplaceDoubleHyphens(characters)));
  std::string replaced = line;
  ReplaceNamedEntities(replaced);
  Require(replaced == naive::Encode(naive::Scanner::ReplaceNamedEntities(characters)));
  Require(IsNegativeContractionStem(line) == naive::Scanner::IsNegativeContractionStem(characters));
  for (size_t at = line.find('&'); at != std::string::npos; at = line.find('&', at + 1)) {
    const std::string_view rest = std::string_view(line).substr(at);
    Require(static_cast<size_t>(EntityLength(rest)) == naive::Scanner::EntityLength(naive::Decode(rest)));
  }
  return 0;
}
