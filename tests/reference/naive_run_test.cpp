#include "tests/reference/naive_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

WordRules AnyWord() {
  WordRules rules;
  rules.CaseSignificant = true;
  rules.IgnoreShortWords = false;
  rules.IgnoreNoLetter = false;
  rules.IgnoreRepetitions = false;
  return rules;
}

RunOptions Lengths(int least, int most, IgnoreRule mode = IgnoreRule::ExcludeAll) {
  RunOptions options;
  options.MinWords = least;
  options.MaxWords = most;
  options.MinFrequency = 1;
  options.IgnoreMode = mode;
  return options;
}

WordFilterSpec Ignoring(std::vector<std::string> words) {
  WordFilterSpec entries;
  entries.FileWordsToIgnore = std::move(words);
  return entries;
}

WordFilterSpec CountingOnly(std::vector<std::string> entries, bool caseSignificant = true) {
  WordFilterSpec lists;
  lists.CountOnly = std::move(entries);
  lists.CaseSignificant = caseSignificant;
  return lists;
}

/// "/" is where phrases end.
CountingRun& Feed(CountingRun& run, const std::string& text) {
  for (const std::string& word : Split(text, ' ')) {
    if (word == "/") {
      run.ResetPhrases();
    } else {
      run.TakeWord(word);
    }
  }
  return run;
}

std::map<std::string, int> Counts(const CountingRun& run) {
  std::map<std::string, int> counts;
  for (int32_t i = 1; i <= run.Phrases().PhraseCount; ++i)
    counts[run.Phrases()[i].Text] = run.Phrases()[i].Count;
  return counts;
}

std::vector<std::string> Listed(const CountingRun& run) {
  std::vector<std::string> texts;
  for (int32_t i = 1; i <= run.Phrases().PhraseCount; ++i) {
    if (run.Phrases()[i].Listed) texts.push_back(run.Phrases()[i].Text);
  }
  return texts;
}

TEST(NaiveGetWords2, FormsPhrasesOfEveryPermittedLength) {
  CountingRun run(AnyWord(), Lengths(2, 3), {});
  EXPECT_THAT(Counts(Feed(run, "a b c d")), ElementsAre(Pair("a b", 1), Pair("a b c", 1), Pair("b c", 1),
                                                        Pair("b c d", 1), Pair("c d", 1)));
}

TEST(NaiveGetWords2, AcceptsOneLengthOnly) {
  CountingRun run(AnyWord(), Lengths(3, 3), {});
  EXPECT_THAT(Counts(Feed(run, "a b c d")), ElementsAre(Pair("a b c", 1), Pair("b c d", 1)));
}

TEST(NaiveGetWords2, CountsOverlappingPhrases) {
  CountingRun run(AnyWord(), Lengths(2, 3), {});
  EXPECT_THAT(Counts(Feed(run, "a a a a")), ElementsAre(Pair("a a", 3), Pair("a a a", 2)));
}

TEST(NaiveGetWords2, ClosesTheGapOverWordsThatAreNot7Bit) {
  WordRules rules = AnyWord();
  rules.Only7bitASCII = true;
  CountingRun run(rules, Lengths(2, 2), {});
  EXPECT_THAT(Counts(Feed(run, "a café b")), ElementsAre(Pair("a b", 1)));
  EXPECT_EQ(run.WordsTaken(), 2);
  EXPECT_THAT(run.WordsDropped(), ElementsAre(Pair("not 7-bit", 1)));
}

TEST(NaiveGetWords2, EndsPhrasesAtTheTerminatorsThatAreOn) {
  struct Case {
    const char* Name;
    bool WordRules::*Rule;
    bool WordEnd::*End;
  };
  const Case cases[] = {
      {"period", &WordRules::TerminateAtPeriod, &WordEnd::EndedByPeriod},
      {"double quote", &WordRules::TerminateAtDoubleQuote, &WordEnd::EndedByDoubleQuote},
      {"tab", &WordRules::TerminateAtTab, &WordEnd::EndedByTab},
      {"comma", &WordRules::TerminateAtComma, &WordEnd::EndedByComma},
  };
  for (const Case& c : cases) {
    for (bool on : {true, false}) {
      for (const char* first : {"a", "é"}) {  // A word that the 7-bit rule drops ends a phrase as well.
        WordRules rules = AnyWord();
        rules.Only7bitASCII = true;
        for (const Case& other : cases) rules.*other.Rule = false;
        rules.*c.Rule = on;
        WordEnd end;
        end.*c.End = true;
        CountingRun run(rules, Lengths(2, 2), {});
        run.GetWords2("x");
        run.GetWords2(first, end);
        run.GetWords2("b");
        EXPECT_EQ(Counts(run).count(first == std::string("a") ? "a b" : "x b"), on ? 0u : 1u) << c.Name;
      }
    }
  }
  CountingRun run(AnyWord(), Lengths(2, 2), {});
  WordEnd end;
  end.EndedBySemicolon = true;
  run.GetWords2("a", end);
  run.GetWords2("b");
  EXPECT_THAT(Counts(run), ElementsAre(Pair("a b", 1))) << "a semicolon ends no phrase";
}

