#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "sources/docx.h"
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
  const char* about;
  const char* xml;
  const char* text;
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
      {"other entities stay", "<w:t>&quot;&#233;&</w:t>", "&quot;&#233;&"},
      {"a tab element alone is nothing", "<w:p><w:tab/></w:p>", "\r\n"},
      {"a tab between two runs is a blank", "<w:t>a</w:t><w:tab/><w:t>b</w:t>", "a b"},
      {"so are several tabs", "<w:t>a</w:t><w:tab/></w:r><w:r><w:tab w:val=\"left\"/><w:t>b</w:t>", "a b"},
      {"a tab before the first run is nothing", "<w:p><w:tab/><w:t>b</w:t></w:p>", "b\r\n"},
      {"a tab after the last run is nothing", "<w:p><w:t>a</w:t><w:tab/></w:p><w:p><w:t>b</w:t></w:p>",
       "a\r\nb\r\n"},
      {"tab stops are no tabs", "<w:t>a</w:t><w:tabs></w:tabs><w:t>b</w:t>", "ab"},
      {"tables are no text", "<w:tbl><w:tr><w:tc><w:t>a</w:t></w:tc></w:tr></w:tbl>", "a"},
      {"a break breaks the line", "<w:t>a</w:t><w:br/><w:t>b</w:t>", "a\r\nb"},
      {"every break does", "<w:t>a</w:t><w:br w:type=\"page\"/><w:t>b</w:t><w:br />c", "a\r\nb\r\n"},
      {"a carriage return does", "<w:t>a</w:t><w:cr/><w:t>b</w:t>", "a\r\nb"},
      {"names that only begin so do not", "<w:t>a</w:t><w:brx/><w:crx/><w:tabx/><w:t>b</w:t>", "ab"},
      {"a non-breaking hyphen is a hyphen", "<w:t>well</w:t><w:noBreakHyphen/><w:t>known</w:t>",
       "well-known"},
      {"a self-closed run is empty", "<w:t/><w:t xml:space=\"preserve\"/>x<w:t>a</w:t>", "a"},
      {"an empty run is empty", "<w:t></w:t><w:t>a</w:t>", "a"},
      {"deleted text is no run", "<w:delText>a</w:delText><w:instrText>b</w:instrText>", ""},
      {"a quoted sign does not close the tag", "<w:t x=\"a>b\">c</w:t>", "c"},
      {"every line end in a run becomes CR LF", "<w:t>a\nb\rc\r\nd</w:t>", "a\r\nb\r\nc\r\nd"},
      {"UTF-8 passes", "<w:t>caf\xC3\xA9 \xE2\x80\x9Cx\xE2\x80\x9D</w:t>",
       "caf\xC3\xA9 \xE2\x80\x9Cx\xE2\x80\x9D"},
      {"a run without an end is none", "<w:t>a</w:t><w:t>b", "a"},
      {"a tag without an end is none", "<w:t>a</w:t><w:t xml:space=\"pre", "a"},
      {"a lone bracket", "<", ""},
      {"a tag cut off", "<w:t>a</w:t><w:br", "a"},
  };
  for (const TextCase& c : cases) EXPECT_EQ(Text(c.xml), c.text) << c.about;
}

TEST_F(DocxTextTest, StopAsksAndGoesOnAfterNo) {
  yielder.RequestStop();
  EXPECT_EQ(Text(Paragraphs({"one", "two"})), "one\r\ntwo\r\n") << "No is the default";
  EXPECT_EQ(messages.Only().text, "Many different words have been found.\r\nDo you really wish to stop?");
  EXPECT_EQ(messages.Only().title, "Stop");
  EXPECT_EQ(messages.Only().buttons, Buttons::YesNo);
  EXPECT_FALSE(yielder.Stopped()) << "the request is answered";
}

TEST_F(DocxTextTest, StopEndsTheExtractionAfterYes) {
  yielder.RequestStop();
  messages.WillAnswer(Question::StopDocx, Answer::Yes);
  EXPECT_EQ(Text(Paragraphs({"one", "two"})), "");
  EXPECT_TRUE(yielder.Stopped()) << "the run is to stop as well";
  EXPECT_EQ(messages.shown.size(), 1U);
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
  const std::vector<std::string> units = {"<w:t ", "<w:t>", "<w:t \"", "<", "<w:t x='", "<w:t></w:t", "&"};
  for (const std::string& unit : units) {
    std::string xml;
    for (size_t k = 0; k < kRepeats; ++k) xml += unit;
    EXPECT_LE(Text(xml).size(), xml.size());
  }
}

}  // namespace
}  // namespace korv
