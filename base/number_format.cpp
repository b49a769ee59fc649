#include "base/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <limits>
#include <string_view>

namespace korv {

namespace {

// The longest double in fixed notation has 309 digits before its point.
constexpr size_t kLongestWhole = std::numeric_limits<double>::max_exponent10 + 2;
constexpr int kMostDecimals = 64;
using DecimalBuffer = std::array<char, kLongestWhole + kMostDecimals + 2>;

// std::to_chars rounds the exact binary value, ties to even, and knows nothing of the global locale.
std::string_view PlainDecimals(double value, int decimals, DecimalBuffer& buffer) {
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, std::clamp(decimals, 0, kMostDecimals));
  return {buffer.data(), static_cast<size_t>(end.ptr - buffer.data())};
}

bool EndsGrouping(char size) {
  return size <= 0 || size == CHAR_MAX;
}

std::string GroupDigits(std::string_view digits, const NumberFormat& format) {
  std::string grouped;
  size_t group = 0;
  size_t left = digits.size();
  // From the right, as the sizes are given.
  while (group < format.Grouping.size() && !EndsGrouping(format.Grouping[group])) {
    const auto size = static_cast<size_t>(static_cast<unsigned char>(format.Grouping[group]));
    if (left <= size) break;
    left -= size;
    grouped.insert(0, digits.substr(left, size)).insert(0, format.GroupSeparator);
    if (group + 1 < format.Grouping.size()) ++group;
  }
  return grouped.insert(0, digits.substr(0, left));
}

void AppendLocalised(std::string_view plain, const NumberFormat& format, bool grouped, std::string& out) {
  if (plain.starts_with('-')) {
    out += '-';
    plain.remove_prefix(1);
  }
  const size_t point = plain.find('.');
  std::string_view whole = plain.substr(0, point);
  if (point != plain.npos && whole == "0" && !format.LeadingZero) whole = {};
  if (grouped)
    out += GroupDigits(whole, format);
  else
    out += whole;
  if (point == plain.npos) return;
  out += format.DecimalPoint;
  out += plain.substr(point + 1);
}

}  // namespace

std::string NumberFormat::Grouped(int64_t value) const {
  std::string text = std::to_string(value);
  const bool negative = value < 0;
  return (negative ? "-" : "") + GroupDigits(std::string_view(text).substr(negative), *this);
}

std::string NumberFormat::Decimals(double value, int decimals) const {
  std::string text;
  AppendDecimals(value, decimals, text);
  return text;
}

std::string NumberFormat::GroupedDecimals(double value, int decimals) const {
  DecimalBuffer buffer;
  std::string text;
  AppendLocalised(PlainDecimals(value, decimals, buffer), *this, true, text);
  return text;
}

void NumberFormat::AppendDecimals(double value, int decimals, std::string& out) const {
  DecimalBuffer buffer;
  AppendLocalised(PlainDecimals(value, decimals, buffer), *this, false, out);
}

}  // namespace korv
