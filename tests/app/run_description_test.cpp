#include "app/run/run_description.h"

#include <gtest/gtest.h>

#include "app/run/rules_text.h"
#include "base/size_text.h"

namespace korv {
namespace {

TEST(RulesText, NamesWhatAWordIsAndWherePhrasesEnd) {
  EXPECT_EQ(WordRulesText({}),
            "Words of 3 to 50 letters, with hyphens; phrases end at periods, double quotes and tabs");
  WordRules rules;
  rules.AllowApostrophes = rules.TerminateAtComma = true;
  rules.TerminateAtTab = false;
  EXPECT_EQ(WordRulesText(rules),
            "Words of 3 to 50 letters, with hyphens and apostrophes; phrases end at periods, commas and "
            "double quotes");
  rules.AllowHyphens = rules.AllowApostrophes = rules.IgnoreShortWords = false;
  rules.IgnoreNoLetter = rules.IgnoreRepetitions = false;
  rules.CaseSignificant = rules.Only7bitASCII = true;
  rules.TerminateAtPeriod = rules.TerminateAtComma = rules.TerminateAtDoubleQuote = false;
  EXPECT_EQ(WordRulesText(rules),
            "Words of up to 50 letters; capitals count; without accents; also without a letter; also with a "
            "letter four times in a row; phrases end at no sign");
}

TEST(RulesText, NamesTheLengthsAndTheMinimumOfPhrases) {
  EXPECT_EQ(PhrasesText({}), "Phrases of 4 to 6 words that occur at least twice");
  EXPECT_EQ(PhrasesText({.MinWords = 3, .MaxWords = 3, .MinFrequency = 1}),
            "Phrases of 3 words that occur any number of times");
  EXPECT_EQ(PhrasesText({.MinWords = 1, .MaxWords = 1, .MinFrequency = 5}),
            "Single words that occur at least 5 times");
}

ShownResult ResultOf(TextSource kind, const std::string& path) {
  ShownResult result;
  result.Run.Facts.Options.SourceKind = kind;
  result.Run.Facts.InputPath = path;
  result.Run.Facts.Words.Taken = 55818;
  result.Took = std::chrono::seconds(62);
  return result;
}

TEST(RunDescription, SaysInALineWhichRunItIs) {
  ShownResult result = ResultOf(TextSource::SingleFile, "books/moby.txt");
  EXPECT_EQ(HeadLineText(result, {}), "moby.txt: 55,818 words, 0 different phrases, 1m 2s");
  result.Run.Facts.Words.DroppedBy[0] = 16383;
  EXPECT_EQ(HeadLineText(result, {}), "moby.txt: 72,201 words (55,818 taken), 0 different phrases, 1m 2s");
}

TEST(RunDescription, CountsTheFilesOfAFolder) {
  ShownResult result = ResultOf(TextSource::Folder, "books/");
  result.Run.Facts.FilesScanned = 1;
  EXPECT_EQ(HeadLineText(result, {}), "books: 1 file, 55,818 words, 0 different phrases, 1m 2s");
}

TEST(RunDescription, TellsHowARunCameAbout) {
  ShownResult result = ResultOf(TextSource::SingleFile, "books/moby.txt");
  EXPECT_EQ(RunTip(result, "14:03", {}),
            "books/moby.txt\n"
            "Phrases of 4 to 6 words that occur at least twice.\n"
            "Words of 3 to 50 letters, with hyphens; phrases end at periods, double quotes and tabs.\n"
            "Counted at 14:03 in 1 minute and 2 seconds.\n"
            "Memory: " +
                FormatSize(MemoryOf(result), {}) + ".");
  result.Request.Lists.FileWordsToIgnore = {"the"};
  result.Request.Lists.TypedWordsToIgnore = {"of", "and"};
  result.Request.Lists.CountOnly = {"whale"};
  result.Run.Facts.Options.SourceKind = TextSource::Clipboard;
  EXPECT_EQ(RunTip(result, "14:03", {}),
            "Clipboard\n"
            "Phrases of 4 to 6 words that occur at least twice.\n"
            "Words of 3 to 50 letters, with hyphens; phrases end at periods, double quotes and tabs.\n"
            "3 words to ignore: phrases of nothing else are left out.\n"
            "1 count-only entry.\n"
            "Counted at 14:03 in 1 minute and 2 seconds.\n"
            "Memory: " +
                FormatSize(MemoryOf(result), {}) + ".");
}

}  // namespace
}  // namespace korv
