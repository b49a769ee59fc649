#pragma once

#include <cstdint>

#include "base/index.h"

namespace korv {

/// An entry of a PhraseTable, counted from 1; 0 is none.
enum class PhraseIndex : uint32_t {};
template <>
inline constexpr bool kIsIndex<PhraseIndex> = true;
inline constexpr PhraseIndex kNoPhrase{0};

/// A place in the frequency chain, 1 for the most frequent phrase; 0 is none.
enum class PhraseRank : uint32_t {};
template <>
inline constexpr bool kIsIndex<PhraseRank> = true;
inline constexpr PhraseRank kNoRank{0};

}  // namespace korv
