#pragma once

#include <string>

#include "app/run/run_observer.h"
#include "base/number_format.h"
#include "engine/text/word_rules.h"
#include "report/run_summary.h"

namespace korv {

/// The line that tells what became of a run's words: how many were read, how many were dropped and by which
/// rules, phrases that are too long to be counted, and how the text was encoded. Without a line end.
std::string RunLine(const RunSummary& facts, const WordRules& rules, const NumberFormat& numbers);

/// How much of the text the report of a stopped run covers. Without a line end.
std::string CoverageLine(const RunSummary& facts, const RunProgress& progress, const NumberFormat& numbers);

/// How much of the words that were taken stands in phrases with the minimum frequency. `share`: 0..1. Without
/// a line end.
std::string PhraseShareLine(double share, const RunSummary& facts, const NumberFormat& numbers);

}  // namespace korv
