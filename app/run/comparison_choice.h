#pragma once

#include "engine/analysis/keyness.h"

namespace korv {

/// How the phrases of two sides are compared. None of it needs another count.
struct ComparisonChoice {
  ComparisonBasis Basis = ComparisonBasis::Words;
  double SimpleMathsK = 1;  ///< The constant of simple maths, 0.1 to 1000.
  bool Drafts = false;      ///< A is a new version of B.

  bool operator==(const ComparisonChoice&) const = default;
};

}  // namespace korv
