// What the window says of the words to ignore and of words that were left out.

#include "app/run/words_in_force.h"

#include <gtest/gtest.h>

#include "app/run/left_out_words.h"

namespace korv {
namespace {

std::string TextOf(const std::vector<std::string>& words, const char* file, const std::string& typed) {
  Workspace work;
  if (!words.empty()) work.Load(ListKind::WordsToIgnore, {.Words = words, .Path = file});
  work.Change(ChangedBy::Program, [&](Settings& settings) { settings.ExtraWordsToIgnore = typed; });
  return WordsInForceText(work, {});
}

TEST(WordsInForce, AreToldWithTheirNumberAndWhereTheyComeFrom) {
  EXPECT_EQ(TextOf({}, "", ""), "Words to ignore: none");
  EXPECT_EQ(TextOf({}, "", "ibid vide"), "Words to ignore: 2 typed");
  EXPECT_EQ(TextOf({"the", "of"}, "lists/cwds_en.txt", ""), "Words to ignore: 2 common words of English");
  EXPECT_EQ(TextOf({"the"}, "lists/cwds_en_de_es_pt_it_fr.txt", ""),
            "Words to ignore: 1 common words of all six languages");
  EXPECT_EQ(TextOf({"the", "of"}, "lists/my words.txt", "ibid"),
            "Words to ignore: 2 of my words.txt, 1 typed");
  EXPECT_EQ(TextOf(std::vector<std::string>(1200, "x"), "a.txt", ""), "Words to ignore: 1,200 of a.txt");
}

TEST(WordsInForce, AreGoneWithTheirList) {
  Workspace work;
  work.Load(ListKind::WordsToIgnore, {.Words = {"the"}, .Path = "a.txt"});
  work.Forget(ListKind::WordsToIgnore);
  EXPECT_EQ(WordsInForceText(work, {}), "Words to ignore: none");
}

TEST(RulesThatTakeWords, AreTheOldOnesWithoutThoseThatLeftThemOut) {
  WordRules rules;
  rules.Only7bitASCII = true;
  const auto changed = [&](DropReason reason, auto edit) {
    WordCounts counts;
    counts.DroppedBy[static_cast<size_t>(reason)] = 1;
    WordRules expected = rules;
    edit(expected);
    EXPECT_EQ(RulesThatTake(rules, counts), expected) << static_cast<int>(reason);
  };
  changed(DropReason::Short, [](WordRules& r) { r.IgnoreShortWords = false; });
  changed(DropReason::Long, [](WordRules& r) { r.LongWordSize = 80; });
  changed(DropReason::Letterless, [](WordRules& r) { r.IgnoreNoLetter = false; });
  changed(DropReason::Repetition, [](WordRules& r) { r.IgnoreRepetitions = false; });
  changed(DropReason::Ignored, [](WordRules&) {});
  changed(DropReason::Not7bit, [](WordRules& r) { r.Only7bitASCII = false; });
  EXPECT_EQ(RulesThatTake(rules, {}), rules);
}

}  // namespace
}  // namespace korv
