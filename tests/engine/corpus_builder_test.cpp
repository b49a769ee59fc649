#include "engine/corpus/corpus_builder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace korv {
namespace {

std::string Repeated(const char* character, int times) {
  std::string word;
  for (int i = 0; i < times; ++i) word += character;
  return word;
}

// Characters of one to four bytes: a limit that went by bytes would drop the longer ones too early.
TEST(CorpusBuilder, DropsWordsOfMoreCharactersThanAllowedAndNoOthers) {
  WordRules rules;
  rules.LongWordSize = 20;
  rules.IgnoreRepetitions = false;
  for (const char* letter : {"a", "\xC3\xA9", "\xE1\xBA\xA1", "\xF0\x90\x8C\xB0"}) {
    const WordFilters lists;
    CorpusBuilder stream(rules, RunOptions{}, lists);
    stream.BeginSource({});
    stream.TakeWord(Repeated(letter, 20));
    EXPECT_EQ(stream.Counts().Taken, 1u) << letter;
    for (const int characters : {21, 80, 81, 1000}) stream.TakeWord(Repeated(letter, characters));
    EXPECT_EQ(stream.Counts().Taken, 1u) << letter;
    EXPECT_EQ(stream.Counts().DroppedFor(DropReason::Long), 4u) << letter;
  }
}

TEST(CorpusBuilder, CountsADroppedWordForTheFirstRuleThatDropsIt) {
  struct Case {
    const char* Name;
    std::string Word;
    std::optional<DropReason> Reason;
  };
  const Case cases[] = {
      {"a word like any other", "cat", std::nullopt},
      {"short, letterless, not 7-bit and a word to ignore", "\xC2\xBC", DropReason::Short},
      {"long, letterless and repetitive", std::string(21, '1'), DropReason::Long},
      {"long by far", std::string(1000, 'a'), DropReason::Long},
      {"letterless and a word to ignore", "123", DropReason::Letterless},
      {"repetitive and a word to ignore", "aaaa", DropReason::Repetition},
      {"a word to ignore and not 7-bit", "\xC3\xA9t\xC3\xA9", DropReason::Ignored},
      {"a word to ignore, case aside", "THE", DropReason::Ignored},
      {"not 7-bit", "\xC3\xA9lan", DropReason::Not7bit},
  };
  WordRules rules;
  rules.LongWordSize = 20;
  rules.Only7bitASCII = true;
  WordFilterSpec entries;
  entries.FileWordsToIgnore = {"the", "aaaa", "123", "\xC2\xBC", "\xC3\xA9t\xC3\xA9"};
  const WordFilters lists(entries);
  RunOptions options;
  options.IgnoreMode = IgnoreRule::Remove;
  for (const Case& c : cases) {
    CorpusBuilder stream(rules, options, lists);
    stream.BeginSource({});
    WordCounts expected;
    // The second time its class is remembered.
    for (int times = 1; times <= 2; ++times) {
      stream.TakeWord(c.Word);
      ++(c.Reason ? expected.DroppedBy[static_cast<size_t>(*c.Reason)] : expected.Taken);
      EXPECT_EQ(stream.Counts(), expected) << c.Name;
      EXPECT_EQ(stream.Counts().Read(), static_cast<uint64_t>(times)) << c.Name;
    }
  }
}

}  // namespace
}  // namespace korv
