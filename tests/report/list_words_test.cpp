#include "report/list_words.h"

#include <gtest/gtest.h>

#include <sstream>

#include "report/stream_sink.h"
#include "report/summary.h"
#include "tests/fakes/native_paths.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

ReportWorld ThreePhrases() {
  ReportWorld world = ReportWorld::Of({{"the cat", 2}, {"a dog", 3}, {"big hat now", 2}});
  world.Facts.InputPath = "in.txt";
  return world;
}

constexpr char kSummary[] = "There are 3 phrases with 2 to 3 words which occur at least once.\r\n\r\n";

ReportWorld FolderWorld() {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.InputPath = "texts";
  world.Facts.FilesScanned = 3;
  world.Facts.FoldersScanned = 2;
  const auto add = [&](const char* path, std::initializer_list<const char*> phrases) {
    world.BeginFile(std::filesystem::path("texts") / path);
    for (const char* phrase : phrases) world.Say(phrase);
  };
  add("a.txt", {"the cat", "a dog", "a dog", "a dog"});
  add("empty.txt", {});
  add("b.txt", {"the cat", "the cat"});
  world.Finish();
  return world;
}

TEST(ListWords, ByFrequencyTiesStandInAlphabeticalOrder) {
  EXPECT_EQ(TextOf(ThreePhrases().View(), kBoxForm), std::string(kSummary) +
                                                         " Rank  Freq  Phrase [longest has 11 characters]\r\n"
                                                         "    1     3  a dog\r\n"
                                                         "    2     2  big hat now\r\n"
                                                         "    3     2  the cat\r\n");
}

TEST(ListWords, AlphabeticallyRanksStayThoseOfTheFrequency) {
  ReportWorld world = ReportWorld::Of({{"the cat", 9}, {"a dog", 3}});
  world.Options.WordOrder = 1;
  world.Options.DisplayFormat = 6;
  EXPECT_EQ(TextOf(world.View(), kBoxForm),
            "There are 2 phrases with 2 to 3 words which occur at least once.\r\n\r\n"
            " Phrase   Rank\r\n"
            " a dog       2\r\n"
            " the cat     1\r\n");
}

TEST(ListWords, UnlistedPhrasesDoNotAppear) {
  ReportWorld world = ReportWorld::Of({{"the cat", 9}, {"a dog", 1}, {"cat sat here", 2}});
  world.Facts.Options.MinFrequency = 2;
  world.Finish();
  world.Options.DisplayFormat = 7;
  for (const int order : {0, 1}) {
    world.Options.WordOrder = order;
    const std::string text = TextOf(world.View(), kFileForm);
    EXPECT_EQ(text.find("a dog"), std::string::npos);
    EXPECT_EQ(text.find("cat sat\t"), std::string::npos);
    EXPECT_NE(text.find("cat sat here\t2"), std::string::npos);
    EXPECT_NE(text.find("There are 2 phrases"), std::string::npos);
  }
}

TEST(ListWords, TheWholeOfRelativeFrequenciesIsAllThatWasCounted) {
  ReportWorld world = ReportWorld::Of({{"the cat", 2}, {"a dog", 1}});
  world.Facts.Options.MinFrequency = 2;
  world.Finish();
  world.Options.RelativeFrequency = true;
  world.Options.DisplayFormat = 7;
  EXPECT_EQ(TextOf(world.View(), kFileForm),
            "There is one phrase with 2 to 3 words which occurs at least twice.\r\n\r\n"
            "Phrase\tRel freq\r\n"
            "the cat\t66.67%\r\n");
}

TEST(ListWords, AFileBeginsWithTheSource) {
  ReportWorld world = ThreePhrases();
  world.Options.DisplayFormat = 9;
  const std::string rest = std::string(kSummary) + "a dog, big hat now, the cat\r\n";
  EXPECT_EQ(TextOf(world.View(), kFileForm), "File: in.txt\r\n" + rest);
  world.Facts.InputPath = "";
  EXPECT_EQ(TextOf(world.View(), kFileForm), rest);
  world.Facts.Options.SourceKind = TextSource::Clipboard;
  EXPECT_EQ(TextOf(world.View(), kFileForm), rest);
}

