#pragma once

#include <string>
#include <string_view>

#include "platform/number_format.h"
#include "report/columns/column.h"

namespace korv {

/// The cells of one column as people read them: whole numbers plain, real ones with the column's decimals in
/// the locale's way and "%" where that is the unit. Neighbours in a list mostly have the same numbers, so the
/// text of the last one is kept.
class CellText {
 public:
  CellText(const Column& column, const NumberFormat& numbers) : column_(column), numbers_(numbers) {}

  /// Empty for a value that is not defined. Valid until the next call, a text as long as the cell.
  std::string_view Of(const Cell& cell);
  /// Of the number that Of() returned last, in characters.
  int Width() const { return width_; }

 private:
  std::string_view OfWhole(int64_t value);
  std::string_view OfReal(double value);

  const Column& column_;
  const NumberFormat& numbers_;
  int width_ = 0;
  // The last whole number and its digits, if any.
  int64_t whole_ = 0;
  size_t size_ = 0;
  char digits_[20];
  // The last real number and its text, if any.
  double real_ = 0;
  int characters_ = 0;
  std::string text_;
};

}  // namespace korv