TEST(NaiveGetWords2, DoesNotCarryPhrasesFromOneSourceToTheNext) {
  CountingRun run(AnyWord(), Lengths(2, 2), {});
  run.BeginSource("a");
  Feed(run, "a b");
  run.BeginSource("b");
  Feed(run, "c d");
  EXPECT_THAT(Counts(run), ElementsAre(Pair("a b", 1), Pair("c d", 1)));
}

TEST(NaiveTakeWord, DropsWordsUnderTheRules) {
  struct Case {
    const char* Word;
    const char* Rule;
    const char* Why;
  };
  const Case cases[] = {
      {"ab", "short", "shorter than three"},
      {"éa", "short", "characters count, not bytes"},
      {"abc", "", "three"},
      {"éàü", "", "three"},
      {"aaabbbcccdddeeefffggg", "long", "longer than twenty"},
      {"aaabbbcccdddeeefffgg", "", "twenty"},
      {"éééèèèàààùùùêêêôôôîî", "", "twenty characters"},
      {"123", "letterless", "no letter"},
      {"---", "letterless", "no letter"},
      {"12a", "", "a letter"},
      {"12é", "", "a letter"},
      {"12ñ", "", "a letter"},
      {"12ж", "", "a letter"},
      {"baaaab", "repetition", "four times a"},
      {"baaab", "", "three times a"},
      {"aAaA", "repetition", "case aside"},
      {"éÉéÉ", "repetition", "case aside"},
      {"жжЖж", "repetition", "case aside"},
      {"aaéa", "", "another letter between"},
      {"a1111", "", "digits are no letters"},
      {"a----", "", "nor are hyphens"},
      {"1", "short", "without a letter as well"},
      {"11112222333344445555666677778888", "long", "without a letter as well"},
      {"aaaaaaaaaaaaaaaaaaaaa", "long", "repeats a letter as well"},
  };
  WordRules rules;
  rules.LongWordSize = 20;
  for (const Case& c : cases) EXPECT_EQ(RulesDrop(c.Word, rules), c.Rule) << c.Word << ": " << c.Why;
  rules = AnyWord();
  for (const char* word : {"a", "--", "aaaa", "1"}) EXPECT_EQ(RulesDrop(word, rules), "") << word;
}

TEST(NaiveTakeWord, CountsADroppedWordForTheFirstRuleThatDropsIt) {
  WordRules rules = AnyWord();
  rules.IgnoreShortWords = true;
  rules.Only7bitASCII = true;
  CountingRun run(rules, Lengths(2, 2, IgnoreRule::Remove), Ignoring({"été", "the", "é"}));
  Feed(run, "é été the élan cat");
  EXPECT_EQ(run.WordsTaken(), 1);
  EXPECT_THAT(run.WordsDropped(), ElementsAre(Pair("ignored", 2), Pair("not 7-bit", 1), Pair("short", 1)));
}

TEST(NaiveGetWords2, TellsHowManyPhrasesOnlyTheirLengthKeptOut) {
  const std::string w50(50, 'w'), x49(49, 'x');
  struct Case {
    const char* Name;
    WordFilterSpec Entries;
    int64_t Expected;
  };
  const Case cases[] = {
      {"no lists", {}, 2},  // x w w of 151 characters, w w of 101; x w has 100
      {"a list that excludes", Ignoring({w50}), 1},
      {"a list of whole phrases", CountingOnly({"~ " + w50}), 1},
  };
  for (const Case& c : cases) {
    CountingRun run(AnyWord(), Lengths(2, 3), c.Entries);
    Feed(run, x49 + " " + w50 + " " + w50 + " / " + x49 + " " + w50);
    EXPECT_EQ(run.Phrases().LongPhrases, c.Expected) << c.Name;
  }
}

TEST(NaiveTakeWord, FoldsCaseUnlessItIsSignificant) {
  WordRules rules = AnyWord();
  rules.CaseSignificant = false;
  CountingRun run(rules, Lengths(2, 2), {});
  EXPECT_THAT(Counts(Feed(run, "ÉTÉ Жук")), ElementsAre(Pair("été жук", 1)));
}

TEST(NaiveTakeWord, ClosesTheGapOverDroppedWords) {
  WordRules rules = AnyWord();
  rules.IgnoreShortWords = true;
  CountingRun run(rules, Lengths(2, 2), {});
  EXPECT_THAT(Counts(Feed(run, "cat is mat / dog it / sat")), ElementsAre(Pair("cat mat", 1)));
  EXPECT_EQ(run.WordsTaken(), 4);
  EXPECT_THAT(run.WordsDropped(), ElementsAre(Pair("short", 2)));
}

