#include "sources/read/document_readers.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "sources/questions.h"
#include "sources/read/docx.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

class DocumentReadersTest : public testing::Test {
 protected:
  Expected<DocumentText, DocumentRefusal> Open(const char* path, const std::string& content) {
    files.Add(path, content);
    OpenedText opened = OpenTextSource(files, path, kRunThreshold);
    const DocumentReader& reader = ReaderOfFile(path, opened.Head);
    return reader.Open(path, std::move(opened), {files, messages, yielder, isOneOfMany, {}});
  }

  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  bool isOneOfMany = false;
};

std::string Archive() {
  return BuildDocx(Paragraphs({"some words", "more words"}));
}

TEST_F(DocumentReadersTest, KnowTheirFilesByNameAndBeginning) {
  const std::string archive = Archive();
  struct Row {
    const char* Path;
    std::string Head;
    const char* LikeName;  ///< A file that the same reader reads.
  };
  for (const Row& row :
       {Row{"/a.txt", "words", "/x.txt"}, Row{"/a", "words", "/x.txt"}, Row{"/a.csv", "words", "/x.txt"},
        Row{"/a.h", "words", "/x.txt"}, Row{"/a.HTM", "words", "/x.html"},
        Row{"/a.xhtml", "words", "/x.html"}, Row{"/a.xml", "words", "/x.html"},
        Row{"/a.php", "words", "/x.html"}, Row{"/a.c", "words", "/x.cpp"}, Row{"/a.DocX", archive, "/x.docx"},
        Row{"/a.docx", "text, not an archive", "/x.txt"}, Row{"/a.docx", "PK1234567", "/x.txt"},
        Row{"/a.txt", archive, "/x.txt"}})
    EXPECT_EQ(&ReaderOfFile(row.Path, row.Head), &ReaderOfName(row.LikeName)) << row.Path;
}

TEST_F(DocumentReadersTest, HandOverAFileThatIsText) {
  struct Row {
    const char* Path;
    MarkupLanguage Language;
  };
  for (const Row& row : {Row{"/a.txt", MarkupLanguage::None},
                         {"/a.html", MarkupLanguage::Html},
                         {"/a.php", MarkupLanguage::Php},
                         {"/a.c", MarkupLanguage::C}}) {
    auto text = Open(row.Path, "some words\n");
    ASSERT_TRUE(text) << row.Path;
    EXPECT_EQ(text->Head, "some words\n");
    EXPECT_NE(text->Rest, nullptr);
    EXPECT_FALSE(text->Encoding) << "the user decides";
    EXPECT_EQ(text->Facts.Code, TextFileCode::UnixText);
    EXPECT_TRUE(text->Markers.Language == row.Language && MarkersOfFile(row.Path).Language == row.Language);
    EXPECT_FALSE(text->Origin.IsDocument);
    EXPECT_EQ(text->Origin.Size, 11u);
  }
}

TEST_F(DocumentReadersTest, ExtractTheTextOfADocument) {
  auto text = Open("/a.docx", Archive());
  ASSERT_TRUE(text);
  EXPECT_EQ(text->Head, "some words\r\nmore words\r\n");
  EXPECT_EQ(text->Rest, nullptr);
  EXPECT_EQ(text->Encoding, TextEncoding::Utf8);
  EXPECT_TRUE(text->Origin.IsDocument);
  EXPECT_EQ(text->Origin.Size, Archive().size());
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(DocumentReadersTest, SayWhyTheyRefuseAFile) {
  struct Row {
    const char* Path;
    std::string Content;
    const char* Alone;
    const char* Once;
    const char* SkipReason;
  };
  for (const Row& row :
       {Row{"/a.txt", "", "This is a zero-length file.", "", "is zero-length"},
        Row{"/a.html", "abc", "File /a.html\ncontains only from 1 to 4 bytes.", "",
            "contains only from 1 to 4 bytes"},
        Row{"/a.c", "{\\rtf1 words", "File /a.c\nis an RTF file.", "", "is an RTF file"},
        Row{"/a.docx", Archive().substr(0, 200), "/a.docx\nis not a readable .docx file.",
            "Not a readable .docx file when processing a.docx", "is not a readable .docx file"}}) {
    const auto text = Open(row.Path, row.Content);
    ASSERT_FALSE(text) << row.Path;
    EXPECT_EQ(text.Error().MessageAlone({}).Text, row.Alone);
    EXPECT_EQ(text.Error().MessageOnce.Text, row.Once);
    EXPECT_EQ(text.Error().SkipReason, row.SkipReason);
  }
  EXPECT_TRUE(messages.Shown.empty()) << "whoever asked for the document tells";
}

TEST_F(DocumentReadersTest, AskAboutALargeDocumentOnlyWhereItIsAlone) {
  std::string xml = Paragraphs({"the first words"});
  xml.append(static_cast<size_t>(kLargeDocxBytes) + 1 - xml.size(), ' ');
  messages.WillAnswer(questions::kLargeDocx, Answer::No);
  for (const bool many : {false, true}) {
    isOneOfMany = many;
    messages.Forget();
    const auto text = Open("/a.docx", BuildDocx(xml));
    EXPECT_EQ(text.HasValue(), many);
    EXPECT_EQ(messages.Shown.empty(), many);
  }
}

}  // namespace
}  // namespace korv
