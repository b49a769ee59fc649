#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korv {

// A kept run: all of a finished run that does not follow from the rest of it, in one file.
//
//   magic      8 bytes  "KORVRUN" and 1A, which ends a text where somebody types the file
//   version    u32      kKeptVersion
//   length     u64      of the whole file, in bytes
//   sections            each of kKeptSections, in that order:
//     name     4 bytes
//     size     u64      of what follows, in bytes
//     contents
//   checksum   u32      Checksum of all bytes before it
//
// u8, u32, u64, i32 and i64 are numbers, the lowest byte first; a bool is a u8, 0 or 1. A text is its length
// in bytes (u32) and these, UTF-8. A path is a text too, but in the bytes of the system where it has such. A
// list is its length (u32) and its elements. "..." stands for an element that is repeated until the section
// ends.
//
//   SETT  text: the settings under which was counted, row by row of the schema: their number (u32), then for
//         each the name (text), the size of the value in bytes (u32) and the value: a checkbox is a bool, a
//         number and a choice an i32, a text a text, a list of files a list of texts and an i32, the selected
//         one. Then whether single words were counted (bool); the typed count-only entries (text); the list
//         of count-only files (list of texts, selected i32); what was loaded of the file of words to ignore
//         and of that of count-only entries: whether there is something (bool), and then path (path), whether
//         an entry is a pattern (bool) and the entries (list of texts). Then the paths that were counted
//         together, from version 2 on: their number (u32), then for each its kind (u8: a file 0, a folder 1)
//         and the path (path). From version 3 on the paths that these were compared with, likewise, where
//         kind 2 is the clipboard and an empty list says that nothing was compared; by what (u8:
//         ComparisonBasis), the constant of simple maths (u64, the bits of a double), whether as drafts
//         (bool).
//   FACT  stopped, interrupted (bools); words taken, words dropped by each DropReason (u64); long phrases,
//         files read, folders entered (u64); texts by encoding: ASCII, ANSI, UTF-8, ill-formed sequences
//         (u64); skipped files (list of path as text and reason); notices (list of texts); what is said of
//         the kind of file (text); how long the count took, when it ended (i64: seconds, seconds since 1970
//         UTC); different phrases, occurrences of phrases (u64). From version 3 on whether two sides were
//         compared (bool), and then, of side B, its first text in SRCS, words taken, words dropped by each
//         DropReason, files read, those that are on both sides (u64).
//   TEXT  the text of a clipboard or stream, byte by byte.
//   WLEN  u32 ...: the lengths of the words, in bytes, in the order of their numbers.
//   WORD  the words one behind the other.
//   TOKN  u32 ...: Corpus::Tokens.
//   SRCS  the texts of the run: path (path), first token (u64), words taken before it (u64), a document
//         (bool), UTF-8 (bool), size of the file (u64), its time (i64), whether a phrase was counted in it
//         (bool) ...
//   ENDS  u32 ...: Corpus::WordsAtEnds.
//   PLAC  u32 ...: Corpus::Places.
//   ANCH  the anchors of the line index: offset, its lowest bit telling whether it starts a line (u64),
//         token, line (u32) ...
//   LINE  the begins of lines: token, line (u32) ...
//   PHRS  the entries of the table: first of their places in PLAC, number of these (u32), words (u8), listed
//         (bool) ...
//   LEFT  u32 ...: the entries that the user left out of the table, from 1, ascending.
//
// What follows from this is found again when the file is opened: word filters from their entries, the first
// place of a phrase, the places of each word, the numbers of files, the order by frequency, and why nothing
// was counted. Nothing of that needs the text.

inline constexpr std::string_view kKeptMagic("KORVRUN\x1A", 8);
/// Files of version 1 had no list of paths, and those of version 2 no second side.
inline constexpr uint32_t kKeptVersion = 3;

enum class KeptSection : uint8_t {
  Settings,
  Facts,
  KeptText,
  WordLengths,
  Words,
  Tokens,
  Sources,
  WordsAtEnds,
  Places,
  Anchors,
  Lines,
  Phrases,
  LeftOut,
};
inline constexpr std::array<std::string_view, 13> kKeptSections = {
    "SETT", "FACT", "TEXT", "WLEN", "WORD", "TOKN", "SRCS", "ENDS", "PLAC", "ANCH", "LINE", "PHRS", "LEFT"};
inline constexpr std::string_view NameOf(KeptSection section) {
  return kKeptSections[static_cast<size_t>(section)];
}

inline constexpr size_t kKeptHeaderBytes = 20;   ///< Magic, version and length.
inline constexpr size_t kKeptSectionBytes = 12;  ///< Name and size.
inline constexpr size_t kKeptChecksumBytes = 4;

// Sizes of elements, in bytes.
inline constexpr size_t kKeptNumberBytes = 4;
inline constexpr size_t kKeptAnchorBytes = 16;
inline constexpr size_t kKeptLineBytes = 8;
inline constexpr size_t kKeptPhraseBytes = 10;

/// The greatest number that a count of something may be. Sums of a few stay far below 2^63.
inline constexpr uint64_t kMostKept = uint64_t{1} << 56;

}  // namespace korv
