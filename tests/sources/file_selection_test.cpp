#include "sources/folders/file_selection.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using Strings = std::vector<std::string>;

TEST(SplitPatterns, SplitsAtCommasAndBlanks) {
  EXPECT_EQ(SplitPatterns(""), Strings{});
  EXPECT_EQ(SplitPatterns(" , ,, "), Strings{});
  EXPECT_EQ(SplitPatterns("*.txt"), Strings{"*.txt"});
  EXPECT_EQ(SplitPatterns("*.txt, *.docx,a*.htm*   b*.xml "),
            (Strings{"*.txt", "*.docx", "a*.htm*", "b*.xml"}));
  EXPECT_EQ(JoinPatterns(SplitPatterns(" a ,b c")), "a, b, c");
  EXPECT_EQ(JoinPatterns({}), "");
}

TEST(SplitPatterns, KeepsAHundred) {
  std::string typed;
  for (int k = 0; k < 150; ++k) typed += "p" + std::to_string(k) + ",";
  const Strings patterns = SplitPatterns(typed);
  ASSERT_EQ(patterns.size(), 100U);
  EXPECT_EQ(patterns.back(), "p99");
}

TEST(ValidatePatterns, NamesTheFirstFault) {
  struct Row {
    FileSelection Selection;
    const char* Text;
  };
  std::vector<Row> rows = {
      {{{"*.txt", "a?b", "x[1].txt"}, {"copy", "bak"}}, ""},
      {{{"*.txt"}, {"b*k", "c?"}}, "Folder pattern 'b*k' contains an invalid character."},
      {{{"*.txt"}, {"c?"}}, "Folder pattern 'c?' contains an invalid character."},
      {{{"good", "a/b", "c~"}, {"*"}}, "File pattern 'a/b' contains an invalid character."},
      {{{"*.doc"}, {"a/b~,"}}, ""},
  };
  for (const char* bad : {"~", ",", ";", "/", "\\", "<", ">", "`"}) {
    FakeMessages messages;
    EXPECT_FALSE(ValidatePatterns({{std::string("a") + bad}, {}}, messages)) << bad;
  }
  for (const Row& row : rows) {
    FakeMessages messages;
    EXPECT_EQ(ValidatePatterns(row.Selection, messages), *row.Text == '\0');
    EXPECT_EQ(messages.Only().Text, row.Text);
    EXPECT_EQ(messages.Only().Title, *row.Text == '\0' ? "" : "Invalid input");
  }
}

TEST(WarnAboutDocPattern, WarnsWhereDocFilesAreAskedFor) {
  struct Row {
    const char* Typed;
    bool Warned;
  };
  for (const Row& row : {Row{"*.doc", true}, Row{"*.doc, *.txt", true}, Row{"*.txt, *.doc", true},
                         Row{"*.docx", false}, Row{"*.docx, *.txt", false}, Row{"", false}}) {
    FakeMessages messages;
    WarnAboutDocPattern(row.Typed, messages);
    EXPECT_EQ(messages.Shown.size(), row.Warned ? 1U : 0U) << row.Typed;
    if (row.Warned) {
      EXPECT_EQ(messages.Only().Text,
                "This software does not process .doc files.  To process\n"
                "Word .doc files they should first be converted to .docx files.");
      EXPECT_EQ(messages.Only().Title, "Match file patterns");
      EXPECT_TRUE(ValidatePatterns({SplitPatterns(row.Typed), {}}, messages)) << "a warning, not a fault";
    }
  }
}

TEST(IsRefusedExtension, KnowsTwentySevenExtensions) {
  for (const char* extension : {"ico", "gif", "jpg", "png", "bmp", "zip",      "bin", "xls",  "mdb",
                                "pdf", "com", "exe", "dll", "cab", "ocx",      "vxd", "drv",  "sys",
                                "vbx", "386", "---", "css", "js",  "loaded_0", "ini", "gdoc", "doc"}) {
    EXPECT_TRUE(IsRefusedExtension(extension)) << extension;
    EXPECT_FALSE(FileIsWanted({{"*"}, {}}, std::string("/x/a.") + extension)) << extension;
  }
  for (const char* extension : {"", "txt", "docx", "html", "c", "j", "jss"}) {
    EXPECT_FALSE(IsRefusedExtension(extension)) << extension;
  }
}

