#include "base/workers.h"
#include "engine/counting/contained_pairs.h"
#include "engine/counting/containment_index.h"
#include "engine/counting/containment_search.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/redundant_flags.h"

namespace korv {

bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  if (data.Entries.empty()) return true;
  ContainmentIndex index(data);
  RedundantFlags redundant(data.Entries.size());
  if (!index.Collect(yielder) || !ContainedPairs(data, index).Mark(redundant, yielder) ||
      !index.Hash(yielder))
    return false;
  const bool searched = RunParts(index.Phrases().size(), yielder, [&](size_t begin, size_t end) {
    ContainmentSearch search(data, index, redundant);
    for (size_t k = begin; k < end; ++k) search.AddPhrase(k);
    search.Finish();
  });
  if (!searched) return false;
  // No stop from here on: either all flags change or none.
  for (size_t e = 0; e < data.Entries.size(); ++e)
    if (redundant.IsSet(e)) data.Entries[e].Listed = false;
  return true;
}

}  // namespace korv
