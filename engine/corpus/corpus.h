#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "base/growing_array.h"
#include "base/raw_vector.h"
#include "engine/corpus/line_index.h"
#include "engine/corpus/vocabulary.h"
#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "engine/text/word_rules.h"

namespace korv {

/// How a text of the run was read. With this it can be read in the same way again.
struct SourceOrigin {
  /// The text was extracted from a document. Offsets and lines are those of the extracted text.
  bool IsDocument = false;
  bool IsUtf8 = false;   ///< False: ANSI.
  uint64_t Size = 0;     ///< Bytes of the file when it was opened.
  int64_t Modified = 0;  ///< Its time then, as InputFile::Modified() gives it.
};

/// A text of the run: a file, the clipboard or a stream. The last two have an empty path.
struct CorpusSource {
  std::filesystem::path Path;
  size_t Begin;          ///< Index of its first token.
  uint64_t WordsBefore;  ///< WordCounts::Taken of the texts before it.
  SourceOrigin Origin;   ///< Set when the text has been read.
};

/// The text of a run: its tokens, its documents, the rules it was cut by, and a suffix array of its phrases
/// where the run keeps their places.
///
/// A token is the number of a word, or kNoWord where no phrase goes on. An n-gram, which the program calls a
/// phrase, is n tokens in a row without kNoWord. Words that a rule dropped have no token.
///
///   Tokens[0] == kNoWord, so that every word has a left neighbour;
///   Tokens[i] != kNoWord || Tokens[i + 1] != kNoWord before the end of the text;
///   the last kTrailingEnds tokens are kNoWord once the text has been read, so that the longest phrase can be
///   read from any place; Sources[s].Begin <= Sources[s + 1].Begin.
///
/// Memory: 4 bytes a token, 4 more a place that is kept or a word in WordsAtEnds, and 8 a type beside its
/// letters.
struct Corpus {
  WordRules Rules;
  RunOptions Options;
  const WordFilters* Lists = nullptr;  ///< Not owned. Must outlive the counting.

  Vocabulary Words;
  GrowingArray<WordNumber> Tokens;
  std::vector<CorpusSource> Sources;    ///< In reading order.
  std::vector<uint32_t> SourceOfBlock;  ///< The index in Sources of every kSourceBlock-th token.
  /// The ends of phrases at which a word was taken that excludes the phrases with it: the index of the
  /// kNoWord that stands for it, ascending, once for each such word. Only where the run keeps places.
  GrowingArray<Place> WordsAtEnds;
  static constexpr uint32_t kSourceBlock = 4096;
  /// Where a run compares: the index in Sources at which side B begins, perhaps behind the last one.
  std::optional<size_t> SecondSide;

  /// The suffix array: the places at which a phrase that counts starts, ordered by the next MaxWords tokens.
  /// kNoWord comes before every word, and nothing behind it is compared. Equal places ascend. Empty where the
  /// run keeps no places.
  RawVector<Place> Places;
  /// The places with first word w are Places[i] with PlacesOfWord[w - 1] <= i < PlacesOfWord[w].
  RawVector<uint32_t> PlacesOfWord;

  /// The token at `place` and those behind it.
  const WordNumber* From(Place place) const { return Tokens.data() + ValueOf(place); }

  LineIndex Lines;  ///< Empty unless Options.KeepPlaces.

  /// Prepares SourceAt(). Call it when all tokens are there. Cost: a step per source and per block of tokens.
  void IndexSources();
  /// The index in Sources of the text that `place` belongs to. Constant time, but for many texts in one
  /// block.
  size_t SourceAt(Place place) const;
  /// The words taken from a text, of the `taken` of all texts.
  uint64_t WordsOfSource(size_t source, uint64_t taken) const;
  /// Where a run compares: no occurrence on side A, and every one on side B, has its place here or behind.
  Place EndOfSideA() const;
};

inline constexpr size_t kTrailingEnds = kMostWords + 1;

/// Whether a run with these options keeps the places of its phrases. Folder runs need them to find the files
/// of a phrase.
inline bool KeepsPlaces(const RunOptions& options) {
  return options.KeepPlaces || options.SourceKind == TextSource::Folder;
}

}  // namespace korv
