#include "report/filter.h"

#include "base/translation.h"
#include "engine/text/clean_text.h"
#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"

namespace korv {

namespace {

constexpr std::string_view kExtraFilterChars = "0123456789'-";

/// Folds case into a buffer that keeps its capacity. Most phrases are ASCII, and millions are tested.
void LowerInto(std::string_view text, std::string& lowered) {
  lowered.resize(text.size());
  unsigned char all = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    lowered[i] = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  }
  if (all >= 0x80) lowered = FoldCase(text);
}

bool StandsAlone(std::string_view phrase, size_t at, size_t length) {
  const size_t end = at + length;
  return (at == 0 || phrase[at - 1] == ' ') && (end == phrase.size() || phrase[end] == ' ');
}

/// Tries every occurrence, overlapping ones too: in "xa b a b a" the first "a b a" is not a run of whole
/// words, and the second one, which overlaps it, is.
bool OccursAsWords(std::string_view phrase, std::string_view words) {
  for (size_t at = phrase.find(words); at != phrase.npos; at = phrase.find(words, at + 1))
    if (StandsAlone(phrase, at, words.size())) return true;
  return false;
}

}  // namespace

std::vector<std::string> SplitFilterWords(std::string_view typed) {
  const std::string text = FoldCase(CleanText(typed));
  std::vector<std::string> words;
  bool inWord = false;
  WordCharReader reader(kExtraFilterChars);
  for (size_t at = 0; at < text.size();) {
    const size_t start = at;
    if (!reader.Next(text, at)) {
      inWord = false;
      continue;
    }
    if (!inWord) words.emplace_back();
    inWord = true;
    words.back().append(text, start, at - start);
  }
  return words;
}

std::string NormaliseFilterText(std::string_view typed) {
  std::string text;
  for (const std::string& word : SplitFilterWords(typed)) {
    if (!text.empty()) text += ' ';
    text += word;
  }
  return text;
}

PhraseFilter::PhraseFilter(std::string_view filterText, FilterMode mode)
    : words_(SplitFilterWords(filterText)), text_(NormaliseFilterText(filterText)), mode_(mode) {}

bool PhraseFilter::Passes(std::string_view phrase) {
  if (Empty()) return true;
  LowerInto(phrase, lowered_);
  if (mode_ == FilterMode::Subphrase) return OccursAsWords(lowered_, text_);
  for (const std::string& word : words_)
    if (!OccursAsWords(lowered_, word)) return false;
  return mode_ == FilterMode::AllWords || InSameOrder(lowered_);
}

bool PhraseFilter::InSameOrder(std::string_view lowered) const {
  // All filter words are known to be whole words of the phrase. Only their order is left to test, and for
  // that a filter word may be found within another word.
  size_t at = lowered.find(words_.front());
  for (size_t i = 1; i < words_.size(); ++i) {
    at = lowered.find(words_[i], at + words_[i - 1].size() + 1);
    if (at == lowered.npos) return false;
  }
  return true;
}

namespace {

const char* FilterText(FilterMode mode) {
  switch (mode) {
    case FilterMode::AllWords:
      break;
    case FilterMode::AllWordsInSameOrder:
      return Tr("Phrase filtering (all filter words in same order) has been applied.");
    case FilterMode::Subphrase:
      return Tr("Phrase filtering (all filter words as a subphrase) has been applied.");
  }
  return Tr("Phrase filtering (all filter words) has been applied.");
}

}  // namespace

std::string FilterNoticeText(FilterMode mode, std::string_view filterText) {
  return FilterText(mode) + ("\n" + Fill(Tr("Filter words: %1"), {filterText})) + "\n\n";
}

std::string NoMatchText(FilterMode mode, bool alphabetical, NoticePlace place) {
  if (!alphabetical) return Tr("No phrase containing filter word(s) found.");
  switch (mode) {
    case FilterMode::AllWords:
      break;
    case FilterMode::AllWordsInSameOrder:
      return Tr("No phrase containing all filter words in same order found.");
    case FilterMode::Subphrase:
      return place == NoticePlace::File ? Tr("No phrase containing all filter words as subphrase found.")
                                        : Tr("No phrase containing all filter words as a subphrase found.");
  }
  return Tr("No phrase containing all filter words found.");
}

}  // namespace korv
