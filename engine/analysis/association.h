#pragma once

#include <cstdint>
#include <span>

namespace korv {

/// How strongly the words of a phrase hold together, measured against the independence of single words.
///
/// In the formulas: n words with the frequencies f_1..f_n, the phrase's frequency f, and T words taken in
/// all. Were the words independent, the phrase would be expected E = f_1 * ... * f_n / T^(n-1) times.
struct PhraseWords {
  std::span<const uint32_t> Frequencies;  ///< f_1..f_n, at least 2 of them; none is 0.
  uint32_t Frequency;                     ///< f, at least 1.
  uint64_t Words;                         ///< T, more than f.
};

// All are linear in the words.

/// MI = log2(f / E): 0 where the words are independent. Favours rare words and grows with n: comparable only
/// within one length.
double MutualInformation(const PhraseWords& phrase);
/// MI3 = log2(f^3 / E), which favours frequent phrases.
double MutualInformation3(const PhraseWords& phrase);
/// NPMI = MI / (-(n - 1) * log2(f / T)): 1 where the words occur nowhere else. Comparable over lengths. Bouma
/// 2009 for n = 2.
double NormalisedMutualInformation(const PhraseWords& phrase);
/// t = (f - E) / sqrt(f).
double TScore(const PhraseWords& phrase);
/// logDice = 14 + log2(n * f / (f_1 + ... + f_n)): at most 14, whatever the size of the text. Rychly 2008 for
/// n = 2.
double LogDice(const PhraseWords& phrase);

}  // namespace korv
