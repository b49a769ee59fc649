#include "report/line_builder.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

using Tally = FileTallies::Tally;

// Three phrases, the longest with 10 characters ("é" is one), 20 occurrences, 8 files.
LineFormat Format(int displayFormat, Layout layout) {
  LineFormat format;
  format.DisplayFormat = displayFormat;
  format.LineLayout = layout;
  format.TotalOccurrences = 20;
  format.FilesScanned = 8;
  format.Extent = {.Phrases = 3, .HighestCount = 9, .LongestCharacters = 10, .LongestWords = 3};
  format.FilePaths = {"{Folder}/a.txt", "{Folder}/sub/b.txt"};
  return format;
}

constexpr Tally kFirst[] = {{1, 6}, {2, 3}};
constexpr Tally kSecond[] = {{2, 2}};
const ListedPhrase kPhrases[] = {
    {.Text = "one two", .Rank = 1, .Count = 9, .FileCount = 2, .Files = kFirst},
    {.Text = "café is on", .Rank = 2, .Count = 2, .FileCount = 1, .Files = kSecond},
};

std::string Lines(const LineFormat& format) {
  LineBuilder builder(format);
  std::string text;
  builder.AppendHeading(text);
  for (const ListedPhrase& phrase : kPhrases) builder.AppendPhrase(phrase, text);
  builder.AppendEnd(text);
  return text;
}

struct FormatCase {
  int displayFormat;
  const char* columns;
  const char* tabs;
};

TEST(LineBuilder, EveryFormatHasItsColumnsInBothLayouts) {
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
    EXPECT_EQ(Lines(Format(c.displayFormat, Layout::Columns)), c.columns) << c.displayFormat;
    EXPECT_EQ(Lines(Format(c.displayFormat, Layout::Tabs)), c.tabs) << c.displayFormat;
  }
}

TEST(LineBuilder, RelativeFrequencyTakesThePlaceOfTheCount) {
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
      LineFormat format = Format(c.displayFormat, layout);
      format.RelativeFrequency = true;
      EXPECT_EQ(Lines(format), layout == Layout::Columns ? c.columns : c.tabs) << c.displayFormat;
    }
  }
}

TEST(LineBuilder, SortByNumberOfFilesShowsTheFileFrequency) {
  LineFormat format = Format(10, Layout::Columns);
  format.SortByNumberOfFiles = true;
  EXPECT_EQ(Lines(format),
            " Phrase       Files   File freq  Freq\r\n"
            " one two         2    0.250     9\r\n"
            " café is on      1    0.125     2\r\n");
  format.LineLayout = Layout::Tabs;
  EXPECT_EQ(Lines(format),
            "Phrase\t Files\tFile freq\tFreq\r\n"
            "one two\t2\t0.250\t9\r\n"
            "café is on\t1\t0.125\t2\r\n");
}

TEST(LineBuilder, FileFrequencyIsSinglePrecision) {
  // Double precision would give 0.037.
  LineFormat format = Format(10, Layout::Tabs);
  format.SortByNumberOfFiles = true;
  format.FilesScanned = 80;
  LineBuilder builder(format);
  std::string text;
  builder.AppendPhrase({.Text = "a", .Count = 3, .FileCount = 3}, text);
  EXPECT_EQ(text, "a\t3\t0.038\t3\r\n");
}

TEST(LineBuilder, OneThirdIsThirtyThreePointThreeThreePercent) {
  LineFormat format = Format(7, Layout::Tabs);
  format.RelativeFrequency = true;
  format.TotalOccurrences = 3;
  LineBuilder builder(format);
  std::string text;
  builder.AppendPhrase({.Text = "a b", .Count = 1}, text);
  EXPECT_EQ(text, "a b\t33.33%\r\n");
}

TEST(LineBuilder, NumbersFollowTheLocale) {
  LineFormat format = Format(7, Layout::Columns);
  format.RelativeFrequency = true;
  format.Numbers.DecimalPoint = "\u066B";  // Two bytes, one character.
  EXPECT_EQ(Lines(format),
            " Phrase      Rel freq\r\n"
            " one two       45\u066B00%\r\n"
            " café is on    10\u066B00%\r\n");
}

TEST(LineBuilder, FormatNineHasNoCommaAfterTheLastOfThree) {
  LineBuilder builder(Format(9, Layout::Tabs));
  std::string text;
  for (const char* phrase : {"a b", "c d", "e f"}) builder.AppendPhrase({.Text = phrase}, text);
  builder.AppendEnd(text);
  EXPECT_EQ(text, "a b, c d, e f\r\n");
}

TEST(LineBuilder, FormatNineWithoutPhrasesHasNoLine) {
  LineBuilder builder(Format(9, Layout::Tabs));
  std::string text;
  builder.AppendHeading(text);
  builder.AppendEnd(text);
  EXPECT_EQ(text, "");
}

TEST(LineBuilder, PhraseWithoutFilesEndsItsLine) {
  std::string text;
  LineBuilder(Format(11, Layout::Columns)).AppendPhrase({.Text = "a b"}, text);
  LineBuilder(Format(11, Layout::Tabs)).AppendPhrase({.Text = "a b"}, text);
  EXPECT_EQ(text, " a b\r\na b\t\r\n");
}

TEST(LineBuilder, LineEndsAreTheCallersChoice) {
  LineFormat format = Format(12, Layout::Tabs);
  format.LineEnd = "\n";
  EXPECT_EQ(Lines(format).find('\r'), std::string::npos);
}

struct WidthCase {
  ListExtent extent;
  bool relative;
  int phrase, rank, frequency;
};

TEST(ColumnWidths, AreThoseOfTheWidestCellOrTheHeading) {
  const WidthCase cases[] = {
      {{.Phrases = 1, .HighestCount = 1, .LongestCharacters = 3}, false, 6, 4, 4},
      {{.Phrases = 9999, .HighestCount = 9999, .LongestCharacters = 6}, false, 6, 4, 4},
      {{.Phrases = 10000, .HighestCount = 10000, .LongestCharacters = 7}, false, 7, 5, 5},
      {{.Phrases = 2000000, .HighestCount = 4294967295u, .LongestCharacters = 100}, false, 100, 7, 10},
      {{.Phrases = 1, .HighestCount = 20, .LongestCharacters = 3}, true, 6, 4, 8},
      {{.Phrases = 1, .HighestCount = 2000, .LongestCharacters = 3}, true, 6, 4, 9},
  };
  for (const WidthCase& c : cases) {
    LineFormat format = Format(0, Layout::Columns);
    format.Extent = c.extent;
    format.RelativeFrequency = c.relative;
    const ColumnWidths widths = ComputeColumnWidths(format);
    EXPECT_EQ(widths.Phrase, c.phrase);
    EXPECT_EQ(widths.Rank, c.rank);
    EXPECT_EQ(widths.Frequency, c.frequency);
  }
}

}  // namespace
}  // namespace korv
