#include "report/writers/cell_text.h"

#include <charconv>

#include "engine/unicode.h"

namespace korv {

std::string_view CellText::Of(const Cell& cell) {
  if (const auto* text = std::get_if<std::string_view>(&cell)) return *text;
  if (const auto* whole = std::get_if<int64_t>(&cell)) return OfWhole(*whole);
  if (const auto* real = std::get_if<double>(&cell)) return OfReal(*real);
  size_ = 0;
  width_ = 0;
  return {};
}

std::string_view CellText::OfWhole(int64_t value) {
  if (size_ == 0 || value != whole_) {
    whole_ = value;
    size_ = static_cast<size_t>(std::to_chars(digits_, digits_ + sizeof digits_, value).ptr - digits_);
    width_ = static_cast<int>(size_);
  }
  return {digits_, size_};
}

std::string_view CellText::OfReal(double value) {
  if (text_.empty() || value != real_) {
    real_ = value;
    text_.clear();
    numbers_.AppendDecimals(value, column_.Decimals, text_);
    if (column_.Unit == kPercentUnit) text_ += kPercentUnit;
    // The locale's decimal point may have several bytes.
    characters_ = static_cast<int>(CharacterCount(text_));
  }
  width_ = characters_;
  return text_;
}

}  // namespace korv
