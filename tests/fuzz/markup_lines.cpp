// The same lines as HTML, XML, PHP and C, with all that may stand in a word, against the naive model: each
// line at once, and in as many pieces as a reader could part it into.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sources/read/text_decoder.h"
#include "tests/reference/naive_scanner.h"
#include "tests/sources/recorded_words.h"

namespace {

using namespace korv;

bool MayPartBefore(std::string_view line, size_t at) {
  const bool isBlank = at >= 2 && (line[at - 1] == ' ' || line[at - 1] == '\t');
  return isBlank && line[at - 2] != '&' && static_cast<unsigned char>(line[at - 2]) < 0x80;
}

void ScanInPieces(LineScanner<WordSink>& scanner, std::string_view line) {
  size_t begin = 0;
  for (size_t at = 1; at < line.size(); ++at) {
    if (!MayPartBefore(line, at)) continue;
    scanner.ScanLine(line.substr(begin, at - begin), begin == 0, false);
    begin = at;
  }
  scanner.ScanLine(line.substr(begin), begin == 0, true);
}

void Compare(std::string_view text, std::string_view extension, std::string_view language) {
  WordRules rules = WithExtra("-'&/.()");
  rules.TerminateAtPeriod = true;
  rules.TerminateAtDoubleQuote = true;
  RecordedWords words;
  RecordedWords ofPieces;
  LineScanner<WordSink> scanner(rules, MarkersOf(extension), words);
  LineScanner<WordSink> byPieces(rules, MarkersOf(extension), ofPieces);
  reference::Scanner model(rules, language);
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    scanner.ScanLine(text.substr(begin, end - begin));
    ScanInPieces(byPieces, text.substr(begin, end - begin));
    model.ScanLine(text.substr(begin, end - begin));
    begin = end + 1;
  }
  if (words.Found() != model.Found() || ofPieces.Found() != model.Found()) std::abort();
  if (byPieces.TextBytes() != scanner.TextBytes()) std::abort();
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
