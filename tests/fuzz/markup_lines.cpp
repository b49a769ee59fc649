// The same lines as HTML, XML, PHP and C, with all that may stand in a word, against the naive model: each
// line at once, parted at every blank where a reader may part it, and character by character.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sources/read/text_decoder.h"
#include "tests/reference/naive_scanner.h"
#include "tests/sources/recorded_words.h"

namespace {

using namespace korv;

bool BeginsCharacter(std::string_view line, size_t at) {
  return (static_cast<unsigned char>(line[at]) & 0xC0) != 0x80;
}

bool IsBehindBlank(std::string_view line, size_t at) {
  const bool isBlank = at >= 2 && (line[at - 1] == ' ' || line[at - 1] == '\t');
  return isBlank && line[at - 2] != '&' && static_cast<unsigned char>(line[at - 2]) < 0x80;
}

void ScanInPieces(LineScanner<WordSink>& scanner, std::string_view line,
                  bool (*mayPartBefore)(std::string_view, size_t)) {
  size_t begin = 0;
  for (size_t at = 1; at < line.size(); ++at) {
    if (!mayPartBefore(line, at)) continue;
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
  RecordedWords ofCharacters;
  LineScanner<WordSink> scanner(rules, MarkersOf(extension), words);
  LineScanner<WordSink> byPieces(rules, MarkersOf(extension), ofPieces);
  LineScanner<WordSink> byCharacters(rules, MarkersOf(extension), ofCharacters);
  reference::Scanner model(rules, language);
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    scanner.ScanLine(text.substr(begin, end - begin));
    ScanInPieces(byPieces, text.substr(begin, end - begin), IsBehindBlank);
    ScanInPieces(byCharacters, text.substr(begin, end - begin), BeginsCharacter);
    model.ScanLine(text.substr(begin, end - begin));
    begin = end + 1;
  }
  for (const RecordedWords* found : {&words, &ofPieces, &ofCharacters})
    if (found->Found() != model.Found()) std::abort();
  for (const LineScanner<WordSink>* parted : {&byPieces, &byCharacters})
    if (parted->TextBytes() != scanner.TextBytes()) std::abort();
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
