#include "sources/documents/xml_shown_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/sources/other_documents.h"

namespace korv {
namespace {

class TextBytesSource final : public ByteSource {
 public:
  explicit TextBytesSource(std::string_view text) : text_(text) {}
  Expected<size_t, DocumentFault> Read(std::span<char> buffer) override {
    const size_t size = std::min(buffer.size(), text_.size());
    text_.copy(buffer.data(), size);
    text_.remove_prefix(size);
    return size;
  }

 private:
  std::string_view text_;
};

ShownText ShownOf(std::string_view xml) {
  TextBytesSource source(xml);
  XmlShownText text;
  NoYielder yielder;
  EXPECT_FALSE(WalkXml(source, text, yielder)) << xml;
  return text.Take();
}

/// The text with "/" for the end of a line.
std::string Shown(std::string_view xml) {
  std::string text;
  for (const char c : ShownOf(xml).Text) text += c == '\n' ? '/' : c;
  return text;
}

TEST(XmlShownText, PartsBlocksButNoWordsAmongText) {
  struct Case {
    const char* Xml;
    const char* Text;
  };
  const Case cases[] = {
      {"<a/>", ""},
      {"<a>one</a>", "one/"},
      {"<a><p>one</p><p>two</p></a>", "one//two/"},
      {"<a>\n <p>one</p>\n <p>two</p>\n</a>", "one//two/"},
      {"<p>o<b>n</b>e <i>two</i></p>", "one two/"},
      {"<a><p>one <b><i>two</i></b> three</p></a>", "one two three/"},
      {"<a><b>one</b></a>", "one/"},
      {"<a>one<l><i>two</i><i>three</i></l></a>", "one//two//three/"},
      {"<a>o<b><i>n</i></b>e</a>", "one/"},
      {"<a><head>one</head><p>two<note><p>three</p></note>four</p></a>", "one//two//three//four/"},
      {"<a>one<lb/>two hy<lb break='no'/>phen</a>", "one/two hyphen/"},
      {"<TEI><teiHeader><title>no</title></teiHeader><text>yes</text></TEI>", "yes/"},
      {"<a><![CDATA[one <b> two]]></a>", "one <b> two/"},
      {"<a>caf\u00E9 &#233; &amp; &lt;</a>", "caf\u00E9 \u00E9 & </"},
      {"<?xml version='1.0' encoding='ISO-8859-1'?><a>caf\xE9</a>", "caf\u00E9/"},
  };
  for (const Case& c : cases) EXPECT_EQ(Shown(c.Xml), c.Text) << c.Xml;
}

TEST(XmlShownText, LeadsBackToLinesOfTheFile) {
  const ShownText shown = ShownOf("<a>\n<p>one\ntwo</p>\n\n<p>three</p></a>");
  ASSERT_EQ(shown.Text, "one two\n\nthree\n");
  ASSERT_EQ(shown.Marks.size(), 3u);
  EXPECT_EQ(shown.Marks[0].Number, 2u);
  EXPECT_EQ(shown.Marks[1].Number, 3u);
  EXPECT_EQ(shown.Marks[1].Offset, 4u);
  EXPECT_EQ(shown.Marks[2].Number, 5u);
}

}  // namespace
}  // namespace korv
