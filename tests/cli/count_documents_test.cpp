#include "cli/options.h"
#include "tests/cli/count_program_world.h"

namespace korv {
namespace {

using testing::HasSubstr;

constexpr const char* kSubtitles =
    "1\n00:01 --> 00:02\nThe big cat\n\n2\n00:03 --> 00:04\nsat there.\n\n3\n00:05 --> 00:06\nThe big cat\n";
constexpr const char* kBook =
    "<office:document><office:body><office:text><text:p>The big cat</text:p><text:p>and the big cat</text:p>"
    "</office:text></office:body></office:document>";

TEST_F(CountProgramTest, ReadsOtherDocumentsWhereThatIsAskedFor) {
  files.Add("/a.srt", kSubtitles);
  files.Add("/a.fodt", kBook);
  EXPECT_EQ(Count({"/a.srt", "--documents", "--min-words", "2", "--quiet"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("There is one phrase "));
  EXPECT_THAT(out.str(), HasSubstr("2  the big cat\n"));
  EXPECT_EQ(Count({"/a.fodt", "--documents", "--min-words", "2"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("2  the big cat\n"));
  EXPECT_EQ(err.str(), "7 words read, none dropped; UTF-8\n");
}

TEST_F(CountProgramTest, ContextsNameTheCueInPlaceOfTheLine) {
  files.Add("/a.srt", kSubtitles);
  EXPECT_EQ(Count({"/a.srt", "--documents", "--context-of", "big cat", "--quiet"}), kExitReport);
  EXPECT_EQ(out.str(),
            "file\tline\tcolumn\tleft\tphrase\tright\n"
            "/a.srt\t1\t5\tThe\tbig cat\tsat there. The big cat\n"
            "/a.srt\t3\t5\tThe big cat sat there. The\tbig cat\t\n");
}

TEST_F(CountProgramTest, PhrasesEndWhereADocumentSaysSoAndContextsAreStillFound) {
  // Many segments, so that reading again begins amid the text.
  std::string memory = "<tmx><header srclang=\"en\"/><body>";
  for (int k = 0; k < 2000; ++k)
    memory +=
        "<tu><tuv xml:lang=\"en\"><seg>one two</seg></tuv><tuv xml:lang=\"de\"><seg>drei</seg></tuv></tu>";
  memory += "<tu><tuv xml:lang=\"en\"><seg>the big cat</seg></tuv></tu></body></tmx>";
  files.Add("/a.tmx", memory);
  EXPECT_EQ(Count({"/a.tmx", "--documents", "--min-words", "2", "--quiet"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("There is one phrase "));
  EXPECT_THAT(out.str(), HasSubstr("2000  one two\n"));
  EXPECT_EQ(Count({"/a.tmx", "--documents", "--context-of", "big cat", "--contexts", "9", "--quiet"}),
            kExitReport);
  EXPECT_EQ(out.str(),
            "file\tline\tcolumn\tleft\tphrase\tright\n"
            "/a.tmx\t2001\t5\ttwo the\tbig cat\t\n");
  EXPECT_EQ(Count({"/a.tmx", "--documents", "--segments", "de", "--min-words", "2", "--min-frequency", "1"}),
            kExitReport);
  EXPECT_THAT(err.str(), HasSubstr("2,000 words read"));
}

TEST_F(CountProgramTest, AFolderHoldsDocumentsThatAreElseRefused) {
  files.Add("/t/a.pdf", "%PDF-1.7\n" + std::string(100, '\x01'));
  files.Add("/t/b.txt", "some words");
  EXPECT_EQ(Count({"/t", "--min-frequency", "1"}), kExitReport);
  EXPECT_EQ(err.str().find("a.pdf"), std::string::npos) << "by its name it is no file to be counted";
  EXPECT_EQ(Count({"/t", "--min-frequency", "1", "--documents"}), kExitReport);
  EXPECT_THAT(err.str(),
              HasSubstr("a.pdf: is a PDF document, which needs the program pdftotext (Debian package "
                        "poppler-utils)"));
}

TEST_F(CountProgramTest, WithoutTheOptionDocumentsAreReadAsEver) {
  files.Add("/a.srt", kSubtitles);
  EXPECT_EQ(Count({"/a.srt", "--min-words", "2", "--allow", "hyphens,numerals", "--min-frequency", "1"}),
            kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("the big cat sat"));
  EXPECT_THAT(err.str(), HasSubstr("ASCII"));
}

}  // namespace
}  // namespace korv
