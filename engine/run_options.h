#pragma once

namespace korv {

/// How words to ignore act on phrases. Settings and summary use the numbers.
enum class IgnoreRule {
  Allow = 1,        ///< They exclude no phrase.
  ExcludeAll = 2,   ///< A phrase of nothing but words to ignore is excluded.
  Remove = 3,       ///< They are taken out of the text before phrases are formed.
  ExcludeWith = 4,  ///< A phrase that holds one is excluded.
};

enum class TextSource { Clipboard = 0, SingleFile = 1, Folder = 2 };

inline constexpr int kLeastWords = 2;
inline constexpr int kMostWords = 25;
inline constexpr int kMostMinFrequency = 20;
/// A longer phrase (in characters, blanks included) is never counted.
inline constexpr int kMostPhraseCharacters = 100;

/// The options of a counting run.
struct RunOptions {
  int MinWords = 4;      ///< Fewest words of a phrase, kLeastWords..kMostWords; 1 for a list of single words.
  int MaxWords = 6;      ///< Most words of a phrase, MinWords..kMostWords; 1 together with MinWords.
  int MinFrequency = 2;  ///< Phrases with fewer occurrences are not listed, 1..kMostMinFrequency.
  IgnoreRule IgnoreMode = IgnoreRule::ExcludeAll;
  TextSource SourceKind = TextSource::SingleFile;
  bool KeepRedundant = false;  ///< List phrases too that occur only within a longer listed one.
  bool KeepPlaces = false;     ///< Keep Corpus::Places after the run.
  bool Stopped = false;        ///< The run was interrupted: its result is incomplete.
};

}  // namespace korv
