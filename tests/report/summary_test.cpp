#include "report/summary.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

RunSummary Facts(int minWords, int maxWords, int minFrequency) {
  RunSummary facts;
  facts.Options.MinWords = minWords;
  facts.Options.MaxWords = maxWords;
  facts.Options.MinFrequency = minFrequency;
  return facts;
}

RunSummary Ignoring(RunSummary facts, IgnoreRule mode) {
  facts.WordsToIgnoreInUse = true;
  facts.Options.IgnoreMode = mode;
  return facts;
}

RunSummary Scanned(uint64_t files, uint64_t folders, bool stopped = false) {
  RunSummary facts;
  facts.Options.SourceKind = TextSource::Folder;
  facts.Options.Stopped = stopped;
  facts.FilesScanned = files;
  facts.FoldersScanned = folders;
  return facts;
}

struct SummaryCase {
  const char* Name;
  RunSummary Facts;
  uint32_t Phrases;
  int LongestWords;
  std::string Text;
};

TEST(Summary, TellsWhatIsListedInOneSentence) {
  const SummaryCase cases[] = {
      {"one phrase of one length", Facts(3, 3, 2), 1, 3,
       "There is one phrase of 3 words which occurs at least twice.\n\n"},
      {"single words", Facts(1, 1, 1), 5, 1, "There are 5 phrases of 1 word which occur at least once.\n\n"},
      {"lengths from one word are words", Facts(1, 2, 1), 2, 1,
       "There are 2 phrases with 1 to 2 words which occur at least once.\n\n"},
      {"numbers have no groups", Facts(2, 2, 20), 12345, 2,
       "There are 12345 phrases of 2 words which occur at least 20 times.\n\n"},
      {"three phrases are too few for the longest", Facts(1, 3, 3), 3, 3,
       "There are 3 phrases with 1 to 3 words which occur at least 3 times.\n\n"},
      {"four phrases have a longest one", Facts(1, 3, 3), 4, 3,
       "There are 4 phrases with 1 to 3 words which occur at least 3 times.\n"
       "The longest phrase has 3 words.\n\n"},
      {"a longest phrase of one word is not worth a line", Facts(1, 3, 3), 4, 1,
       "There are 4 phrases with 1 to 3 words which occur at least 3 times.\n\n"},
      {"one length has no longest phrase", Facts(3, 3, 3), 400, 3,
       "There are 400 phrases of 3 words which occur at least 3 times.\n\n"},
      {"phrases containing a word to ignore", Ignoring(Facts(2, 4, 3), IgnoreRule::ExcludeWith), 57, 4,
       "There are 57 phrases with 2 to 4 words which occur at least 3 times\n"
       "when phrases containing a word to ignore are excluded.\n"
       "The longest phrase has 4 words.\n\n"},
      {"phrases of words to ignore", Ignoring(Facts(2, 2, 2), IgnoreRule::ExcludeAll), 2, 2,
       "There are 2 phrases of 2 words which occur at least twice\n"
       "when phrases consisting entirely of words to ignore are excluded.\n\n"},
      {"words to ignore removed", Ignoring(Facts(2, 2, 2), IgnoreRule::Remove), 2, 2,
       "There are 2 phrases of 2 words which occur at least twice when words to ignore are "
       "excluded.\n\n"},
      {"words to ignore allowed", Ignoring(Facts(2, 2, 2), IgnoreRule::Allow), 2, 2,
       "There are 2 phrases of 2 words which occur at least twice\n"
       "(including phrases consisting entirely of words to ignore).\n\n"},
  };
  for (const SummaryCase& c : cases)
    EXPECT_EQ(SummaryText(c.Facts, c.Phrases, c.LongestWords), c.Text) << c.Name;
}

TEST(Summary, NothingListedSuggestsAnotherCountWhereThatMayHelp) {
  const SummaryCase cases[] = {
      {"nothing ignored", Facts(2, 3, 2), 0, 0,
       "There are no phrases with 2 to 3 words which occur at least twice.\n\n"},
      {"excluded with a word", Ignoring(Facts(2, 3, 2), IgnoreRule::ExcludeWith), 0, 0,
       "There are no phrases with 2 to 3 words which occur at least twice\n"
       "when phrases containing a word to ignore are excluded.\n\n"
       "You could try repeating the count without excluding phrases containing a word to ignore."},
      {"excluded entirely", Ignoring(Facts(2, 3, 2), IgnoreRule::ExcludeAll), 0, 0,
       "There are no phrases with 2 to 3 words which occur at least twice\n"
       "when phrases consisting entirely of words to ignore are excluded.\n\n"
       "You could try repeating the count without excluding phrases consisting entirely of words to ignore."},
      {"allowed", Ignoring(Facts(2, 3, 2), IgnoreRule::Allow), 0, 0,
       "There are no phrases with 2 to 3 words which occur at least twice\n"
       "(including phrases consisting entirely of words to ignore).\n\n"},
      {"removed", Ignoring(Facts(2, 3, 2), IgnoreRule::Remove), 0, 0,
       "There are no phrases with 2 to 3 words which occur at least twice when words to ignore are "
       "excluded.\n\n"},
  };
  for (const SummaryCase& c : cases)
    EXPECT_EQ(SummaryText(c.Facts, c.Phrases, c.LongestWords), c.Text) << c.Name;
}

