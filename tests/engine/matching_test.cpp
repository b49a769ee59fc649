#include "engine/patterns/matching.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace korv {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(SplitOutsideBrackets, LeavesAngleBracketsAlone) {
  EXPECT_EQ(SplitOutsideBrackets("a b", ' '), (Pieces{"a", "b"}));
  EXPECT_EQ(SplitOutsideBrackets("", ' '), (Pieces{""}));
  EXPECT_EQ(SplitOutsideBrackets(" a  b ", ' '), (Pieces{"", "a", "", "b", ""}));
  EXPECT_EQ(SplitOutsideBrackets("<a b> c", ' '), (Pieces{"<a b>", "c"}));
  EXPECT_EQ(SplitOutsideBrackets("x<a b>y <c <d> e", ' '), (Pieces{"x<a b>y", "<c <d>", "e"}));
  // An opening bracket without its partner is an ordinary character.
  EXPECT_EQ(SplitOutsideBrackets("a < b <c", ' '), (Pieces{"a", "<", "b", "<c"}));
  EXPECT_EQ(SplitOutsideBrackets("a> b", ' '), (Pieces{"a>", "b"}));
}

TEST(FoldOutsideBrackets, LeavesAngleBracketsAlone) {
  EXPECT_EQ(FoldOutsideBrackets("CAFÉ~"), "café~");
  EXPECT_EQ(FoldOutsideBrackets("T\u0308~"), "\u1E97~");
  EXPECT_EQ(FoldOutsideBrackets("<T\u0308>"), "<T\u0308>");
  EXPECT_EQ(FoldOutsideBrackets("<T$>"), "<T$>");
  EXPECT_EQ(FoldOutsideBrackets("A<B>C<D>E"), "a<B>c<D>e");
  EXPECT_EQ(FoldOutsideBrackets("A<B"), "a<b");
  EXPECT_EQ(FoldOutsideBrackets(""), "");
}

WordFilterSpec Ignoring(std::vector<std::string> typed, std::vector<std::string> file = {},
                        bool patterns = false) {
  WordFilterSpec entries;
  entries.TypedWordsToIgnore = std::move(typed);
  entries.FileWordsToIgnore = std::move(file);
  entries.PatternMatchingInWordsToIgnoreFile = patterns;
  return entries;
}

WordFilterSpec Counting(std::vector<std::string> entries, bool caseSignificant = false) {
  WordFilterSpec result;
  result.CountOnly = std::move(entries);
  result.CaseSignificant = caseSignificant;
  return result;
}

TEST(WordFilters, WithoutListsNothingIsIgnoredAndEverythingCounts) {
  for (const WordFilters& lists : {WordFilters(), WordFilters(WordFilterSpec{})}) {
    EXPECT_FALSE(lists.HasWordsToIgnore());
    EXPECT_FALSE(lists.IsWordToIgnore("the"));
    EXPECT_FALSE(lists.HasCountOnly());
    EXPECT_FALSE(lists.HasCountOnlyPhrases());
    EXPECT_FALSE(lists.IsCountOnlyWord("the"));
    EXPECT_FALSE(lists.IsCountOnlyPhrase("the+cat"));
  }
}

TEST(WordFilters, TypedPatternsAlwaysCountAsPatterns) {
  const WordFilters lists(Ignoring({"The", "~ING", "?at", "<^W>", "a.b"}));
  EXPECT_TRUE(lists.HasWordsToIgnore());
  for (const char* word : {"the", "THE", "Counting", "cat", "was", "a.b"})
    EXPECT_TRUE(lists.IsWordToIgnore(word)) << word;
  for (const char* word : {"then", "ingot", "at", "axb", ""})
    EXPECT_FALSE(lists.IsWordToIgnore(word)) << word;
}

TEST(WordFilters, PatternsOfTheFileCountOnlyWhenEnabled) {
  const WordFilters plain(Ignoring({}, {"~ing", "the"}));
  EXPECT_TRUE(plain.IsWordToIgnore("the"));
  EXPECT_FALSE(plain.IsWordToIgnore("counting"));
  EXPECT_TRUE(plain.IsWordToIgnore("~ing"));
  const WordFilters patterns(Ignoring({}, {"~ing", "the"}, true));
  EXPECT_TRUE(patterns.IsWordToIgnore("the"));
  EXPECT_TRUE(patterns.IsWordToIgnore("counting"));
}

TEST(WordFilters, WithPatternMatchingEveryEntryIsAPatternTypedOnesIncluded) {
  EXPECT_FALSE(WordFilters(Ignoring({"a.b"})).IsWordToIgnore("axb"));
  EXPECT_TRUE(WordFilters(Ignoring({"a.b"}, {}, true)).IsWordToIgnore("axb"));
  EXPECT_TRUE(WordFilters(Ignoring({}, {"a.b"}, true)).IsWordToIgnore("axb"));
  EXPECT_FALSE(WordFilters(Ignoring({}, {"a(b"}, true)).IsWordToIgnore("a(b"));
}

