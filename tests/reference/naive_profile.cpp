#include "tests/reference/naive_profile.h"

#include <algorithm>

namespace korv::reference {
namespace {

std::vector<Phrase> ListedPhrases(const CountingRun& run) {
  std::vector<Phrase> listed;
  for (int32_t i = 1; i <= run.Phrases().PhraseCount; ++i)
    if (run.Phrases()[i].Listed) listed.push_back(run.Phrases()[i]);
  return listed;
}

}  // namespace

std::vector<int64_t> FrequenciesByRank(const CountingRun& run) {
  std::vector<int64_t> frequencies;
  for (const Phrase& phrase : ListedPhrases(run)) frequencies.push_back(phrase.Count);
  std::sort(frequencies.rbegin(), frequencies.rend());
  return frequencies;
}

std::map<int, OfLength> ListedByLength(const CountingRun& run) {
  std::map<int, OfLength> lengths;
  for (const Phrase& phrase : ListedPhrases(run)) {
    OfLength& length = lengths[static_cast<int>(std::ranges::count(phrase.Text, ' ')) + 1];
    ++length.Phrases;
    length.Occurrences += phrase.Count;
  }
  return lengths;
}

}  // namespace korv::reference
