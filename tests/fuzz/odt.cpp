// Any bytes as the XML of an OpenDocument text.
#include "tests/fuzz/document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::OpenAsDocument("a.fodt", data, size);
  return 0;
}
