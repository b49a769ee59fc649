#pragma once

#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "base/zeroed_array.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// Whether a thread for a stage over this text would cost more than it saves.
bool TooFewForThreads(const PhraseTableData& data);

/// Renumbers words by rank, so that the order of numbers is the order of Keys, then Texts. A sort of the
/// words, and a step per token on all threads. False when stopped; a later call goes on.
bool RankText(PhraseTableData& data, Yielder& yielder);

/// The first words of tasks that sort a run of buckets of places each, and the word behind the last: enough
/// tasks for an even share, few enough to cost nothing. There are `places` of them; those that start with
/// word w end before `bucketEnds[w]`.
std::vector<WordNumber> FirstWordsOfTasks(const ZeroedArray<uint64_t>& bucketEnds, uint64_t places,
                                          const Vocabulary& words);

}  // namespace korv
