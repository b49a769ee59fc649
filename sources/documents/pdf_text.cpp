#include "sources/documents/pdf_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/text/unicode.h"

namespace korv {

namespace {

/// Lines at each end of a page that may be running heads.
constexpr size_t kHeadLines = 2;
constexpr size_t kLeastPages = 3;

struct PageLine {
  std::string_view Text;
  uint32_t Page;
};

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::vector<std::string_view> LinesOf(std::string_view page) {
  std::vector<std::string_view> lines;
  while (!page.empty()) {
    const size_t end = std::min(page.find('\n'), page.size());
    if (!IsBlank(page.substr(0, end))) lines.push_back(page.substr(0, end));
    page.remove_prefix(std::min(end + 1, page.size()));
  }
  return lines;
}

/// Finds the running heads of a document, page by page, and then knows them.
class RunningHeads {
 public:
  void Meet(const std::vector<std::string_view>& page) {
    ++pages_;
    ForEnds(page, [this](size_t /*line*/, const std::string& key) { ++times_[key]; });
  }
  /// The page without its heads.
  std::vector<std::string_view> Without(const std::vector<std::string_view>& page) const {
    if (pages_ < kLeastPages) return page;
    std::vector<bool> isHead(page.size());
    ForEnds(page, [&](size_t line, const std::string& key) {
      const auto times = times_.find(key);
      if (times != times_.end() && times->second * 2 > pages_) isHead[line] = true;
    });
    std::vector<std::string_view> rest;
    for (size_t line = 0; line < page.size(); ++line)
      if (!isHead[line]) rest.push_back(page[line]);
    return rest;
  }

 private:
  template <typename Do>
  static void ForEnds(const std::vector<std::string_view>& page, Do act) {
    for (size_t k = 0; k < std::min(kHeadLines, page.size()); ++k) {
      act(k, Key('t', k, page[k]));
      act(page.size() - 1 - k, Key('b', k, page[page.size() - 1 - k]));
    }
  }
  /// Where it stands, and what it says, with one sign for each number.
  static std::string Key(char end, size_t place, std::string_view line) {
    std::string key{end, static_cast<char>('0' + place)};
    bool inNumber = false;
    for (const char c : line) {
      const bool isDigit = c >= '0' && c <= '9';
      if (!isDigit && c != ' ' && c != '\t') key += c;
      if (isDigit && !inNumber) key += '#';
      inNumber = isDigit;
    }
    return key;
  }

  std::unordered_map<std::string, size_t> times_;
  size_t pages_ = 0;
};

bool IsLetter(std::string_view text, size_t at) {
  return IsUnicodeLetter(NextCharacter(text, at));
}

bool BeginsLower(std::string_view text) {
  if (text.empty() || !IsLetter(text, 0)) return false;
  size_t end = 0;
  NextCharacter(text, end);
  const std::string_view letter = text.substr(0, end);
  return LowerText(letter) == letter;
}

/// The end of the letters at the beginning of `text`.
size_t EndOfLetters(std::string_view text) {
  size_t at = 0;
  while (at < text.size() && IsLetter(text, at)) NextCharacter(text, at);
  return at;
}

/// The begin of the letters at the end of `text`.
size_t BeginOfLetters(std::string_view text) {
  size_t begin = text.size();
  while (begin > 0) {
    size_t at = begin - 1;
    while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) --at;
    if (!IsLetter(text, at)) break;
    begin = at;
  }
  return begin;
}

std::string_view WithoutBlanks(std::string_view line) {
  const size_t begin = std::min(line.find_first_not_of(" \t\r"), line.size());
  return line.substr(begin, line.find_last_not_of(" \t\r") + 1 - begin);
}

/// A word that a hyphen parts at the end of a line: its letters before the hyphen, and those on the next
/// line.
struct PartedWord {
  std::string_view Before;
  std::string_view Behind;