TEST(WordFilters, OneWordEntriesMeetTheLowerCasedWordEvenWhereCaseIsSignificant) {
  WordFilterSpec entries = Ignoring({"THE", "~ING", "<T$>", "<^b>"});
  entries.CaseSignificant = true;
  entries.CountOnly = {"CAT", "D~", "<O$>", "<^r>"};
  const WordFilters lists(entries);
  EXPECT_TRUE(lists.IsWordToIgnore("The"));
  EXPECT_TRUE(lists.IsWordToIgnore("ENDING"));
  EXPECT_FALSE(lists.IsWordToIgnore("CAT"));
  EXPECT_TRUE(lists.IsWordToIgnore("Bar"));
  EXPECT_TRUE(lists.IsCountOnlyWord("Cat"));
  EXPECT_TRUE(lists.IsCountOnlyWord("Dog"));
  EXPECT_FALSE(lists.IsCountOnlyWord("TO"));
  EXPECT_TRUE(lists.IsCountOnlyWord("RED"));
}

TEST(WordFilters, ExpressionsGoWithoutCaseWhereCaseIsNotSignificant) {
  const WordFilters lists(Ignoring({"<T$>"}));
  EXPECT_TRUE(lists.IsWordToIgnore("cat"));
}

TEST(WordFilters, InvalidExpressionsMatchNothingButAreInForce) {
  const WordFilters lists(Ignoring({"<(>"}));
  EXPECT_TRUE(lists.HasWordsToIgnore());
  EXPECT_FALSE(lists.IsWordToIgnore("("));
  const WordFilters counting(Counting({"<(>", "<a (>"}));
  EXPECT_TRUE(counting.HasCountOnly());
  EXPECT_TRUE(counting.HasCountOnlyPhrases());
  EXPECT_FALSE(counting.IsCountOnlyPhrase("a+("));
}

TEST(WordFilters, CountOnlyEntriesOfSeveralWordsMatchWholePhrases) {
  const WordFilters lists(Counting({"big hat", "~e  cat <^m>", "one"}));
  EXPECT_TRUE(lists.HasCountOnlyPhrases());
  EXPECT_TRUE(lists.IsCountOnlyPhrase("big+hat"));
  EXPECT_FALSE(lists.IsCountOnlyPhrase("big+hats"));
  EXPECT_FALSE(lists.IsCountOnlyPhrase("a+big+hat"));
  EXPECT_FALSE(lists.IsCountOnlyPhrase("big"));
  EXPECT_TRUE(lists.IsCountOnlyPhrase("the+cat+mats"));
  EXPECT_FALSE(lists.IsCountOnlyPhrase("the+cat+hats"));
  EXPECT_FALSE(lists.IsCountOnlyPhrase("one"));
  EXPECT_FALSE(lists.IsCountOnlyWord("big"));
  EXPECT_TRUE(lists.IsCountOnlyWord("one"));
}

TEST(WordFilters, AnExpressionWithABlankMeetsTheWholePhrase) {
  const WordFilters lists(Counting({"<big  ?hat>", "<^the .* mat$>"}));
  EXPECT_TRUE(lists.HasCountOnlyPhrases());
  EXPECT_TRUE(lists.IsCountOnlyPhrase("a+bighat") == false);
  EXPECT_TRUE(lists.IsCountOnlyPhrase("a+big+hat+on"));
  EXPECT_TRUE(lists.IsCountOnlyPhrase("the+cat+mat"));
  EXPECT_FALSE(lists.IsCountOnlyPhrase("the+mat"));
}

TEST(WordFilters, WholePhrasesAreComparedAsTheyStand) {
  const WordFilters exact(Counting({"Big hat", "<Red hat>", "~ <^T>"}, true));
  EXPECT_TRUE(exact.IsCountOnlyPhrase("Big+hat"));
  EXPECT_FALSE(exact.IsCountOnlyPhrase("big+hat"));
  EXPECT_TRUE(exact.IsCountOnlyPhrase("Red+hat"));
  EXPECT_FALSE(exact.IsCountOnlyPhrase("red+hat"));
  EXPECT_TRUE(exact.IsCountOnlyPhrase("a+The"));
  EXPECT_FALSE(exact.IsCountOnlyPhrase("a+the"));
  const WordFilters loose(Counting({"Big hat", "<Red hat>"}));
  EXPECT_TRUE(loose.IsCountOnlyPhrase("big+hat"));
  EXPECT_TRUE(loose.IsCountOnlyPhrase("red+hat"));
}

