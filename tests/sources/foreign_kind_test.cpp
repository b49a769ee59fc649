#include "sources/detect/foreign_kind.h"

#include <gtest/gtest.h>

#include <string>

namespace korv {
namespace {

TEST(ForeignKindAdvice, TellsWhatAFileIsByItsBeginning) {
  using namespace std::string_literals;
  struct Case {
    const char* Name;
    std::string Head;
    const char* Begins;  ///< Of the advice.
  };
  const Case cases[] = {
      {"a PDF", "%PDF-1.7\n%\xE2\xE3", "It is a PDF document."},
      {"an old .doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0"s, "It is a document of an old office program"},
      {"RTF", "{\\rtf1\\ansi", "Open it in a word processor"},
      {"UTF-16, little end first", "\xFF\xFEt\0e\0"s, "It is text in UTF-16 or UTF-32."},
      {"UTF-16, big end first", "\xFE\xFF\0t\0e"s, "It is text in UTF-16 or UTF-32."},
      {"UTF-32, big end first", "\0\0\xFE\xFF"s, "It is text in UTF-16 or UTF-32."},
      {"UTF-16 without a signature, little end first", "T\0e\0x\0t\0"s, "It is text in UTF-16 or UTF-32."},
      {"UTF-16 without a signature, big end first", "\0T\0e\0x\0t"s, "It is text in UTF-16 or UTF-32."},
      {"a kept run", "KORVRUN\x1A\x01", "It is a kept run."},
      {"gzip", "\x1F\x8B\x08", "It is a packed file."},
      {"bzip2", "BZh91AY", "It is a packed file."},
      {"xz",
       "\xFD"
       "7zXZ\0\0"s,
       "It is a packed file."},
      {"zstd", "\x28\xB5\x2F\xFD", "It is a packed file."},
      {"7z", "7z\xBC\xAF\x27\x1C", "It is a packed file."},
      {"rar", "Rar!\x1A\x07\x01", "It is a packed file."},
      {"PNG", "\x89PNG\r\n\x1A\n", "It is a picture."},
      {"JPEG", "\xFF\xD8\xFF\xE0", "It is a picture."},
      {"GIF", "GIF89a", "It is a picture."},
      {"TIFF, little end first", "II*\0"s, "It is a picture."},
      {"TIFF, big end first", "MM\0*"s, "It is a picture."},
      {"a zip archive", "PK\x03\x04....chapters/one.txt", "It is a zip archive."},
      {"a .docx under another name", "PK\x03\x04....word/document.xml", "It is a Word document."},
      {"an e-book", "PK\x03\x04....mimetypeapplication/epub+zip", "It is an e-book."},
      {"an OpenDocument text", "PK\x03\x04....mimetypeapplication/vnd.oasis.opendocument.text",
       "It is an OpenDocument text."},
      {"an OpenDocument sheet", "PK\x03\x04....mimetypeapplication/vnd.oasis.opendocument.spreadsheet",
       "It is an OpenDocument file without running text."},
      {"a spreadsheet", "PK\x03\x04....xl/workbook.xml", "It is a spreadsheet."},
      {"a presentation", "PK\x03\x04....ppt/slides", "It is a presentation."},
  };
  for (const Case& c : cases) EXPECT_EQ(ForeignKindAdvice(c.Head).rfind(c.Begins, 0), 0u) << c.Name;
}

TEST(ForeignKindAdvice, TellsOfAListHowTheWordsMustBeSaved) {
  constexpr const char* kSave = "Save the words as a text file (.txt) with one entry a line.";
  EXPECT_EQ(ForeignListAdvice("PK\x03\x04....word/document.xml"),
            std::string("It is a Word document.  ") + kSave);
  EXPECT_EQ(ForeignListAdvice("%PDF-1.7"), std::string("It is a PDF document.  ") + kSave);
  EXPECT_EQ(ForeignListAdvice("{\\rtf1"), kSave);
  EXPECT_EQ(ForeignListAdvice("\xFF\xFEt"),
            "It is text in UTF-16 or UTF-32.  Open it in an editor and save it with the encoding UTF-8.");
  EXPECT_EQ(ForeignListAdvice("text"), "");
}

TEST(ForeignKindAdvice, TakesNoProgramForWideText) {
  using namespace std::string_literals;
  for (const std::string& head : {"\x7F"
                                  "ELF\0\0\1\0\0\0x\0"s,
                                  "a\0bcdefghij"s, "\0\0\0\0"s, "\0"s})
    EXPECT_EQ(ForeignKindAdvice(head), "");
}

TEST(ForeignKindAdvice, SaysNothingOfWhatItDoesNotKnow) {
  for (const char* head : {"", "%", "%PD", "PK", "text", " %PDF-1.7", "\x01\x02\x03", "\xFF"})
    EXPECT_EQ(ForeignKindAdvice(head), "") << head;
}

}  // namespace
}  // namespace korv
