#include "report/writers/cell_text.h"

#include "engine/text/unicode.h"

namespace korv {

std::string_view CellText::OfOther(const Cell& cell) {
  if (const auto* real = std::get_if<double>(&cell)) return OfReal(*real);
  width_ = 0;
  return {};
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
