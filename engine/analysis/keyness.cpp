#include "engine/analysis/keyness.h"

#include <cmath>

namespace korv {

namespace {

/// observed * ln(observed / expected). By the difference of both, as their quotient is too close to 1.
double Cell(double observed, double expectedMore) {
  return observed == 0 ? 0 : -observed * std::log1p(expectedMore / observed);
}

bool Occurs(const FrequencyPair& pair) {
  return pair.A + pair.B > 0;
}

double RateInA(const FrequencyPair& pair) {
  return static_cast<double>(pair.A) / static_cast<double>(pair.C);
}

double RateInB(const FrequencyPair& pair) {
  return static_cast<double>(pair.B) / static_cast<double>(pair.D);
}

}  // namespace

std::string_view NameOfBasis(ComparisonBasis basis) {
  switch (basis) {
    case ComparisonBasis::Words:
      break;
    case ComparisonBasis::Files:
      return "files";
    case ComparisonBasis::Net:
      return "net";
  }
  return "words";
}

std::optional<double> SignedG2(const FrequencyPair& pair) {
  if (!Occurs(pair)) return std::nullopt;
  const auto a = static_cast<double>(pair.A);
  const auto b = static_cast<double>(pair.B);
  const auto c = static_cast<double>(pair.C);
  const auto d = static_cast<double>(pair.D);
  // E1 - a, which is b - E2. Exactly 0 where there is no difference.
  const double more = (b * c - a * d) / (c + d);
  const double g2 = 2 * (Cell(a, more) + Cell(b, -more) + Cell(c - a, -more) + Cell(d - b, more));
  const double size = std::fmax(g2, 0);
  return RateInA(pair) < RateInB(pair) ? -size : size;
}

std::optional<double> LogRatio(const FrequencyPair& pair) {
  if (!Occurs(pair)) return std::nullopt;
  const double a = pair.A == 0 ? 0.5 : static_cast<double>(pair.A);
  const double b = pair.B == 0 ? 0.5 : static_cast<double>(pair.B);
  return std::log2(a * static_cast<double>(pair.D) / (b * static_cast<double>(pair.C)));
}

std::optional<double> DifferenceBic(const FrequencyPair& pair) {
  const auto g2 = SignedG2(pair);
  if (!g2) return std::nullopt;
  return std::fabs(*g2) - std::log(static_cast<double>(pair.C + pair.D));
}

std::optional<double> PercentDifference(const FrequencyPair& pair) {
  if (pair.B == 0) return std::nullopt;
  return 100 * (RateInA(pair) - RateInB(pair)) / RateInB(pair);
}

std::optional<double> SimpleMaths(const FrequencyPair& pair, double k) {
  if (!Occurs(pair)) return std::nullopt;
  return (1e6 * RateInA(pair) + k) / (1e6 * RateInB(pair) + k);
}

double SignificantG2(double level, uint64_t tests) {
  const double each = -std::expm1(std::log1p(-level) / static_cast<double>(tests));
  // The probability falls from 1 at 0; no level that can be written needs more than this.
  double least = 0;
  double most = 1500;
  for (int step = 0; step < 200 && least < most; ++step) {
    const double middle = (least + most) / 2;
    if (middle <= least || middle >= most) break;
    (std::erfc(std::sqrt(middle / 2)) <= each ? most : least) = middle;
  }
  return most;
}

}  // namespace korv
