#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/reference/naive_run.h"

namespace korv::reference {

/// What measures say of a phrase, by the names of their columns. Nothing where they are not defined.
using Measures = std::map<std::string, std::optional<double>>;

/// So many equal parts of the text, or of each of its files; 0 for the files themselves.
struct Parts {
  int Equal = 0;
  bool OfEachFile = false;
};

/// Those of all listed phrases of a finished run, by their texts. `minFrequency`: that of the run.
std::map<std::string, Measures> MeasuresOfPhrases(const CountingRun& run, Parts parts, int minFrequency);

/// The dispersion D_P of any phrase, listed or not. Nothing where it is not defined.
std::optional<double> DispersionOf(const CountingRun& run, Parts parts, const std::string& phrase);

/// The words of a phrase, which single blanks part.
std::vector<std::string> SplitWords(const std::string& phrase);

/// The share of the words taken that stand in a phrase which reaches the minimum frequency.
double Coverage(const CountingRun& run, int minFrequency);

}  // namespace korv::reference
