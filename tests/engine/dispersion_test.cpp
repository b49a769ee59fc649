#include "engine/analysis/dispersion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "engine/analysis/association.h"
#include "engine/analysis/reduced_frequency.h"

namespace korv {
namespace {

struct PartOfText {
  uint32_t Occurrences;
  uint64_t Words;
};

struct SpreadCase {
  const char* Name;
  std::vector<PartOfText> Parts;
  double Dp, DpNorm, Egbert, Juilland, DA, DKL;
};

// The first is worked out in tlda, the others by hand.
const SpreadCase kSpreadCases[] = {
    {"more from part to part",
     {{0, 10}, {0, 10}, {1, 10}, {2, 10}, {5, 10}},
     0.475,
     0.59375,
     0.40625,
     0.42039884,
     0.25,
     0.50571716},
    {"even over equal parts", {{3, 50}, {3, 50}}, 0, 0, 1, 1, 1, 0},
    {"even over unequal parts", {{1, 10}, {3, 30}, {2, 20}}, 0, 0, 1, 1, 1, 0},
    {"all in the smallest part", {{4, 25}, {0, 75}}, 0.75, 1, 0, 0, 0, 2.0 / 3},
    {"all in the largest part", {{0, 25}, {4, 75}}, 0.25, 1.0 / 3, 0, 0, 0, 0.29330495},
};

TEST(Dispersion, MeasuresHaveTheirPublishedValues) {
  for (const SpreadCase& c : kSpreadCases) {
    std::vector<PhraseSpread::Part> parts;
    PhraseSpread spread{
        .Parts = {}, .Occurrences = 0, .AllParts = c.Parts.size(), .AllWords = 0, .FewestWords = SIZE_MAX};
    for (const PartOfText& part : c.Parts) {
      spread.AllWords += part.Words;
      spread.FewestWords = std::min(spread.FewestWords, part.Words);
      spread.Occurrences += part.Occurrences;
      if (part.Occurrences > 0) parts.push_back({part.Occurrences, part.Words});
    }
    spread.Parts = parts;
    EXPECT_NEAR(DeviationOfProportions(spread), c.Dp, 1e-8) << c.Name;
    EXPECT_NEAR(NormalisedDeviation(spread), c.DpNorm, 1e-8) << c.Name;
    EXPECT_NEAR(DispersionP(spread), c.Egbert, 1e-8) << c.Name;
    EXPECT_NEAR(JuillandD(spread), c.Juilland, 1e-8) << c.Name;
    EXPECT_NEAR(DispersionA(spread), c.DA, 1e-8) << c.Name;
    EXPECT_NEAR(KullbackLeiblerD(spread), c.DKL, 1e-8) << c.Name;
  }
}

struct ReducedCase {
  const char* Name;
  std::vector<uint64_t> Positions;
  uint64_t Words;
  double Arf;
};

const ReducedCase kReducedCases[] = {
    {"once", {7}, 100, 1},
    {"even", {5, 30, 55, 80}, 100, 4},
    {"side by side", {0, 1, 2, 3}, 100, (1 + 1 + 1 + 25) / 25.0},
    {"round the end", {0, 99}, 100, (1 + 50) / 50.0},
    {"two heaps", {10, 11, 60, 61}, 100, (25 + 1 + 25 + 1) / 25.0},
};

TEST(ReducedFrequency, IsLessTheMoreOccurrencesStandTogether) {
  for (const ReducedCase& c : kReducedCases)
    EXPECT_NEAR(AverageReducedFrequency(c.Positions, c.Words), c.Arf, 1e-12) << c.Name;
}

struct AssociationCase {
  const char* Name;
  std::vector<uint32_t> Words;
  uint32_t Frequency;
  uint64_t All;
  double MI, T, LogDice, MI3, NPMI;
};

const AssociationCase kAssociationCases[] = {
    {"strong", {100, 400, 50}, 20, 1'000'000, 23.253, 4.472, 10.804, 31.897, 0.745},
    {"words that occur nowhere else", {8, 8}, 8, 1024, 7, 2.806, 14, 13, 1},
    {"independent", {64, 64}, 4, 1024, 0, 0, 10, 4, 0},
};

TEST(Association, MeasuresHaveTheirValuesByHand) {
  for (const AssociationCase& c : kAssociationCases) {
    const PhraseWords phrase{.Frequencies = c.Words, .Frequency = c.Frequency, .Words = c.All};
    EXPECT_NEAR(MutualInformation(phrase), c.MI, 0.0005) << c.Name;
    EXPECT_NEAR(TScore(phrase), c.T, 0.0005) << c.Name;
    EXPECT_NEAR(LogDice(phrase), c.LogDice, 0.0005) << c.Name;
    EXPECT_NEAR(MutualInformation3(phrase), c.MI3, 0.0005) << c.Name;
    EXPECT_NEAR(NormalisedMutualInformation(phrase), c.NPMI, 0.0005) << c.Name;
  }
}

}  // namespace
}  // namespace korv
