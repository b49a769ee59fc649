// Any bytes as XML that is read by the names of its elements: all of them, and some.
#include "tests/fuzz/document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  korv::OpenAsDocument("a.xml", data, size);
  korv::OpenAsDocument(
      "a.xml", data, size,
      {.Others = true, .Segments = {}, .OnlyElements = "p, l", .SkippedElements = "note, hi"});
  return 0;
}
