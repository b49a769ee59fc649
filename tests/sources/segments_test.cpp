#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/documents/segment_choice.h"
#include "tests/sources/other_documents.h"

namespace korv {
namespace {

class SegmentsTest : public OtherDocumentsTest {
 protected:
  std::string TextOf(const std::string& name, const std::string& content, const char* segments) {
    choice.Segments = segments;
    const MadeText document = Open(name, content);
    return document.Refusal.empty() ? document.Text : document.Refusal;
  }
};

constexpr const char* kNone = "has no text of the kind that was asked for";

TEST_F(SegmentsTest, OfTmxAreThoseOfTheLanguage) {
  const std::string unit =
      "<tu><tuv xml:lang=\"de-DE\"><seg>ein <bpt i=\"1\">&lt;b&gt;</bpt>Wo<ph/>rt<ept i=\"1\"/></seg></tuv>"
      "<tuv xml:lang=\"EN\"><seg>a <hi>word</hi></seg></tuv><tuv xml:lang=\"fr\"><seg>un mot</seg></tuv></tu>"
      "<tu srclang=\"fr\"><prop>no</prop><tuv lang=\"en\"><seg>two</seg></tuv><tuv "
      "lang=\"fr\"><seg>deux</seg>"
      "</tuv></tu>";
  const auto tmx = [&unit](const char* source) {
    return std::string("<tmx><header srclang=\"") + source + "\"/><body>" + unit + "</body></tmx>";
  };
  EXPECT_EQ(TextOf("a.tmx", tmx("en"), ""), "a word\ndeux\n");
  EXPECT_EQ(TextOf("a.tmx", tmx("en-GB"), "source"), "a word\ndeux\n");
  EXPECT_EQ(TextOf("a.tmx", tmx("en"), "target"), "ein Wort\nun mot\ntwo\n");
  EXPECT_EQ(TextOf("a.tmx", tmx("en"), "de"), "ein Wort\n");
  EXPECT_EQ(TextOf("a.tmx", tmx("en"), "fr"), "un mot\ndeux\n");
  EXPECT_EQ(TextOf("a.tmx", tmx("*all*"), "source"), "ein Wort\ndeux\n");
  EXPECT_EQ(TextOf("a.tmx", tmx("en"), "es"), kNone);
  choice.Segments = "fr";
  const MadeText document = Open("a.tmx", tmx("en"));
  EXPECT_EQ(document.Marks, (std::vector<TextMark>{{0, 1, false}, {7, 2, true}}));
  EXPECT_EQ(document.Unit, PlaceUnit::Segment);
}

TEST_F(SegmentsTest, OfXliffAreSourcesOrTargets) {
  const std::string older =
      "<xliff version=\"1.2\"><file source-language=\"en\" target-language=\"de\"><header><note>no</note>"
      "</header><body><trans-unit id=\"1\"><source>a <g id=\"1\">wo</g>rd<x id=\"2\"/></source><seg-source>"
      "<mrk>a word</mrk></seg-source><target>ein <bpt id=\"1\">{b}</bpt>Wort</target><alt-trans><source>no"
      "</source><target>nein</target></alt-trans></trans-unit><trans-unit><source>two</source></trans-unit>"
      "</body></file></xliff>";
  EXPECT_EQ(TextOf("a.xlf", older, "source"), "a word\ntwo\n");
  EXPECT_EQ(TextOf("a.xliff", older, "target"), "ein Wort\n");
  EXPECT_EQ(TextOf("a.xlf", older, "DE"), "ein Wort\n");
  EXPECT_EQ(TextOf("a.xlf", older, "it"), kNone);
  const std::string newer =
      "<xliff version=\"2.0\" srcLang=\"en\" trgLang=\"pt-BR\"><file><unit "
      "id=\"1\"><notes><note>no</note></notes>"
      "<originalData><data id=\"d\">b</data></originalData><segment><source>a <pc id=\"1\">wo</pc>rd<ph "
      "id=\"2\"/>"
      "</source><target>uma palavra</target></segment><ignorable><source> no "
      "</source></ignorable></unit></file>"
      "</xliff>";
  EXPECT_EQ(TextOf("a.xlf", newer, "source"), "a word\n");
  EXPECT_EQ(TextOf("a.xlf", newer, "pt"), "uma palavra\n");
}

TEST_F(SegmentsTest, OfPoAreMessagesOrWhatStandsForThem) {
  const std::string po =
      "# a remark\nmsgid \"\"\nmsgstr \"\"\n\"Language: de\\n\"\n\"Content-Type: text/plain; "
      "charset=UTF-8\\n\"\n\n"
      "#: file.c:1\n#, fuzzy\nmsgctxt \"menu\"\nmsgid \"One\"\n\" word\\n\"\nmsgstr \"Ein \\\"Wort\\\"\"\n\n"
      "msgid \"file\"\nmsgid_plural \"files\"\nmsgstr[0] \"Datei\"\nmsgstr[1] \"Dateien\"\n"
      "msgctxt \"c\"\nmsgid \"last\"\nmsgstr \"\"\n\n#~ msgid \"old\"\n#~ msgstr \"alt\"\n";
  EXPECT_EQ(TextOf("a.po", po, "source"), "One word\nfile\nfiles\nlast\n");
  EXPECT_EQ(TextOf("a.po", po, "target"), "Ein \"Wort\"\nDatei\nDateien\n");
  EXPECT_EQ(TextOf("a.po", po, "de"), "Ein \"Wort\"\nDatei\nDateien\n");
  EXPECT_EQ(TextOf("a.po", po, "fr"), kNone);
  EXPECT_EQ(TextOf("a.pot", po, ""), "One word\nfile\nfiles\nlast\n");
  choice.Segments = "source";
  EXPECT_EQ(Open("a.po", po).Marks,
            (std::vector<TextMark>{{0, 1, false}, {9, 2, true}, {14, 2, true}, {20, 3, true}}));
  const std::string old =
      "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=ISO-8859-1\\n\"\n\n"
      "msgid \"a\"\nmsgstr \"caf\xE9\"\n";
  EXPECT_EQ(TextOf("a.po", old, "target"), "caf\u00E9\n");
}

TEST_F(SegmentsTest, OfDamagedFilesAreRefused) {
  EXPECT_EQ(Open("a.po", "some words\n").Refusal, "is damaged, or not what its name says");
  EXPECT_EQ(Open("a.po", "\"words\"\n").Refusal, "is damaged, or not what its name says");
  EXPECT_EQ(Open("a.po", "msgid \"words\n").Refusal, "is damaged, or not what its name says");
  EXPECT_EQ(Open("a.tmx", "<tmx><body>").Refusal, "is damaged: its XML is not well-formed");
  EXPECT_EQ(Open("a.xlf", "<xliff/>").Refusal, kNone);
  EXPECT_EQ(Open("a.po", "msgid \"\"\nmsgstr \"charset=martian\\n\"\n").Refusal,
            "is in an encoding that is not known");
  OpenCutOffAnywhere("a.po", "msgid \"\"\nmsgstr \"Language: de\\n\"\n\nmsgid \"a\\tb\"\nmsgstr[0] \"c\"\n");
  OpenCutOffAnywhere("a.tmx", "<tmx><tu><tuv><seg>a<ph>b</ph></seg></tuv></tu></tmx>");
  OpenCutOffAnywhere("a.xlf", "<xliff><trans-unit><source>a<x/></source></trans-unit></xliff>");
}

TEST(SegmentChoice, TakesKindsOfALanguage) {
  EXPECT_TRUE(IsLanguage("pt-BR", "pt"));
  EXPECT_TRUE(IsLanguage("PT_br", "pt-BR"));
  EXPECT_TRUE(IsLanguage("de", "DE"));
  EXPECT_FALSE(IsLanguage("pt", "pt-BR"));
  EXPECT_FALSE(IsLanguage("ptx", "pt"));
  EXPECT_FALSE(IsLanguage("pt", ""));
}

}  // namespace
}  // namespace korv
