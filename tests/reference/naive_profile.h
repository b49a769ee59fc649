#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "tests/reference/naive_run.h"

namespace korv::reference {

/// The frequencies of the listed phrases of a finished run, by rank: the first is that of rank 1.
std::vector<int64_t> FrequenciesByRank(const CountingRun& run);

struct OfLength {
  int64_t Phrases = 0;
  int64_t Occurrences = 0;
};
/// The listed phrases by their number of words; no entry where there are none.
std::map<int, OfLength> ListedByLength(const CountingRun& run);

}  // namespace korv::reference
