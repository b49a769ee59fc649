#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/documents/zip_path.h"
#include "tests/sources/docx_builder.h"
#include "tests/sources/other_documents.h"

namespace korv {
namespace {

constexpr const char* kContainer =
    "<container><rootfiles><rootfile full-path=\"OEBPS/book.opf\" "
    "media-type=\"application/oebps-package+xml\"/></rootfiles></container>";

std::string Page(const std::string& body) {
  return "<html xmlns=\"http://www.w3.org/1999/xhtml\"><head><title>no text</title></head><body>" + body +
         "</body></html>";
}

/// A book of these pages, in this order.
std::vector<DocxPart> Parts(const std::vector<std::string>& bodies) {
  std::string items;
  std::string spine;
  std::vector<DocxPart> parts = {{"mimetype", "application/epub+zip", false},
                                 {"META-INF/container.xml", kContainer}};
  for (size_t k = 0; k < bodies.size(); ++k) {
    const std::string id = "c" + std::to_string(k);
    items += "<item id=\"" + id + "\" href=\"text/" + id + ".xhtml\" media-type=\"application/xhtml+xml\"/>";
    spine += "<itemref idref=\"" + id + "\"/>";
    parts.push_back({"OEBPS/text/" + id + ".xhtml", Page(bodies[k])});
  }
  parts.push_back({"OEBPS/book.opf",
                   "<package><manifest>" + items + "</manifest><spine>" + spine + "</spine></package>"});
  return parts;
}

class EpubTest : public OtherDocumentsTest {
 protected:
  MadeText OpenBook(const std::vector<DocxPart>& parts) { return Open("a.epub", BuildArchive(parts)); }
};

TEST_F(EpubTest, IsItsChaptersInReadingOrder) {
  std::vector<DocxPart> parts = Parts({"<h1>One</h1><p>first words</p>", "<p>second words</p>"});
  parts.back().Content =
      "<package><manifest><item id=\"b\" href=\"text/c1.xhtml\" media-type=\"application/xhtml+xml\"/>"
      "<item id=\"a\" href=\"./text/../text/c%30.xhtml\" media-type=\"application/xhtml+xml\"/>"
      "<item id=\"css\" href=\"a.css\" media-type=\"text/css\"/></manifest>"
      "<spine><itemref idref=\"a\"/><itemref idref=\"css\"/><itemref idref=\"nobody\"/>"
      "<itemref idref=\"b\"/><itemref idref=\"a\" linear=\"no\"/></spine></package>";
  const MadeText book = OpenBook(parts);
  EXPECT_EQ(book.Text, "One\nfirst words\nsecond words\n");
  EXPECT_EQ(book.Unit, PlaceUnit::Chapter);
  EXPECT_EQ(book.Marks, (std::vector<TextMark>{{0, 1, false}, {16, 2, true}}));
}

TEST_F(EpubTest, ShowsPagesAsAReaderSeesThem) {
  struct Row {
    const char* Name;
    const char* Body;
    const char* Text;
  };
  for (const Row& row : {
           Row{"elements in a line part no words", "<p>wo<b>rd</b>s <i>and</i> <span>more</span></p>",
               "words and more\n"},
           Row{"blocks part lines", "<div>one<p>two</p>three</div><ul><li>four</li><li>five</li></ul>",
               "one\ntwo\nthree\nfour\nfive\n"},
           Row{"cells part lines", "<table><tr><td>one</td><td>two</td></tr></table>", "one\ntwo\n"},
           Row{"breaks", "<p>one<br/>two</p>", "one\ntwo\n"},
           Row{"what is not shown",
               "<script>x</script><style>y</style><p hidden=\"\">z</p><svg><text>t</text></svg>"
               "<p>one</p>",
               "one\n"},
           Row{"pictures part no words", "<p>wo<img src=\"x\"/>rd</p>", "word\n"},
           Row{"entities", "<p>caf&eacute; &#8212; &amp;</p>", "caf\u00E9 \u2014 &\n"},
           Row{"white space", "<p>\n one\n  two </p>", "one two\n"},
       })
    EXPECT_EQ(OpenBook(Parts({row.Body})).Text, row.Text) << row.Name;
}

TEST_F(EpubTest, IsRefusedWithAReason) {
  const std::string damaged = "is damaged, or not what its name says";
  const auto without = [](size_t part) {
    std::vector<DocxPart> parts = Parts({"<p>words</p>"});
    parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(part));
    return parts;
  };
  EXPECT_EQ(OpenBook(without(1)).Refusal, damaged) << "no container";
  EXPECT_EQ(OpenBook(without(2)).Refusal, damaged) << "no chapter";
  EXPECT_EQ(OpenBook(without(3)).Refusal, damaged) << "no package";
  EXPECT_EQ(OpenBook(Parts({})).Refusal, "has no text of the kind that was asked for");
  EXPECT_EQ(OpenBook(Parts({"<p>no end"})).Refusal, "is damaged: its XML is not well-formed");
  std::vector<DocxPart> climbing = Parts({"<p>words</p>"});
  climbing.back().Content =
      "<package><manifest><item id=\"a\" href=\"../../../etc/passwd\" media-type=\"text/html\"/></manifest>"
      "<spine><itemref idref=\"a\"/></spine></package>";
  EXPECT_EQ(OpenBook(climbing).Refusal, damaged) << "a name that climbs out";
}

TEST_F(EpubTest, IsRefusedWhereMoreThanItsFontsIsEncrypted) {
  const auto encrypted = [this](const std::string& method) {
    std::vector<DocxPart> parts = Parts({"<p>words</p>"});
    parts.push_back(
        {"META-INF/encryption.xml", "<encryption><enc:EncryptedData><enc:EncryptionMethod Algorithm=\"" +
                                        method + "\"/><enc:CipherData/></enc:EncryptedData></encryption>"});
    return OpenBook(parts);
  };
  EXPECT_EQ(encrypted("http://www.w3.org/2001/04/xmlenc#aes128-cbc").Refusal, "is encrypted");
  EXPECT_EQ(encrypted("http://www.idpf.org/2008/embedding").Text, "words\n");
  EXPECT_EQ(encrypted("http://ns.adobe.com/pdf/enc#RC").Text, "words\n");
}

TEST_F(EpubTest, CutOffAnywhereIsReadOrRefused) {
  OpenCutOffAnywhere("a.epub", BuildArchive(Parts({"<p>first words</p>", "<p>second words</p>"})));
}

TEST(MemberBeside, FollowsReferencesWithinTheArchive) {
  struct Row {
    const char* Base;
    const char* Reference;
    std::optional<std::string> Member;
  };
  for (const Row& row :
       {Row{"a/b.opf", "c.html", "a/c.html"}, Row{"b.opf", "c.html", "c.html"},
        Row{"a/b.opf", "../c.html#top", "c.html"}, Row{"a/b.opf", "/c.html", "c.html"},
        Row{"a/b.opf", "./x//y/../c%20d.html", "a/x/c d.html"}, Row{"a/b.opf", "c%zz%4", "a/c%zz%4"},
        Row{"a/b.opf", "../../c.html", std::nullopt}, Row{"a/b.opf", "%2e%2e/%2e%2e/c", std::nullopt},
        Row{"a/b.opf", "", std::nullopt}, Row{"a/b.opf", "..", std::nullopt}})
    EXPECT_EQ(MemberBeside(row.Base, row.Reference), row.Member) << row.Reference;
}

}  // namespace
}  // namespace korv
