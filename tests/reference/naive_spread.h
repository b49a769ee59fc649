#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/reference/naive_run.h"

namespace korv::reference {

/// The words taken of a finished run, counted from 0, at which `phrase` begins.
std::vector<size_t> WordsAtWhichItBegins(const CountingRun& run, const std::string& phrase);

/// How many of those lie in each of `parts` equal parts of all n words: in part j when
/// floor(j n / parts) <= word < floor((j + 1) n / parts).
std::vector<uint32_t> OccurrencesByPart(const CountingRun& run, const std::string& phrase, size_t parts);

/// How many of them lie in each source, in reading order.
std::vector<uint32_t> OccurrencesBySource(const CountingRun& run, const std::string& phrase);

}  // namespace korv::reference
