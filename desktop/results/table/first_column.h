#pragma once

#include <string>

#include "app/run/run.h"
#include "report/columns/column.h"

namespace korv {

/// Where a phrase occurs first, file and line in one. A column of the window alone: lists for other programs
/// have a column for each of the two. No part of the run holds its text, so it has no Value; FirstPlace()
/// makes the text of the rows that are looked at.
const Column& FirstColumn();

/// "whale.txt:12", as contexts name places; without the line where the run does not know it.
std::string FirstPlace(const CountedRun& run, PhraseIndex entry);

}  // namespace korv
