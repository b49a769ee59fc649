#include "sources/documents/odt_text.h"

#include <gtest/gtest.h>

#include <string>

#include "sources/documents/byte_source.h"
#include "sources/questions.h"
#include "tests/sources/docx_builder.h"
#include "tests/sources/other_documents.h"

namespace korv {
namespace {

std::string Content(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document-content>"
         "<office:automatic-styles><text:p>a style</text:p></office:automatic-styles>"
         "<office:body><office:text>" +
         body + "</office:text></office:body></office:document-content>";
}

std::string Odt(const std::string& content) {
  return BuildArchive({{"mimetype", "application/vnd.oasis.opendocument.text", false},
                       {"META-INF/manifest.xml", "<manifest:manifest/>"},
                       {"content.xml", content}});
}

class OdtTest : public OtherDocumentsTest {};

TEST_F(OdtTest, IsALineForEachParagraph) {
  struct Row {
    const char* Name;
    std::string Body;
    const char* Text;
  };
  for (const Row& row : {
           Row{"paragraphs and headings", "<text:h>A title</text:h><text:p>Some words.</text:p>",
               "A title\nSome words.\n"},
           Row{"empty ones", "<text:p/><text:p> </text:p><text:p>one</text:p>", "one\n"},
           Row{"spans part no words", "<text:p>wo<text:span>rd</text:span>s</text:p>", "words\n"},
           Row{"white space", "<text:p>\n  one \t two\n</text:p>", "one two\n"},
           Row{"tabs and several blanks", "<text:p>a<text:tab/>b<text:s text:c=\"3\"/>c</text:p>", "a b c\n"},
           Row{"breaks of the line", "<text:p>one<text:line-break/>two</text:p>", "one\ntwo\n"},
           Row{"lists and tables",
               "<text:list><text:list-item><text:p>item</text:p></text:list-item></text:list>"
               "<table:table><table:table-cell><text:p>cell</text:p></table:table-cell></table:table>",
               "item\ncell\n"},
           Row{"a note behind its paragraph",
               "<text:p>be<text:note><text:note-citation>1</text:note-citation><text:note-body><text:p>the "
               "note</text:p></text:note-body></text:note>fore</text:p><text:p>after</text:p>",
               "before\nthe note\nafter\n"},
           Row{"a box within a box",
               "<text:p>a<draw:text-box><text:p>b<draw:text-box><text:p>c</text:p></draw:text-box>d</text:p>"
               "</draw:text-box>e</text:p>",
               "ae\nc\nbd\n"},
           Row{"what is no text",
               "<text:tracked-changes><text:deletion><text:p>gone</text:p></text:deletion>"
               "</text:tracked-changes><text:p>one<office:annotation><text:p>a remark</text:p>"
               "</office:annotation><text:ruby><text:ruby-base>base</text:ruby-base><text:ruby-text>ruby"
               "</text:ruby-text></text:ruby> two</text:p>",
               "onebase two\n"},
           Row{"text outside of paragraphs", "stray<text:p>one</text:p>stray", "one\n"},
           Row{"characters by number", "<text:p>caf&#233; &amp; th&#xE9;</text:p>", "caf\u00E9 & th\u00E9\n"},
       }) {
    EXPECT_EQ(Open("a.odt", Odt(Content(row.Body))).Text, row.Text) << row.Name;
    EXPECT_EQ(Open("a.fodt", Content(row.Body)).Text, row.Text) << row.Name;
  }
}

TEST_F(OdtTest, IsRefusedWithAReason) {
  const std::string damaged = "is damaged, or not what its name says";
  const std::string illFormed = "is damaged: its XML is not well-formed";
  struct Row {
    const char* Name;
    std::string File;
    std::string Reason;
  };
  for (const Row& row : {
           Row{"no archive", "PK\x03\x04 no archive at all", damaged},
           Row{"no content", BuildArchive({{"mimetype", "x"}}), damaged},
           Row{"content cut off", Odt("<office:body><office:text><text:p>words"), illFormed},
           Row{"no text", Odt("<office:body><office:spreadsheet/></office:body>"),
               "has no text of the kind that was asked for"},
           Row{"encrypted",
               BuildArchive({{"META-INF/manifest.xml",
                              "<manifest:manifest><manifest:file-entry manifest:full-path=\"content.xml\">"
                              "<manifest:encryption-data/></manifest:file-entry></manifest:manifest>"},
                             {"content.xml", "\x01\x02\x03"}}),
               "is encrypted"},
           Row{"an unknown encoding", Odt("<?xml version=\"1.0\" encoding=\"martian\"?><a/>"),
               "is in an encoding that is not known"},
       }) {
    EXPECT_EQ(Open("a.odt", row.File).Refusal, row.Reason) << row.Name;
  }
  EXPECT_EQ(Open("a.odt", "PK\x03\x04 no archive at all").MessageAlone, "/in/a.odt\n" + damaged + ".");
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(OdtTest, CutOffAnywhereIsReadOrRefused) {
  OpenCutOffAnywhere("a.odt", Odt(Content("<text:p>Some words of a text.</text:p>")));
  OpenCutOffAnywhere("a.fodt", Content("<text:p>Some words.</text:p>"));
}

TEST_F(OdtTest, OfManyBytesThatSayNothingIsRefusedUnlessTheUserWantsIt) {
  // 80 MB of blanks pack to less than 100 KB.
  const std::string file = Odt(Content("<text:p>one" + std::string(size_t{80} << 20, ' ') + "two</text:p>"));
  messages.WillAnswer(questions::kPackedDensely, Answer::No);
  EXPECT_EQ(Open("a.odt", file).Refusal, "unpacks to more than 200 times its size");
  ASSERT_EQ(messages.Shown.size(), 1u);
  EXPECT_EQ(messages.Shown[0].Text,
            "/in/a.odt\nunpacks to more than 200 times its size.\nDo you wish to continue?");
  EXPECT_EQ(messages.Shown[0].Title, "Big file");
  EXPECT_EQ(messages.Shown[0].Icon, Icon::Question);
  EXPECT_EQ(messages.Shown[0].Buttons, Buttons::YesNo);
  EXPECT_EQ(messages.Shown[0].DefaultAnswer, Answer::No);
  EXPECT_TRUE(messages.Shown[0].Question == questions::kPackedDensely);
  messages.WillAnswer(questions::kPackedDensely, Answer::Yes);
  EXPECT_EQ(Open("a.odt", file).Text, "one two\n");
  isOneOfMany = true;
  EXPECT_EQ(Open("a.odt", file).Refusal, "unpacks to more than 200 times its size");
  EXPECT_EQ(messages.Shown.size(), 2u) << "a folder run is not held up";
}

TEST_F(OdtTest, WithoutTheChoiceIsRefusedAsEverAndTheMessageSaysHowItCanBeRead) {
  choice.Others = false;
  const std::string file = Odt(Content("<text:p>Some words.</text:p>"));
  EXPECT_EQ(Open("a.odt", file).Refusal, "is not a text file");
  OpenedText opened = OpenTextSource(files, "/in/a.odt", kRunThreshold);
  const auto text = ReaderOfFile("/in/a.odt", opened.Head)
                        .Open("/in/a.odt", std::move(opened), {files, messages, yielder, false, {}});
  ASSERT_FALSE(text);
  EXPECT_EQ(text.Error().MessageAlone(NumberFormat()).Addition,
            "It is an OpenDocument text.  Save it as a Word document (.docx) or as text and count that.\n"
            "Korv reads it with the setting \"Read other documents too\" (korv-count: --documents).");
}

TEST(UnpackLimit, HoldsWhateverTheAnswer) {
  constexpr size_t kMany = size_t{65} << 20;
  UnpackLimit harmless(1, 1000);
  EXPECT_FALSE(harmless.Take(1000));
  EXPECT_EQ(harmless.Take(1), DocumentFault::TooLarge);
  UnpackLimit wellPacked(kMany / 199, uint64_t{1} << 40);
  EXPECT_FALSE(wellPacked.Take(kMany));
  UnpackLimit tooWell(kMany / 201, uint64_t{1} << 40);
  EXPECT_EQ(tooWell.Take(kMany), DocumentFault::TooPacked);
  int asked = 0;
  UnpackLimit confirmed(1, 2 * kMany, [&asked] { return ++asked > 0; });
  EXPECT_FALSE(confirmed.Take(kMany));
  EXPECT_FALSE(confirmed.Take(1));
  EXPECT_EQ(confirmed.Take(kMany), DocumentFault::TooLarge);
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace korv
