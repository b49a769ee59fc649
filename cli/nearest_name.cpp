#include "cli/nearest_name.h"

#include <algorithm>
#include <vector>

namespace korv {

namespace {

/// How many letters must be put in, left out, replaced or exchanged with their neighbour.
size_t Distance(std::string_view a, std::string_view b) {
  std::vector<size_t> before(b.size() + 1);
  std::vector<size_t> last(b.size() + 1);
  std::vector<size_t> row(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    before.swap(last);
    last.swap(row);
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row[b.size()];
}

}  // namespace

std::string_view NearestName(std::string_view typed, std::span<const std::string_view> names) {
  constexpr size_t kLeastBeginning = 3;
  std::string_view best;
  size_t least = std::max<size_t>(1, typed.size() / 3) + 1;
  for (const std::string_view name : names) {
    // The beginning of a name is as good as one wrong letter.
    const bool begins = typed.size() >= kLeastBeginning && name.starts_with(typed);
    const size_t distance = begins ? 1 : Distance(typed, name);
    if (distance >= least) continue;
    least = distance;
    best = name;
  }
  return best;
}

}  // namespace korv
