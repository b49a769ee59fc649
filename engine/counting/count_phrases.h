#pragma once

#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// Hands the text of a run over to an empty table, with the run's options and lists (which must outlive
/// the counting). The stream is used up.
void TakeText(CorpusBuilder&& stream, PhraseTable& table);

/// Whether the table's text holds a phrase that would be counted; true as well when stopped before that is
/// known. Mostly known after a few words; proportional to the text where nothing counts.
bool HoldsPhrase(PhraseTable& table, Yielder& yielder);

/// Counts every phrase of the table's text and makes entries of those that may be listed: at least
/// MinFrequency occurrences, and no phrase that is longer by one word and occurs exactly as often holds
/// them (they would be redundant). Entries ascend by word numbers.
///
/// The occurrences of all lengths are found together: the places where phrases start are sorted by the up
/// to MaxWords words that follow them, whereupon the occurrences of every phrase lie side by side, and one
/// sweep over the numbers of words that neighbours share lists them. Expected time is proportional to the
/// number of words, whatever the lengths; memory about 9 bytes per word beside the text, 16 per entry.
///
/// Returns false when stopped; the table then holds the text and no entries, and may be counted again.
bool CountPhrases(PhraseTable& table, Yielder& yielder);

/// Puts the entries into ascending order of Key, equal Keys in ascending order of Text. Returns false when
/// stopped, with the entries in some order.
bool SortPhrases(PhraseTable& table, Yielder& yielder);

/// Clears Listed of entries with fewer than `minFrequency` occurrences, sets it for all others.
void ListByFrequency(PhraseTable& table, int minFrequency);

/// Clears Listed of every listed entry whose text a listed entry of the same count, longer in characters,
/// contains anywhere, within words too. Entries of a single word are left alone. Expected time is
/// proportional to the text of the entries. Returns false when stopped, with the flags as they were.
bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder);

enum class ChainOrder {
  ByCount,  ///< Count descending, then table index.
  ByFiles,  ///< FileCount descending, then Count descending, then table index.
};

/// Threads the listed entries: ChainPosition, ChainNext, ChainHead. A counting sort. Returns false when
/// stopped, with an empty chain.
bool SetUpFrequencyChain(PhraseTable& table, ChainOrder order, Yielder& yielder);

}  // namespace korv
