#include "tests/reference/naive_scanner.h"

#include <algorithm>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

using Text = std::u32string;
using View = std::u32string_view;
constexpr size_t kNowhere = View::npos;

constexpr View kPunctuation = U"'.,()+-";

struct Entity {
  View Name;
  char32_t Character;
};
constexpr Entity kEntities[] = {
    {U"lsquo", U'\''}, {U"rsquo", U'\''}, {U"ldquo", U'\''}, {U"rdquo", U'\''}, {U"#8220", U'\''},
    {U"#8221", U'\''}, {U"copy", U'©'},   {U"amp", U'&'},    {U"nbsp", U' '},   {U"#160", U' '},
    {U"#8212", U'—'},  {U"#8211", U'-'},  {U"AElig", U'Æ'},  {U"Aacute", U'Á'}, {U"Acirc", U'Â'},
    {U"Agrave", U'À'}, {U"Aring", U'Å'},  {U"Atilde", U'Ã'}, {U"Auml", U'Ä'},   {U"Ccedil", U'Ç'},
    {U"ETH", U'Ð'},    {U"Eacute", U'É'}, {U"Ecirc", U'Ê'},  {U"Egrave", U'È'}, {U"Euml", U'Ë'},
    {U"Iacute", U'Í'}, {U"Icirc", U'Î'},  {U"Igrave", U'Ì'}, {U"Iuml", U'Ï'},   {U"Ntilde", U'Ñ'},
    {U"Oacute", U'Ó'}, {U"Ocirc", U'Ô'},  {U"Ograve", U'Ò'}, {U"Oslash", U'Ø'}, {U"Otilde", U'Õ'},
    {U"Ouml", U'Ö'},   {U"THORN", U'Þ'},  {U"Uacute", U'Ú'}, {U"Ucirc", U'Û'},  {U"Ugrave", U'Ù'},
    {U"Uuml", U'Ü'},   {U"Yacute", U'Ý'}, {U"aacute", U'á'}, {U"acirc", U'â'},  {U"aelig", U'æ'},
    {U"agrave", U'à'}, {U"aring", U'å'},  {U"atilde", U'ã'}, {U"auml", U'ä'},   {U"ccedil", U'ç'},
    {U"eacute", U'é'}, {U"ecirc", U'ê'},  {U"egrave", U'è'}, {U"eth", U'ð'},    {U"euml", U'ë'},
    {U"iacute", U'í'}, {U"icirc", U'î'},  {U"igrave", U'ì'}, {U"iuml", U'ï'},   {U"ntilde", U'ñ'},
    {U"oacute", U'ó'}, {U"ocirc", U'ô'},  {U"ograve", U'ò'}, {U"oslash", U'ø'}, {U"otilde", U'õ'},
    {U"ouml", U'ö'},   {U"szlig", U'ß'},  {U"thorn", U'þ'},  {U"uacute", U'ú'}, {U"ucirc", U'û'},
    {U"ugrave", U'ù'}, {U"uuml", U'ü'},   {U"yacute", U'ý'}, {U"yuml", U'ÿ'}};

Text EntityTable() {
  Text table;
  for (const Entity& entity : kEntities) {
    table += U'&';
    table += entity.Name;
    table += U';';
    table += entity.Character;
    table += U' ';
  }
  return table;
}

char32_t LowerAscii(char32_t c) {
  return c >= U'A' && c <= U'Z' ? c + 32 : c;
}

bool StandsAt(View line, size_t at, View marker) {
  if (at + marker.size() > line.size()) return false;
  for (size_t k = 0; k < marker.size(); ++k) {
    if (LowerAscii(line[at + k]) != LowerAscii(marker[k])) return false;
  }
  return true;
}

std::vector<std::pair<Text, Text>> PairsOf(std::string_view language) {
  if (language == "C") return {{U"/*", U"*/"}, {U"//", U""}};
  if (language == "XML") return {{U"<?xml", U"?>"}, {U"<!--", U"-->"}, {U"<", U">"}};
  std::vector<std::pair<Text, Text>> pairs = {{U"&", U";"},
                                              {U"<script", U"/script>"},
                                              {U"<style", U"/style>"},
                                              {U"<noscript", U"/noscript>"},
                                              {U"<!--", U"-->"}};
  if (language == "HTML") {
    pairs.push_back({U"<", U">"});
    return pairs;
  }
  if (language == "PHP") {
    pairs.push_back({U"<?php", U"php"});
    pairs.push_back({U"<", U">"});
    pairs.push_back({U"/*", U"*/"});
    pairs.push_back({U"//", U""});
    return pairs;
  }
  return {};
}

