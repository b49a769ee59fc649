#include "engine/analysis/dispersion.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace korv {

namespace {

using Part = PhraseSpread::Part;

double ShareOfOccurrences(const PhraseSpread& spread, const Part& part) {
  return part.Occurrences / static_cast<double>(spread.Occurrences);
}

double ShareOfWords(const PhraseSpread& spread, uint64_t words) {
  return static_cast<double>(words) / static_cast<double>(spread.AllWords);
}

/// Occurrences per word: R_i.
double Rate(const Part& part) {
  return part.Occurrences / static_cast<double>(part.Words);
}

}  // namespace

double DeviationOfProportions(const PhraseSpread& spread) {
  // A part without an occurrence adds w_i, and all w_i together are 1.
  double sum = 1;
  for (const Part& part : spread.Parts) {
    const double w = ShareOfWords(spread, part.Words);
    sum += std::abs(ShareOfOccurrences(spread, part) - w) - w;
  }
  return std::max(0.0, sum / 2);
}

double NormalisedDeviation(const PhraseSpread& spread) {
  return DeviationOfProportions(spread) / (1 - ShareOfWords(spread, spread.FewestWords));
}

double DispersionP(const PhraseSpread& spread) {
  const uint64_t fewest = std::ranges::min_element(spread.Parts, {}, &Part::Words)->Words;
  return std::max(0.0, 1 - DeviationOfProportions(spread) / (1 - ShareOfWords(spread, fewest)));
}

double JuillandD(const PhraseSpread& spread) {
  const auto k = static_cast<double>(spread.AllParts);
  double sum = 0;
  for (const Part& part : spread.Parts) sum += Rate(part);
  const double mean = sum / k;
  // The mean of the squares less the square of the mean would be shorter. Its root has only half of the
  // digits where the spread is nearly even.
  double squares = (k - static_cast<double>(spread.Parts.size())) * mean * mean;
  for (const Part& part : spread.Parts) squares += (Rate(part) - mean) * (Rate(part) - mean);
  const double deviation = std::sqrt(squares / k);
  return std::max(0.0, 1 - deviation / mean / std::sqrt(k - 1));
}

double DispersionA(const PhraseSpread& spread) {
  // Parts without an occurrence come last and add nothing.
  std::vector<double> rates;
  for (const Part& part : spread.Parts) rates.push_back(Rate(part));
  std::ranges::sort(rates, std::greater());
  double sum = 0;
  double weighted = 0;
  for (size_t i = 0; i < rates.size(); ++i) {
    sum += rates[i];
    weighted += static_cast<double>(i + 1) * rates[i];
  }
  return std::clamp(2 * (weighted / sum - 1) / static_cast<double>(spread.AllParts - 1), 0.0, 1.0);
}

double KullbackLeiblerD(const PhraseSpread& spread) {
  double divergence = 0;
  for (const Part& part : spread.Parts) {
    const double t = ShareOfOccurrences(spread, part);
    divergence += t * std::log2(t / ShareOfWords(spread, part.Words));
  }
  divergence = std::max(0.0, divergence);
  return divergence / (1 + divergence);
}

}  // namespace korv
