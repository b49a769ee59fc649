#include "cli/column_values.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "base/translation.h"
#include "cli/nearest_name.h"
#include "cli/option_values.h"
#include "report/columns/column_keys.h"
#include "report/columns/registry.h"

namespace korv {

namespace {

const Column* ParseColumn(const std::string& name, const std::string& option) {
  std::vector<std::string_view> known;
  for (const Column* column : TableColumns(TableOf::TwoSides)) {
    if (column->Id == name) return column;
    known.push_back(column->Id);
  }
  const std::string nearest(NearestName(name, known));
  const std::string fault = nearest.empty()
                                ? Fill(Tr("there is no column '%1'"), {name})
                                : Fill(Tr("there is no column '%1'; did you mean %2?"), {name, nearest});
  RefuseValue(option, fault + "\n" +
                          Fill(Tr("The columns are: %1"),
                               {Joined(std::vector<std::string>(known.begin(), known.end()), " ")}));
}

}  // namespace

std::vector<const Column*> ParseColumns(const std::string& text, const std::string& option) {
  std::vector<const Column*> columns;
  std::istringstream names(text);
  for (std::string name; std::getline(names, name, ',');) {
    const Column* const column = ParseColumn(WithoutBlanksAround(name), option);
    if (std::ranges::find(columns, column) != columns.end())
      RefuseValue(option, Fill(Tr("'%1' is given twice"), {column->Id}));
    columns.push_back(column);
  }
  if (columns.empty()) RefuseValue(option, Tr("a column is needed"));
  return columns;
}

SortColumn ParseSortColumn(const std::string& text, const std::string& option) {
  const size_t colon = std::min(text.find(':'), text.size());
  const Column* const column = ParseColumn(text.substr(0, colon), option);
  if (!HasKeys(*column))
    RefuseValue(option, Fill(Tr("a table cannot be ordered by '%1'"), {text.substr(0, colon)}));
  if (colon == text.size()) return {column, UsualDirection(*column)};
  const std::string directions[] = {"asc", "desc"};
  return {column, ParseChoice(text.substr(colon + 1), option, directions) == 0 ? SortDirection::Ascending
                                                                               : SortDirection::Descending};
}

Limit AtLeast(std::string_view column, double least) {
  return {FindColumn(column), least, {}};
}

PartChoice ParseParts(const std::string& text) {
  constexpr std::string_view kOfEachFile = "each:";
  if (text == "files") return {PartChoice::kFiles};
  const bool ofEachFile = text.starts_with(kOfEachFile);
  const std::string number = ofEachFile ? text.substr(kOfEachFile.size()) : text;
  return {ParseInRange(number, "--parts", PartChoice::kLeastEqual, PartChoice::kMostEqual), ofEachFile};
}

}  // namespace korv
