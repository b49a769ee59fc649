#pragma once

#include <cstdint>
#include <string>

#include "app/run/shown_result.h"
#include "base/number_format.h"

namespace korv {

/// Which run it is, in a line: "moby.txt: 212,000 words (180,000 taken), 4,321 different phrases, 3s"; of one
/// that compares "A: moby.txt, 1 file, 212,000 words; B: mardi.txt, 1 file, 190,000 words; 4,321 ...".
std::string HeadLineText(const ShownResult& result, const NumberFormat& numbers);

/// Of a run that compares: the rules that both sides were counted under, in a sentence; empty of any other.
std::string SharedRulesText(const ShownResult& result);

/// What has to be known of the phrases that it shows: what a test is worth, or that changes are put to none.
std::string ComparisonNote(const ShownResult& result);

/// All there is to know of how a run came about, in lines: its source, its settings, when it ended, how long
/// it took, the file that it was kept in and what memory it takes. `when` is when it ended, as the user
/// writes it.
std::string RunTip(const ShownResult& result, const std::string& when, const NumberFormat& numbers);

/// The memory that a finished run takes, in bytes; small things left out.
uint64_t MemoryOf(const ShownResult& result);

}  // namespace korv
