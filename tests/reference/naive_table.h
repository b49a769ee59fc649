#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/run_options.h"

namespace korv::reference {

struct Phrase {
  std::string Text;
  std::string Key;
  int32_t Count = 0;
  int32_t ChainPosition = 0;
  int32_t ChainNext = 0;
  bool Listed = false;
  std::string FileNumbers;  ///< Five digits per file that holds the phrase, in reading order.
  std::string FileCounts;   ///< Five digits each, parallel to FileNumbers.
  int32_t FileCount = 0;
};

struct Lookup {
  bool Found;
  int32_t Position;  ///< The index when found, else the negated index at which the text belongs.
};

/// The sorted array of all phrases: entries 1..PhraseCount in descending order of Text while counting,
/// found by halving, inserted by shifting.
class Table {
 public:
  enum class Use { Phrases, WordList };

  explicit Table(TextSource source = TextSource::SingleFile, Use use = Use::Phrases);

  /// For a new run. The array keeps its size.
  void Empty();
  /// The file being read, in a folder run.
  void SetPath(std::string_view path) { path_ = path; }
  void AddWordToList(std::string_view phrase);
  Lookup FindPhrase(std::string_view text);

  Phrase& operator[](int32_t i) { return Entries[static_cast<size_t>(i)]; }
  const Phrase& operator[](int32_t i) const { return Entries[static_cast<size_t>(i)]; }
  /// The largest index that the array has room for.
  int32_t UpperBound() const { return static_cast<int32_t>(Entries.size()) - 1; }

  std::vector<Phrase> Entries;  ///< Entry 0 is not used.
  int32_t PhraseCount = 0;
  std::vector<std::string> FilePaths;  ///< 1-based as well; with free slots behind CurrentFileNumber.
  int32_t CurrentFileNumber = 0;
  int16_t MaxSearchDepth = 0;
  int64_t Occurrences = 0;  ///< Accepted calls of AddWordToList.
  int64_t LongPhrases = 0;  ///< Calls refused for the length of the phrase.
  int32_t ChainHead = 0;

 private:
  void NoteFile();
  Phrase NewEntry(std::string_view phrase) const;
  void CountInFile(Phrase& entry) const;

  TextSource source_;
  Use use_;
  std::string path_;
};

}  // namespace korv::reference
