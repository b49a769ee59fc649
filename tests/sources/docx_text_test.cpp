#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "sources/questions.h"
#include "sources/read/docx.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

class DocxTextTest : public testing::Test {
 protected:
  std::string Text(std::string_view xml) { return DocxXmlToText(xml, context); }

  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  DocxContext context{files, messages, yielder};
};

struct TextCase {
  const char* About;
  const char* Xml;
  const char* Text;
};

TEST_F(DocxTextTest, TakesTheTextOfTheRuns) {
  const std::vector<TextCase> cases = {
      {"nothing", "", ""},
      {"no run", "<w:p></w:p>", "\r\n"},
      {"one run", "<w:p><w:r><w:t>some words</w:t></w:r></w:p>", "some words\r\n"},
      {"blanks are kept", "<w:t xml:space=\"preserve\"> and </w:t>", " and "},
      {"runs of a paragraph are joined", "<w:p><w:t>wo</w:t></w:r><w:r><w:t>rd</w:t></w:p>", "word\r\n"},
      {"paragraphs are not", "<w:p><w:t>one</w:t></w:p><w:p><w:t>two</w:t></w:p>", "one\r\ntwo\r\n"},
      {"AT&T", "<w:t>AT&amp;T</w:t>", "AT&T"},
      {"less and greater", "<w:t>a &lt;b&gt; c</w:t>", "a <b> c"},
      {"entities are decoded once", "<w:t>&amp;lt; &amp;amp;</w:t>", "&lt; &amp;"},
      {"quotes and apostrophes", "<w:t>l&apos;homme &quot;est&quot;</w:t>", "l'homme \"est\""},
      {"numeric entities", "<w:t>&#233;t&#xe9; &#x1F600;&#0065;</w:t>", "\u00E9t\u00E9 \U0001F600A"},
      {"a decoded sign begins no entity", "<w:t>&#38;lt; &amp;#65; &amp;amp;quot;</w:t>",
       "&lt; &#65; &amp;quot;"},
      {"what names no character stays",
       "<w:t>&#0; &#xD800; &#57343; &#x110000; &#99999999999999999999;</w:t>",
       "&#0; &#xD800; &#57343; &#x110000; &#99999999999999999999;"},
      {"the last characters of their ranges", "<w:t>&#xD7FF;&#xE000;&#x10FFFF;</w:t>",
       "\uD7FF\uE000\U0010FFFF"},
      {"what is no entity stays", "<w:t>& &; &#; &#x; &#xg; &#X41; &#65 &#a; &eacute; &QUOT; &amp</w:t>",
       "& &; &#; &#x; &#xg; &#X41; &#65 &#a; &eacute; &QUOT; &amp"},
      {"a line end by its number is one", "<w:t>a&#10;b&#xD;c</w:t>", "a\r\nb\r\nc"},
      {"a tab element alone is nothing", "<w:p><w:tab/></w:p>", "\r\n"},
      {"a tab between two runs is a blank", "<w:t>a</w:t><w:tab/><w:t>b</w:t>", "a b"},
      {"so are several tabs", "<w:t>a</w:t><w:tab/></w:r><w:r><w:tab w:val=\"left\"/><w:t>b</w:t>", "a b"},
      {"a tab before the first run is nothing", "<w:p><w:tab/><w:t>b</w:t></w:p>", "b\r\n"},
      {"a tab after the last run is nothing", "<w:p><w:t>a</w:t><w:tab/></w:p><w:p><w:t>b</w:t></w:p>",
       "a\r\nb\r\n"},
      {"a tab to a place is a tab", "<w:t>a</w:t><w:ptab w:alignment=\"right\"/><w:t>b</w:t>", "a b"},
      {"tab stops are no tabs", "<w:t>a</w:t><w:tabs></w:tabs><w:t>b</w:t>", "ab"},
      {"tables are no text", "<w:tbl><w:tr><w:tc><w:t>a</w:t></w:tc></w:tr></w:tbl>", "a"},
      {"a break breaks the line", "<w:t>a</w:t><w:br/><w:t>b</w:t>", "a\r\nb"},
      {"every break does", "<w:t>a</w:t><w:br w:type=\"page\"/><w:t>b</w:t><w:br />c", "a\r\nb\r\n"},
      {"a carriage return does", "<w:t>a</w:t><w:cr/><w:t>b</w:t>", "a\r\nb"},
      {"names that only begin so do not", "<w:t>a</w:t><w:brx/><w:crx/><w:tabx/><w:ptabx/><w:px><w:t>b</w:t>",
       "ab"},
      {"a non-breaking hyphen is a hyphen", "<w:t>well</w:t><w:noBreakHyphen/><w:t>known</w:t>",
       "well-known"},
      {"a self-closed run is empty", "<w:t/><w:t xml:space=\"preserve\"/>x<w:t>a</w:t>", "a"},
      {"an empty run is empty", "<w:t></w:t><w:t>a</w:t>", "a"},
      {"deleted text is no run", "<w:delText>a</w:delText><w:instrText>b</w:instrText>", ""},
      {"a quoted sign does not close the tag", "<w:t x=\"a>b\">c</w:t>", "c"},
      {"a paragraph in a paragraph is its own",
       "<w:p><w:t>out</w:t><w:p w:x=\"1\"><w:t>box</w:t></w:p><w:t>side</w:t></w:p>",
       "out\r\nbox\r\nside\r\n"},
      {"every line end in a run becomes CR LF", "<w:t>a\nb\rc\r\nd</w:t>", "a\r\nb\r\nc\r\nd"},
      {"UTF-8 passes", "<w:t>caf\xC3\xA9 \xE2\x80\x9Cx\xE2\x80\x9D</w:t>",
       "caf\xC3\xA9 \xE2\x80\x9Cx\xE2\x80\x9D"},
      {"a run without an end is none", "<w:t>a</w:t><w:t>b", "a"},
      {"a tag without an end is none", "<w:t>a</w:t><w:t xml:space=\"pre", "a"},
      {"a lone bracket", "<", ""},
      {"a tag cut off", "<w:t>a</w:t><w:br", "a"},
  };
  for (const TextCase& c : cases) EXPECT_EQ(Text(c.Xml), c.Text) << c.About;
}

