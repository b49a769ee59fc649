#include "desktop/results/table/shown_cell.h"

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "desktop/toolkit/text.h"

namespace korv {

namespace {

int DigitsAfterThePoint(const Column& column, double value) {
  if (!column.RoundsLarge) return column.Decimals;
  const double size = std::abs(value);
  return size < 10 ? column.Decimals : size < 100 ? 1 : 0;
}

std::string Shown(const Column& column, const Cell& cell, const NumberFormat& numbers) {
  if (const auto* text = std::get_if<std::string_view>(&cell)) return std::string(*text);
  if (const auto* whole = std::get_if<int64_t>(&cell)) return numbers.Grouped(*whole);
  if (const auto* real = std::get_if<double>(&cell)) {
    std::string text = numbers.GroupedDecimals(*real, DigitsAfterThePoint(column, *real));
    if (column.Unit == kPercentUnit) text += kPercentUnit;
    return text;
  }
  return {};
}

}  // namespace

QString ShownCell(const Column& column, const Cell& cell, const NumberFormat& numbers) {
  return ToQt(Shown(column, cell, numbers));
}

QString CopiedCell(const Cell& cell, const NumberFormat& numbers) {
  if (const auto* text = std::get_if<std::string_view>(&cell)) return ToQt(*text);
  if (const auto* whole = std::get_if<int64_t>(&cell)) return QString::number(*whole);
  if (const auto* real = std::get_if<double>(&cell))
    return ToQt(fmt::format("{:.9g}", *real)).replace(u'.', ToQt(numbers.DecimalPoint));
  return {};
}

}  // namespace korv
