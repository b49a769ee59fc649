#pragma once

#include "engine/corpus/corpus.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// Whether entry `a` comes before entry `b` in a sorted table: compares Keys, then Texts, which differ for
/// any two entries. The words of the corpus are ranked. Linear in the words of the shorter one.
bool EntryBefore(const Corpus& corpus, const PhraseEntry& a, const PhraseEntry& b);

}  // namespace korv
