#include "app/texts/program_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "app/texts/program_folder.h"
#include "tests/fakes/fake_files.h"

namespace korv {
namespace {

std::string FaultOf(const std::string& bytes) {
  FakeFiles files;
  files.Add("/korv.dat", bytes);
  const auto texts = ProgramTextFile::Load(files, "/korv.dat");
  return texts ? "" : texts.Error().Text();
}

TEST(ProgramTextFile, GivesTextsByNumber) {
  const auto texts = ProgramTextFile::Parse(
      "\xEF\xBB\xBF# A comment.\n\n41\tFirst line\\nsecond \\ line\n42\t~\n43\tÄrger ~\n  \n44\t\t x");
  ASSERT_TRUE(texts);
  EXPECT_EQ(texts->Get(41), "First line\nsecond \\ line");
  EXPECT_EQ(texts->Get(42), "");
  EXPECT_EQ(texts->Get(43), "Ärger ~");
  EXPECT_EQ(texts->Get(44), "\t x");
  EXPECT_EQ(texts->Get(45), "");
}

TEST(ProgramTextFile, SaysWhatIsWrongWithAFile) {
  const std::string longest(kMostProgramTextCharacters, 'x');
  struct Case {
    std::string Bytes;
    const char* Fault;
  };
  for (const Case& c : {Case{"# nothing\n\n", "No program text was read."},
                        {"", "File is empty."},
                        {std::string(kMostProgramTextBytes + 1, '#'), "Too much program text."},
                        {"41\tone\nnonsense\n", "Text not recovered."},
                        {"41 one\n", "Text not recovered."},
                        {"-1\tone\n", "Text not recovered."},
                        {"99999999999\tone\n", "Text not recovered."},
                        {"41\t\xC3\x28\n", "Text not recovered."},
                        {"41\tone\n\n41\ttwo\n", "Duplicate in program text at line 3."},
                        {"41\t" + longest + "\n", ""},
                        {"#\n41\t" + longest + "é\n", "String too long at line 2."},
                        {"41\tone\n42\t\n", "Missing string at line 2."},
                        {"41\tone\n42\n", "Missing string at line 2."}})
    EXPECT_EQ(FaultOf(c.Bytes), c.Fault) << c.Bytes.substr(0, 40);
}

TEST(ProgramTextFile, SaysWhetherOpeningOrReadingFailed) {
  FakeFiles files;
  EXPECT_EQ(ProgramTextFile::Load(files, "/none").Error().Text(),
            "Cannot open file containing program text.");
  files.Add("/korv.dat", "41\tone\n");
  files.FailCall(2);
  EXPECT_EQ(ProgramTextFile::Load(files, "/korv.dat").Error().Text(), "Error reading file.");
}

TEST(ProgramTextError, HasAWordForBothKindsOfMemory) {
  EXPECT_EQ(ProgramTextError{ProgramTextFault::NoMemoryForTexts}.Text(),
            "Particular memory allocation error.");
  EXPECT_EQ(ProgramTextError{ProgramTextFault::NoMemory}.Text(), "General memory allocation error.");
}

TEST(ProgramTexts, HoldWhatTheProgramsAskFor) {
  const auto files = MakeSystemFiles();
  const auto texts = ProgramTextFile::Load(*files, KORV_PROGRAM_TEXT);
  ASSERT_TRUE(texts) << texts.Error().Text();
  struct Case {
    int Number;
    const char* Text;
  };
  for (const Case c : {Case{43, "By frequency"},
                       {44, "Alphabetically"},
                       {51, "#0: Rank, frequency, phrase"},
                       {52, "#1: Phrase, rank, frequency"},
                       {53, "#2: Rank, frequency"},
                       {54, "#3: Rank, phrase"},
                       {55, "#4: Frequency, rank"},
                       {56, "#5: Frequency, phrase"},
                       {57, "#6: Phrase, rank"},
                       {58, "#7: Phrase, frequency"},
                       {59, "#8: Phrase"},
                       {60, "#9: Phrases in one line, separated by commas"},
                       {61, ""},
                       {62, "#10: Phrase, number of files, frequency"},
                       {63, "#11: Phrase, files that contain it"},
                       {64, "#12: Phrase, share of each file"}})
    EXPECT_EQ(texts->Get(c.Number), c.Text);
  for (const int number : {41, 42, 93, 94, 95, 96, 351}) EXPECT_NE(texts->Get(number), "") << number;
}

TEST(ProgramFolder, IsTheExecutablesWhenTheTextsAreThere) {
  FakeFiles files;
  files.Add("/opt/korv/bin/korv", "");
  EXPECT_EQ(ProgramFolder(files, "/opt/korv/bin/korv"), "/opt/korv/share/korv");
  files.Add("/opt/korv/bin/korv.dat", "");
  EXPECT_EQ(ProgramFolder(files, "/opt/korv/bin/korv"), "/opt/korv/bin");
}

}  // namespace
}  // namespace korv
