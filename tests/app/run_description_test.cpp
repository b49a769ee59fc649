#include "app/run/run_description.h"

#include <gtest/gtest.h>

#include <functional>

#include "app/run/rules_text.h"
#include "base/size_text.h"

namespace korv {
namespace {

TEST(RulesText, NamesWhatAWordIsAndWherePhrasesEnd) {
  struct Case {
    const char* Name;
    std::function<void(WordRules&)> Change;
    const char* Text;
  };
  const Case cases[] = {
      {"as they are at first", [](WordRules&) {},
       "Words of 3 to 50 letters, with hyphens; case ignored; phrases end at periods, double quotes and "
       "tabs"},
      {"several signs in words", [](WordRules& r) { r.AllowApostrophes = r.AllowNumerals = true; },
       "Words of 3 to 50 letters, with hyphens, apostrophes and numerals; case ignored; phrases end at "
       "periods, double quotes and tabs"},
      {"letters alone", [](WordRules& r) { r.AllowHyphens = false; },
       "Words of 3 to 50 letters; case ignored; phrases end at periods, double quotes and tabs"},
      {"other sizes",
       [](WordRules& r) {
         r.ShortWordSize = 5;
         r.LongWordSize = 20;
       },
       "Words of 5 to 20 letters, with hyphens; case ignored; phrases end at periods, double quotes and "
       "tabs"},
      {"short words too", [](WordRules& r) { r.IgnoreShortWords = false; },
       "Words of up to 50 letters, with hyphens; case ignored; phrases end at periods, double quotes and "
       "tabs"},
      {"capitals", [](WordRules& r) { r.CaseSignificant = true; },
       "Words of 3 to 50 letters, with hyphens; capitals count; phrases end at periods, double quotes and "
       "tabs"},
      {"what is left out at first",
       [](WordRules& r) {
         r.IgnoreNoLetter = r.IgnoreRepetitions = false;
         r.Only7bitASCII = true;
       },
       "Words of 3 to 50 letters, with hyphens; case ignored; without accents; also without a letter; also "
       "with a letter four times in a row; phrases end at periods, double quotes and tabs"},
      {"all ends", [](WordRules& r) { r.TerminateAtEndOfLine = r.TerminateAtComma = true; },
       "Words of 3 to 50 letters, with hyphens; case ignored; phrases end at line ends, periods, commas, "
       "double quotes and tabs"},
      {"no end",
       [](WordRules& r) { r.TerminateAtPeriod = r.TerminateAtDoubleQuote = r.TerminateAtTab = false; },
       "Words of 3 to 50 letters, with hyphens; case ignored; phrases end at no sign"},
  };
  for (const Case& one : cases) {
    WordRules rules;
    one.Change(rules);
    EXPECT_EQ(WordRulesText(rules), one.Text) << one.Name;
  }
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
            "Words of 3 to 50 letters, with hyphens; case ignored; phrases end at periods, double quotes and "
            "tabs.\n"
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
            "Words of 3 to 50 letters, with hyphens; case ignored; phrases end at periods, double quotes and "
            "tabs.\n"
            "3 words to ignore: phrases of nothing else are left out.\n"
            "1 count-only entry.\n"
            "Counted at 14:03 in 1 minute and 2 seconds.\n"
            "Memory: " +
                FormatSize(MemoryOf(result), {}) + ".");
}

}  // namespace
}  // namespace korv
