#include "tests/reference/naive_counts.h"

#include <algorithm>
#include <vector>

namespace korv::reference {

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  }
  return parts;
}

/// 0 for what is none.
uint64_t FrequencyOf(const std::string& cell) {
  if (cell.empty() || cell.find_first_not_of("0123456789") != cell.npos) return 0;
  const std::string digits = cell.substr(std::min(cell.find_first_not_of('0'), cell.size()));
  if (digits.empty() || digits.size() > 10) return 0;
  const uint64_t value = std::stoull(digits);
  return value > 2147483647 ? 0 : value;
}

bool IsWord(const std::string& word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) { return c > ' '; });
}

}  // namespace

NaiveCounts CountsOf(const std::string& file, int minWords, int maxWords) {
  NaiveCounts counts;
  std::vector<std::string> lines = Split(file, '\n');
  if (lines.back().empty()) lines.pop_back();
  size_t phraseColumn = 0;
  size_t frequencyColumn = 1;
  size_t cellsNeeded = 0;  // 0: exactly two.
  bool begun = false;
  for (size_t n = 1; n <= lines.size(); ++n) {
    std::string line = lines[n - 1];
    if (n == 1 && line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line == "#" || line.starts_with("# ")) continue;
    const std::vector<std::string> cells = Split(line, '\t');
    if (!begun) {
      begun = true;
      const auto phrase = std::find(cells.begin(), cells.end(), "phrase");
      const auto frequency = std::find(cells.begin(), cells.end(), "frequency");
      if (phrase != cells.end() && frequency != cells.end()) {
        phraseColumn = static_cast<size_t>(phrase - cells.begin());
        frequencyColumn = static_cast<size_t>(frequency - cells.begin());
        cellsNeeded = std::max(phraseColumn, frequencyColumn) + 1;
        continue;
      }
    }
    counts.RefusedLine = n;
    if (cellsNeeded == 0 ? cells.size() != 2 : cells.size() < cellsNeeded) return counts;
    const uint64_t frequency = FrequencyOf(cells[frequencyColumn]);
    const std::string& phrase = cells[phraseColumn];
    const std::vector<std::string> words = Split(phrase, ' ');
    if (frequency == 0 || !std::all_of(words.begin(), words.end(), IsWord)) return counts;
    const bool rightLength =
        words.size() >= static_cast<size_t>(minWords) && words.size() <= static_cast<size_t>(maxWords);
    if (rightLength && phrase.size() <= 100 && (counts.Sums[phrase] += frequency) > 2147483647) return counts;
    counts.RefusedLine = 0;
    ++counts.Lines;
    if (!rightLength)
      ++counts.OtherLengths;
    else if (phrase.size() > 100)
      counts.LongOccurrences += frequency;
  }
  return counts;
}

}  // namespace korv::reference
