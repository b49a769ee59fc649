#include "wordlists/typed_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using Entries = std::vector<std::string>;

TEST(SplitTypedEntries, SeparatesWordsToIgnoreAtBlanks) {
  struct SplitCase {
    const char* Typed;
    std::vector<std::string> Entries;
  };
  const SplitCase cases[] = {
      {"", {}},
      {"   ", {}},
      {"ibid vide  viz ", {"ibid", "vide", "viz"}},
      {"the\tand\r\nof", {"the", "and", "of"}},
      {"<a b> c", {"<a b>", "c"}},
      {"<a\tb>", {"<a\tb>"}},
      {"a < b", {"a", "<", "b"}},
      {"one, two", {"one,", "two"}},
      {"Caf\u00e9 cafe\u0301", {"Café", "café"}},
      {"isn\u2019t", {"isn't"}},
      {"bad\xFFword", {"bad\uFFFDword"}},
      {"co\u00ADop well\u2011known \u201Cx\u201D", {"coop", "well-known", "\u201Cx\""}},
  };
  for (const SplitCase& c : cases)
    EXPECT_EQ(SplitTypedEntries(ListKind::WordsToIgnore, c.Typed), c.Entries) << c.Typed;
}

TEST(SplitTypedEntries, SeparatesCountOnlyEntriesAtCommaAndBlank) {
  struct SplitCase {
    const char* Typed;
    std::vector<std::string> Entries;
  };
  const SplitCase cases[] = {
      {"", {}},
      {"cat", {"cat"}},
      {"big hat, cat", {"big hat", "cat"}},
      {"a,b, c", {"a,b", "c"}},
      {"a,  b ,  c", {"a", "b", "c"}},
      {"a, , b, ", {"a", "b"}},
      {"a,", {"a,"}},
      {"<x, y>, z", {"<x, y>", "z"}},
      {"~e cat <^m>, ~t", {"~e cat <^m>", "~t"}},
      {"a,\r\nb", {"a", "b"}},
  };
  for (const SplitCase& c : cases)
    EXPECT_EQ(SplitTypedEntries(ListKind::CountOnly, c.Typed), c.Entries) << c.Typed;
}

struct Fault {
  ListKind Kind;
  const char* Typed;
  const char* Title;
  const char* Text;
};

TEST(CheckAllowedExtraChars, ShowsAMessageForTheFirstFault) {
  const Fault cases[] = {
      {ListKind::WordsToIgnore, "the U.S. @home", "Character not allowed",
       "The character '.' occurs in some extra word-to-ignore\n"
       "but is not currently set as a character allowed in a word."},
      {ListKind::CountOnly, "cat, r\u00d7t", "Character not allowed",
       "The character '\u00d7' occurs in some extra count-only word\n"
       "but is not currently set as a character allowed in a word."},
      {ListKind::WordsToIgnore, "i \u2764\uFE0F", "Character not allowed",
       "The character '\u2764' occurs in some extra word-to-ignore\n"
       "but is not currently set as a character allowed in a word."},
      {ListKind::WordsToIgnore, "a~\u0323", "Character not allowed",
       "The character '\u0323' occurs in some extra word-to-ignore\n"
       "but is not currently set as a character allowed in a word."},
      {ListKind::WordsToIgnore, "word42", "Character not allowed",
       "The character '4' occurs in some extra word-to-ignore\n"
       "but is not currently set as a character allowed in a word."},
      {ListKind::WordsToIgnore, "a <b", "Character not allowed",
       "The character '<' occurs in some extra word-to-ignore\n"
       "but is not currently set as a character allowed in a word."},
      {ListKind::WordsToIgnore, "the, and", "Korv",
       "Words-to-ignore must be separated by a space, not by a comma."},
      {ListKind::CountOnly, "cat,dog", "Korv",
       "Count-only words and phrases must be separated by comma+space, not just by comma."},
      {ListKind::CountOnly, "cat,", "Korv",
       "Count-only words and phrases must be separated by comma+space, not just by comma."},
      {ListKind::WordsToIgnore, "^un the", "Korv",
       "Perhaps some Word-to-ignore is a regular expression\nwithout angle brackets."},
      {ListKind::CountOnly, "^un, the", "Korv",
       "Perhaps some count-only word is a regular expression\nwithout angle brackets."},
      // The first of several faults only.
      {ListKind::WordsToIgnore, "^a, b.", "Character not allowed",
       "The character '.' occurs in some extra word-to-ignore\n"
       "but is not currently set as a character allowed in a word."},
  };
  for (const Fault& c : cases) {
    FakeMessages messages;
    EXPECT_FALSE(CheckAllowedExtraChars(c.Kind, c.Typed, WordRules(), messages)) << c.Typed;
    EXPECT_EQ(messages.Shown.size(), 1u) << c.Typed;
    EXPECT_EQ(messages.Only().Title, c.Title) << c.Typed;
    EXPECT_EQ(messages.Only().Text, c.Text) << c.Typed;
  }
}

TEST(CheckAllowedExtraChars, LetsPassWhatWordsMayHold) {
  WordRules generous;
  generous.AllowPeriods = generous.AllowNumerals = generous.AllowAtSigns = true;
  struct PassCase {
    ListKind Kind;
    const char* Typed;
    WordRules Rules;
  };
  const PassCase cases[] = {
      {ListKind::WordsToIgnore, "", {}},
      {ListKind::WordsToIgnore, "ibid well-known ~ing ?at", {}},
      {ListKind::WordsToIgnore, "ŠŒŸÀÖØÞšœÿàöøþß Ελλάδα слово", {}},
      {ListKind::WordsToIgnore, "<^a, b.c$> <[0-9]>", {}},
      {ListKind::WordsToIgnore, "\u0645\u06CC\u200C\u062E\u0648 x\u0323y co\u00ADop", {}},
      {ListKind::CountOnly, "big hat, <x,y>, cat", {}},
      {ListKind::WordsToIgnore, "U.S. me@home word42", generous},
  };
  for (const PassCase& c : cases) {
    FakeMessages messages;
    EXPECT_TRUE(CheckAllowedExtraChars(c.Kind, c.Typed, c.Rules, messages)) << c.Typed;
    EXPECT_TRUE(messages.Shown.empty()) << c.Typed;
  }
}

TEST(CheckForNonAlphaNumeric, FindsWhatNoWordCanHold) {
  EXPECT_EQ(CheckForNonAlphaNumeric("word", {}), "");
  EXPECT_EQ(CheckForNonAlphaNumeric("big ~hat? <a.b>", {}), "");
  EXPECT_EQ(CheckForNonAlphaNumeric("one÷two", {}), "÷");
  EXPECT_EQ(CheckForNonAlphaNumeric("a+b.c", {}), "+");
}

TEST(CheckForNonAlphaNumeric, PassesTheEndingsThatWordsKeepWithoutApostrophes) {
  for (const char* word : {"aren't", "hasn't anyone", "the king's men", "it's", "x's"}) {
    EXPECT_EQ(CheckForNonAlphaNumeric(word, {}), "") << word;
  }
  for (const char* word : {"rock'n'roll", "o'clock", "can'ts", "cat't", "'s", "dogs'"}) {
    EXPECT_EQ(CheckForNonAlphaNumeric(word, {}), "'") << word;
  }
}

}  // namespace
}  // namespace korv
