// What a run takes from settings.

#include "app/run/run_request.h"

#include <gmock/gmock.h>

#include "tests/app/changed_settings.h"

namespace korv {
namespace {

using testing::ElementsAre;

TEST(RunRequestOf, TakesWhatSettingsSayOfTheRun) {
  const Settings settings = AllChanged();
  const RunRequest request = RunRequestOf(settings);
  EXPECT_EQ(request.Options.MinWords, 2);
  EXPECT_EQ(request.Options.MaxWords, 25);
  EXPECT_EQ(request.Options.MinFrequency, 20);
  EXPECT_EQ(request.Options.IgnoreMode, IgnoreRule::Remove);
  EXPECT_EQ(request.Options.SourceKind, TextSource::Folder);
  EXPECT_EQ(request.Rules, WordRulesOf(settings));
  EXPECT_EQ(request.Options.MostCharacters, 1000);
  EXPECT_EQ(
      request.Options.Reading,
      (ReadingOptions{
          .ShownMarkup = true, .DeclaredEncodings = true, .NotesAndBoxes = true, .Encoding = "KOI8-R"}));
  EXPECT_EQ(request.Chain, ChainOrder::ByFiles);
  EXPECT_THAT(request.Selection.Patterns, ElementsAre("*.txt", "a*.htm*"));
  EXPECT_THAT(request.Selection.Exclusions, ElementsAre("copy", "bak"));
  EXPECT_TRUE(request.IncludeSubfolders);
  EXPECT_TRUE(request.ExtractTextFromDocx);
}

TEST(WordRulesOf, AreThoseOfTheSettingsWithWhatTheReadingAddsToThem) {
  const Settings letter;
  EXPECT_EQ(WordRulesOf(letter), letter.Words);
  EXPECT_EQ(RunRequestOf(letter).Options.MostCharacters, 100);
  struct Case {
    const char* Name;
    void (*Choose)(Settings&);
    void (*Expect)(WordRules&);
  };
  const Case cases[] = {
      {"words", [](Settings& s) { s.WordsAre = WordRule::Words; },
       [](WordRules& r) { r.AllowApostrophes = r.AllowNumerals = true; }},
      {"unicode", [](Settings& s) { s.WordsAre = WordRule::Unicode; },
       [](WordRules& r) { r.UnicodeWords = true; }},
      {"any length", [](Settings& s) { s.AnyWordLength = true; },
       [](WordRules& r) {
         r.IgnoreShortWords = false;
         r.LongWordSize = 65000;
       }},
      {"sentences", [](Settings& s) { s.Words.TerminateAtSentence = true; },
       [](WordRules& r) {
         r.TerminateAtSentence = true;
         r.TerminateAtPeriod = false;
       }},
  };
  for (const Case& c : cases) {
    Settings settings;
    c.Choose(settings);
    WordRules expected;
    c.Expect(expected);
    EXPECT_EQ(WordRulesOf(settings), expected) << c.Name;
  }
}

TEST(RunRequestOf, TakesTheFolderOrTheFile) {
  Settings settings = AllChanged();
  EXPECT_EQ(RunRequestOf(settings).InputPath, "/texts");
  settings.SourceKind = TextSource::SingleFile;
  EXPECT_EQ(RunRequestOf(settings).InputPath, "/texts/a.txt");
}

TEST(RunRequestOf, TakesTheOutputFileWhereItIsNotDisabled) {
  Settings settings = AllChanged();
  EXPECT_EQ(RunRequestOf(settings).OutputPath, "");
  settings.DisableOutputToFile = false;
  EXPECT_EQ(RunRequestOf(settings).OutputPath, "/out/report.txt");
}

TEST(RunRequestOf, WithoutAnOptionAllowsPhrasesOfWordsToIgnore) {
  Settings settings;
  EXPECT_EQ(RunRequestOf(settings).Options.IgnoreMode, IgnoreRule::ExcludeAll);
  settings.IgnoreOption.reset();
  EXPECT_EQ(RunRequestOf(settings).Options.IgnoreMode, IgnoreRule::Allow);
}

}  // namespace
}  // namespace korv