TEST(FileIsWanted, GoesByTheNameInItsOrderOfTests) {
  struct Row {
    FileSelection Selection;
    const char* Path;
    bool Wanted;
  };
  const std::vector<Row> rows = {
      {{{}, {}}, "/x/a.txt", true},
      {{{}, {}}, "/x/noext", true},
      {{{"*.*"}, {}}, "/x/noext", true},
      {{{"*.*"}, {}}, "/x/report.JS", false},
      {{{"report.js"}, {}}, "/x/report.js", false},
      {{{"*.txt"}, {}}, "/x/a.TXT", true},
      {{{"*.TXT"}, {}}, "/x/a.txt", true},
      {{{"*.txt"}, {}}, "/x.txt/a.md", false},
      {{{"x*"}, {}}, "/x/a.txt", false},
      {{{"b*"}, {}}, "C:\\a\\b.txt", true},
      {{{"*.md", "*.txt"}, {}}, "/x/a.txt", true},
      {{{"*.md", "*.c"}, {}}, "/x/a.txt", false},
      {{{}, {"bak"}}, "/x/notebook.txt", true},
      {{{}, {"bak"}}, "/x/old.bak.txt", false},
      {{{}, {"BAK"}}, "/x/old.bak.txt", false},
      {{{}, {"bak"}}, "/x/OLD.BAK.txt", false},
      {{{}, {"bak"}}, "/bak/a.txt", true},
      {{{"*.txt"}, {"copy", "bak"}}, "/x/copy of a.txt", false},
      {{{"\xC3\x89*"}, {}}, "/x/\xC3\xA9t\xC3\xA9.txt", true},
      {{{}, {"\xC3\x89T"}}, "/x/\xC3\xA9t\xC3\xA9.txt", false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(FileIsWanted(row.Selection, row.Path), row.Wanted) << row.Path;
  }
}

struct WildcardRow {
  const char* Name;
  const char* Pattern;
  bool Matches;
};

TEST(MatchesWildcards, StarIsAnyRunAndQuestionMarkAnyCharacter) {
  const std::vector<WildcardRow> rows = {
      {"", "", true},
      {"", "*", true},
      {"", "?", false},
      {"a", "", false},
      {"a", "?", true},
      {"a", "??", false},
      {"abc", "a*c", true},
      {"ac", "a*c", true},
      {"abcd", "a*c", false},
      {"abcabc", "*abc", true},
      {"abcab", "*abc", false},
      {"a.txt", "*.*", true},
      {"aaab", "a*ab", true},
      {"aXbXc", "a*X*c", true},
      {"abc", "***", true},
      {"a*c", "a*c", true},
      {"mississippi", "m*iss*p?", true},
      {"\xC3\xA9", "?", true},
      {"\xC3\xA9", "??", false},
      {"\xE2\x82\xAC.txt", "?.txt", true},
      {"x\xC3\xA9y", "*\xC3\xA9?", true},
      {"[a]", "[a]", true},
      {"a", "[a]", false},
      {"#", "#", true},
  };
  for (const WildcardRow& row : rows) {
    EXPECT_EQ(MatchesWildcards(row.Name, row.Pattern), row.Matches) << row.Name << " ~ " << row.Pattern;
  }
}

TEST(MatchesWildcards, StaysQuickOnHostilePatterns) {
  // Backtracking over every star would take longer than the universe has.
  std::string pattern;
  for (int k = 0; k < 100; ++k) pattern += "a*";
  EXPECT_FALSE(MatchesWildcards(std::string(2000, 'a') + "b", pattern + "c"));
}

}  // namespace
}  // namespace korv
