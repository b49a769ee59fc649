#pragma once

#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/corpus.h"

namespace korv {

/// Counts the tokens of each word: by WordNumber, element 0 those that are no word. Linear in the tokens, on
/// all threads; for the time being 4 bytes a word for each thread. False when stopped.
bool CountWords(const Corpus& corpus, Yielder& yielder, std::vector<uint32_t>& frequencies);

}  // namespace korv
