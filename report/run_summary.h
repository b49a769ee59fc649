#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/corpus/side.h"
#include "engine/run_options.h"
#include "engine/source_path.h"
#include "engine/text/word_counts.h"

namespace korv {

/// A file of a folder run that could not be counted.
struct SkippedFile {
  std::string Path;    ///< As text, UTF-8.
  std::string Reason;  ///< "is zero-length", ...; English, given to Tr() where it is shown.
};

/// How the texts of a run were read; each of them counts once.
struct EncodingCounts {
  uint64_t Ascii = 0;  ///< Without a byte above 127: ANSI and UTF-8 read them the same.
  uint64_t Ansi = 0;   ///< Bytes above 127 were read as ANSI.
  uint64_t Utf8 = 0;   ///< Declared, forced or taken for it; .docx documents among them.
  /// Ill-formed sequences of UTF-8, in all texts together. Each became U+FFFD, which separates words.
  uint64_t IllFormed = 0;

  bool operator==(const EncodingCounts&) const = default;
};

/// Counts that a run read in place of a text.
struct CountsRead {
  uint64_t Counts = 0;        ///< Phrases with a frequency; a phrase may have several.
  uint64_t OtherLengths = 0;  ///< Of these, left out for their number of words.
};

/// Side B of a run that compares. What the summary says of texts and words holds for both sides.
struct SecondSide {
  std::vector<SourcePath> Paths = {};  ///< As given.
  WordCounts Words = {};               ///< What became of its words.
  uint64_t FilesScanned = 0;
  uint64_t SharedFiles = 0;  ///< Files that are on both sides, and count for both.
};

/// What a finished counting run knows beside its phrases; everything that header, summary and notices say.
struct RunSummary {
  RunOptions Options;               ///< Lengths, minimum frequency, ignore mode, source kind, stopped.
  bool WordsToIgnoreInUse = false;  ///< A words-to-ignore list with at least one entry applied.
  int MinCharacters = 0;            ///< Shorter words were ignored; 0 when that rule is off.
  /// As given, trimmed: the file or the folder; empty for clipboard and pipes, and where there are Paths.
  std::string InputPath;
  /// Several files and folders that were counted together, as a folder source; empty for one source.
  std::vector<SourcePath> Paths;
  /// Where the run compares: what side A, which Paths name, is compared with.
  std::optional<korv::SecondSide> SecondSide;
  bool IncludeSubfolders = false;
  WordCounts Words;             ///< What became of the words that were read.
  uint64_t LongPhrases = 0;     ///< Phrase occurrences left out for having over 100 characters.
  uint64_t FilesScanned = 0;    ///< Folder source: files whose text was read.
  uint64_t FoldersScanned = 0;  ///< Folder source: folders entered, and those of named files.
  EncodingCounts Encodings;     ///< Of files and streams; the clipboard's text has none.
  /// Texts that were decoded from other encodings, by the names of these. Not kept with a run.
  std::map<std::string, uint64_t> OtherEncodings;
  /// Where it is there, nothing is known of the text: no word, no file and no place.
  std::optional<CountsRead> Counts;
  std::vector<SkippedFile> SkippedFiles;  ///< Folder source, in reading order.
  std::vector<std::string>
      Notices;  ///< Folders and files that could not be read, or not wholly. In the language of the run.
};

/// How many texts were read; the clipboard and a pipe are one.
inline uint64_t FilesRead(const RunSummary& facts) {
  return facts.Options.SourceKind == TextSource::Folder ? facts.FilesScanned : 1;
}

/// What was read for one side of a run that compares.
struct SideSize {
  uint64_t Files;
  WordCounts Words;
};

inline SideSize SizeOf(const RunSummary& facts, Side side) {
  const SecondSide& b = *facts.SecondSide;
  if (side == Side::B) return {b.FilesScanned, b.Words};
  return {facts.FilesScanned - b.FilesScanned, facts.Words - b.Words};
}

}  // namespace korv
