#include "engine/patterns/list_entry.h"

#include "engine/text/unicode.h"

namespace korv {

bool HoldsPattern(std::string_view entry) {
  constexpr char kSigns[] = {kAnyRun, kAnyChar, '<', '>'};
  return entry.find_first_of(std::string_view(kSigns, sizeof kSigns)) != std::string_view::npos;
}

bool OpensBrackets(std::string_view text, size_t at, size_t& close) {
  if (text[at] != '<') return false;
  close = text.find('>', at + 1);
  return close != std::string_view::npos;
}

std::vector<std::string_view> SplitOutsideBrackets(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  size_t begin = 0;
  // When one opening bracket has no partner, no later one has.
  bool bracketsPossible = true;
  for (size_t i = 0; i < text.size(); ++i) {
    size_t close = 0;
    if (text[i] == '<' && bracketsPossible) {
      bracketsPossible = OpensBrackets(text, i, close);
      if (bracketsPossible) i = close;
    } else if (text[i] == separator) {
      pieces.push_back(text.substr(begin, i - begin));
      begin = i + 1;
    }
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

std::string FoldOutsideBrackets(std::string_view entry) {
  std::string folded;
  size_t done = 0;
  while (done < entry.size()) {
    const size_t open = entry.find('<', done);
    size_t close = 0;
    if (open == std::string_view::npos || !OpensBrackets(entry, open, close)) break;
    folded += FoldCase(entry.substr(done, open - done));
    folded += entry.substr(open, close + 1 - open);
    done = close + 1;
  }
  return folded += FoldCase(entry.substr(done));
}

}  // namespace korv