TEST(WordFilters, IsAskedFromSeveralThreadsAtOnce) {
  WordFilterSpec entries = Counting({"<^b[ei]g>", "~ing", "big hat"});
  entries.TypedWordsToIgnore = {"<a.*e$>", "the"};
  const WordFilters lists(entries);
  std::vector<int> wrong(4, 0);
  std::vector<std::thread> threads;
  for (size_t t = 0; t < wrong.size(); ++t) {
    threads.emplace_back([&lists, &wrong, t] {
      for (int i = 0; i < 1000; ++i)
        wrong[t] += !lists.IsWordToIgnore("airline") + lists.IsWordToIgnore("word") +
                    !lists.IsCountOnlyWord("Big") + !lists.IsCountOnlyPhrase("big+hat");
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

TEST(MatchPhrasePattern, NeedsAsManyPartsAsWordsAndEveryWordToMatch) {
  EXPECT_TRUE(MatchPhrasePattern("the+big+cat", "the+~+?at", false));
  EXPECT_FALSE(MatchPhrasePattern("the+big+cat", "the+?at", false));
  EXPECT_FALSE(MatchPhrasePattern("the+cat", "the+~+?at", false));
  EXPECT_FALSE(MatchPhrasePattern("the+big+dog", "the+~+?at", false));
  // A "+" inside angle brackets separates nothing.
  EXPECT_TRUE(MatchPhrasePattern("stoop+here", "<sto+p>+here", false));
  EXPECT_TRUE(MatchPhrasePattern("The+Cat", "the+cat", false));
  EXPECT_FALSE(MatchPhrasePattern("The+Cat", "the+cat", true));
}

TEST(MatchPhrasePattern, RemembersTheBracketedPartThatItMet) {
  std::string current;
  EXPECT_TRUE(MatchPhrasePattern("the+cat", "the+~", false, &current));
  EXPECT_EQ(current, "");
  EXPECT_TRUE(MatchPhrasePattern("the+cat", "<^t>+<^c>", false, &current));
  EXPECT_EQ(current, "<^c>");
  EXPECT_FALSE(MatchPhrasePattern("the+cat", "dog+<^x>", false, &current));
  EXPECT_EQ(current, "<^c>");
}

TEST(PhrasePattern, JoinsThePartsOfAnEntry) {
  EXPECT_EQ(PhrasePattern("big hat"), "big+hat");
  EXPECT_EQ(PhrasePattern("  big   hat "), "big+hat");
  EXPECT_EQ(PhrasePattern("big <a b> hat"), "big+<a b>+hat");
}

TEST(MarkListedWords, FlagsTheListedWordsAndJudgesThePhraseByMode) {
  struct ModeCase {
    const char* Phrase;
    std::vector<bool> Flags;
    bool ExcludeWith;
    bool ExcludeAll;
  };
  const WordFilters lists(Ignoring({"the", "~ing"}));
  const ModeCase cases[] = {
      {"The+cat", {true, false}, false, true},
      {"the+counting", {true, true}, false, false},
      {"cat+sat", {false, false}, true, true},
  };
  for (const ModeCase& c : cases) {
    std::vector<bool> flags;
    EXPECT_EQ(MarkListedWords(c.Phrase, IgnoreRule::ExcludeWith, lists, flags), c.ExcludeWith) << c.Phrase;
    EXPECT_EQ(flags, c.Flags) << c.Phrase;
    EXPECT_EQ(MarkListedWords(c.Phrase, IgnoreRule::ExcludeAll, lists, flags), c.ExcludeAll) << c.Phrase;
    EXPECT_TRUE(MarkListedWords(c.Phrase, IgnoreRule::Allow, lists, flags));
    EXPECT_TRUE(MarkListedWords(c.Phrase, IgnoreRule::Remove, lists, flags));
    EXPECT_EQ(flags, c.Flags) << c.Phrase;
  }
  std::vector<bool> flags;
  EXPECT_TRUE(MarkListedWords("the+cat", IgnoreRule::ExcludeAll, WordFilters(), flags));
}

TEST(StripPhrase, TakesOutTheWordsToIgnore) {
  const WordFilters lists(Ignoring({"the", "on"}));
  EXPECT_EQ(StripPhrase("the+cat+sat+on+the+mat", lists), "cat sat mat");
  EXPECT_EQ(StripPhrase("The cat", lists), "cat");
  EXPECT_EQ(StripPhrase("the+on", lists), "");
  EXPECT_EQ(StripPhrase("cat", lists), "cat");
  EXPECT_EQ(StripPhrase("", lists), "");
}

}  // namespace
}  // namespace korv
