#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "base/yielder.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// How many occurrences of MinWords..MaxWords words count by their words and were left out only because they
/// have more than kMostPhraseCharacters, where entries for whole phrases decide. `mostWords`: per number of
/// the text, most words of a phrase there that is short enough. Asks the lists once per such occurrence, on
/// all threads. Empty when stopped.
std::optional<uint64_t> CountLongPhrases(const PhraseTableData& data, const CountRule& accepted,
                                         std::span<const uint8_t> mostWords, bool onCallingThread,
                                         Yielder& yielder);

}  // namespace korv
