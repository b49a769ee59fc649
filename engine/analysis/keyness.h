#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace korv {

/// What the frequencies of a phrase in two corpora are measured by.
enum class ComparisonBasis {
  Words,  ///< Its occurrences, against running words.
  Files,  ///< The files with it, against files with words: text keyness (Egbert and Biber 2019).
  Net,    ///< Its occurrences on their own, against running words.
};

/// "words", "files", "net".
std::string_view NameOfBasis(ComparisonBasis basis);

/// The contingency table of a phrase: it occurs A times in a corpus of C units and B times in one of D. C and
/// D are above 0, A <= C and B <= D. Measures below are not defined where A and B are 0.
struct FrequencyPair {
  uint64_t A;
  uint64_t B;
  uint64_t C;
  uint64_t D;
};

/// G2, the log likelihood ratio of the four cells: 2 * (a ln(a / E1) + b ln(b / E2) + (c - a) ln((c - a) / (c
/// - E1))
/// + (d - b) ln((d - b) / (d - E2))), E1 = c (a + b) / (c + d), E2 = d (a + b) / (c + d), where 0 ln 0 is 0
/// (Dunning 1993). Negative where the phrase is rarer in A than in B.
std::optional<double> SignedG2(const FrequencyPair& pair);

/// log2((a / c) / (b / d)), where 0.5 stands for a or b if it is 0 (Hardie 2014). Each 1 more is twice as
/// often.
std::optional<double> LogRatio(const FrequencyPair& pair);

/// |G2| - ln(c + d), an approximation of the Bayesian information criterion with one degree of freedom: 0 to
/// 2 weak evidence of a difference, 2 to 6 positive, 6 to 10 strong, above 10 very strong; below 0 for there
/// being none (Wilson 2013).
std::optional<double> DifferenceBic(const FrequencyPair& pair);

/// 100 * (a / c - b / d) / (b / d) (Gabrielatos and Marchi 2011). Not defined for b = 0.
std::optional<double> PercentDifference(const FrequencyPair& pair);

/// What `k` of simple maths may be.
inline constexpr double kLeastSimpleMathsK = 0.1;
inline constexpr double kMostSimpleMathsK = 1000;
/// (1,000,000 a / c + k) / (1,000,000 b / d + k) (Kilgarriff 2009). The greater `k` is, the more
/// frequent are the phrases with high values.
std::optional<double> SimpleMaths(const FrequencyPair& pair, double k);

/// The least |G2| that is significant at `level` (0..1, exclusive) when `tests` phrases are tested, at least
/// 1: erfc(sqrt(G2 / 2)) <= 1 - (1 - level)^(1 / tests), by Sidak.
double SignificantG2(double level, uint64_t tests);

}  // namespace korv
