#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace korv {

/// A text with phrases that occur more than once.
inline constexpr const char* kText = "The big cat sat. The big cat ran and the big dog sat.";

/// So many words, all different: a text of many phrases.
inline std::string ManyPhrases(int words) {
  std::string text;
  for (int k = 0; k < words; ++k) {
    std::string word = "word";
    for (int n = k; n > 0; n /= 26) word += static_cast<char>('a' + n % 26);
    text += word + " ";
  }
  return text;
}

/// The bytes of a document of the test data.
inline std::string Document(const char* name) {
  std::ifstream file(std::string(KORV_TEST_DATA) + "/docx/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace korv
