#include "cli/manual/manual_columns.h"

namespace korv {

namespace {

constexpr std::string_view kColumnsMark = ".\\\" COLUMNS\n";

}  // namespace

std::string WithColumns(std::string_view page, std::span<const Column* const> columns) {
  const size_t mark = page.find(kColumnsMark);
  if (mark == page.npos) return std::string(page);
  std::string told;
  for (const Column* column : columns) {
    told += ".TP\n.B ";
    told += column->Id;
    told += '\n';
    told += DefinitionText(*column);
    told += '\n';
  }
  return std::string(page.substr(0, mark)) + told + std::string(page.substr(mark + kColumnsMark.size()));
}

}  // namespace korv