/// The opening parenthesis that the closing one at `at` belongs to, within [begin, end), or kNowhere.
size_t OpeningOf(View line, size_t begin, size_t at) {
  int depth = 0;
  for (size_t k = at + 1; k-- > begin;) {
    if (line[k] == U')') ++depth;
    if (line[k] == U'(' && --depth == 0) return k;
  }
  return kNowhere;
}

size_t ClosingOf(View line, size_t at, size_t end) {
  int depth = 0;
  for (size_t k = at; k < end; ++k) {
    if (line[k] == U'(') ++depth;
    if (line[k] == U')' && --depth == 0) return k;
  }
  return kNowhere;
}

}  // namespace

Scanner::Scanner(const WordRules& rules, std::string_view language)
    : rules_(rules),
      extra_(Decode(rules.AllowedExtraChars)),
      pairs_(PairsOf(language)),
      isMarkup_(language == "XML" || language == "HTML" || language == "PHP") {}

Text Scanner::ReplaceDoubleHyphens(Text line) {
  size_t p = 1;  // Positions count from 1.
  for (;;) {
    const size_t found = line.find(U"--", p - 1);
    if (found == kNowhere) return line;
    p = found + 1;
    if (p > 2 && line.substr(p - 2 - 1, 4) != U"<!--" && line.substr(p - 1, 3) != U"-->") {
      line.replace(p - 1, 2, U"  ");
    }
    p += 2;
  }
}

Text Scanner::ReplaceNamedEntities(Text line) {
  static const Text table = EntityTable();
  size_t pos = 0;
  for (;;) {
    const size_t ampersand = line.find(U'&', pos);
    if (ampersand == kNowhere) return line;
    const size_t semicolon = line.find(U';', ampersand);
    if (semicolon == kNowhere) return line;
    const Text entity = line.substr(ampersand, semicolon - ampersand + 1);
    Text with;
    if (entity == U"&quot;") {
      with = U"\"";
    } else if (const size_t found = table.find(entity); found != kNowhere) {
      with = table.substr(found + entity.size(), 1);
    }
    if (with.empty()) {
      pos = semicolon + 1;
    } else {
      line.replace(ampersand, entity.size(), with);
      pos = ampersand + 1;
    }
  }
}

size_t Scanner::EntityLength(View text) {
  if (text.size() < 4) return 0;
  if (text.substr(0, 2) == U"&#") return 1;
  if (text[0] != U'&') return 0;
  const size_t semicolon = text.find(U';');
  if (semicolon == kNowhere) return 0;
  if (text.substr(0, semicolon).find(U' ') != kNowhere) return 0;
  if (semicolon + 1 > 20) return 0;
  if (text[1] != U'#' && !IsLetterProper(text[1])) return 0;
  return semicolon + 1;
}

bool Scanner::IsNegativeContractionStem(View word) {
  const std::string stems = "aren couldn didn doesn hadn hasn isn shouldn wasn weren wouldn ";
  return stems.find(Lower(Encode(word)) + " ") != std::string::npos;
}

bool Scanner::BeginsRun(View line, size_t at) const {
  return IsLetterProper(line[at]) || extra_.find(line[at]) != kNowhere;
}

bool Scanner::IsPunctuationInWords(char32_t c) const {
  return kPunctuation.find(c) != kNowhere && extra_.find(c) != kNowhere;
}

bool Scanner::IsDelimiter(View line, size_t at, size_t& length) const {
  if (!isMarkup_) return false;
  for (const View delimiter : {View(U"<![CDATA["), View(U"]]>")}) {
    if (!StandsAt(line, at, delimiter)) continue;
    length = delimiter.size();
    return true;
  }
  return false;
}

