#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/reference/naive_scanner.h"
#include "tests/sources/recorded_words.h"

// The scanner against the naive model, on soups of everything that could confuse it. RC_PARAMS chooses
// seed and number of soups; a failure prints the string that repeats it.

namespace korv {
namespace {

constexpr std::string_view kPieces[] = {
    // Words and what stands in and between them.
    "a", "b", "cat", "isn", "WASN", "n", "café", "Ý", "кошка", "e\u0301", "漢字", "İsn", "ß", "x1y",
    "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghij", "s", "t", " ", " ", " ", "  ", "\t",
    "\"", "'", "'", "'s", "'T", "'t ", "'S.", "-", "-", "--", "---", ".", ",", ";", ":", "(", ")", "()", "((",
    "\u0301", "\uFE0F", "\u0902", "\u200C", "\u200D", "\u200C", "\u200D", "\u2764\uFE0F", "\u0645\u06CC",
    "T\u0308", "_", "/", "\\", "@", "&", "#", "~", "?", "+", "!", "×", "\u2014", "\uFFFD", "7", "\u00A0",
    // Markers, whole and broken.
    "<", ">", "<b>", "</b>", "<!--", "-->", "<!---->", "<!-->", "<!", "<script", "<SCRIPT>", "/script>",
    "</Script>", "<style x>", "</style>", "<noscript>", "</noscript>", "<?xml", "<?XML ", "?>", "<?php",
    "<?PHP", "php", "PHP", "/*", "*/", "/*/", "//", "*", "<![CDATA[", "<![cdata[", "]]>", "]]", "<![CDATA",
    "http://x",
    // Entities, known, unknown and none.
    "&amp;", "&amp;lt;", "&lt;", "&eacute;", "&ETH;", "&eth;", "&quot;", "&QUOT;", "&rsquo;s", "&ldquo;",
    "&nbsp;", "& &nbsp;", "&#160;", "&#8212;", "&#8211;", "&#8211;-", "&#233;", "&#", "&#;", "&;", "&a;",
    "&x y;", "&aVeryLongEntityName;", "&aVeryLongEntityNam;", "&é;", "&1;", "&a", ";"};

constexpr std::string_view kExtra[] = {"-", "'",          "_",  ":", "\\", "/", ".",
                                       "@", "0123456789", "()", "&", ",",  "~?"};

WordRules DrawRules() {
  WordRules rules = LettersOnly();
  const auto admitted = *rc::gen::container<std::vector<bool>>(std::size(kExtra), rc::gen::arbitrary<bool>());
  for (size_t k = 0; k < std::size(kExtra); ++k) {
    if (admitted[k]) rules.AllowedExtraChars += kExtra[k];
  }
  rules.TerminateAtEndOfLine = *rc::gen::arbitrary<bool>();
  rules.TerminateAtPeriod = *rc::gen::arbitrary<bool>();
  rules.TerminateAtComma = *rc::gen::arbitrary<bool>();
  rules.TerminateAtDoubleQuote = *rc::gen::arbitrary<bool>();
  rules.TerminateAtTab = *rc::gen::arbitrary<bool>();
  return rules;
}

std::vector<std::string> DrawLines() {
  const auto line = rc::gen::map(rc::gen::container<std::vector<std::string_view>>(rc::gen::elementOf(
                                     std::vector<std::string_view>(std::begin(kPieces), std::end(kPieces)))),
                                 [](const std::vector<std::string_view>& pieces) {
                                   std::string joined;
                                   for (const std::string_view piece : pieces) joined += piece;
                                   return joined;
                                 });
  return *rc::gen::container<std::vector<std::string>>(*rc::gen::inRange<size_t>(1, 5), line);
}

void CompareOn(std::string_view extension, std::string_view language) {
  const WordRules rules = DrawRules();
  const std::vector<std::string> lines = DrawLines();
  RecordedWords words;
  LineScanner<WordSink> scanner(rules, MarkersOf(extension), words);
  reference::Scanner model(rules, language);
  scanner.BeginSource();
  for (const std::string& line : lines) {
    scanner.ScanLine(line);
    model.ScanLine(line);
  }
  RC_LOG() << "extra: " << rules.AllowedExtraChars << '\n';
  RC_ASSERT(words.Found() == model.Found());
}

RC_GTEST_PROP(ScannerProperties, PlainTextIsCutLikeTheModel, ()) {
  CompareOn("txt", "None");
}
RC_GTEST_PROP(ScannerProperties, ProgramsAreCutLikeTheModel, ()) {
  CompareOn("c", "C");
}
RC_GTEST_PROP(ScannerProperties, XmlIsCutLikeTheModel, ()) {
  CompareOn("xml", "XML");
}
RC_GTEST_PROP(ScannerProperties, HtmlIsCutLikeTheModel, ()) {
  CompareOn("xhtml", "HTML");
}
RC_GTEST_PROP(ScannerProperties, PhpIsCutLikeTheModel, ()) {
  CompareOn("php", "PHP");
}

/// Begins of some characters of `line`, ascending, and its end.
std::vector<size_t> DrawCuts(std::string_view line) {
  const int oneIn = *rc::gen::element(1, 2, 5, 20);
  std::vector<size_t> cuts;
  for (size_t at = 1; at < line.size(); ++at)
    if ((static_cast<unsigned char>(line[at]) & 0xC0) != 0x80 && *rc::gen::inRange(0, oneIn) == 0)
      cuts.push_back(at);
  cuts.push_back(line.size());
  return cuts;
}

RC_GTEST_PROP(ScannerProperties, PiecesOfALineAreCutLikeTheWholeLine, ()) {
  const WordRules rules = DrawRules();
  const std::string_view extension =
      *rc::gen::elementOf(std::vector<std::string_view>{"txt", "c", "xml", "html", "php"});
  RecordedWords inPieces;
  RecordedWords atOnce;
  LineScanner<WordSink> scanner(rules, MarkersOf(extension), inPieces);
  LineScanner<WordSink> other(rules, MarkersOf(extension), atOnce);
  for (const std::string& line : DrawLines()) {
    size_t begin = 0;
    for (const size_t end : DrawCuts(line)) {
      RC_LOG() << "[" << line.substr(begin, end - begin) << "]";
      scanner.ScanLine(std::string_view(line).substr(begin, end - begin), begin == 0, end == line.size());
      begin = end;
    }
    RC_LOG() << '\n';
    RC_ASSERT(!scanner.HoldsBack());
    other.ScanLine(line);
  }
  RC_LOG() << "extra: " << rules.AllowedExtraChars << " of ." << extension << '\n';
  RC_ASSERT(inPieces.Found() == atOnce.Found());
  RC_ASSERT(scanner.TextBytes() == other.TextBytes());
}

}  // namespace
}  // namespace korv
