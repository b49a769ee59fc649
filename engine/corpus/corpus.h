#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "base/growing_array.h"
#include "base/raw_vector.h"
#include "engine/corpus/line_index.h"
#include "engine/corpus/vocabulary.h"
#include "engine/counting/run_options.h"
#include "engine/counting/word_filters.h"
#include "engine/text/word_rules.h"

namespace korv {

/// How a text of the run was read, so that it can be read so again.
struct SourceOrigin {
  bool IsDocument = false;  ///< Its text was extracted from it; offsets and lines are those of that text.
  bool IsUtf8 = false;      ///< Else it is ANSI.
  uint64_t Size = 0;        ///< Of the file, when it was opened.
  int64_t Modified = 0;     ///< See InputFile::Modified().
};

/// A text of the run: a file, or the clipboard or a stream, whose path is empty.
struct CorpusSource {
  std::filesystem::path Path;
  size_t Begin;          ///< Index of its first token.
  uint64_t WordsBefore;  ///< Words taken before its first one, those that excluded phrases included.
  SourceOrigin Origin;   ///< Known once the text was read.
};

/// What a run knows of its text: its words as numbers, where its texts begin, under which rules it was cut,
/// and, where the run keeps them, the places of its phrases in order.
///
/// A token is a word of the vocabulary or kNoWord, which stands where no phrase goes on. A place is the index
/// of a token, and a phrase of k words is k tokens in a row without kNoWord. Words that a rule dropped have
/// no token.
///
///   Tokens.front() == kNoWord, so that every word has a left neighbour;
///   once read, Tokens ends with kTrailingEnds of them, so that a longest phrase may be looked at from
///   anywhere.
///
/// Costs 4 bytes a word, a little more than 4 more where the places are kept, and 8 a distinct word beside
/// its letters.
struct Corpus {
  WordRules Rules;
  RunOptions Options;
  const WordFilters* Lists = nullptr;  ///< Not owned.

  Vocabulary Words;
  GrowingArray<WordNumber> Tokens;
  std::vector<CorpusSource> Sources;    ///< In reading order.
  std::vector<uint32_t> SourceOfBlock;  ///< The source of every kSourceBlock-th token.
  static constexpr uint32_t kSourceBlock = 4096;

  /// The places where a phrase that counts starts, of all lengths, ordered by the up to MaxWords words that
  /// follow; a phrase end comes before every word. Equal ones ascend. Empty where the run keeps no places.
  RawVector<Place> Places;
  /// Places[PlacesOfWord[w - 1]] to Places[PlacesOfWord[w]], that one excluded, start with word number w.
  RawVector<uint32_t> PlacesOfWord;

  /// The token at `place` and those behind it.
  const WordNumber* From(Place place) const { return Tokens.data() + ValueOf(place); }

  LineIndex Lines;  ///< Empty unless Options.KeepPlaces.

  /// Call once all tokens are there: sets up SourceAt(). Linear in the sources, and a step per block.
  void IndexSources();
  /// Index in Sources of the text that `place` belongs to. Constant but for texts shorter than a block.
  size_t SourceAt(Place place) const;
};

inline constexpr size_t kTrailingEnds = kMostWords + 1;

/// Whether a run with these options keeps the places of its phrases: folder runs tell phrases' files by them.
inline bool KeepsPlaces(const RunOptions& options) {
  return options.KeepPlaces || options.SourceKind == TextSource::Folder;
}

}  // namespace korv
