#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "app/texts/program_text.h"
#include "base/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korv;
  const auto texts = ProgramTextFile::Parse(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!texts) {
    if (texts.Error().Text().empty()) std::abort();
    return 0;
  }
  for (int number = 0; number < 400; ++number) {
    const std::string text = texts->Get(number);
    if (MendedUtf8(text) != text) std::abort();
  }
  return 0;
}
