#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace korv {

/// How evenly a phrase is spread over the parts of a text: the usual measures.
///
/// In the formulas, over the parts i = 1..k: W_i are the words of a part and w_i its share of all words, T_i
/// the occurrences in it and t_i its share of all occurrences f, R_i = T_i / W_i and r_i its share of the sum
/// of all R_i. Only parts with an occurrence are looked at, so that a phrase costs its occurrences and not
/// the parts.
struct PhraseSpread {
  struct Part {
    uint32_t Occurrences;  ///< T_i, at least 1.
    uint64_t Words;        ///< W_i.
  };
  std::span<const Part> Parts;  ///< Those with an occurrence, in any order; at least one.
  uint64_t Occurrences;         ///< f.
  size_t AllParts;              ///< k, at least 2.
  uint64_t AllWords;            ///< Sum of all W_i.
  uint64_t FewestWords;         ///< Least W_i of all parts, with an occurrence or not.
};

// All are linear in PhraseSpread::Parts but DispersionA(), which sorts them. With few occurrences (f < k / 2)
// none can come near to the value of an even spread.

/// Deviation of proportions DP = 0.5 * sum |t_i - w_i|: 0 even, up to 1 - least w_i. Gries 2008.
double DeviationOfProportions(const PhraseSpread& spread);
/// DP / (1 - least w_i): 0 even, 1 all in the smallest part. Lijffijt and Gries 2012.
double NormalisedDeviation(const PhraseSpread& spread);
/// D_P = 1 - DP / (1 - least w_i of the parts with an occurrence): 1 even, 0 all in one part. Egbert, Burch
/// and Biber 2020.
double DispersionP(const PhraseSpread& spread);
/// Juilland's D = 1 - V / sqrt(k - 1), V the standard deviation of the R_i (that of a population) divided by
/// their mean; below 0 it is 0: 1 even, 0 all in one part. Juilland and Chang-Rodriguez 1964.
double JuillandD(const PhraseSpread& spread);
/// D_A = 2 * (sum of i * r_i - 1) / (k - 1), the r_i in descending order: 1 even, 0 all in one part. Burch,
/// Egbert and Biber 2017, by the shortcut of Wilcox 1973.
double DispersionA(const PhraseSpread& spread);
/// D_KL = K / (1 + K), K = sum t_i * log2(t_i / w_i), the Kullback-Leibler divergence: 0 even, below 1. Gries
/// 2024.
double KullbackLeiblerD(const PhraseSpread& spread);

}  // namespace korv
