// Any bytes as what a program takes out of the pages of a PDF: nothing is added but line ends, and pages stay
// in order.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "sources/documents/pdf_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::ExtractedText text;
  korv::AddPages({reinterpret_cast<const char*>(data), size}, text);
  if (text.Size() > size + 1) std::abort();
  uint32_t page = 0;
  for (const korv::TextMark& mark : text.Marks()) {
    if (mark.Number <= page || (mark.Offset > 0 && text.Text()[mark.Offset - 1] != '\n')) std::abort();
    page = mark.Number;
  }
  return 0;
}
