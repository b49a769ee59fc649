// What is told of a source before it is counted.

#include "app/run/source_survey.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

class SourceSurveys : public testing::Test {
 protected:
  std::string TextOfFile(const std::string& path) {
    return SurveyText(SurveySource({.Kind = TextSource::SingleFile, .Path = path}, files, yielder), {});
  }
  SourceSurvey OfFolder(bool subfolders = false, std::vector<std::string> patterns = {}) {
    return SurveySource({.Kind = TextSource::Folder,
                         .Path = "/in",
                         .Selection = {.Patterns = std::move(patterns), .Exclusions = {}},
                         .IncludeSubfolders = subfolders},
                        files, yielder);
  }
  std::string TextOfFolder(bool subfolders = false, std::vector<std::string> patterns = {}) {
    return SurveyText(OfFolder(subfolders, std::move(patterns)), {});
  }

  FakeFiles files;
  FakeYielder yielder;
};

TEST_F(SourceSurveys, NameOtherDocumentsWhereTheseAreRead) {
  files.Add("/in/a.rtf", "{\\rtf1 the white whale}");
  files.Add("/in/a.pdf", "%PDF-1.7\n" + std::string(100, '\x01'));
  files.Add("/in/false.pdf", "the white whale");
  const auto file = [this](const char* path) {
    return SurveyText(SurveySource({.Kind = TextSource::SingleFile,
                                    .Path = path,
                                    .Selection = {.Patterns = {}, .Exclusions = {}, .OtherDocuments = true}},
                                   files, yielder),
                      {});
  };
  EXPECT_EQ(file("/in/a.rtf"), "RTF document, UTF-8");
  EXPECT_EQ(file("/in/a.pdf"), "PDF document, UTF-8");
  EXPECT_EQ(file("/in/false.pdf"), "Plain text, ASCII");
  EXPECT_EQ(OfFolder().Files, 1u) << "by its name a PDF is no file to be counted";
  const SourceSurvey folder =
      SurveySource({.Kind = TextSource::Folder,
                    .Path = "/in",
                    .Selection = {.Patterns = {}, .Exclusions = {}, .OtherDocuments = true}},
                   files, yielder);
  EXPECT_EQ(folder.Files, 3u);
  EXPECT_EQ(folder.Refused, 0u);
}

TEST_F(SourceSurveys, NameTheKindAndEncodingOfAFile) {
  const std::string longAscii(20000, 'a');
  const struct {
    const char* Path;
    std::string Bytes;
    const char* Text;
  } cases[] = {
      {"/in/a.txt", "the white whale swam", "Plain text, ASCII"},
      {"/in/utf8.txt", "un caf\xC3\xA9 noir", "Plain text, UTF-8"},
      {"/in/signed.txt", "\xEF\xBB\xBFthe white whale", "Plain text, UTF-8"},
      {"/in/ansi.txt", "un caf\xE9 noir", "Plain text, ANSI"},
      {"/in/a.html", "<p>caf\xC3\xA9</p>", "HTML, UTF-8"},
      {"/in/a.xml", "<?xml version=\"1.0\"?><p>caf\xC3\xA9</p>", "XML, UTF-8"},
      {"/in/a.php", "<p>the white whale</p>", "PHP, ASCII"},
      {"/in/a.cpp", "// the white whale", "Program text, ASCII"},
      {"/in/long.txt", longAscii, "Plain text"},
      {"/in/late.txt", longAscii.substr(0, 16380) + "caf\xC3\xA9 noir et caf\xC3\xA9", "Plain text, UTF-8"},
      {"/in/a.rtf", "{\\rtf1 the white whale}", "This file is an RTF file."},
      {"/in/wide.txt", std::string("\xFF\xFEt\0h\0e\0", 8),
       "This file is a Unicode file but not UTF-8 encoded."},
      {"/in/binary.txt", std::string(200, '\x01'), "This file is not a text file."},
      {"/in/empty.txt", "", "This file is zero-length."},
      {"/in/tiny.txt", "abc", "This file contains only from 1 to 4 bytes."},
  };
  for (const auto& one : cases) {
    files.Add(one.Path, one.Bytes);
    EXPECT_EQ(TextOfFile(one.Path), one.Text) << one.Path;
  }
  EXPECT_EQ(TextOfFile("/in/none.txt"), "There is no such file.");
  EXPECT_EQ(TextOfFile("/in"), "There is no such file.");
  EXPECT_EQ(TextOfFile("  /in/utf8.txt "), "Plain text, UTF-8");
}

TEST_F(SourceSurveys, KnowADocumentByItsBeginning) {
  files.Add("/in/a.docx", BuildDocx(Paragraphs({"the white whale"})));
  files.Add("/in/text.docx", "the white whale");
  EXPECT_EQ(TextOfFile("/in/a.docx"), "Word document, UTF-8");
  EXPECT_EQ(TextOfFile("/in/text.docx"), "Plain text, ASCII");
}

