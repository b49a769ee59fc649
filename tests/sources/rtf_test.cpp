#include "sources/documents/rtf_text.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/sources/other_documents.h"

namespace korv {
namespace {

using namespace std::string_literals;

class RtfTest : public OtherDocumentsTest {
 protected:
  std::string TextOf(const std::string& body) { return Open("a.rtf", "{\\rtf1\\ansi " + body + "}").Text; }
};

TEST_F(RtfTest, IsALineForEachParagraph) {
  struct Row {
    const char* Name;
    std::string Body;
    const char* Text;
  };
  for (const Row& row : {
           Row{"paragraphs", "one two\\par three\\par", "one two\nthree\n"},
           Row{"line ends of the file are nothing", "wo\r\nrds\\par\n", "words\n"},
           Row{"an end of a paragraph that is a line end", "one\\\ntwo", "one\ntwo\n"},
           Row{"breaks, pages and cells", "a\\line b\\page c\\cell d\\row e\\sect f", "a\nb\nc\nd\ne\nf\n"},
           Row{"tabs", "one\\tab two\\tab\\par", "one two\n"},
           Row{"groups part no words", "wo{\\b rd}s", "words\n"},
           Row{"signs that are escaped", "a\\\\b \\{c\\}", "a\\b {c}\n"},
           Row{"named signs", "a\\emdash b\\rquote c\\~d\\_e\\-f", "a\u2014b\u2019c\u00A0d\u2011ef\n"},
           Row{"unknown words", "a\\unknownword5 b", "ab\n"},
           Row{"a space ends a word, a second one is text", "a\\b  b", "a b\n"},
           Row{"bytes by number", "caf\\'e9 \\'80", "caf\u00E9 \u20AC\n"},
           Row{"the document's encoding", "\\ansicpg1251 \\'e9", "\u0439\n"},
           Row{"two bytes a character", "\\ansicpg932 \\'93\\'fa", "\u65E5\n"},
           Row{"the encoding of a font",
               "{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset204 Arial Cyr;}}\\f1 \\'e9\\f0 \\'e9",
               "\u0439\u00E9\n"},
           Row{"characters by number", "\\u233?\\uc0\\u8364 x\\u-10179 \\u-8704 ",
               "\u00E9\u20ACx\U0001F600\n"},
           Row{"what older programs show instead", "\\uc2 a\\u233\\'65\\'27b\\uc0\\u233 c",
               "a\u00E9b\u00E9c\n"},
           Row{"half of a character", "a\\u-10179?b", "ab\n"},
           Row{"a footnote behind its paragraph", "be{\\footnote the\\par note}fore\\par after",
               "before\nthe\nnote\nafter\n"},
           Row{"a text box",
               "a{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}{\\shptxt in it\\par}}{\\shprslt no}}b\\par c",
               "ab\nin it\nc\n"},
           Row{"what is no text",
               "{\\info{\\title T}}{\\stylesheet{s1 Style;}}{\\*\\generator G}{\\header H}{\\pict 89504e47}"
               "{\\*\\unknown U}{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt link}}{\\v hidden}{\\deleted "
               "gone}"
               "{\\annotation N}one",
               "linkone\n"},
           Row{"bytes of a picture", "a{\\pict\\bin5 }{}}\\}b", "ab\n"},
           Row{"a word amid a group names no destination", "{x\\header y}", "xy\n"},
       })
    EXPECT_EQ(TextOf(row.Body), row.Text) << row.Name;
}

TEST_F(RtfTest, IsRefusedWithAReason) {
  const std::string damaged = "is damaged, or not what its name says";
  EXPECT_EQ(Open("a.rtf", "{\\rtf1 words").Refusal, damaged);
  EXPECT_EQ(Open("a.rtf", "{\\rtf1 {\\pict\\bin999999999 }").Refusal, damaged);
  std::string deep = "{\\rtf1 ";
  for (size_t k = 0; k < kMostRtfDepth; ++k) deep += '{';
  EXPECT_EQ(Open("a.rtf", deep).Refusal, "is nested too deeply");
  EXPECT_EQ(Open("a.rtf", "{\\rtf1 words} and what follows").Text, "words\n");
  EXPECT_EQ(Open("a.rtf", "{\\rtf1 words}}}}").Text, "words\n");
}

TEST_F(RtfTest, CutOffAnywhereIsReadOrRefused) {
  OpenCutOffAnywhere(
      "a.rtf",
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Arial;}}\\f0 caf\\'e9 \\u8364? {\\footnote n} "
      "{\\pict\\bin3 abc}\\par words}");
}

TEST_F(RtfTest, WithoutTheChoiceIsRefusedAsEver) {
  choice.Others = false;
  EXPECT_EQ(Open("a.rtf", "{\\rtf1 some words}").Refusal, "is an RTF file");
}

}  // namespace
}  // namespace korv
