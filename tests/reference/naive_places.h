#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text/word_rules.h"

namespace korv::reference {

/// A word as cut, or a place where no phrase goes on, with where it stands in the file. Lines and columns
/// count from 1, columns in characters of the file.
struct WordPlace {
  std::string Word;  ///< Empty where no phrase goes on.
  size_t Line = 0;
  size_t Column = 0;
  size_t LastColumn = 0;  ///< Of a character that its last one comes from.
};

/// Everything that the scanner finds in a file, each character of which carries its column along.
std::vector<WordPlace> PlacesOfWords(std::string_view bytes, bool isUtf8, const WordRules& rules,
                                     std::string_view language);

/// The characters of the file, without signature, a line feed for each line end: line by line.
std::vector<std::u32string> RawLines(std::string_view bytes, bool isUtf8);

/// Up to `most` characters of the words before `end` (from `begin` on), as contexts show them.
std::string LeftWords(const std::u32string& text, size_t end, size_t most);
std::string RightWords(const std::u32string& text, size_t begin, size_t most);

}  // namespace korv::reference