bool Scanner::IsMarker(View line, size_t at, size_t& pair) const {
  for (pair = 0; pair < pairs_.size(); ++pair) {
    if (!StandsAt(line, at, pairs_[pair].first)) continue;
    if (pairs_[pair].first != U"&") return true;
    const size_t semicolon = line.find(U';', at);
    if (EntityLength(line.substr(at)) != 0 && semicolon != kNowhere && semicolon - at <= 65000) return true;
  }
  return false;
}

bool Scanner::IsAnyMarker(View line, size_t at) const {
  size_t unused;
  return IsDelimiter(line, at, unused) || IsMarker(line, at, unused);
}

size_t Scanner::SkipRegion(View line, size_t at) {
  const Text& end = pairs_[static_cast<size_t>(inRegion_)].second;
  if (end.empty()) {
    inRegion_ = -1;
    return line.size();
  }
  for (; at < line.size(); ++at) {
    if (!StandsAt(line, at, end)) continue;
    inRegion_ = -1;
    return at + end.size();
  }
  return line.size();
}

size_t Scanner::RunEnd(View line, size_t at) const {
  const size_t begin = at;
  while (at < line.size() && at - begin < 65000 && belongs_[at] && !IsAnyMarker(line, at)) ++at;
  return at;
}

bool Scanner::TakesApostrophe(View line, size_t begin, size_t end) const {
  if (extra_.find(U'\'') != kNowhere) return false;
  const View next = line.substr(end, 2);
  const bool isS = next == U"'s" || next == U"'S";
  const bool isT = next == U"'t" || next == U"'T";
  if (!isS && !isT) return false;
  const size_t after = end + 2;
  const bool ends = after == line.size() || !belongs_[after] || IsPunctuationInWords(line[after]) ||
                    IsAnyMarker(line, after);
  if (!ends) return false;
  if (isS) return true;
  while (begin < end && IsPunctuationInWords(line[begin])) ++begin;
  return IsNegativeContractionStem(line.substr(begin, end - begin));
}

void Scanner::Break() {
  if (!found_.empty() && found_.back() == kBreak) return;
  found_.emplace_back(kBreak);
  spans_.emplace_back(0, 0);
}

void Scanner::ScanLine(std::string_view text) {
  if (rules_.TerminateAtEndOfLine) Break();
  Text line = ReplaceDoubleHyphens(Decode(text));
  if (isMarkup_) line = ReplaceNamedEntities(line);
  line = U" " + line;
  belongs_ = BelongsToWord(line, extra_);

  size_t i = 0;
  while (i < line.size()) {
    if (inRegion_ >= 0) {
      i = SkipRegion(line, i);
      continue;
    }
    size_t length;
    if (IsDelimiter(line, i, length)) {
      i += length;
      continue;
    }
    size_t pair;
    if (IsMarker(line, i, pair)) {
      inRegion_ = static_cast<int>(pair);
      i = SkipRegion(line, i + pairs_[pair].first.size());
      continue;
    }
    if (!BeginsRun(line, i)) {
      if (line[i] == U'"' && rules_.TerminateAtDoubleQuote) Break();
      if (line[i] == U'\t' && rules_.TerminateAtTab) Break();
      ++i;
      continue;
    }
    const size_t runEnd = RunEnd(line, i);
    size_t begin = i;
    size_t end = TakesApostrophe(line, i, runEnd) ? runEnd + 2 : runEnd;
    i = end;
    while (begin < end && IsPunctuationInWords(line[begin]) &&
           !(line[begin] == U'(' && ClosingOf(line, begin, end) != kNowhere)) {
      ++begin;
    }
    while (begin < end && IsPunctuationInWords(line[end - 1]) &&
           !(line[end - 1] == U')' && OpeningOf(line, begin, end - 1) != kNowhere)) {
      --end;
    }
    if (begin == end) continue;
    found_.push_back(Encode(View(line).substr(begin, end - begin)));
    spans_.emplace_back(begin - 1, end - 1);  // Without the blank before the line.
    const char32_t after = end < line.size() ? line[end] : U'\0';
    if (after == U'.' && rules_.TerminateAtPeriod) Break();
    if (after == U'"' && rules_.TerminateAtDoubleQuote) Break();
    if (after == U'\t' && rules_.TerminateAtTab) Break();
    if (after == U',' && rules_.TerminateAtComma) Break();
  }
}

}  // namespace korv::reference
