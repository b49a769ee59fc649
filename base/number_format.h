#pragma once

#include <cstdint>
#include <string>

namespace korv {

/// The way in which a locale writes numbers. The defaults are the C locale's point with "," grouping.
struct NumberFormat {
  std::string DecimalPoint = ".";
  std::string GroupSeparator = ",";
  /// Sizes of the groups from the right, one byte each, the last one repeated; empty for no grouping. A
  /// size of 0 or CHAR_MAX ends the grouping, as in the C library's lconv.
  std::string Grouping = "\3";
  /// Whether a number below 1 has a 0 before its decimal point.
  bool LeadingZero = true;

  /// 1234567 as "1,234,567".
  std::string Grouped(int64_t value) const;
  /// `decimals` digits after the point, the exact binary value rounded to nearest, ties to even.
  std::string Decimals(double value, int decimals) const;
  /// The same with groups: 1234.567 with two decimals as "1,234.57".
  std::string GroupedDecimals(double value, int decimals) const;
  /// Appends Decimals() to `out`, for loops that format millions of numbers.
  void AppendDecimals(double value, int decimals, std::string& out) const;
};

}  // namespace korv