TEST(FilesScanned, HasItsOwnPlurals) {
  const std::pair<RunSummary, std::string> cases[] = {
      {Scanned(1, 1), "1 file (in 1 folder) was scanned.\n"},
      {Scanned(2500, 12), "2,500 files (in 12 folders) were scanned.\n"},
      {Scanned(0, 1), "0 file (in 1 folder) were scanned.\n"},
      {Scanned(2, 0), "2 files (in 0 folder) were scanned.\n"},
      {Scanned(1, 1000), "1 file (in 1,000 folders) was scanned.\n"},
      {Scanned(3, 1, true),
       "3 files (in 1 folder) were scanned.\nCounting was stopped and this list is incomplete.\n"},
  };
  for (const auto& [facts, text] : cases) EXPECT_EQ(FilesScannedText(facts, NumberFormat()), text);
}

TEST(FilesScanned, IsToldOnlyOfAFolder) {
  for (const TextSource source : {TextSource::Clipboard, TextSource::SingleFile}) {
    RunSummary facts = Scanned(1, 1, true);
    facts.Options.SourceKind = source;
    EXPECT_EQ(FilesScannedText(facts, NumberFormat()), "");
  }
}

TEST(ProgressCount, HasItsOwnPluralsAndNoGroups) {
  EXPECT_EQ(ProgressCountText(0, 1), "0 files in 1 folder");
  EXPECT_EQ(ProgressCountText(1, 1), "1 file in 1 folder");
  EXPECT_EQ(ProgressCountText(2, 0), "2 files in 0 folders");
  EXPECT_EQ(ProgressCountText(2500, 12), "2500 files in 12 folders");
}

TEST(NoResult, NamesTheMinimumOfCharactersWhereThatRuleIsOn) {
  RunSummary facts;
  EXPECT_EQ(NoResultText(facts), "No phrases satisfying the specified conditions were found.");
  facts.MinCharacters = 3;
  EXPECT_EQ(NoResultText(facts),
            "No phrases with at least 3 characters\nsatisfying the specified conditions were found.");
}

TEST(SkippedFiles, AreListedWithTheirReasons) {
  RunSummary facts = Scanned(5, 1);
  facts.InputPath = "/texts";
  EXPECT_EQ(SkippedFilesText(facts), "");
  facts.SkippedFiles = {{"/texts/a.rtf", "is an RTF file"}};
  EXPECT_EQ(SkippedFilesText(facts), "1 file was skipped:\n{Folder}/a.rtf: is an RTF file\n");
  facts.SkippedFiles.push_back({"/texts/sub/b.txt", "is zero-length"});
  EXPECT_EQ(SkippedFilesText(facts),
            "2 files were skipped:\n"
            "{Folder}/a.rtf: is an RTF file\n"
            "{Folder}/sub/b.txt: is zero-length\n");
}

TEST(StatusLabels, AlignTheTwoNumbers) {
  const StatusLabels labels = StatusLabelTexts(57, 1234, false, NumberFormat());
  EXPECT_EQ(labels.NumberOfWords, "Number of phrases in this list:    57");
  EXPECT_EQ(labels.NumOccurrences, "No. of instances of phrases in this list: 1,234");
}

TEST(StatusLabels, AFilteredListDoesNotTellItsNumberOfPhrases) {
  const StatusLabels labels = StatusLabelTexts(57, 1234, true, NumberFormat());
  EXPECT_EQ(labels.NumberOfWords, "");
  EXPECT_EQ(labels.NumOccurrences, "No. of instances of phrases in this list: 1,234");
}

TEST(StatusLabels, AreEmptyWithoutPhrases) {
  const StatusLabels labels = StatusLabelTexts(0, 0, false, NumberFormat());
  EXPECT_EQ(labels.NumberOfWords, "");
  EXPECT_EQ(labels.NumOccurrences, "");
}

}  // namespace
}  // namespace korv
