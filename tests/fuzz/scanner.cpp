// Lines under any rules and language against the naive model; and bytes that are no UTF-8 at all, which a
// scanner should never see, without harm.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "sources/read/text_decoder.h"
#include "tests/reference/naive_scanner.h"
#include "tests/sources/recorded_words.h"

namespace {

using namespace korv;

constexpr std::string_view kExtra[] = {"-", "'",          "_",  ":", "\\", "/", ".",
                                       "@", "0123456789", "()", "&", ",",  "~?"};

WordRules RulesOf(unsigned bits, unsigned terminators) {
  WordRules rules = LettersOnly();
  for (size_t k = 0; k < std::size(kExtra); ++k) {
    if (bits >> k & 1) rules.AllowedExtraChars += kExtra[k];
  }
  rules.TerminateAtEndOfLine = terminators & 1;
  rules.TerminateAtPeriod = terminators & 2;
  rules.TerminateAtComma = terminators & 4;
  rules.TerminateAtDoubleQuote = terminators & 8;
  rules.TerminateAtTab = terminators & 16;
  return rules;
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kEnough = 4096;  // The model is quadratic.
  if (size < 3 || size > kEnough) return 0;
  const WordRules rules = RulesOf(data[0] + 256U * data[1], data[2] >> 3U);
  static constexpr const char* kExtensions[] = {"txt", "c", "xml", "html", "php"};
  static constexpr const char* kLanguages[] = {"None", "C", "XML", "HTML", "PHP"};
  const size_t language = (data[2] & 7) % std::size(kLanguages);
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 3, size - 3);

  RecordedWords unseen;
  LineScanner<WordSink> careless(rules, MarkersOf(kExtensions[language]), unseen);
  for (const std::string_view line : LinesOf(bytes)) careless.ScanLine(line);

  std::string buffer;
  const std::string_view text = DecodeText(bytes, TextEncoding::Utf8, buffer);
  RecordedWords words;
  LineScanner<WordSink> scanner(rules, MarkersOf(kExtensions[language]), words);
  reference::Scanner model(rules, kLanguages[language]);
  for (const std::string_view line : LinesOf(text)) {
    scanner.ScanLine(line);
    model.ScanLine(line);
  }
  if (words.Found() != model.Found()) std::abort();
  return 0;
}
