// The same lines as HTML, XML, PHP and C, with all that may stand in a word, against the naive model.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sources/text_decoder.h"
#include "tests/reference/naive_scanner.h"
#include "tests/sources/recorded_words.h"

namespace {

using namespace korv;

void Compare(std::string_view text, std::string_view extension, std::string_view language) {
  WordRules rules = WithExtra("-'&/.()");
  rules.TerminateAtPeriod = true;
  rules.TerminateAtDoubleQuote = true;
  RecordedWords words;
  LineScanner<WordSink> scanner(rules, MarkersOf(extension), words);
  naive::Scanner model(rules, language);
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    scanner.ScanLine(text.substr(begin, end - begin));
    model.ScanLine(text.substr(begin, end - begin));
    begin = end + 1;
  }
  if (words.Found() != model.Found()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kEnough = 2048;  // The model is quadratic.
  if (size > kEnough) return 0;
  std::string buffer;
  const std::string text(DecodeText({reinterpret_cast<const char*>(data), size}, TextEncoding::Utf8, buffer));
  Compare(text, "html", "HTML");
  Compare(text, "xml", "XML");
  Compare(text, "php", "PHP");
  Compare(text, "cpp", "C");
  return 0;
}
