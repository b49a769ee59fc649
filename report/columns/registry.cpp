#include "report/columns/registry.h"

#include <algorithm>

namespace korv {

std::vector<const Column*> AllColumns() {
  std::vector<const Column*> all;
  for (const auto family : {PhraseColumns, FrequencyColumns, FileColumns, DispersionColumns, ReportColumns})
    for (const Column& column : family()) all.push_back(&column);
  return all;
}

const Column* FindColumn(std::string_view id) {
  const std::vector<const Column*> all = AllColumns();
  const auto found = std::ranges::find(all, id, [](const Column* column) { return column->Id; });
  return found == all.end() ? nullptr : *found;
}

}  // namespace korv