TEST(NaiveIgnoreModes, TreatPhrasesAsTheyAreAskedTo) {
  struct Case {
    IgnoreRule Mode;
    std::map<std::string, int> Counts;
  };
  const Case cases[] = {
      {IgnoreRule::Allow, {{"the cat", 1}, {"cat of", 1}, {"of the", 1}, {"the mat", 1}}},
      {IgnoreRule::ExcludeAll, {{"the cat", 1}, {"cat of", 1}, {"the mat", 1}}},
      {IgnoreRule::Remove, {{"cat mat", 1}}},
      {IgnoreRule::ExcludeWith, {}},
  };
  for (const Case& c : cases) {
    CountingRun run(AnyWord(), Lengths(2, 2, c.Mode), Ignoring({"the", "of"}));
    EXPECT_EQ(Counts(Feed(run, "the cat of the mat")), c.Counts) << static_cast<int>(c.Mode);
    CountingRun unlisted(AnyWord(), Lengths(2, 2, c.Mode), {});
    EXPECT_EQ(Counts(Feed(unlisted, "the of the")),
              (std::map<std::string, int>{{"the of", 1}, {"of the", 1}}))
        << "without words to ignore the mode does nothing";
  }
}

TEST(NaiveStripPhrase, LeavesOutTheWordsToIgnore) {
  CountingRun run(AnyWord(), Lengths(2, 2, IgnoreRule::Remove), Ignoring({"the", "of"}));
  EXPECT_EQ(run.StripPhrase("the+cat+of+The+mat"), "cat mat");
  EXPECT_EQ(run.StripPhrase("cat"), "cat");
  EXPECT_EQ(run.StripPhrase("the+of"), "");
}

TEST(NaiveCountOnly, AdmitsPhrasesWithAListedWordOrThatAreListed) {
  struct Case {
    std::vector<std::string> Entries;
    bool CaseSignificant;
    std::vector<std::string> Admitted;
  };
  const std::string text = "the Cat sat / at counting ingot / the cat";
  const Case cases[] = {
      {{"cat"}, true, {"Cat sat", "the Cat", "the cat"}},
      {{"CAT"}, true, {"Cat sat", "the Cat", "the cat"}},
      {{"the cat"}, true, {"the cat"}},
      {{"the cat"}, false, {"the Cat", "the cat"}},
      {{"~ing"}, true, {"at counting", "counting ingot"}},
      {{"?at"}, true, {"Cat sat", "the Cat", "the cat"}},
      {{"~"}, true, {"Cat sat", "at counting", "counting ingot", "the Cat", "the cat"}},
      {{"?he ~"}, true, {"the Cat", "the cat"}},
      {{"<^c>"}, true, {"Cat sat", "at counting", "counting ingot", "the Cat", "the cat"}},
      {{"<^C>"}, true, {}},
      {{"<^C>"}, false, {"Cat sat", "at counting", "counting ingot", "the Cat", "the cat"}},
      {{"<e C>"}, true, {"the Cat"}},
      {{"<e C>"}, false, {"the Cat", "the cat"}},
      {{"<^t> <^C>"}, true, {"the Cat"}},
      {{"<("}, true, {}},
      {{"<(>"}, true, {}},
      {{"<>"}, true, {}},
      {{"a.t"}, true, {}},
      {{"c.t~"}, true, {"Cat sat", "the Cat", "the cat"}},
  };
  for (const Case& c : cases) {
    CountingRun run(AnyWord(), Lengths(2, 2), CountingOnly(c.Entries, c.CaseSignificant));
    std::vector<std::string> admitted;
    for (const auto& counted : Counts(Feed(run, text))) admitted.push_back(counted.first);
    EXPECT_EQ(admitted, c.Admitted) << c.Entries[0] << (c.CaseSignificant ? ", case significant" : "");
  }
}

TEST(NaiveCountOnly, ComesAfterTheWordsToIgnore) {
  WordFilterSpec entries = CountingOnly({"cat"});
  entries.TypedWordsToIgnore = {"mat"};
  CountingRun run(AnyWord(), Lengths(2, 2, IgnoreRule::ExcludeWith), entries);
  EXPECT_THAT(Counts(Feed(run, "cat mat / cat sat / sat sat")), ElementsAre(Pair("cat sat", 1)));
}

