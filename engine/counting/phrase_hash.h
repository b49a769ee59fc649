#pragma once

#include <array>
#include <cstdint>

#include "engine/corpus/vocabulary.h"
#include "engine/run_options.h"

namespace korv {

/// Hashes of n-grams. That of the words w1..wn is a polynomial in the hashes of the words,
///     HashOfWords == HashOfWord(w1) * B^(n-1) + ... + HashOfWord(wn),
/// so that the hash of a part, and of a part with another first or last word, follows from those of prefixes.

/// Spreads the bits of a number over all of it.
inline uint64_t Scramble(uint64_t v) {
  v ^= v >> 31;
  v *= 0x9E3779B97F4A7C15;
  v ^= v >> 32;
  v *= 0xD6E8FEB86659FD93;
  return v ^ v >> 32;
}

inline uint64_t HashOfWord(WordNumber word) {
  return Scramble(ValueOf(word));
}

inline constexpr uint64_t kHashBase = 0xA24BAED4963EE407;

/// kHashPowers[k] == kHashBase^k.
inline constexpr auto kHashPowers = [] {
  std::array<uint64_t, kMostWords + 1> powers{1};
  for (size_t k = 1; k < powers.size(); ++k) powers[k] = powers[k - 1] * kHashBase;
  return powers;
}();

inline uint64_t HashOfWords(const WordNumber* words, int n) {
  uint64_t hash = 0;
  for (int k = 0; k < n; ++k) hash = hash * kHashBase + HashOfWord(words[k]);
  return hash;
}

}  // namespace korv