TEST(ListWords, FolderReportTellsOfFilesAndAbbreviatesThem) {
  ReportWorld world = FolderWorld();
  world.Options.DisplayFormat = 11;
  const std::string summary = "There are 2 phrases with 2 to 3 words which occur at least once.\r\n\r\n";
  EXPECT_EQ(TextOf(world.View(), kBoxForm),
            "3 files (in 2 folders) were scanned.\r\n" + summary +
                WithNativePaths("{Folder} = texts\r\n"
                                " Phrase   Files\r\n"
                                " a dog    {Folder}/a.txt\r\n"
                                " the cat  {Folder}/a.txt  {Folder}/b.txt\r\n"));
  world.Options.DisplayFormat = 12;
  world.Facts.IncludeSubfolders = true;
  EXPECT_EQ(TextOf(world.View(), kFileForm),
            "Folder: texts plus any subfolders\r\n3 files (in 2 folders) were scanned.\r\n" + summary +
                WithNativePaths("{Folder} = texts\r\n"
                                "Phrase\t\r\n"
                                "a dog\t\r\n"
                                "    100.00% {Folder}/a.txt\r\n"
                                "the cat\t\r\n"
                                "     33.33% {Folder}/a.txt\r\n"
                                "     66.67% {Folder}/b.txt\r\n"));
  world.Options.DisplayFormat = 10;
  EXPECT_EQ(TextOf(world.View(), kFileForm),
            "Folder: texts plus any subfolders\r\n3 files (in 2 folders) were scanned.\r\n" + summary +
                "Phrase\t Files\tFreq\r\n"
                "a dog\t1\t3\r\n"
                "the cat\t2\t3\r\n");
}

TEST(ListWords, SeveralSourcesStandOneALineAndTheirFilesInFull) {
  ReportWorld world = FolderWorld();
  world.Facts.InputPath = "";
  world.Facts.Paths = {{"texts/a.txt", SourcePath::Kind::File},
                       {"texts", SourcePath::Kind::Folder},
                       {"-", SourcePath::Kind::StandardInput}};
  world.Facts.SkippedFiles = {{"texts/none.txt", "does not exist"}};
  world.Options.DisplayFormat = 11;
  const std::string summary = "There are 2 phrases with 2 to 3 words which occur at least once.\r\n\r\n";
  const std::string a = Below("texts", "a.txt");
  EXPECT_EQ(TextOf(world.View(), kFileForm),
            "File: texts/a.txt\r\nFolder: texts\r\nFile: -\r\n3 files (in 2 folders) were scanned.\r\n" +
                summary + "Phrase\tFiles\r\na dog\t" + a + "\r\nthe cat\t" + a + "\t" +
                Below("texts", "b.txt") + "\r\n");
  world.Facts.IncludeSubfolders = true;
  EXPECT_NE(TextOf(world.View(), kFileForm).find("Folder: texts plus any subfolders\r\nFile: -\r\n"),
            std::string::npos);
  EXPECT_EQ(SkippedFilesText(world.Facts), "1 file was skipped:\ntexts/none.txt: does not exist\n");
}

TEST(ListWords, AmongFilesStandardInputHasADashForItsName) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Paths = {{"-", SourcePath::Kind::StandardInput}};
  world.BeginFile({});
  world.Say("the cat");
  world.Finish();
  world.Options.DisplayFormat = 11;
  EXPECT_NE(TextOf(world.View(), kFileForm).find("the cat\t-\r\n"), std::string::npos);
}

TEST(ListWords, SortByNumberOfFilesRanksByFiles) {
  ReportWorld world = FolderWorld();
  world.Finish(ChainOrder::ByFiles);
  world.Options.DisplayFormat = 12;
  world.Options.SortByNumberOfFiles = true;
  const std::string text = TextOf(world.View(), kFileForm);
  EXPECT_LT(text.find("the cat\t"), text.find("a dog\t"));
}

TEST(ListWords, SkippedFilesAreNamedWhereTheFormAsksForIt) {
  ReportWorld world = FolderWorld();
  world.Facts.SkippedFiles = {{"texts/c.rtf", "is an RTF file"}};
  const std::string line = "1 file was skipped:\r\n{Folder}/c.rtf: is an RTF file\r\n";
  EXPECT_NE(TextOf(world.View(), {.SkippedFiles = true}).find("were scanned.\r\n" + line + "There are"),
            std::string::npos);
  EXPECT_EQ(TextOf(world.View(), kBoxForm).find(line), std::string::npos);
  EXPECT_EQ(TextOf(world.View(), kFileForm).find(line), std::string::npos);
}

TEST(ListWords, AFilterShowsItsNoticeAndWhatPasses) {
  ReportWorld world = ThreePhrases();
  world.Options.DisplayFormat = 0;
  world.Options.FilterText = "cat";
  const std::string unfiltered = TextOf(world.View(), kBoxForm);
  EXPECT_NE(unfiltered.find("a dog"), std::string::npos);
  world.Options.FilterActive = true;
  EXPECT_EQ(TextOf(world.View(), kBoxForm), std::string(kSummary) +
                                                "Phrase filtering (all filter words) has been applied.\r\n"
                                                "Filter words: cat\r\n\r\n"
                                                " Rank  Freq  Phrase [longest has 11 characters]\r\n"
                                                "    3     2  the cat\r\n");
}

