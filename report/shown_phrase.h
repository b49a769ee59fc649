#pragma once

#include <string>

#include "engine/counting/phrase_table.h"
#include "engine/text/blankless.h"

namespace korv {

/// Makes of a phrase, its words joined by single blanks, what a list shows: where words of scripts without
/// blanks were found in the text, none stands between two of them.
inline void ShowPhrase(const PhraseTable& table, std::string& phrase) {
  if (table.Corpus().Rules.Segment != Segmentation::Off) JoinBlankless(phrase);
}

}  // namespace korv
