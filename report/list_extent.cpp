#include "report/list_extent.h"

#include <algorithm>

#include "report/look_ahead.h"

namespace korv {

ListExtent MeasureList(const PhraseTable& table, Yielder& yielder) {
  ListExtent extent;
  for (const PhraseIndex i : table.All()) {
    yielder.Yield();
    table.Prefetch(i + kLookAhead, i + 2 * kLookAhead);
    if (!table.Listed(i)) continue;
    ++extent.Phrases;
    extent.HighestCount = std::max(extent.HighestCount, table.Count(i));
    extent.LongestCharacters = std::max(extent.LongestCharacters, table.Characters(i));
    extent.LongestWords = std::max(extent.LongestWords, table.Words(i));
    extent.Occurrences += table.Count(i);
  }
  return extent;
}

}  // namespace korv
