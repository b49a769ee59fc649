#include "report/writers/number_text.h"

#include <charconv>

namespace korv {

namespace {

constexpr int kDigits = 9;

}  // namespace

std::string_view NumberText::Of(const Cell& cell) {
  char* const end = text_ + sizeof text_;
  const char* written = text_;
  if (const auto* whole = std::get_if<int64_t>(&cell))
    written = std::to_chars(text_, end, *whole).ptr;
  else if (const auto* real = std::get_if<double>(&cell))
    written = std::to_chars(text_, end, *real, std::chars_format::general, kDigits).ptr;
  return {text_, static_cast<size_t>(written - text_)};
}

}  // namespace korv
