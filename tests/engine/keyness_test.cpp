#include "engine/analysis/keyness.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korv {
namespace {

constexpr uint64_t kMillion = 1000000;

struct PublishedCase {
  FrequencyPair Pair;
  double G2;
  double Bic;
  double LogRatioIs;
};

TEST(Keyness, HasTheValuesThatOthersPublish) {
  const PublishedCase cases[] = {
      {{120, 30, kMillion, 2 * kMillion}, 137.881, 122.967, 3.000},
      {{30, 120, 2 * kMillion, kMillion}, -137.881, 122.967, -3.000},
  };
  for (const PublishedCase& c : cases) {
    EXPECT_NEAR(SignedG2(c.Pair).value(), c.G2, 5e-4);
    EXPECT_NEAR(DifferenceBic(c.Pair).value(), c.Bic, 5e-4);
    EXPECT_NEAR(LogRatio(c.Pair).value(), c.LogRatioIs, 5e-4);
  }
  EXPECT_NEAR(PercentDifference(cases[0].Pair).value(), 700, 1e-9);
  EXPECT_NEAR(SimpleMaths(cases[0].Pair, 1).value(), 7.5625, 1e-12);
  const FrequencyPair onlyInA{5, 0, kMillion, 2 * kMillion};
  EXPECT_NEAR(SignedG2(onlyInA).value(), 10.986, 5e-4);
  EXPECT_NEAR(DifferenceBic(onlyInA).value(), -3.93, 5e-3);
  EXPECT_NEAR(LogRatio(onlyInA).value(), 4.32, 5e-3);
}

TEST(Keyness, OfNoDifferenceIsNone) {
  for (const FrequencyPair& pair : {FrequencyPair{7, 7, 1000, 1000}, FrequencyPair{3, 9, 1000, 3000},
                                    FrequencyPair{10, 10, 10, 10}, FrequencyPair{1, 1, 1, 1}}) {
    EXPECT_EQ(SignedG2(pair), 0);
    EXPECT_EQ(LogRatio(pair), 0);
    EXPECT_EQ(PercentDifference(pair), 0);
    EXPECT_EQ(SimpleMaths(pair, 1), 1);
    EXPECT_DOUBLE_EQ(DifferenceBic(pair).value(), -std::log(static_cast<double>(pair.C + pair.D)));
  }
}

TEST(Keyness, SwappingTheSidesTurnsTheSign) {
  for (const FrequencyPair& pair :
       {FrequencyPair{1, 0, 10, 20}, FrequencyPair{0, 7, 100, 300}, FrequencyPair{12, 5, 1000, 777},
        FrequencyPair{10, 3, 10, 30}, FrequencyPair{2000000000, 1, 4000000000, 4000000000}}) {
    const FrequencyPair swapped{pair.B, pair.A, pair.D, pair.C};
    EXPECT_DOUBLE_EQ(SignedG2(swapped).value(), -SignedG2(pair).value());
    EXPECT_DOUBLE_EQ(LogRatio(swapped).value(), -LogRatio(pair).value());
    EXPECT_DOUBLE_EQ(DifferenceBic(swapped).value(), DifferenceBic(pair).value());
    EXPECT_DOUBLE_EQ(SimpleMaths(swapped, 1).value(), 1 / SimpleMaths(pair, 1).value());
  }
}

TEST(Keyness, IsNotDefinedWhereThereIsNothing) {
  const FrequencyPair nowhere{0, 0, 10, 10};
  EXPECT_EQ(SignedG2(nowhere), std::nullopt);
  EXPECT_EQ(LogRatio(nowhere), std::nullopt);
  EXPECT_EQ(DifferenceBic(nowhere), std::nullopt);
  EXPECT_EQ(SimpleMaths(nowhere, 1), std::nullopt);
  EXPECT_EQ(PercentDifference(nowhere), std::nullopt);
  EXPECT_EQ(PercentDifference({5, 0, 10, 10}), std::nullopt);
}

TEST(Keyness, OfHugeTextsKeepsItsDigits) {
  // 2 * (a ln(a / E) + ...) of a difference of 1 in 1,000 million: (a - E)^2 / E and so on, to the first
  // order.
  const FrequencyPair pair{1000000001, 1000000000, 4000000000, 4000000000};
  const double more = 0.5;
  const double expected = 1000000000.5;
  const double rest = 4000000000.0 - expected;
  EXPECT_NEAR(SignedG2(pair).value(), 2 * more * more * (1 / expected + 1 / rest), 1e-14);
}

TEST(SignificantG2, IsThatOfOneDegreeOfFreedom) {
  struct Row {
    double Level;
    uint64_t Tests;
    double G2;
  };
  for (const Row& row : {Row{0.05, 1, 3.84}, Row{0.01, 1, 6.63}, Row{0.001, 1, 10.83}, Row{0.0001, 1, 15.13},
                         Row{0.0001, 1000, 28.4}, Row{0.0001, 10000, 32.8}, Row{0.0001, 100000, 37.3},
                         Row{0.0001, 1000000, 41.8}}) {
    EXPECT_NEAR(SignificantG2(row.Level, row.Tests), row.G2, row.Tests == 1 ? 0.01 : 0.06);
  }
}

}  // namespace
}  // namespace korv