TEST_F(DocxTextTest, PassesOverWhatStandsElsewhereToo) {
  const std::vector<TextCase> cases = {
      {"a text box for older programs",
       "<mc:AlternateContent><mc:Choice Requires=\"wps\"><w:t>box</w:t></mc:Choice>"
       "<mc:Fallback><w:pict><w:t>box</w:t><w:tab/></w:p><w:br/></w:pict></mc:Fallback>"
       "</mc:AlternateContent><w:t>es</w:t>",
       "boxes"},
      {"what was moved away",
       "<w:t>a</w:t><w:moveFrom w:id=\"1\" w:author=\"x>y\"><w:t>b</w:t><w:noBreakHyphen/></w:moveFrom>"
       "<w:moveTo w:id=\"2\"><w:t>c</w:t></w:moveTo>",
       "ac"},
      {"nested ones",
       "<mc:Fallback><w:t>a</w:t><mc:Fallback><w:t>b</w:t></mc:Fallback><w:t>c</w:t></mc:Fallback><w:t>d</"
       "w:t>",
       "d"},
      {"one in the other",
       "<mc:Fallback><w:moveFrom></w:moveFrom><w:t>a</w:t></mc:Fallback><w:t>b</w:t>"
       "<w:moveFrom><mc:Fallback></mc:Fallback><w:t>c</w:t></w:moveFrom><w:t>d</w:t>",
       "bd"},
      {"an unclosed one to the end", "<w:t>a</w:t><mc:Fallback><w:t>b</w:t></w:p><w:t>c</w:t>", "a"},
      {"an unclosed nested one to the end",
       "<w:t>a</w:t><w:moveFrom><w:moveFrom><w:t>b</w:t></w:moveFrom><w:t>c</w:t>", "a"},
      {"a self-closed one is empty", "<mc:Fallback/><w:moveFrom w:id=\"1\" /><w:t>a</w:t>", "a"},
      {"a self-closed one in one counts for nothing",
       "<w:moveFrom><w:moveFrom/><w:t>a</w:t></w:moveFrom><w:t>b</w:t>", "b"},
      {"the ends may have blanks", "<mc:Fallback\n><w:t>a</w:t></mc:Fallback ><w:t>b</w:t>", "b"},
      {"names that only begin so are others",
       "<w:moveFromRangeStart w:id=\"1\"/><w:t>a</w:t><w:moveFromRangeEnd/><mc:Fallbacks><w:t>b</w:t>", "ab"},
      {"names that only begin so do not end it",
       "<w:moveFrom><w:moveFromRangeEnd/></w:moveFromX><w:t>a</w:t></w:moveFrom><w:t>b</w:t>", "b"},
      {"an end without a beginning is nothing", "</mc:Fallback><w:t>a</w:t></w:moveFrom><w:t>b</w:t>", "ab"},
      {"one cut off in its tag", "<w:t>a</w:t><mc:Fallback x=\"", "a"},
  };
  for (const TextCase& c : cases) EXPECT_EQ(Text(c.Xml), c.Text) << c.About;
}

