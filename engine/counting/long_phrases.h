#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "base/yielder.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// Counts the occurrences of MinWords to MaxWords words that would count but for RunOptions::MostCharacters,
/// where count-only patterns for whole phrases are in force. `mostWords`: per token, most words of a phrase
/// from there that is short enough. Each such occurrence is matched with the patterns, on all threads.
/// Nothing when stopped.
std::optional<uint64_t> CountLongPhrases(const PhraseTableData& data, const CountRule& accepted,
                                         std::span<const uint8_t> mostWords, bool onCallingThread,
                                         Yielder& yielder);

}  // namespace korv