TEST(NaiveWordsToIgnore, ArePatternsWhenTypedOrWhenAskedFor) {
  WordFilterSpec entries;
  entries.FileWordsToIgnore = {"~at", "dog"};
  entries.TypedWordsToIgnore = {"?og", "Hen"};
  Lists plain(entries);
  EXPECT_FALSE(plain.IsWordToIgnore("cat"));
  EXPECT_TRUE(plain.IsWordToIgnore("Fog"));
  EXPECT_TRUE(plain.IsWordToIgnore("dog"));
  EXPECT_TRUE(plain.IsWordToIgnore("HEN"));
  EXPECT_FALSE(plain.IsWordToIgnore("hens"));
  entries.PatternMatchingInWordsToIgnoreFile = true;
  Lists patterns(entries);
  EXPECT_TRUE(patterns.IsWordToIgnore("cat"));
  EXPECT_TRUE(patterns.IsWordToIgnore("hen"));
  EXPECT_FALSE(patterns.IsWordToIgnore("cats"));
}

TEST(NaiveMatchPattern, MatchesWildcardsAndExpressions) {
  struct Case {
    const char* Text;
    const char* Pattern;
    bool CaseSignificant;
    bool Matches;
  };
  const Case cases[] = {
      {"counting", "~ing", true, true},
      {"ingot", "~ing", true, false},
      {"ing", "~ing", true, true},
      {"cat", "?at", true, true},
      {"at", "?at", true, false},
      {"été", "?t?", true, true},
      {"", "~", true, true},
      {"anything", "~", true, true},
      {"a-b", "a.b", true, true},
      {"CAT", "cat", true, false},
      {"CAT", "cat", false, true},
      {"ÉTÉ", "é~", false, true},
      {"cat", "<a>", true, true},
      {"cat", "<A>", true, false},
      {"cat", "<A>", false, true},
      {"cat", "<(>", true, false},
      {"cat", "<>", true, false},
      {"cat", "<^a>", true, false},
      {"a~b", "<a~b>", true, true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(MatchPattern(c.Text, c.Pattern, '~', '?', c.CaseSignificant), c.Matches)
        << c.Text << ' ' << c.Pattern;
  }
}

TEST(NaiveMatchPhrasePattern, WantsAsManyPartsAsWords) {
  auto matches = [](const char* phrase, const char* pattern) {
    return MatchPhrasePattern(phrase, pattern, [](std::string_view word, std::string_view part) {
      return MatchPattern(word, part, '~', '?', true);
    });
  };
  EXPECT_TRUE(matches("the+cat", "t~+?at"));
  EXPECT_FALSE(matches("the+cat+sat", "t~+?at"));
  EXPECT_FALSE(matches("the", "the+cat"));
  EXPECT_TRUE(matches("the+caat", "the+<ca+t>")) << "this plus is the expression's own";
}

TEST(NaiveFinish, ListsPhrasesFromTheMinimumFrequencyOnInAlphabeticalOrder) {
  RunOptions options = Lengths(2, 2);
  options.MinFrequency = 2;
  CountingRun run(AnyWord(), options, {});
  Feed(run, "é b / z b / é b / a b / z b / z b").Finish();
  EXPECT_EQ(run.Phrases().PhraseCount, 3);
  EXPECT_EQ(run.Phrases().Occurrences, 6);
  EXPECT_THAT(Listed(run), ElementsAre("é b", "z b"));
  EXPECT_EQ(run.Phrases()[run.Phrases().ChainHead].Text, "z b");
}

TEST(NaiveFinish, ListsEverythingThatIsNotRedundantAtFrequencyOne) {
  CountingRun run(AnyWord(), Lengths(2, 3), {});
  Feed(run, "a b c / a b").Finish();
  EXPECT_THAT(Listed(run), ElementsAre("a b", "a b c"));
}

TEST(NaiveFinish, CopesWithNothingAndWithOnePhrase) {
  CountingRun none(AnyWord(), Lengths(2, 3), {});
  none.Finish();
  EXPECT_THAT(Listed(none), IsEmpty());
  EXPECT_EQ(none.Phrases().ChainHead, 0);
  CountingRun one(AnyWord(), Lengths(2, 2), {});
  Feed(one, "a b").Finish();
  EXPECT_THAT(Listed(one), ElementsAre("a b"));
  EXPECT_EQ(one.Phrases().ChainHead, 1);
}

TEST(NaiveFolding, TakesAccentsOffBeforeLowerCasing) {
  EXPECT_EQ(FoldAccents("ŠŸÄÆŒßðÞþ Éa"), "SYAAeOessðÞþ Ea");
  EXPECT_EQ(FoldAccents("Åsa Ðé œuvre"), "Asa De oeuvre");
  EXPECT_EQ(FoldKey("ÀÐÞ AbC ŠŸ Ж"), "àðþ abc šÿ ж");
  EXPECT_EQ(FoldKey(FoldAccents("Crème Brûlée")), "creme brulee");
}

}  // namespace
}  // namespace korv::reference