TEST_F(DocxTextTest, StopAsksAndGoesOnAfterNo) {
  yielder.RequestStop();
  EXPECT_EQ(Text(Paragraphs({"one", "two"})), "one\r\ntwo\r\n") << "No is the default";
  EXPECT_EQ(messages.Only().Text, "Many different words have been found.\nDo you really wish to stop?");
  EXPECT_EQ(messages.Only().Title, "Stop");
  EXPECT_EQ(messages.Only().Buttons, Buttons::YesNo);
  EXPECT_FALSE(yielder.Stopped()) << "the request is answered";
}

TEST_F(DocxTextTest, StopEndsTheExtractionAfterYes) {
  yielder.RequestStop();
  messages.WillAnswer(questions::kStopDocx, Answer::Yes);
  EXPECT_EQ(Text(Paragraphs({"one", "two"})), "");
  EXPECT_TRUE(yielder.Stopped()) << "the run is to stop as well";
  EXPECT_EQ(messages.Shown.size(), 1U);
}

TEST_F(DocxTextTest, ShowsProgressForLargeDocumentsOnly) {
  std::vector<std::string> bars;
  const auto progress = [&](const std::string& bar) { bars.push_back(bar); };
  std::string paragraph = Paragraphs({std::string(500, 'a')});
  std::string xml;
  while (xml.size() + paragraph.size() <= 1000000) xml += paragraph;
  DocxXmlToText(xml, context, progress);
  EXPECT_TRUE(bars.empty());
  xml += paragraph;
  DocxXmlToText(xml, context, progress);
  EXPECT_GE(bars.size(), 39U);
  EXPECT_LE(bars.size(), 41U);
}

TEST_F(DocxTextTest, TheBarGrowsFromEmptyToFull) {
  EXPECT_EQ(DocxProgressBar(0, 100), "[>" + std::string(40, ' ') + "]");
  EXPECT_EQ(DocxProgressBar(50, 100), "[" + std::string(20, '-') + ">" + std::string(20, ' ') + "]");
  EXPECT_EQ(DocxProgressBar(100, 100), "[" + std::string(40, '-') + ">]");
}

// Sizes at which anything quadratic would take hours; finishing at all is the assertion.
TEST_F(DocxTextTest, IsLinearInHostileInput) {
  constexpr size_t kRepeats = 500000;
  const std::vector<std::string> units = {
      "<w:t ",         "<w:t>",           "<w:t \"",       "<", "<w:t x='", "<w:t></w:t", "&", "&#1",
      "<mc:Fallback>", "<w:moveFrom x='", "<mc:Fallback/>"};
  for (const std::string& unit : units) {
    std::string xml;
    for (size_t k = 0; k < kRepeats; ++k) xml += unit;
    EXPECT_LE(Text(xml).size(), xml.size());
  }
}

}  // namespace
}  // namespace korv
