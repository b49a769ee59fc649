#include <atomic>
#include <vector>

#include "base/pieces.h"
#include "base/workers.h"
#include "engine/counting/containment_index.h"
#include "engine/counting/containment_search.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  if (data.Entries.empty()) return true;
  ContainmentIndex index(data);
  if (!index.Build(yielder)) return false;

  ContainmentSearch::Flags redundant(data.Entries.size());
  const bool searched = RunParts(index.Phrases().size(), yielder, [&](size_t begin, size_t end) {
    ContainmentSearch search(data, index, redundant);
    for (size_t k = begin; k < end; ++k) search.AddPhrase(k);
    search.Finish();
  });
  if (!searched) return false;
  // No stop from here on: either all flags change or none.
  for (size_t e = 0; e < redundant.size(); ++e)
    if (redundant[e].load(std::memory_order_relaxed)) data.Entries[e].Listed = false;
  return true;
}

}  // namespace korv
