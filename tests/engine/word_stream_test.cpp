#include "engine/word_stream.h"

#include <gtest/gtest.h>

#include <string>

namespace korv {
namespace {

std::string Repeated(const char* character, int times) {
  std::string word;
  for (int i = 0; i < times; ++i) word += character;
  return word;
}

// Characters of one to four bytes: a limit that went by bytes would drop the longer ones too early.
TEST(WordStream, DropsWordsOfMoreCharactersThanAllowedAndNoOthers) {
  WordRules rules;
  rules.LongWordSize = 20;
  rules.IgnoreRepetitions = false;
  for (const char* letter : {"a", "\xC3\xA9", "\xE1\xBA\xA1", "\xF0\x90\x8C\xB0"}) {
    const RunLists lists;
    WordStream stream(rules, RunOptions{}, lists);
    stream.BeginSource({});
    stream.TakeWord(Repeated(letter, 20));
    EXPECT_EQ(stream.WordsTaken(), 1u) << letter;
    for (const int characters : {21, 80, 81, 1000}) stream.TakeWord(Repeated(letter, characters));
    EXPECT_EQ(stream.WordsTaken(), 1u) << letter;
    EXPECT_EQ(stream.WordsDropped(), 4u) << letter;
  }
}

}  // namespace
}  // namespace korv
