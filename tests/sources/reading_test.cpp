// Pages, encodings and documents as a reader sees them, opened as a run opens them.
#include <gtest/gtest.h>

#include <string>

#include "sources/documents/html_text.h"
#include "sources/read/document_readers.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

using namespace std::string_literals;

class ReadingTest : public testing::Test {
 protected:
  /// The text with "/" for line ends and the encoding behind "@"; or why it was refused.
  std::string Open(const std::string& name, const std::string& content) {
    files.Add("/in/" + name, content);
    OpenedText opened = OpenTextSource(files, "/in/" + name, kRunThreshold);
    const DocumentReader& reader = ReaderOfFile("/in/" + name, opened.Head);
    const ReadContext context{files, messages, yielder, false, nullptr, "", DocumentChoice(), reading};
    auto text = reader.Open("/in/" + name, std::move(opened), context);
    if (!text) return "refused: " + std::string(text.Error().SkipReason);
    std::string shown;
    for (const char c : text->Head)
      if (c != '\r') shown += c == '\n' ? '/' : c;
    return shown + (text->EncodingName.empty() ? "" : "@" + text->EncodingName);
  }

  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  ReadingOptions reading;
};

TEST_F(ReadingTest, ByTheLetterEverythingStaysAsItIs) {
  EXPECT_EQ(Open("a.html", "<p>one</p>"), "<p>one</p>");
  EXPECT_EQ(Open("a.txt", "\xFF\xFEo\0n\0e\0"s), "refused: is a Unicode file but not UTF-8 encoded");
  EXPECT_EQ(Open("a.docx", BuildArchive({{"word/document.xml", "<w:p><w:t>one</w:t></w:p>"},
                                         {"word/footnotes.xml", "<w:p><w:t>two</w:t></w:p>"}})),
            "one/");
}

TEST_F(ReadingTest, PagesInTheirEncodings) {
  if (!ReadsHtml()) GTEST_SKIP() << "built without the library";
  reading.ShownMarkup = true;
  struct Case {
    const char* Name;
    std::string Content;
    const char* Text;
  };
  const Case cases[] = {
      {"a.html", "<p>one", "one/@UTF-8"},
      {"b.html", "<p>caf\xC3\xA9", "caf\u00E9/@UTF-8"},
      {"c.html", "<p>caf\xE9 \x93", "caf\u00E9 \u201C/@WINDOWS-1252"},
      {"d.html", "<meta charset=koi8-r><p>\xC1\xC2", "\u0430\u0431/@KOI8-R"},
      {"e.html", "\xFF\xFE<\0p\0>\0o\0n\0e\0"s, "one/@UTF-16LE"},
      {"f.html", "<meta charset=none-such><p>one", "refused: is in an encoding that is not known"},
      {"g.php", "one<?php two(); ?>three", "one three/@UTF-8"},
      {"h.xml", "<a><b>one</b><b>two</b></a>", "one//two/@UTF-8"},
      {"i.xml", "<a><b>one</a>", "refused: is damaged: its XML is not well-formed"},
  };
  for (const Case& c : cases) EXPECT_EQ(Open(c.Name, c.Content), c.Text) << c.Name;
  reading.Encoding = "koi8-r";
  EXPECT_EQ(Open("j.html", "<p>\xC1\xC2"), "\u0430\u0431/@KOI8-R");
}

TEST_F(ReadingTest, TextsInTheEncodingsThatTheyDeclareOrThatAreNamed) {
  reading.DeclaredEncodings = true;
  EXPECT_EQ(Open("a.txt", "\xFF\xFEo\0n\0e\0\n\0"s), "one/@UTF-16LE");
  EXPECT_EQ(Open("b.txt", "one two"), "one two");
  EXPECT_EQ(Open("c.html", "<meta charset=koi8-r>\xC1"), "<meta charset=koi8-r>\u0430@KOI8-R");
  reading = {};
  reading.Encoding = "iso-8859-2";
  EXPECT_EQ(Open("d.txt", "\xB1 one"), "\u0105 one@ISO-8859-2");
  EXPECT_EQ(Open("none.txt", ""), "refused: is zero-length");
}

std::string Document(const std::string& body) {
  return "<w:document xmlns:w='w' xmlns:mc='mc'>" + body + "</w:document>";
}

std::string WithNotes() {
  const auto paragraph = [](const std::string& text) {
    return "<w:p><w:r><w:t>" + text + "</w:t></w:r></w:p>";
  };
  const std::string box =
      "<w:p><w:r><w:t>one </w:t></w:r><w:r><mc:Choice><w:txbxContent>" + paragraph("box") +
      "</w:txbxContent></mc:Choice><mc:Fallback><w:txbxContent>" + paragraph("box") +
      "</w:txbxContent></mc:Fallback></w:r><w:r><w:t>two</w:t><w:tab/><w:t>three</w:t></w:r>"
      "<w:del><w:r><w:delText>gone</w:delText></w:r></w:del></w:p>";
  return BuildArchive(
      {{"word/document.xml", Document(box + paragraph("end"))},
       {"word/_rels/document.xml.rels",
        "<Relationships xmlns='r'><Relationship Type='x/footnotes' Target='footnotes.xml'/>"
        "<Relationship Type='x/endnotes' Target='/word/endnotes.xml'/>"
        "<Relationship Type='x/header' Target='header1.xml'/>"
        "<Relationship Type='x/header' Target='header2.xml'/>"
        "<Relationship Type='x/comments' Target='comments.xml'/></Relationships>"},
       {"word/footnotes.xml", Document("<w:footnote w:type='separator'>" + paragraph("no") +
                                       "</w:footnote><w:footnote>" + paragraph("foot") + "</w:footnote>")},
       {"word/endnotes.xml", Document(paragraph("endnote"))},
       {"word/header1.xml", Document(paragraph("head"))},
       {"word/header2.xml", Document(paragraph("head") + paragraph("second"))},
       {"word/comments.xml", Document(paragraph("no"))}});
}

TEST_F(ReadingTest, DocumentsWithNotesAndBoxes) {
  reading.NotesAndBoxes = true;
  EXPECT_EQ(Open("a.docx", WithNotes()), "one two three/box/end/foot/endnote/head/second/");
  EXPECT_EQ(Open("b.docx", BuildArchive({{"word/document.xml", Document("<w:p><w:t>one</w:t></w:p>")}})),
            "one/");
}

TEST_F(ReadingTest, ADocumentCutOffAnywhereIsReadOrRefused) {
  reading.NotesAndBoxes = true;
  const std::string whole = WithNotes();
  for (size_t size = 1; size < whole.size(); ++size) {
    const std::string text = Open("cut.docx", whole.substr(0, size));
    EXPECT_TRUE(text.starts_with("refused") || size < 10) << size << ": " << text;
  }
}

}  // namespace
}  // namespace korv
