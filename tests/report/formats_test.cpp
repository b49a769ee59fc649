#include "report/formats.h"

#include <gtest/gtest.h>

#include "tests/fakes/native_paths.h"
#include "tests/report/report_world.h"

// The lines of the thirteen formats, from a counted table to text.

namespace korv {
namespace {

/// Two phrases listed, the longest with 10 characters ("é" is one), of 20 occurrences in 8 files.
ReportWorld World(int displayFormat) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Options.MinFrequency = 2;
  world.Facts.InputPath = "texts";
  world.Facts.FilesScanned = 8;
  world.BeginFile(std::filesystem::path("texts") / "a.txt");
  world.Say("one two", 6);
  for (const char* once : {"z a", "z b", "z c", "z d", "z e"}) world.Say(once);
  world.BeginFile(std::filesystem::path("texts") / "sub" / "b.txt");
  world.Say("one two", 3);
  world.Say("café is on", 2);
  world.Finish();
  world.Options.DisplayFormat = displayFormat;
  return world;
}

ReportForm FormOf(Layout layout) {
  return layout == Layout::Tabs ? kFileForm : kBoxForm;
}

/// The report from its heading on.
std::string Lines(const ReportWorld& world, Layout layout) {
  std::string text = TextOf(world.View(), FormOf(layout));
  const std::string endOfSummary = "\r\n\r\n", folder = "{Folder} = texts\r\n";
  text.erase(0, text.find(endOfSummary) + endOfSummary.size());
  if (text.starts_with(folder)) text.erase(0, folder.size());
  return text;
}

struct FormatCase {
  int DisplayFormat;
  const char* Columns;
  const char* Tabs;
};

TEST(Formats, EveryFormatHasItsColumnsInBothLayouts) {
  const FormatCase cases[] = {
      {0,
       " Rank  Freq  Phrase [longest has 10 characters]\r\n"
       "    1     9  one two\r\n"
       "    2     2  café is on\r\n",
       "Rank\tFreq\tPhrase [longest has 10 characters]\r\n"
       "1\t9\tone two\t\r\n"
       "2\t2\tcafé is on\t\r\n"},
      {1,
       " Phrase      Rank  Freq\r\n"
       " one two        1     9\r\n"
       " café is on     2     2\r\n",
       "Phrase\tRank\tFreq\r\n"
       "one two\t1\t9\r\n"
       "café is on\t2\t2\r\n"},
      {2,
       " Rank  Freq\r\n"
       "    1     9\r\n"
       "    2     2\r\n",
       "Rank\tFreq\r\n1\t9\r\n2\t2\r\n"},
      {3,
       " Rank  Phrase [longest has 10 characters]\r\n"
       "    1  one two\r\n"
       "    2  café is on\r\n",
       "Rank\tPhrase [longest has 10 characters]\r\n1\tone two\t\r\n2\tcafé is on\t\r\n"},
      {4,
       " Freq  Rank\r\n"
       "    9     1\r\n"
       "    2     2\r\n",
       "Freq\tRank\r\n9\t1\r\n2\t2\r\n"},
      {5,
       " Freq  Phrase [longest has 10 characters]\r\n"
       "    9  one two\r\n"
       "    2  café is on\r\n",
       "Freq\tPhrase [longest has 10 characters]\r\n9\tone two\t\r\n2\tcafé is on\t\r\n"},
      {6,
       " Phrase      Rank\r\n"
       " one two        1\r\n"
       " café is on     2\r\n",
       "Phrase\tRank\r\none two\t1\r\ncafé is on\t2\r\n"},
      {7,
       " Phrase      Freq\r\n"
       " one two        9\r\n"
       " café is on     2\r\n",
       "Phrase\tFreq\r\none two\t9\r\ncafé is on\t2\r\n"},
      {8,
       " Phrase [longest has 10 characters]\r\n"
       "one two\r\n"
       "café is on\r\n",
       "Phrase [longest has 10 characters]\r\none two\t\r\ncafé is on\t\r\n"},
      {9,
       " Phrase [longest has 10 characters]\r\n"
       "one two, café is on\r\n",
       "one two, café is on\r\n"},
      {10,
       " Phrase       Files  Freq\r\n"
       " one two         2     9\r\n"
       " café is on      1     2\r\n",
       "Phrase\t Files\tFreq\r\n"
       "one two\t2\t9\r\n"
       "café is on\t1\t2\r\n"},
      {11,
       " Phrase      Files\r\n"
       " one two     {Folder}/a.txt  {Folder}/sub/b.txt\r\n"
       " café is on  {Folder}/sub/b.txt\r\n",
       "Phrase\tFiles\r\n"
       "one two\t{Folder}/a.txt\t{Folder}/sub/b.txt\r\n"
       "café is on\t{Folder}/sub/b.txt\r\n"},
      {12,
       " Phrase\r\n"
       " one two\r\n"
       "     66.67% {Folder}/a.txt\r\n"
       "     33.33% {Folder}/sub/b.txt\r\n"
       " café is on\r\n"
       "    100.00% {Folder}/sub/b.txt\r\n",
       "Phrase\t\r\n"
       "one two\t\r\n"
       "     66.67% {Folder}/a.txt\r\n"
       "     33.33% {Folder}/sub/b.txt\r\n"
       "café is on\t\r\n"
       "    100.00% {Folder}/sub/b.txt\r\n"},
  };
  for (const FormatCase& c : cases) {
    EXPECT_EQ(Lines(World(c.DisplayFormat), Layout::Columns), WithNativePaths(c.Columns)) << c.DisplayFormat;
    EXPECT_EQ(Lines(World(c.DisplayFormat), Layout::Tabs), WithNativePaths(c.Tabs)) << c.DisplayFormat;
  }
}

TEST(Formats, RelativeFrequencyTakesThePlaceOfTheCount) {
  const FormatCase cases[] = {
      {0,
       " Rank  Rel freq  Phrase [longest has 10 characters]\r\n"
       "    1    45.00%  one two\r\n"
       "    2    10.00%  café is on\r\n",
       "Rank\tRel freq\tPhrase [longest has 10 characters]\r\n"
       "1\t45.00%\tone two\t\r\n"
       "2\t10.00%\tcafé is on\t\r\n"},
      {4,
       " Rel freq  Rank\r\n"
       "   45.00%     1\r\n"
       "   10.00%     2\r\n",
       "Rel freq\tRank\r\n45.00%\t1\r\n10.00%\t2\r\n"},
      {3,
       " Rank  Phrase [longest has 10 characters]\r\n"
       "    1  one two\r\n"
       "    2  café is on\r\n",
       "Rank\tPhrase [longest has 10 characters]\r\n1\tone two\t\r\n2\tcafé is on\t\r\n"},
      {10,
       " Phrase       Files  Rel freq\r\n"
       " one two         2    45.00%\r\n"
       " café is on      1    10.00%\r\n",
       "Phrase\t Files\tRel freq\r\none two\t2\t45.00%\r\ncafé is on\t1\t10.00%\r\n"},
      {12,
       " Phrase\r\n"
       " one two\r\n"
       "     30.00% {Folder}/a.txt\r\n"
       "     15.00% {Folder}/sub/b.txt\r\n"
       " café is on\r\n"
       "     10.00% {Folder}/sub/b.txt\r\n",
       "Phrase\t\r\n"
       "one two\t\r\n"
       "     30.00% {Folder}/a.txt\r\n"
       "     15.00% {Folder}/sub/b.txt\r\n"
       "café is on\t\r\n"
       "     10.00% {Folder}/sub/b.txt\r\n"},
  };
  for (const FormatCase& c : cases) {
    for (const Layout layout : {Layout::Columns, Layout::Tabs}) {
      ReportWorld world = World(c.DisplayFormat);
      world.Options.RelativeFrequency = true;
      EXPECT_EQ(Lines(world, layout), WithNativePaths(layout == Layout::Columns ? c.Columns : c.Tabs))
          << c.DisplayFormat;
    }
  }
}

TEST(Formats, SortByNumberOfFilesShowsTheFileFrequency) {
  ReportWorld world = World(10);
  world.Options.SortByNumberOfFiles = true;
  EXPECT_EQ(Lines(world, Layout::Columns),
            " Phrase       Files   File freq  Freq\r\n"
            " one two         2    0.250     9\r\n"
            " café is on      1    0.125     2\r\n");
  EXPECT_EQ(Lines(world, Layout::Tabs),
            "Phrase\t Files\tFile freq\tFreq\r\n"
            "one two\t2\t0.250\t9\r\n"
            "café is on\t1\t0.125\t2\r\n");
}

TEST(Formats, FilesAndTheirFrequencyAreAlignedAsOneCell) {
  ReportWorld world = World(10);
  world.Options.SortByNumberOfFiles = true;
  world.Numbers.LeadingZero = false;
  EXPECT_EQ(Lines(world, Layout::Columns),
            " Phrase       Files   File freq  Freq\r\n"
            " one two          2    .250     9\r\n"
            " café is on       1    .125     2\r\n");
}

TEST(Formats, FileFrequencyIsSinglePrecision) {
  // Double precision would give 0.037.
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.FilesScanned = 80;
  for (const char* file : {"a", "b", "c"}) {
    world.BeginFile(file);
    world.Say("a b");
  }
  world.Finish();
  world.Options = {.DisplayFormat = 10, .SortByNumberOfFiles = true};
  EXPECT_TRUE(TextOf(world.View(), kFileForm).ends_with("\r\na b\t3\t0.038\t3\r\n"));
}

TEST(Formats, OneThirdIsThirtyThreePointThreeThreePercent) {
  ReportWorld world = ReportWorld::Of({{"a b", 1}, {"c d", 2}});
  world.Options = {.DisplayFormat = 7, .RelativeFrequency = true};
  EXPECT_TRUE(TextOf(world.View(), kFileForm).ends_with("\r\na b\t33.33%\r\n"));
}

TEST(Formats, NumbersFollowTheLocale) {
  ReportWorld world = World(7);
  world.Options.RelativeFrequency = true;
  world.Numbers.DecimalPoint = "\u066B";  // Two bytes, one character.
  EXPECT_EQ(Lines(world, Layout::Columns),
            " Phrase      Rel freq\r\n"
            " one two       45\u066B00%\r\n"
            " café is on    10\u066B00%\r\n");
}

TEST(Formats, NineHasNoCommaAfterTheLastOfThree) {
  ReportWorld world = ReportWorld::Of({{"a b", 3}, {"c d", 2}, {"e f", 1}});
  world.Options.DisplayFormat = 9;
  EXPECT_TRUE(TextOf(world.View(), kFileForm).ends_with("\r\n\r\na b, c d, e f\r\n"));
}

TEST(Formats, NineWithoutPhrasesHasNoLine) {
  ReportWorld world = World(9);
  world.Options.FilterText = "nothing";
  world.Options.FilterActive = true;
  EXPECT_TRUE(TextOf(world.View(), kFileForm)
                  .ends_with("Filter words: nothing\r\n\r\nNo phrase containing filter word(s) found.\r\n"));
}

TEST(Formats, LineEndsAreTheCallersChoice) {
  const ReportWorld world = World(12);
  for (const bool file : {false, true})
    EXPECT_EQ(TextOf(world.View(), {.File = file, .LineEnd = "\n"}).find('\r'), std::string::npos);
}

TEST(Formats, ANumberOutOfRangeIsTheNearestFormat) {
  EXPECT_EQ(&FormatOf(-1), &FormatOf(0));
  EXPECT_EQ(&FormatOf(kDisplayFormats), &FormatOf(kDisplayFormats - 1));
}

TEST(Formats, EveryColumnOfAFormatIsThere) {
  for (int format = 0; format < kDisplayFormats; ++format)
    for (const bool relative : {false, true})
      for (const bool byFiles : {false, true})
        for (const Column* column : ColumnsOfFormat(
                 FormatOf(format), {.RelativeFrequency = relative, .SortByNumberOfFiles = byFiles}))
          EXPECT_NE(column, nullptr) << format;
}

}  // namespace
}  // namespace korv
