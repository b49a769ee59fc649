#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "report/columns/column.h"
#include "report/report_form.h"
#include "report/report_options.h"

namespace korv {

/// One of the thirteen formats of the report: columns, and what else is peculiar to it.
struct Format {
  std::array<std::string_view, 4> Columns = {};  ///< Ids, left to right; empty behind the last.
  bool NeedsFolder = false;                      ///< Only for a folder source.
  bool TellsLongest = false;                     ///< The heading ends with the length of the longest phrase.
  bool OneLine = false;                          ///< Phrases run on in one line, without a heading in files.
  bool FlushLeft = false;     ///< Lines of phrases begin without the blank of padded lines.
  bool LinePerFile = false;   ///< Columns with a value per file stand below the phrase, a line per file.
  bool SortsByFiles = false;  ///< The list may be ordered by number of files.
};

/// The row of a display format; the nearest one for a number out of range.
const Format& FormatOf(int displayFormat);

/// Its columns as the options ask for them: relative frequencies in place of absolute ones, the file
/// frequency only where the list is sorted by number of files.
std::vector<const Column*> ColumnsOfFormat(const Format& format, const ReportOptions& options);

/// The columns of a table for other programs: those that are asked for, or the usual ones.
std::vector<const Column*> ColumnsOf(const TableOutput& table);

/// Whether relative frequencies would change what the format shows.
bool ShowsFrequencies(const Format& format);
/// Whether it shows paths of files, which are abbreviated then.
bool ShowsPaths(const Format& format);

}  // namespace korv
