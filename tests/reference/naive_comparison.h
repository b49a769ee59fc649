#pragma once

#include <map>
#include <string>

#include "tests/reference/naive_analysis.h"
#include "tests/reference/naive_run.h"

namespace korv::reference {

/// Two texts that are compared, each counted alone, and both counted together as one text after the other.
/// All under the same rules and lengths.
struct ComparedRuns {
  const CountingRun& Both;
  const CountingRun& A;
  const CountingRun& B;
};

/// What the columns of a comparison say of its phrases, by their texts; and "change" as 0 gone, 1 less, 2
/// same, 3 more, 4 new. `basis`: "words", "files" or "net". `minFrequency`: of both together.
std::map<std::string, Measures> ComparePhrases(const ComparedRuns& runs, const std::string& basis,
                                               Parts parts, double k, int minFrequency, bool keepRedundant);

/// The four cells written out, with a sign.
double NaiveG2(double a, double b, double c, double d);

}  // namespace korv::reference
