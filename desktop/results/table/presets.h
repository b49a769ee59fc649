#pragma once

#include <string_view>
#include <vector>

#include "desktop/results/table/table_source.h"
#include "report/columns/row_filter.h"

namespace korv {

/// A purpose for which a table is filtered, ordered and given columns.
struct Preset {
  std::string_view Name;     ///< For machines.
  std::string_view Caption;  ///< In the menu; "&&" is an ampersand.
  std::string_view Tip;

  /// Occurrences per million running words; 0: no such limit.
  double PerMillion = 0;
  int LeastWords = 0;  ///< 0: any number of words.
  int MostWords = 0;
  int LeastFiles = 0;         ///< Of several files.
  int LeastFilesPercent = 0;  ///< Of the files with words.
  int LeastAlone = 0;

  std::string_view SortBy = "rank";
  std::vector<std::string_view> Columns = {};  ///< Beside those that the user has chosen.
  bool IsBundle() const { return PerMillion > 0; }
};

/// Those whose columns there are. The last one takes everything back.
std::vector<Preset> Presets();

/// max(2, ceil(perMillion * words / 1,000,000)), the raw threshold of a rate.
double LeastFrequency(double perMillion, uint64_t words);

/// The limits of a preset for a run.
std::vector<Limit> LimitsOf(const Preset& preset, const TableSource& source);

/// What is to be said of a preset in this run; empty when there is nothing. LF between sentences of their
/// own.
std::string NoteOf(const Preset& preset, const TableSource& source);
/// Whether short words were dropped, which a bundle may hold.
bool DropsShortWords(const Preset& preset, const TableSource& source);

}  // namespace korv