TEST_F(SourceSurveys, SayNothingOfAFileThatHasNoSize) {
  files.Add("/in/pipe", "the white whale");
  files.Refuse("/in/pipe", FileFault::Other);
  EXPECT_EQ(TextOfFile("/in/pipe"), "");
  EXPECT_EQ(files.Openings(), 0);
}

TEST_F(SourceSurveys, AddUpTheFilesOfAFolder) {
  EXPECT_EQ(TextOfFolder(), "There is no such folder.");
  files.AddFolder("/in");
  EXPECT_EQ(TextOfFolder(), "No file in it is to be counted.");
  files.Add("/in/a.txt", std::string(1024, 'a'));
  EXPECT_EQ(TextOfFolder(), "1 file, 1.0 Kb, ASCII");
  files.Add("/in/b.txt", std::string(1022, 'b') + "\xC3\xA9");
  EXPECT_EQ(TextOfFolder(), "2 files, 2.0 Kb, UTF-8");
  files.Add("/in/c.html", std::string(1023, 'b') + "\xE9");
  EXPECT_EQ(TextOfFolder(), "3 files, 3.0 Kb, UTF-8 and ANSI");
  EXPECT_EQ(TextOfFolder(false, {"*.html"}), "1 file, 1.0 Kb, ANSI");
}

TEST_F(SourceSurveys, EnterSubfoldersWhereTheyAreWanted) {
  files.Add("/in/a.txt", "the white whale");
  files.Add("/in/below/b.txt", "the white whale");
  EXPECT_EQ(TextOfFolder(), "1 file, 15 bytes, ASCII");
  EXPECT_EQ(TextOfFolder(true), "2 files in 2 folders, 30 bytes, ASCII");
}

TEST_F(SourceSurveys, TellHowManyFilesCannotBeCounted) {
  files.Add("/in/a.txt", "the white whale");
  files.Add("/in/b.txt", std::string(200, '\x01'));
  files.Add("/in/c.txt", "");
  EXPECT_EQ(TextOfFolder(), "3 files, 215 bytes, ASCII; 2 of them cannot be counted");
}

TEST_F(SourceSurveys, NameNoEncodingThatIsNotKnownYet) {
  files.Add("/in/a.txt", std::string(20000, 'a'));
  files.Add("/in/b.txt", "the white whale");
  EXPECT_EQ(TextOfFolder(), "2 files, 19.5 Kb");
  // What is known of one file holds, whatever the others turn out to be.
  files.Add("/in/c.txt", "un caf\xC3\xA9 noir");
  EXPECT_EQ(TextOfFolder(), "3 files, 19.6 Kb, UTF-8");
}

TEST_F(SourceSurveys, LookIntoNoMoreFilesThanAnybodyWaitsFor) {
  for (uint64_t i = 0; i <= kMostLookedInto; ++i) files.Add("/in/" + std::to_string(i) + ".txt", "a word");
  const SourceSurvey survey = OfFolder();
  EXPECT_EQ(survey.Files, kMostLookedInto + 1);
  EXPECT_FALSE(survey.LookedInto);
  EXPECT_EQ(files.Openings(), static_cast<int>(kMostLookedInto));
  EXPECT_EQ(SurveyText(survey, {}), "1,001 files, 5.9 Kb");
}

TEST_F(SourceSurveys, EndAtTheNextFileWhenTheyAreStopped) {
  for (int i = 0; i < 50; ++i) files.Add("/in/" + std::to_string(i) + ".txt", "a word");
  yielder.StopAtCall(3);
  OfFolder();
  EXPECT_LT(files.Openings(), 5);
}

TEST_F(SourceSurveys, LeaveTheClipboardAlone) {
  EXPECT_EQ(SurveyText(SurveySource({.Kind = TextSource::Clipboard}, files, yielder), {}), "");
}

TEST(SourceSurvey, LooksAtEachOfSeveralSourcesOnce) {
  FakeFiles files;
  FakeYielder yielder;
  files.Add("/t/a.txt", "some words");
  files.Add("/t/b.txt", "other words");
  files.Add("/u/c.js", "more words");
  const SourceSurvey survey = SurveySource({.Kind = TextSource::Folder,
                                            .Together = {{"/u/c.js", SourcePath::Kind::File},
                                                         {"/t", SourcePath::Kind::Folder},
                                                         {"/t/a.txt", SourcePath::Kind::File},
                                                         {"/none.txt", SourcePath::Kind::File}}},
                                           files, yielder);
  EXPECT_EQ(SurveyText(survey, NumberFormat{}),
            "4 files in 2 folders, 31 bytes, ASCII; 1 of them cannot be counted");
}

}  // namespace
}  // namespace korv
