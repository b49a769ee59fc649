#pragma once

#include <charconv>
#include <string>
#include <string_view>

#include "base/number_format.h"
#include "report/columns/column.h"

namespace korv {

/// The cells of one column as people read them: whole numbers plain, real ones with the column's decimals in
/// the locale's way and "%" where that is the unit. Neighbours in a list mostly have the same numbers, so the
/// text of the last one is kept.
class CellText {
 public:
  CellText(const Column& column, const NumberFormat& numbers) : column_(column), numbers_(numbers) {}

  /// Empty for a value that is not defined. Valid until the next call, a text as long as the cell.
  std::string_view Of(const Cell& cell) {
    if (const auto* text = std::get_if<std::string_view>(&cell)) return *text;
    if (const auto* whole = std::get_if<int64_t>(&cell)) return OfWhole(*whole);
    return OfOther(cell);
  }
  /// Of the number that Of() returned last, in characters.
  int Width() const { return width_; }

 private:
  // Inline for lists of millions of lines.
  std::string_view OfWhole(int64_t value) {
    if (size_ == 0 || value != whole_) {
      whole_ = value;
      size_ = static_cast<size_t>(std::to_chars(digits_, digits_ + sizeof digits_, value).ptr - digits_);
    }
    width_ = static_cast<int>(size_);
    return {digits_, size_};
  }
  std::string_view OfOther(const Cell& cell);
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
