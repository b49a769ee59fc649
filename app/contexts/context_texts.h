#pragma once

#include <map>
#include <optional>
#include <string>

#include "app/contexts/context_list.h"
#include "base/number_format.h"
#include "sources/places/place_locator.h"

namespace korv {

/// How the list calls a text of the run: a file by its name, below a folder by its path from there;
/// "Clipboard".
std::string NameOfText(const CountedRun& run, size_t source);
/// "whale.txt:12".
std::string PlaceName(const CountedRun& run, size_t source, uint64_t line);
/// "Line 12, column 3"; "Page 12" where pages stand for lines.
std::string LineText(const PlaceInText& place);
/// "whale.txt, line 12, column 3 – occurrence 5 of 7".
std::string OccurrencePlaceText(const PlaceInText& place, const std::string& name,
                                const std::string& occurrence, const std::string& all,
                                const NumberFormat& numbers);

/// "1,234 occurrences in 56 files"; of a sample "1,000 of 1,234 occurrences in 56 files, drawn at random
/// (seed 7)".
std::string OccurrencesText(const ContextList& list, const NumberFormat& numbers);

/// Texts that are not those that were counted, with what is wrong. By index in Corpus::Sources.
using ChangedTexts = std::map<size_t, PlaceFault>;
/// A sentence about them; empty where there are none.
std::string ChangedTextsText(const CountedRun& run, const ChangedTexts& changed, const NumberFormat& numbers);

}  // namespace korv
