#pragma once

#include <cstddef>

#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// Hands the corpus of a run over to an empty table. Uses the builder up. Its filters must outlive the
/// counting.
void TakeText(CorpusBuilder&& stream, PhraseTable& table);

/// Whether the table's text holds a phrase that would be counted. Also true when stopped before that is
/// known. Mostly known after a few words; linear in the text where nothing counts.
bool HoldsPhrase(PhraseTable& table, Yielder& yielder);

/// How many places are sorted at once: 138 MB per thread.
inline constexpr size_t kPlacesAtOnce = size_t{1} << 22;

/// Counts all phrases of the table's text, and makes entries of those that may be listed. These have at least
/// MinFrequency occurrences, and no phrase with one word more, in front or behind, occurs exactly as often:
/// the shorter one would be redundant; with KeepRedundant these are entries too. Entries ascend by the
/// numbers of their words.
///
/// Phrases of all lengths are counted together. The places where phrases start are sorted by the next
/// MaxWords words, which makes a suffix array. The occurrences of every phrase then lie side by side, and one
/// sweep over the common prefixes (LCP) of neighbours finds the phrases with their counts.
///
/// Expected time is linear in the words, whatever the lengths. Memory beside the text: 5 bytes a word, 33
/// bytes for each occurrence of the most frequent first words (one per thread), 16 bytes an entry. Of more
/// than `placesAtOnce` occurrences of a word so many are sorted at once, with 4 bytes for each beside.
///
/// Returns false when stopped. The table then holds the text and no entries, and can be counted again.
bool CountPhrases(PhraseTable& table, Yielder& yielder, size_t placesAtOnce = kPlacesAtOnce);

/// Puts the entries into ascending order of Key, those with equal Keys into that of Text. Returns false when
/// stopped, with the entries in some order.
bool SortPhrases(PhraseTable& table, Yielder& yielder);

/// Sets Listed of the entries with at least `minFrequency` occurrences, and clears it for all others.
void ListByFrequency(PhraseTable& table, int minFrequency);

/// Clears Listed of every listed entry that is redundant: its text stands anywhere, within words too, in that
/// of a listed entry with the same count and more characters. Entries of one word stay. Expected time is
/// linear in the characters of the entries. Returns false when stopped, with the flags as they were.
bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder);

/// Clears Listed of every listed entry of at least 2 words that stands by whole words in a listed entry with
/// more words and the same count. It occurs nowhere else then, so that what holds for parts of the text is
/// the same for both, which is not so for an entry that stands within words. Nothing to do for a table that
/// CountPhrases made without looking at each phrase; else words^2 / 2 binary searches an entry. Returns false
/// when stopped, with the flags as they were.
bool ExcludeContainedPhrases(PhraseTable& table, Yielder& yielder);

enum class ChainOrder {
  ByCount,  ///< Count descending, then table index.
  ByFiles,  ///< FileCount descending, then Count descending, then table index.
};

/// Orders the listed entries into the frequency chain: ChainHead, ChainNext, ChainPosition. Costs a counting
/// sort. Returns false when stopped, with an empty chain.
bool SetUpFrequencyChain(PhraseTable& table, ChainOrder order, Yielder& yielder);

}  // namespace korv
