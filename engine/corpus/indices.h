#pragma once

#include <cstdint>

#include "base/index.h"

namespace korv {

/// A word (type) of a run's Vocabulary, 1..Size(). As a token, 0 is the place where no phrase goes on.
enum class WordNumber : uint32_t {};
template <>
inline constexpr bool kIsIndex<WordNumber> = true;
inline constexpr WordNumber kNoWord{0};

/// The index of a token in Corpus::Tokens.
enum class Place : uint32_t {};
template <>
inline constexpr bool kIsIndex<Place> = true;

/// A document of a folder run that contributed a phrase, counted from 1 in reading order. 0 is none.
enum class DocumentNumber : uint32_t {};
template <>
inline constexpr bool kIsIndex<DocumentNumber> = true;
inline constexpr DocumentNumber kNoDocument{0};

}  // namespace korv
