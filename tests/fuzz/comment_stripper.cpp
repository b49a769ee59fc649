// Lines of programs: taking out comments and then cutting words gives the words that the scanner finds, which
// skips the comments itself. Nothing is put in but blanks.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sources/read/text_decoder.h"
#include "sources/scan/comment_stripper.h"
#include "tests/sources/recorded_words.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

/// Whether `part` is what is left of `whole` when some of it is taken away.
bool IsLeftOf(std::string_view part, std::string_view whole) {
  size_t at = 0;
  for (const char c : part) {
    if (c == ' ') continue;
    at = whole.find(c, at);
    if (at == whole.npos) return false;
    ++at;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kEnough = 4096;
  if (size > kEnough) return 0;
  std::string buffer;
  const std::string text(DecodeText({reinterpret_cast<const char*>(data), size}, TextEncoding::Utf8, buffer));
  RecordedWords words;
  LineScanner<WordSink> scanner(LettersOnly(), MarkersOf("cpp"), words);
  RecordedWords ofStripped;
  LineScanner<WordSink> plain(LettersOnly(), MarkersOf("txt"), ofStripped);
  CommentStripper stripper;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    const std::string_view line = std::string_view(text).substr(begin, end - begin);
    scanner.ScanLine(line);
    const std::string stripped = stripper.Strip(line);
    Require(IsLeftOf(stripped, line) && stripped.size() <= line.size() + 1);
    plain.ScanLine(stripped);
    begin = end + 1;
  }
  Require(words.Found() == ofStripped.Found());
  return 0;
}
