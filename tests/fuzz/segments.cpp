// Any bytes as files of translators; the first one says of which kind.
#include "tests/fuzz/document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static constexpr const char* kNames[] = {"a.tmx", "a.xlf", "a.po"};
  if (size == 0) return 0;
  static constexpr const char* kSegments[] = {"source", "target", "de"};
  korv::OpenAsDocument(
      kNames[data[0] % 3], data + 1, size - 1,
      {.Others = true, .Segments = kSegments[data[0] / 3 % 3], .OnlyElements = {}, .SkippedElements = {}});
  return 0;
}
