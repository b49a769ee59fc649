#include "tests/reference/naive_filter.h"

#include <algorithm>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

bool OccursAsWholeWord(const std::string& phrase, const std::string& word) {
  for (size_t at = phrase.find(word); at != std::string::npos; at = phrase.find(word, at + 1)) {
    size_t end = at + word.size();
    if ((at == 0 || phrase[at - 1] == ' ') && (end == phrase.size() || phrase[end] == ' ')) return true;
  }
  return false;
}

bool OccurInOrder(const std::string& phrase, const std::vector<std::string>& words) {
  size_t from = 0;
  for (const std::string& word : words) {
    size_t at = phrase.find(word, from);
    if (at == std::string::npos) return false;
    from = at + word.size() + 1;
  }
  return true;
}

}  // namespace

std::vector<std::string> FilterWords(std::string_view text) {
  std::vector<std::string> words;
  bool inWord = false;
  const std::u32string characters = Decode(Fold(text));
  const std::vector<bool> belongs = BelongsToWord(characters, U"0123456789'-");
  for (size_t at = 0; at < characters.size(); ++at) {
    if (belongs[at] && !inWord) words.emplace_back();
    if (belongs[at]) words.back() += Encode(characters.substr(at, 1));
    inWord = belongs[at];
  }
  return words;
}

bool PassesFilter(std::string_view phrase, const std::vector<std::string>& words, FilterMode mode) {
  const std::string lowered = Fold(phrase);
  if (mode == FilterMode::Subphrase) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return OccursAsWholeWord(lowered, text);
  }
  if (!std::all_of(words.begin(), words.end(),
                   [&](const std::string& word) { return OccursAsWholeWord(lowered, word); })) {
    return false;
  }
  return mode == FilterMode::AllWords || OccurInOrder(lowered, words);
}

}  // namespace korv::reference