TEST(ListWords, FormatNineJoinsWhatPassesTheFilter) {
  ReportWorld world = ReportWorld::Of({{"the cat", 3}, {"a dog", 2}, {"cat sat", 1}});
  world.Options = {.DisplayFormat = 9, .FilterText = "cat", .FilterActive = true};
  EXPECT_TRUE(TextOf(world.View(), kFileForm).ends_with("\r\n\r\nthe cat, cat sat\r\n"));
}

struct NoMatchCase {
  int Order;
  FilterMode Mode;
  const char* Box;
  const char* File;
};

TEST(ListWords, NoMatchStandsBelowTheHeading) {
  const NoMatchCase cases[] = {
      {0, FilterMode::Subphrase, "\r\nNo phrase containing filter word(s) found.",
       "No phrase containing filter word(s) found.\r\n"},
      {1, FilterMode::Subphrase, "\r\nNo phrase containing all filter words as a subphrase found.",
       "No phrase containing all filter words as subphrase found.\r\n"},
      {1, FilterMode::AllWords, "\r\nNo phrase containing all filter words found.",
       "No phrase containing all filter words found.\r\n"},
  };
  for (const NoMatchCase& c : cases) {
    ReportWorld world = ThreePhrases();
    world.Options = {.DisplayFormat = 2,
                     .WordOrder = c.Order,
                     .FilterText = "mouse",
                     .FilterModeOfWords = c.Mode,
                     .FilterActive = true};
    EXPECT_TRUE(TextOf(world.View(), kBoxForm).ends_with(std::string(" Rank  Freq\r\n") + c.Box));
    EXPECT_TRUE(TextOf(world.View(), kFileForm).ends_with(std::string("Rank\tFreq\r\n") + c.File));
  }
}

TEST(ListWords, NothingListedIsTheSummaryAlone) {
  ReportWorld world = ReportWorld::Of({{"the cat", 1}});
  world.Facts = FolderWorld().Facts;
  world.Facts.Options.MinFrequency = 2;
  world.Facts.WordsToIgnoreInUse = true;
  world.Facts.Options.IgnoreMode = IgnoreRule::ExcludeWith;
  world.Finish();
  world.Options = {.DisplayFormat = 11, .FilterText = "cat", .FilterActive = true};
  const std::string summary =
      "There are no phrases with 2 to 3 words which occur at least twice\r\n"
      "when phrases containing a word to ignore are excluded.\r\n\r\n"
      "You could try repeating the count without excluding phrases containing a word to ignore.";
  EXPECT_EQ(TextOf(world.View(), kBoxForm), summary);
  EXPECT_EQ(TextOf(world.View(), kFileForm),
            "Folder: texts\r\n3 files (in 2 folders) were scanned.\r\n" + summary + "\r\n");
  world.Facts.WordsToIgnoreInUse = false;
  EXPECT_TRUE(TextOf(world.View(), kFileForm).ends_with("at least twice.\r\n\r\n"));
}

TEST(ListWords, NothingCountedIsTheNotice) {
  ReportWorld world;
  world.Facts = FolderWorld().Facts;
  const std::string notice = "No phrases satisfying the specified conditions were found.";
  EXPECT_EQ(TextOf(world.View(), kBoxForm), notice);
  EXPECT_EQ(TextOf(world.View(), kFileForm),
            "Folder: texts\r\n3 files (in 2 folders) were scanned.\r\n" + notice + "\r\n");
}

TEST(ListWords, LineFeedsThroughoutWhereTheFormSaysSo) {
  for (const auto make : {&ThreePhrases, &FolderWorld}) {
    const ReportWorld world = make();
    for (const bool file : {false, true}) {
      std::string expected = TextOf(world.View(), {.File = file});
      std::erase(expected, '\r');
      EXPECT_EQ(TextOf(world.View(), {.File = file, .LineEnd = "\n"}), expected);
    }
  }
}

