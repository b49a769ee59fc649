#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "engine/analysis/taken_words.h"
#include "engine/corpus/corpus.h"
#include "engine/corpus/side.h"

namespace korv {

/// Into which parts a text is divided to see how evenly phrases are spread over it.
struct PartChoice {
  static constexpr int kFiles = 0;
  static constexpr int kLeastEqual = 2;
  static constexpr int kMostEqual = 100;

  /// kFiles: the files with words; where there are fewer than two, equal parts, as many as the text has words
  /// for. Otherwise so many equal parts.
  int Equal = kFiles;
  /// So many of each file with words, not of the whole text. Says nothing beside kFiles.
  bool OfEachFile = false;

  bool operator==(const PartChoice&) const = default;
};

/// The parts of a text. An occurrence of a phrase belongs to the part of its first word.
///
/// Equal parts are cut by words taken: part j of k holds the words from j * n / k up to (j + 1) * n / k,
/// rounded down, the last one excluded. Where nobody asked for a number, there are 10 of them, fewer in less
/// than 1,000 words: n / 100, but at least 2. In less than 200 words there are none. Parts of each file are
/// cut likewise by the words of the file; a file with fewer words than parts has a part for each word.
class TextParts {
 public:
  /// Both must outlive the object. With a side, of a corpus that has two, the parts are those of its texts,
  /// and nothing below is asked about others. Linear in the files.
  void Divide(const Corpus& corpus, const TakenWords& words, PartChoice choice,
              std::optional<Side> side = {});

  /// Number of parts with words; 0 where the text cannot be divided, else at least 2.
  size_t Count() const { return wordsOf_.size(); }
  /// Words taken in the part, counted from 0; never 0.
  uint64_t WordsOf(size_t part) const { return wordsOf_[part]; }
  /// At most this many parts are few: PartOf() is quickest then.
  static constexpr size_t kFew = 16;
  bool Few() const { return Count() <= kFew; }
  /// Those of the part with the fewest.
  uint64_t FewestWords() const { return fewestWords_; }
  /// Those of all parts: n.
  uint64_t Words() const { return allWords_; }
  /// The part that `place`, which must be that of a word, belongs to. Constant time, but for many files in
  /// one block of tokens where there are more than 64 parts.
  uint32_t PartOf(Place place) const;

 private:
  void DivideEqually(uint64_t parts);
  void FindBegins();
  Place PlaceBehind(uint64_t words) const;
  void DivideSources(uint64_t parts);

  const Corpus* corpus_ = nullptr;
  const TakenWords* words_ = nullptr;
  size_t firstSource_ = 0;
  size_t endSource_ = 0;
  uint64_t wordsBefore_ = 0;  ///< Those of other texts.
  uint64_t allWords_ = 0;
  std::vector<uint64_t> wordsOf_;
  std::vector<uint32_t> partOfSource_;  ///< The first of each file; empty for equal parts of the whole.
  uint64_t partsOfSource_ = 1;          ///< Into how many a file with enough words is cut.
  uint64_t fewestWords_ = 0;
  /// Where there are few parts, the first place of each but the first one, and behind them places that no
  /// text has. To go through all of them costs less than a far look.
  std::array<Place, kFew> begins_{};
};

}  // namespace korv
