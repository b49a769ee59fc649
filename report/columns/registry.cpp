#include "report/columns/registry.h"

#include <algorithm>

namespace korv {

std::vector<const Column*> TableColumns(TableOf run) {
  std::vector<const Column*> columns;
  for (const auto family :
       {PhraseColumns, FrequencyColumns, FileColumns, DispersionColumns, AssociationColumns})
    for (const Column& column : family()) columns.push_back(&column);
  if (run == TableOf::TwoSides)
    for (const Column& column : ComparisonColumns()) columns.push_back(&column);
  return columns;
}

std::vector<const Column*> AllColumns() {
  std::vector<const Column*> all = TableColumns(TableOf::TwoSides);
  for (const Column& column : ReportColumns()) all.push_back(&column);
  return all;
}

bool NeedPlaces(std::span<const Column* const> columns) {
  return std::ranges::any_of(columns,
                             [](const Column* column) { return column->NeedsPlaces || column->Needs.Any(); });
}

const Column* FindColumn(std::string_view id) {
  const std::vector<const Column*> all = AllColumns();
  const auto found = std::ranges::find(all, id, [](const Column* column) { return column->Id; });
  return found == all.end() ? nullptr : *found;
}

}  // namespace korv
