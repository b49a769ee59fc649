// Any bytes as subtitles; the first one says of which kind.
#include "tests/fuzz/document.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static constexpr const char* kNames[] = {"a.srt", "a.vtt", "a.lrc"};
  if (size == 0) return 0;
  korv::OpenAsDocument(kNames[data[0] % 3], data + 1, size - 1);
  return 0;
}