TEST(ListWords, PiecesMakeUpTheSameReport) {
  ReportWorld world = ThreePhrases();
  const std::string whole = TextOf(world.View(), kBoxForm);
  for (const size_t pieceSize : {size_t{0}, size_t{100}, size_t{1} << 20}) {
    StringSink sink;
    sink.Piece = pieceSize;
    NoYielder yielder;
    const ListResult result = ListWords(world.View(), kBoxForm, sink, yielder);
    EXPECT_EQ(sink.Text, whole);
    EXPECT_EQ(result.Outcome, ListOutcome::Listed);
    EXPECT_EQ(result.Phrases, 3u);
    EXPECT_EQ(result.Occurrences, 7u);
    EXPECT_EQ(result.Shown, 3u);
    EXPECT_EQ(result.Unfiltered, 3u);
  }
}

TEST(ListWords, AStopKeepsTheLinesBuiltSoFar) {
  ReportWorld world = ThreePhrases();
  const std::string whole = TextOf(world.View(), kBoxForm);
  for (const int order : {0, 1}) {
    world.Options.WordOrder = order;
    // Three yields go into measuring.
    StoppingYielder yielder(3 + 2);
    StringSink sink;
    sink.Piece = 1 << 20;
    const ListResult result = ListWords(world.View(), kBoxForm, sink, yielder);
    EXPECT_EQ(result.Outcome, ListOutcome::Stopped);
    EXPECT_EQ(result.Shown, 1u);
    // The numbers are those of the list, not of where it was stopped.
    EXPECT_EQ(result.Phrases, 3u);
    EXPECT_EQ(result.Occurrences, 7u);
    EXPECT_TRUE(whole.starts_with(sink.Text));
    EXPECT_TRUE(sink.Text.ends_with("a dog\r\n"));
  }
}

TEST(ListWords, AFullSinkEndsTheListing) {
  ReportWorld world = ThreePhrases();
  StringSink sink;
  sink.Takes = 1;
  NoYielder yielder;
  const ListResult result = ListWords(world.View(), kBoxForm, sink, yielder);
  EXPECT_EQ(result.Outcome, ListOutcome::SinkFull);
  EXPECT_TRUE(sink.Text.ends_with("a dog\r\n"));
  EXPECT_EQ(result.Phrases, 3u);
  EXPECT_EQ(result.Occurrences, 7u);
}

TEST(ListWords, AFilterCountsOnWhenTheSinkIsFull) {
  ReportWorld world = ReportWorld::Of({{"the cat", 3}, {"a dog", 2}, {"cat sat", 1}});
  world.Options = {.FilterText = "cat", .FilterActive = true};
  StringSink sink;
  sink.Takes = 0;
  NoYielder yielder;
  const ListResult result = ListWords(world.View(), kBoxForm, sink, yielder);
  EXPECT_EQ(result.Outcome, ListOutcome::SinkFull);
  EXPECT_EQ(result.Phrases, 2u);
  EXPECT_EQ(result.Occurrences, 4u);
  EXPECT_EQ(result.Unfiltered, 3u);
}

TEST(MeasureList, LooksAtListedPhrasesOnly) {
  ReportWorld world = ReportWorld::Of({{"the cat", 4}, {"a very long phrase", 1}, {"é u i", 2}});
  world.Facts.Options.MinFrequency = 2;
  world.Finish();
  NoYielder yielder;
  const ListExtent extent = MeasureList(world.Table, yielder);
  EXPECT_EQ(extent.Phrases, 2u);
  EXPECT_EQ(extent.HighestCount, 4u);
  EXPECT_EQ(extent.LongestCharacters, 7);
  EXPECT_EQ(extent.LongestWords, 3);
  EXPECT_EQ(extent.Occurrences, 6u);
}

TEST(StreamSink, AlwaysEndsWithALineEnd) {
  for (const char* text : {"", "a", "a\n"}) {
    std::ostringstream stream;
    StreamReportSink sink(stream);
    EXPECT_TRUE(sink.Write(text));
    EXPECT_TRUE(sink.Finish());
    EXPECT_TRUE(stream.str().ends_with('\n'));
    EXPECT_FALSE(stream.str().ends_with("\n\n"));
  }
}

TEST(StreamSink, LeavesTheEndOfATableAsItIs) {
  for (const char* text : {"", "a", "a\n"}) {
    std::ostringstream stream;
    StreamReportSink sink(stream, true);
    EXPECT_TRUE(sink.Write(text));
    EXPECT_TRUE(sink.Finish());
    EXPECT_EQ(stream.str(), text);
  }
}

TEST(StreamSink, TellsThatTheStreamFailed) {
  std::ostringstream stream;
  stream.setstate(std::ios::badbit);
  StreamReportSink sink(stream);
  EXPECT_FALSE(sink.Write("a\n"));
  EXPECT_FALSE(sink.Finish());
}

}  // namespace
}  // namespace korv
