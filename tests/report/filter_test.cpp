#include "report/filter.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

TEST(FilterText, KeepsLowerCasedWordsWithSingleBlanks) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"   ", ""},
      {"., ;", ""},
      {"CAT", "cat"},
      {"  the   Cat ", "the cat"},
      {"cat,", "cat"},
      {"cat,dog;mouse", "cat dog mouse"},
      {"it's well-known", "it's well-known"},
      {"it\u2019s", "it's"},
      {"'tis -", "'tis -"},
      {"route 66a", "route 66a"},
      {"Éclair ŠŒŸ ßÿ", "éclair šœÿ ßÿ"},
      {"e\u0301clair", "éclair"},
      {"ΟΔΌΣ Жук", "οδόσ жук"},
      {"a\u00D7b\u00F7c", "a b c"},
      {"a_b", "a b"},
      {"T\u0308op", "\u1E97op"},
      {"\u0645\u06CC\u200C\u062E a\u200C", "\u0645\u06CC\u200C\u062E a"},
      {"i \u2764\uFE0F u", "i u"},
      {"co\u00ADop well\u2010known", "coop well-known"},
      {"tab\tand\r\nline", "tab and line"},
      {"a\xFF"
       "b",
       "a b"},
  };
  for (const auto& [typed, normalised] : cases) EXPECT_EQ(NormaliseFilterText(typed), normalised) << typed;
}

TEST(FilterText, IsStableOnceNormalised) {
  for (const char* typed : {"Saw the CAT's, -- 'hat'", "Ærøskøbing\tİI", "x"}) {
    const std::string once = NormaliseFilterText(typed);
    EXPECT_EQ(NormaliseFilterText(once), once);
  }
}

struct TestCase {
  const char* Words;
  FilterMode Mode;
  const char* Phrase;
  bool Passes;
};

constexpr FilterMode kAll = FilterMode::AllWords;
constexpr FilterMode kOrdered = FilterMode::AllWordsInSameOrder;
constexpr FilterMode kSubphrase = FilterMode::Subphrase;

TEST(PhraseFilter, PassesPhrasesThatHoldItsWords) {
  const TestCase cases[] = {
      {"the cat", kSubphrase, "saw the cat", true},
      {"\u1E97op", kAll, "the T\u0308op", true},
      {"\u0645\u06CC\u200C\u062E", kAll, "a \u0645\u06CC\u200C\u062E", true},
      {"\u062E", kAll, "a \u0645\u06CC\u200C\u062E", false},
      {"the cat", kSubphrase, "saw the cats", false},
      {"the cat", kSubphrase, "saw bathe cat", false},
      {"the cat", kSubphrase, "cat the", false},
      {"the cat", kSubphrase, "the cat", true},
      {"the cat", kSubphrase, "the cat sat", true},
      {"the cat", kSubphrase, "the black cat", false},
      {"the cat", kSubphrase, "the cats the cat", true},  // The second occurrence.
      {"a b a", kSubphrase, "xa b a b a", true},          // It overlaps the first one.
      {"a b a", kSubphrase, "xa b a b ax", false},
      {"cat the", kAll, "the cat sat", true},
      {"cat the", kOrdered, "the cat sat", false},
      {"the cat", kOrdered, "the cat sat", true},
      {"the sat", kOrdered, "the cat sat", true},
      {"cat dog", kAll, "the cat sat", false},
      {"cat", kAll, "concat cats", false},
      {"cat", kAll, "concat cat", true},
      {"cat", kOrdered, "concat cat", true},
      {"cat cat", kAll, "the cat", true},       // Each is found by itself.
      {"cat cat", kOrdered, "the cat", false},  // In order they need two places.
      {"cat cat", kOrdered, "the cat cat", true},
      {"a b", kOrdered, "xa b a", true},  // Order looks at places within words too.
      {"a b", kOrdered, "b a b", true},
      {"a b", kOrdered, "b a", false},
      {"a c b", kOrdered, "a b c", false},
      {"CAT", kAll, "cat", true},
      {"cat", kAll, "CAT", true},
      {"café", kAll, "CAFÉ noir", true},
      {"cafe", kAll, "café", false},  // Accents are significant.
      {"naïve", kSubphrase, "IŞIK NAÏVE", true},
      {"é a", kOrdered, "é a", true},
      {"é", kAll, "éa", false},
  };
  for (const TestCase& c : cases)
    EXPECT_EQ(PhraseFilter(c.Words, c.Mode).Passes(c.Phrase), c.Passes)
        << c.Words << " / " << c.Phrase << " / " << static_cast<int>(c.Mode);
}

TEST(PhraseFilter, WithoutWordsPassesEverything) {
  PhraseFilter filter(" , ", kSubphrase);
  EXPECT_TRUE(filter.Empty());
  EXPECT_TRUE(filter.Passes("anything"));
}

TEST(PhraseFilter, ShorterPhrasesLeaveNothingBehindForTheNext) {
  PhraseFilter filter("end", kAll);
  EXPECT_TRUE(filter.Passes("a long phrase to the end"));
  EXPECT_FALSE(filter.Passes("short"));
}

TEST(FilterNotice, NamesModeAndWords) {
  EXPECT_EQ(FilterNoticeText(kAll, "the cat"),
            "Phrase filtering (all filter words) has been applied.\nFilter words: the cat\n\n");
  EXPECT_EQ(FilterNoticeText(kOrdered, "the cat"),
            "Phrase filtering (all filter words in same order) has been applied.\n"
            "Filter words: the cat\n\n");
  EXPECT_EQ(FilterNoticeText(kSubphrase, "the cat"),
            "Phrase filtering (all filter words as a subphrase) has been applied.\n"
            "Filter words: the cat\n\n");
}

TEST(NoMatch, SaysSoByModeOrderAndPlace) {
  struct NoMatchCase {
    FilterMode Mode;
    NoticePlace Place;
    const char* Text;
  };
  const NoMatchCase cases[] = {
      {kAll, NoticePlace::File, "No phrase containing all filter words found."},
      {kAll, NoticePlace::TextBox, "No phrase containing all filter words found."},
      {kOrdered, NoticePlace::File, "No phrase containing all filter words in same order found."},
      {kOrdered, NoticePlace::TextBox, "No phrase containing all filter words in same order found."},
      {kSubphrase, NoticePlace::File, "No phrase containing all filter words as subphrase found."},
      {kSubphrase, NoticePlace::TextBox, "No phrase containing all filter words as a subphrase found."},
  };
  for (const NoMatchCase& c : cases) {
    EXPECT_EQ(NoMatchText(c.Mode, true, c.Place), c.Text);
    EXPECT_EQ(NoMatchText(c.Mode, false, c.Place), "No phrase containing filter word(s) found.");
  }
}

}  // namespace
}  // namespace korv
