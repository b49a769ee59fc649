// The options in the manual page.

#include "cli/manual/manual_options.h"

#include "cli/manual/manual_columns.h"

#include <gmock/gmock.h>

#include <vector>

namespace korv {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::vector<OptionRow> kOptions = {
    {.Name = "--min-words",
     .ValueName = "N",
     .Group = OptionGroup::Phrases,
     .Help = "Fewest words (4)",
     .Range = "2 to 25"},
    {.Name = "--relative", .Group = OptionGroup::Report, .Help = "Percentages"},
    {.Name = "--order",
     .ValueName = "frequency|alphabetical",
     .Group = OptionGroup::Report,
     .Help = "Word order"},
    {.Name = "--output,-o", .ValueName = "FILE", .Group = OptionGroup::Output, .Help = "A file, C:\\a"},
};

std::string FaultOf(const Expected<std::string, ManualFault>& page) {
  return page ? "" : page.Error().Description;
}

TEST(ManualOptions, HaveTheirLinesOfHelpBelowTheTitlesOfTheirGroups) {
  EXPECT_EQ(*ManualOptions(kOptions, ""),
            ".SS Phrases\n"
            ".TP\n.BI \\-\\-min\\-words \" N\"\nFewest words (4).\nFrom 2 to 25.\n"
            ".SS Report\n"
            ".TP\n.B \\-\\-relative\nPercentages.\n"
            ".TP\n.BR \"\\-\\-order frequency\" | \"alphabetical\"\nWord order.\n"
            ".SS Output\n"
            ".TP\n.BR \\-o \", \" \\-\\-output \" \\fIFILE\\fP\"\nA file, C:\\ea.\n");
}

TEST(ManualOptions, HaveTheirNotes) {
  const auto page = ManualOptions(kOptions,
                                  "what these are\n"
                                  ".\\\" for --relative\nOf all.\nReally.\n"
                                  ".\\\" for Phrases\nThey are long.\n"
                                  ".\\\" for --output\nThe last, without a line end.");
  EXPECT_THAT(*page, StartsWith(".SS Phrases\nThey are long.\n.TP\n"));
  EXPECT_THAT(*page, HasSubstr("\nPercentages.\nOf all.\nReally.\n.TP\n"));
  EXPECT_THAT(*page, testing::EndsWith("C:\\ea.\nThe last, without a line end."));
}

TEST(ManualOptions, RefuseNotesOnWhatIsNoOption) {
  EXPECT_EQ(FaultOf(ManualOptions(kOptions, ".\\\" for --relativ\nOf all.\n")),
            "There is no option --relativ.");
}

TEST(ManualPage, HoldsThemWhereItsMarkStands) {
  EXPECT_EQ(*ManualPage(".SH OPTIONS\n.\\\" OPTIONS\n.SH FILES\n", std::span(kOptions).subspan(1, 1), ""),
            ".SH OPTIONS\n.SS Report\n.TP\n.B \\-\\-relative\nPercentages.\n.SH FILES\n");
  EXPECT_EQ(FaultOf(ManualPage(".SH OPTIONS\n", kOptions, "")), "The page has no place for the options.");
}

TEST(ManualPage, TellsWhatColumnsMeanWhereTheirMarkStands) {
  const Column first{.Id = "first", .Heading = "First", .Definition = "The first one."};
  const Column* const columns[] = {&first};
  EXPECT_EQ(WithColumns(".SH COLUMNS\n.\\\" COLUMNS\n.SH FILES\n", columns),
            ".SH COLUMNS\n.TP\n.B first\nThe first one.\n.SH FILES\n");
  EXPECT_EQ(WithColumns(".SH FILES\n", columns), ".SH FILES\n");
}

TEST(OptionRows, AreAllTold) {
  for (const OptionRow& option : OptionRows()) {
    EXPECT_THAT(option.Name, StartsWith("--"));
    EXPECT_FALSE(option.Help.empty()) << option.Name;
    EXPECT_EQ(option.Help.find('{'), option.Help.npos) << option.Name << ": " << option.Help;
    EXPECT_TRUE(option.Take) << option.Name;
  }
}

}  // namespace
}  // namespace korv
