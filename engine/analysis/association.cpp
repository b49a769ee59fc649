#include "engine/analysis/association.h"

#include <cmath>

namespace korv {

double MutualInformation(const PhraseWords& phrase) {
  const double all = std::log2(static_cast<double>(phrase.Words));
  double sum = std::log2(phrase.Frequency) - all;
  for (const uint32_t frequency : phrase.Frequencies) sum += all - std::log2(frequency);
  return sum;
}

double MutualInformation3(const PhraseWords& phrase) {
  return MutualInformation(phrase) + 2 * std::log2(phrase.Frequency);
}

double NormalisedMutualInformation(const PhraseWords& phrase) {
  const double share = phrase.Frequency / static_cast<double>(phrase.Words);
  return MutualInformation(phrase) / (-static_cast<double>(phrase.Frequencies.size() - 1) * std::log2(share));
}

double TScore(const PhraseWords& phrase) {
  const auto words = static_cast<double>(phrase.Words);
  double expected = words;
  for (const uint32_t frequency : phrase.Frequencies) expected *= frequency / words;
  return (phrase.Frequency - expected) / std::sqrt(phrase.Frequency);
}

double LogDice(const PhraseWords& phrase) {
  double sum = 0;
  for (const uint32_t frequency : phrase.Frequencies) sum += frequency;
  return 14 + std::log2(static_cast<double>(phrase.Frequencies.size()) * phrase.Frequency / sum);
}

}  // namespace korv
