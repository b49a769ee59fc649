#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace korv::reference {

/// What the bytes of a file of counts come to.
struct NaiveCounts {
  std::map<std::string, uint64_t> Sums;  ///< By phrase, of those of the right lengths.
  uint64_t Lines = 0;                    ///< With a phrase and its frequency.
  uint64_t OtherLengths = 0;
  uint64_t LongOccurrences = 0;  ///< Of phrases with over 100 characters.
  uint64_t RefusedLine =
      0;  ///< The first line that is no count, from 1; 0 for none. Nothing else counts then.
};

/// Texts are ASCII.
NaiveCounts CountsOf(const std::string& file, int minWords, int maxWords);

}  // namespace korv::reference