  std::string Joined() const { return LowerText(std::string(Before) + std::string(Behind)); }
  std::string Hyphenated() const { return LowerText(std::string(Before) + "-" + std::string(Behind)); }
};

std::optional<PartedWord> PartedBetween(std::string_view line, std::string_view next) {
  if (!line.ends_with('-') || !BeginsLower(next)) return std::nullopt;
  line.remove_suffix(1);
  const size_t begin = BeginOfLetters(line);
  if (begin == line.size()) return std::nullopt;
  return PartedWord{line.substr(begin), next.substr(0, EndOfLetters(next))};
}

/// Which of the forms in question occur in the text, within a line.
class Forms {
 public:
  void AskFor(const PartedWord& word) {
    asked_.insert(word.Joined());
    asked_.insert(word.Hyphenated());
  }
  void Meet(std::string_view line) {
    for (size_t at = 0; at < line.size();) {
      const size_t end = at + EndOfLetters(line.substr(at));
      if (end == at) {
        NextCharacter(line, at);
        continue;
      }
      MeetWord(line.substr(at, end - at));
      // The words on both sides of a hyphen, as one.
      if (end + 1 < line.size() && line[end] == '-') {
        const size_t second = end + 1 + EndOfLetters(line.substr(end + 1));
        if (second > end + 1) MeetWord(line.substr(at, second - at));
      }
      at = end;
    }
  }
  bool Occurs(const std::string& form) const { return met_.contains(form); }
  bool Any() const { return !asked_.empty(); }

 private:
  void MeetWord(std::string_view word) {
    std::string form = LowerText(word);
    if (asked_.contains(form)) met_.insert(std::move(form));
  }

  std::unordered_set<std::string> asked_;
  std::unordered_set<std::string> met_;
};

std::vector<PageLine> PageLines(std::string_view pages) {
  std::vector<std::vector<std::string_view>> all;
  RunningHeads heads;
  while (!pages.empty()) {
    const size_t end = std::min(pages.find('\f'), pages.size());
    all.push_back(LinesOf(pages.substr(0, end)));
    heads.Meet(all.back());
    pages.remove_prefix(std::min(end + 1, pages.size()));
  }
  std::vector<PageLine> lines;
  for (size_t page = 0; page < all.size(); ++page)
    for (const std::string_view line : heads.Without(all[page]))
      lines.push_back({WithoutBlanks(line), static_cast<uint32_t>(page + 1)});
  return lines;
}

Forms FormsOf(const std::vector<PageLine>& lines) {
  Forms forms;
  for (size_t k = 0; k + 1 < lines.size(); ++k)
    if (const auto word = PartedBetween(lines[k].Text, lines[k + 1].Text)) forms.AskFor(*word);
  if (forms.Any())
    for (const PageLine& line : lines) forms.Meet(line.Text);
  return forms;
}

}  // namespace

void AddPages(std::string_view pages, ExtractedText& text) {
  const std::vector<PageLine> lines = PageLines(pages);
  const Forms forms = FormsOf(lines);
  uint32_t page = 0;
  std::string line;  // Not handed over yet, for a word may go on in it.
  const auto handOver = [&](uint32_t ofPage) {
    if (ofPage != page) text.EndPhrases();
    page = ofPage;
    text.BeginPlace(page);
    text.Line(line);
  };
  uint32_t ofPage = 0;
  for (const PageLine& next : lines) {
    size_t taken = 0;
    if (const auto word = PartedBetween(line, next.Text)) {
      taken = std::min(next.Text.find_first_of(" \t"), next.Text.size());
      if (forms.Occurs(word->Joined()) || !forms.Occurs(word->Hyphenated())) line.pop_back();
      line += std::string(next.Text.substr(0, taken));
      // The word may go on in a third line.
      if (taken == next.Text.size()) continue;
    }
    handOver(ofPage);
    line = next.Text.substr(taken);
    ofPage = next.Page;
  }
  handOver(ofPage);
}

}  // namespace korv
