#include "tests/reference/naive_spread.h"

#include <algorithm>
#include <sstream>

namespace korv::reference {

std::vector<size_t> WordsAtWhichItBegins(const CountingRun& run, const std::string& phrase) {
  std::vector<std::string> wanted;
  std::istringstream words(phrase);
  for (std::string word; words >> word;) wanted.push_back(word);
  std::vector<size_t> begins;
  for (const size_t at : PlacesOf(run.Words(), wanted))
    begins.push_back(static_cast<size_t>(run.TakenBefore()[at]));
  return begins;
}

std::vector<uint32_t> OccurrencesByPart(const CountingRun& run, const std::string& phrase, size_t parts) {
  const auto all = static_cast<size_t>(run.WordsTaken());
  std::vector<uint32_t> occurrences(parts);
  for (const size_t word : WordsAtWhichItBegins(run, phrase))
    for (size_t j = 0; j < parts; ++j)
      if (j * all / parts <= word && word < (j + 1) * all / parts) ++occurrences[j];
  return occurrences;
}

std::vector<uint32_t> OccurrencesBySource(const CountingRun& run, const std::string& phrase) {
  std::vector<uint32_t> occurrences;
  size_t begin = 0;
  for (const int64_t words : run.WordsOfSources()) {
    const size_t end = begin + static_cast<size_t>(words);
    occurrences.push_back(static_cast<uint32_t>(std::ranges::count_if(
        WordsAtWhichItBegins(run, phrase), [&](size_t word) { return begin <= word && word < end; })));
    begin = end;
  }
  return occurrences;
}

}  // namespace korv::reference
