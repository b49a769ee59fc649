#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/sources/other_documents.h"

namespace korv {
namespace {

class ElementsTest : public OtherDocumentsTest {};

constexpr const char* kTei =
    "<TEI>\n<teiHeader><title>no</title></teiHeader>\n<text><body>\n<head>A title</head>\n"
    "<p>So<hi>me</hi> words <note>a note</note>here<lb/>and there</p>\n<sp><speaker>ANN</speaker>"
    "<l>One line</l><l>another</l></sp></body></text></TEI>";

TEST_F(ElementsTest, OfTeiAreItsText) {
  const MadeText tei = Open("a.xml", kTei);
  EXPECT_EQ(tei.Text, "A title\nSome words\na note\nhere and there\nANN\nOne line\nanother\n");
  EXPECT_EQ(tei.Unit, PlaceUnit::Line);
  EXPECT_EQ(tei.Marks, (std::vector<TextMark>{{0, 4, false}, {8, 5, false}, {41, 6, false}}));
  EXPECT_EQ(Open("a.tei", kTei).Text, tei.Text);
}

TEST_F(ElementsTest, AreChosenByLists) {
  choice.OnlyElements = "l, head";
  EXPECT_EQ(Open("a.xml", kTei).Text, "A title\nOne line\nanother\n");
  choice.OnlyElements = "sp";
  choice.SkippedElements = "speaker";
  EXPECT_EQ(Open("a.xml", kTei).Text, "One line\nanother\n");
  choice.OnlyElements = "";
  choice.SkippedElements = "text";
  EXPECT_EQ(Open("a.xml", kTei).Text, "no\n");
  choice.SkippedElements = "none";
  EXPECT_EQ(Open("a.xml", kTei).Text.substr(0, 11), "no\nA title\n");
  choice.OnlyElements = "nothing";
  EXPECT_EQ(Open("a.xml", kTei).Refusal, "has no text of the kind that was asked for");
}

TEST_F(ElementsTest, PartWordsOrLinesOrNothing) {
  struct Row {
    const char* Xml;
    const char* Text;
  };
  for (const Row& row :
       {Row{"<a><w>one</w><w>two</w></a>", "one two\n"}, Row{"<a><tei:hi>o</tei:hi>ne</a>", "one\n"},
        Row{"<a><row>one</row><row>two</row></a>", "one\ntwo\n"},
        Row{"<a>one<script>no</script>two</a>", "onetwo\n"},
        Row{"<a><![CDATA[one <two>]]></a>", "one <two>\n"},
        Row{"<a><l>&eacute;t&#233;</l></a>", "\u00E9t\u00E9\n"}})
    EXPECT_EQ(Open("a.xml", row.Xml).Text, row.Text) << row.Xml;
}

TEST_F(ElementsTest, OfXmlThatIsNotWellFormedAreRefused) {
  EXPECT_EQ(Open("a.xml", "<a>one").Refusal, "is damaged: its XML is not well-formed");
  OpenCutOffAnywhere("a.xml", "<a><l>one</l><w>two</w></a>");
  choice.Others = false;
  EXPECT_EQ(Open("a.xml", "<a>one").Text, "<a>one") << "read by the letter as ever";
}

}  // namespace
}  // namespace korv
