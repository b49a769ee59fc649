#include "sources/documents/rtf_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/utf8.h"
#include "engine/text/unicode.h"
#include "platform/code_page_text.h"

namespace korv {

namespace {

constexpr size_t kBlock = size_t{64} << 10;
constexpr size_t kLongestWord = 32;
constexpr size_t kMostFonts = 100000;
constexpr int kMostDigits = 9;

/// Groups whose text is none of the document.
constexpr std::array<std::string_view, 41> kPassedOver = {
    "stylesheet", "info",      "pict",       "colortbl",   "listtable", "listoverridetable", "revtbl",
    "rsidtbl",    "generator", "xmlnstbl",   "header",     "headerl",   "headerr",           "headerf",
    "footer",     "footerl",   "footerr",    "footerf",    "ftnsep",    "ftnsepc",           "ftncn",
    "aftnsep",    "aftnsepc",  "aftncn",     "annotation", "atnid",     "atnauthor",         "atndate",
    "objdata",    "objclass",  "nonshppict", "shprslt",    "sp",        "fldinst",           "xe",
    "tc",         "mmath",     "bkmkstart",  "bkmkend",    "themedata", "datastore"};
/// Optional ones that hold text all the same.
constexpr std::array<std::string_view, 2> kWanted = {"shpinst", "shppict"};

struct NamedCharacter {
  std::string_view Word;
  char32_t Character;
};
constexpr std::array<NamedCharacter, 11> kCharacters = {{{"emdash", 0x2014},
                                                         {"endash", 0x2013},
                                                         {"lquote", 0x2018},
                                                         {"rquote", 0x2019},
                                                         {"ldblquote", 0x201C},
                                                         {"rdblquote", 0x201D},
                                                         {"bullet", 0x2022},
                                                         {"emspace", 0x2003},
                                                         {"enspace", 0x2002},
                                                         {"zwj", 0x200D},
                                                         {"zwnj", 0x200C}}};
constexpr std::array<std::string_view, 9> kLineEnds = {"par",  "line",     "sect",    "page",  "row",
                                                       "cell", "nestcell", "nestrow", "column"};

template <size_t N>
bool IsOneOf(const std::array<std::string_view, N>& words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

bool IsLetter(int c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(int c) {
  return c >= '0' && c <= '9';
}

int HexDigit(int c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

/// The code page of a font's character set, as Windows numbers these; 0 for that of the document.
int CodePageOfCharset(int charset) {
  struct Row {
    int Charset;
    int CodePage;
  };
  constexpr std::array<Row, 15> kRows = {{{0, 1252},
                                          {77, 10000},
                                          {128, 932},
                                          {129, 949},
                                          {130, 1361},
                                          {134, 936},
                                          {136, 950},
                                          {161, 1253},
                                          {162, 1254},
                                          {163, 1258},
                                          {177, 1255},
                                          {178, 1256},
                                          {186, 1257},
                                          {204, 1251},
                                          {238, 1250}}};
  const auto row = std::ranges::find(kRows, charset, &Row::Charset);
  return row == kRows.end() ? 0 : row->CodePage;
}

std::string NameOfCodePage(int number) {
  constexpr int kMac = 10000;
  constexpr int kUtf8 = 65001;
  if (number == kMac) return "MACINTOSH";
  return number == kUtf8 ? "UTF-8" : "CP" + std::to_string(number);
}

}  // namespace

std::optional<DocumentFault> RtfText::Read(Yielder& yielder) {
  if (const auto fault = TakeGroups(yielder)) return fault;
  if (fault_) return fault_;
  while (!groups_.empty() && yielder.Stopped()) CloseGroup();
  if (!groups_.empty()) return DocumentFault::Damaged;
  FlushBytes();
  EndLine();
  return std::nullopt;
}

std::optional<DocumentFault> RtfText::TakeGroups(Yielder& yielder) {
  for (int c = Next(); c != kEnd; c = Next()) {
    yielder.Yield();
    if (yielder.Stopped()) return std::nullopt;
    switch (c) {
      case '{':
        if (groups_.size() == kMostRtfDepth) return DocumentFault::TooDeep;
        OpenGroup();
        break;
      case '}':
        if (groups_.empty()) return DocumentFault::Damaged;
        CloseGroup();
        // What follows the document is none of it.
        if (groups_.empty()) return std::nullopt;
        break;
      case '\\':
        TakeControl();
        break;
      case '\r':
      case '\n':
        break;
      default:
        TakeByte(static_cast<char>(c));
    }
    if (text_.Size() + Held() > kMostTextBytes) return DocumentFault::TooLarge;
  }
  return std::nullopt;
}

// ---- Bytes

bool RtfText::Refill() {
  if (fault_) return false;
  block_.resize(kBlock);
  const Expected<size_t, DocumentFault> got = source_.Read(block_);
  if (!got) fault_ = got.Error();
  block_.resize(got ? *got : 0);
  at_ = 0;
  return !block_.empty();
}

int RtfText::Next() {
  const int c = Peek();
  if (c != kEnd) ++at_;
  return c;
}

int RtfText::Peek() {
  if (at_ == block_.size() && !Refill()) return kEnd;
  return static_cast<unsigned char>(block_[at_]);
}

void RtfText::SkipBytes(int number) {
  for (; number > 0 && Next() != kEnd; --number) {
  }
}

// ---- Groups

void RtfText::OpenGroup() {
  FlushBytes();
  Group inner = groups_.empty() ? Group{} : groups_.back();
  inner.IsAside = false;
  inner.IsBegun = false;
  inner.IsOptional = false;
  groups_.push_back(inner);
}

void RtfText::CloseGroup() {
  FlushBytes();
  const bool isAside = groups_.back().IsAside;
  groups_.pop_back();
  skipped_ = 0;
  if (!isAside || asides_.empty()) return;
  asides_.back().EndLine();
  behind_.push_back(std::move(asides_.back()).Take());
  asides_.pop_back();
}

bool RtfText::Shows() const {
  if (groups_.empty()) return false;
  const Group& group = groups_.back();
  return !group.PassedOver && !group.IsHidden && !group.IsDeleted && !group.InFonts;
}

// ---- Controls

void RtfText::TakeControl() {
  if (!IsLetter(Peek())) {
    const int symbol = Next();
    if (symbol != kEnd) TakeSymbol(static_cast<char>(symbol));
    return;
  }
  std::string word;
  while (IsLetter(Peek()) && word.size() < kLongestWord) word += static_cast<char>(Next());
  std::optional<int> number;
  const bool isNegative = Peek() == '-';
  if (isNegative) Next();
  for (int digits = 0; IsDigit(Peek()); ++digits) {
    const int digit = Next() - '0';
    if (digits < kMostDigits) number = number.value_or(0) * 10 + digit;
  }
  if (number && isNegative) number = -*number;
  if (Peek() == ' ') Next();
  if (groups_.empty()) return;
  TakeWord(word, number);
  groups_.back().IsBegun = true;
}

void RtfText::TakeSymbol(char symbol) {
  if (groups_.empty()) return;
  switch (symbol) {
    case '\'': {
      const int high = HexDigit(Peek());
      if (high < 0) break;
      Next();
      const int low = HexDigit(Peek());
      if (low < 0) break;
      Next();
      TakeByte(static_cast<char>(high * 16 + low));
      break;
    }
    case '*':
      groups_.back().IsOptional = true;
      break;
    case '~':
      PutCharacter(0xA0);
      break;
    case '_':
      PutCharacter(0x2011);
      break;
    case '\r':
    case '\n':
      EndLine();
      break;
    case '\\':
    case '{':
    case '}':
      TakeByte(symbol);
      break;
    default:
      break;  // "\-" is where a word may be parted; others are for indexes.
  }
}

void RtfText::TakeWord(std::string_view word, std::optional<int> number) {
  if (word == "bin") return SkipBytes(number.value_or(0));
  if (!groups_.back().IsBegun && TakeDestination(word)) return;
  if (TakeProperty(word, number)) return;
  if (word == "u" && number) return TakeUnicode(*number);
  if (IsOneOf(kLineEnds, word)) return EndLine();
  if (word == "tab") {
    FlushBytes();
    if (Shows()) Current().Blank();
    return;
  }
  const auto named = std::ranges::find(kCharacters, word, &NamedCharacter::Word);
  if (named != kCharacters.end()) PutCharacter(named->Character);
}

/// Whether the word says what its group holds.
bool RtfText::TakeDestination(std::string_view word) {
  Group& group = groups_.back();
  if (word == "fonttbl") {
    group.InFonts = true;
  } else if (word == "footnote" || word == "shptxt") {
    FlushBytes();
    if (!Shows()) return true;
    group.IsAside = true;
    asides_.emplace_back();
  } else if (IsOneOf(kPassedOver, word) || (group.IsOptional && !IsOneOf(kWanted, word))) {
    group.PassedOver = true;
  } else {
    return false;
  }
  return true;
}

bool RtfText::TakeProperty(std::string_view word, std::optional<int> number) {
  Group& group = groups_.back();
  const auto isOn = [&number] { return number.value_or(1) != 0; };
  if (word == "f" || word == "v" || word == "deleted" || word == "plain") FlushBytes();
  if (word == "uc") {
    group.SkippedAfterUnicode = std::clamp(number.value_or(1), 0, 100);
  } else if (word == "f") {
    group.Font = number.value_or(-1);
  } else if (word == "fcharset") {
    if (group.InFonts && charsets_.size() < kMostFonts) charsets_[group.Font] = number.value_or(0);
  } else if (word == "v") {
    group.IsHidden = isOn();
  } else if (word == "deleted") {
    group.IsDeleted = isOn();
  } else if (word == "plain") {
    group.IsHidden = false;
    group.IsDeleted = false;
  } else if (word == "ansicpg") {
    encoding_ = NameOfCodePage(number.value_or(1252));
  } else if (word == "mac") {
    encoding_ = "MACINTOSH";
  } else if (word == "pc") {
    encoding_ = "CP437";
  } else if (word == "pca") {
    encoding_ = "CP850";
  } else {
    return false;
  }
  return true;
}

// ---- Text

void RtfText::TakeByte(char byte) {
  if (!groups_.empty()) groups_.back().IsBegun = true;
  if (skipped_ > 0) {
    --skipped_;
    return;
  }
  if (Shows()) bytes_ += byte;
}

void RtfText::TakeUnicode(int number) {
  FlushBytes();
  skipped_ = groups_.back().SkippedAfterUnicode;
  const auto unit = static_cast<char32_t>(number) & 0xFFFF;
  if (unit >= 0xD800 && unit < 0xDC00) {
    surrogate_ = unit;
    return;
  }
  const char32_t first = std::exchange(surrogate_, U'\0');
  if (unit >= 0xDC00 && unit < 0xE000) {
    if (first != 0) PutCharacter(0x10000 + ((first - 0xD800) << 10) + (unit - 0xDC00));
    return;
  }
  if (unit != 0) PutCharacter(unit);
}

void RtfText::PutCharacter(char32_t character) {
  FlushBytes();
  std::string text;
  AppendCharacter(character, text);
  Put(text);
}

void RtfText::Put(std::string_view text) {
  if (!Shows()) return;
  Current().Run(text);
  held_ += text.size();
}

std::string RtfText::EncodingOfFont() const {
  const auto charset = groups_.empty() ? charsets_.end() : charsets_.find(groups_.back().Font);
  // The set 0 and the one by default are what the document says.
  const int codePage =
      charset == charsets_.end() || charset->second <= 1 ? 0 : CodePageOfCharset(charset->second);
  return codePage == 0 ? encoding_ : NameOfCodePage(codePage);
}

void RtfText::FlushBytes() {
  if (bytes_.empty()) return;
  const std::string bytes = std::exchange(bytes_, {});
  if (IsAscii(bytes)) return Put(bytes);
  auto text = TextOfBytes(bytes, EncodingOfFont());
  if (!text) text = TextOfBytes(bytes, "CP1252");
  Put(MendedUtf8(text.value_or(bytes)));
}

void RtfText::EndLine() {
  FlushBytes();
  if (!asides_.empty()) return asides_.back().EndLine();
  paragraph_.EndLine();
  text_.Lines(paragraph_.Text());
  paragraph_ = CollapsedText();
  for (const std::string& aside : behind_) text_.Lines(aside);
  behind_.clear();
  held_ = 0;
}

}  // namespace korv
