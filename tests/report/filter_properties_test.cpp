#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "report/filter.h"
#include "tests/reference/naive_filter.h"

// The filter against the naive model, over few short words so that repeats, overlaps and words within
// words abound.

namespace korv {
namespace {

rc::Gen<std::vector<std::string>> Words(const std::vector<std::string>& vocabulary) {
  return rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(vocabulary));
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

RC_GTEST_PROP(FilterProperties, PassesWhatTheModelPasses, ()) {
  static const std::vector<std::string> kInPhrases = {"a",  "b", "ab",  "A",   "ba",  "aa", "é",
                                                      "aé", "É", "a-b", "b's", "a.b", "Æ",  "ж"};
  static const std::vector<std::string> kTyped = {"a",   "b",   "ab", "B", "aa", "é",
                                                  "a-b", "b's", "æ",  "Ж", ","};
  const std::string phrase = Joined(*Words(kInPhrases));
  const std::string typed = Joined(*Words(kTyped));
  const auto mode =
      *rc::gen::element(FilterMode::AllWords, FilterMode::AllWordsInSameOrder, FilterMode::Subphrase);
  const std::vector<std::string> words = reference::FilterWords(typed);
  RC_ASSERT(SplitFilterWords(typed) == words);
  RC_PRE(!words.empty());
  const bool passes = PhraseFilter(typed, mode).Passes(phrase);
  RC_TAG(passes ? "passes" : "fails");
  RC_ASSERT(passes == reference::PassesFilter(phrase, words, mode));
}

}  // namespace
}  // namespace korv
