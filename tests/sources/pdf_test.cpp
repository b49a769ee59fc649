#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "sources/documents/pdf_text.h"
#include "tests/sources/other_documents.h"

namespace korv {
namespace {

/// What a program prints that then fails, or not.
class Printed final : public InputFile {
 public:
  Printed(std::string text, bool fails) : text_(std::move(text)), fails_(fails) {}
  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    const size_t size = std::min(buffer.size(), text_.size());
    std::copy_n(text_.data(), size, buffer.data());
    text_.erase(0, size);
    if (size == 0 && fails_) return FileError{};
    return size;
  }
  uint64_t Size() const override { return 0; }

 private:
  std::string text_;
  bool fails_;
};

std::string Pages(const std::string& pages) {
  ExtractedText text;
  AddPages(pages, text);
  return text.Text();
}

TEST(PdfText, JoinsWordsThatAHyphenPartsAtTheEndOfALine) {
  struct Row {
    const char* Name;
    const char* Pages;
    const char* Text;
  };
  for (const Row& row : {
           Row{"as one word", "an exam-\nple of it\n", "an example\n of it\n"},
           Row{"a real hyphen, which occurs elsewhere", "a well-\nknown one\nWell-known too\n",
               "a well-known\n one\nWell-known too\n"},
           Row{"both forms elsewhere", "a re-\ncover\nrecover re-cover\n", "a recover\nrecover re-cover\n"},
           Row{"an upper-case letter goes on no word", "Anglo-\nSaxon\n", "Anglo-\nSaxon\n"},
           Row{"a digit neither", "page 3-\nand\n", "page 3-\nand\n"},
           Row{"a dash", "one -\ntwo\n", "one -\ntwo\n"},
           Row{"twice in a row", "con-\nsti-\ntution it\n", "constitution\n it\n"},
           Row{"letters beyond ASCII", "\u00FCber-\n\u00E4ndert es\n", "\u00FCber\u00E4ndert\n es\n"},
           Row{"over the end of a page", "an exam-\fple of it\n", "an example\n of it\n"},
           Row{"a compound, with the sign that follows",
               "l'arri\u00E8re-\ngrand-m\u00E8re. Elle\narri\u00E8re-grand\n",
               "l'arri\u00E8re-grand-m\u00E8re.\n Elle\narri\u00E8re-grand\n"},
           Row{"with an apostrophe", "au-\njourd'hui il\n", "aujourd'hui\n il\n"},
           Row{"all of the next line", "exam-\nple.\nMore\n", "example.\nMore\n"},
           Row{"at the end of the text", "an exam-", "an exam-\n"},
       })
    EXPECT_EQ(Pages(row.Pages), row.Text) << row.Name;
}

TEST(PdfText, LeavesOutRunningHeads) {
  EXPECT_EQ(Pages("The Book 1\none\n\fThe Book 2\ntwo\n\fThe Book 3\nthree\n\f"), "one\ntwo\nthree\n");
  EXPECT_EQ(Pages("one\n\n- 8 -\n\ftwo\n- 9 -\n\fthree\n- 10 -\n"), "one\ntwo\nthree\n");
  EXPECT_EQ(Pages("Same\none\n\fSame\ntwo\n"), "Same\none\nSame\ntwo\n") << "of two pages nobody knows";
  EXPECT_EQ(Pages("Same\none\n\fSame\ntwo\n\fother\nthree\n\fother\nfour\n"),
            "Same\none\nSame\ntwo\nother\nthree\nother\nfour\n")
      << "on half of the pages only";
  EXPECT_EQ(Pages("a\nb\nSame\nx\ny\n\fc\nd\nSame\nu\nv\n\fe\nf\nSame\ns\nt\n"),
            "a\nb\nSame\nx\ny\nc\nd\nSame\nu\nv\ne\nf\nSame\ns\nt\n")
      << "amid the page";
}

TEST(PdfText, MarksPages) {
  ExtractedText text;
  AddPages("one\n\f\ftwo\n\f", text);
  EXPECT_EQ(text.Text(), "one\ntwo\n");
  EXPECT_EQ(text.Marks(), (std::vector<TextMark>{{0, 1, false}, {4, 3, true}}));
}

class PdfTest : public OtherDocumentsTest {
 protected:
  void WillPrint(const std::string& text, bool fails = false) {
    files.RunProgram = [=, this](const std::string& program,
                                 const std::vector<std::filesystem::path>& arguments)
        -> Expected<std::unique_ptr<InputFile>, FileError> {
      called = program;
      for (const auto& argument : arguments) called += " " + argument.generic_string();
      return std::unique_ptr<InputFile>(std::make_unique<Printed>(text, fails));
    };
  }
  std::string called;
};

/// What the program prints of pages of lines of words.
std::string Layout(const std::vector<std::vector<std::string>>& pages) {
  std::string xml = "<html><head><title>no text</title></head><body><doc>\n";
  for (const auto& page : pages) {
    xml += "<page width=\"1\">\n<flow><block>";
    for (const std::string& line : page) {
      xml += "<line xMin=\"1\">\n<word>";
      for (const char c : line) xml += c == ' ' ? std::string("</word>\n<word>") : std::string(1, c);
      xml += "</word>\n</line>\n";
    }
    xml += "</block></flow></page>";
  }
  return xml + "</doc></body></html>";
}

TEST_F(PdfTest, IsWhatTheProgramTakesOutOfIt) {
  WillPrint(Layout({{"one page", "of well-", "known words"}, {"another well-known one"}}));
  const MadeText document = Open("a.pdf", "%PDF-1.7 and so on");
  EXPECT_EQ(called, "pdftotext -enc UTF-8 -eol unix -bbox-layout /in/a.pdf -");
  EXPECT_EQ(document.Text, "one page\nof well-known\n words\nanother well-known one\n");
}

TEST_F(PdfTest, IsThePlainTextWhereTheProgramWritesNoWellFormedXml) {
  WillPrint("one page\n\fan\x01other\n\f");
  const MadeText document = Open("a.pdf", "%PDF-1.7 and so on");
  EXPECT_EQ(called, "pdftotext -enc UTF-8 -eol unix /in/a.pdf -");
  EXPECT_EQ(document.Text, "one page\nan\x01other\n");
  EXPECT_EQ(document.Unit, PlaceUnit::Page);
}

TEST_F(PdfTest, IsRefusedWithAReason) {
  EXPECT_EQ(Open("a.pdf", "%PDF-1.7").Refusal,
            "is a PDF document, which needs the program pdftotext (Debian package poppler-utils)");
  WillPrint("some words", true);
  EXPECT_EQ(Open("a.pdf", "%PDF-1.7").Refusal, "could not be read by the program pdftotext");
  EXPECT_EQ(Open("a.pdf", "%PDF-1.7" + std::string(200000, ' ') + "/Encrypt 5 0 R").Refusal, "is encrypted");
  WillPrint("\f \n\f");
  EXPECT_EQ(Open("a.pdf", "%PDF-1.7").Refusal, "has no text, perhaps only pictures of its pages");
  EXPECT_EQ(Open("a.pdf", "words that are no PDF").Text, "words that are no PDF") << "is a text";
}

TEST_F(PdfTest, OfTooMuchTextIsRefused) {
  class Endless final : public InputFile {
    Expected<size_t, FileError> Read(std::span<char> buffer) override {
      std::fill(buffer.begin(), buffer.end(), 'a');
      return buffer.size();
    }
    uint64_t Size() const override { return 0; }
  };
  files.RunProgram = [](const std::string&, const auto&) -> Expected<std::unique_ptr<InputFile>, FileError> {
    return std::unique_ptr<InputFile>(std::make_unique<Endless>());
  };
  EXPECT_EQ(Open("a.pdf", "%PDF-1.7").Refusal, "is too large");
}

}  // namespace
}  // namespace korv
