#pragma once

#include <string>

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
/// A longer phrase (in characters, blanks included) is not counted.
inline constexpr int kMostPhraseCharacters = 100;
/// The same where long phrases are wanted.
inline constexpr int kMostLongPhraseCharacters = 1000;

/// How the texts of a run are read. By default every byte counts as it stands in the file.
struct ReadingOptions {
  bool ShownMarkup = false;        ///< Of mark-up only what a page shows, as browsers find it.
  bool DeclaredEncodings = false;  ///< In the encoding that a text declares; ANSI is Windows-1252.
  bool NotesAndBoxes = false;      ///< Of .docx the notes, text boxes, headers and footers too.
  std::string Encoding;  ///< The encoding of all texts, by a name that iconv knows; empty for each its own.

  bool operator==(const ReadingOptions&) const = default;
};

/// The options of a counting run.
struct RunOptions {
  int MinWords = 4;      ///< Fewest words of a phrase, kLeastWords..kMostWords; 1 for a list of single words.
  int MaxWords = 6;      ///< Most words of a phrase, MinWords..kMostWords; 1 together with MinWords.
  int MinFrequency = 2;  ///< Phrases with fewer occurrences are not listed, 1..kMostMinFrequency.
  int MostCharacters = kMostPhraseCharacters;  ///< A longer phrase is never counted.
  ReadingOptions Reading{};
  IgnoreRule IgnoreMode = IgnoreRule::ExcludeAll;
  TextSource SourceKind = TextSource::SingleFile;
  bool KeepRedundant = false;  ///< List phrases too that occur only within a longer listed one.
  bool KeepPlaces = false;     ///< Keep Corpus::Places after the run.
  bool Stopped = false;        ///< The run was interrupted: its result is incomplete.
};

}  // namespace korv
