// Any bytes as a document in RTF.
#include "tests/fuzz/document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::OpenAsDocument("a.rtf", data, size);
  return 0;
}
