// Any bytes as an e-book.
#include "tests/fuzz/document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::OpenAsDocument("a.epub", data, size);
  return 0;
}
