#include "sources/documents/xml_walker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace korv {
namespace {

/// Bytes that come in pieces of any size.
class Pieces final : public ByteSource {
 public:
  Pieces(std::string bytes, size_t piece) : bytes_(std::move(bytes)), piece_(piece) {}
  Expected<size_t, DocumentFault> Read(std::span<char> buffer) override {
    const size_t size = std::min({piece_, buffer.size(), bytes_.size() - at_});
    std::copy_n(bytes_.data() + at_, size, buffer.data());
    at_ += size;
    return size;
  }

 private:
  std::string bytes_;
  size_t piece_;
  size_t at_ = 0;
};

/// Writes down what it is told.
class Recorder final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t line) override {
    Told += "<" + std::string(element.Name());
    if (const auto id = element.Attribute("id")) Told += " id=" + std::string(*id);
    Told += "@" + std::to_string(line) + ">";
  }
  void EndElement(std::string_view name) override { Told += "</" + std::string(name) + ">"; }
  void Characters(std::string_view text, uint64_t /*line*/) override { Told += text; }
  size_t TextBytes() const override { return Told.size() * Weight; }

  std::string Told;
  size_t Weight = 1;
};

std::string Told(const std::string& xml, size_t piece = 1 << 20) {
  Pieces bytes(xml, piece);
  Recorder recorder;
  NoYielder yielder;
  const auto fault = WalkXml(bytes, recorder, yielder);
  return fault ? "fault " + std::to_string(static_cast<int>(*fault)) : recorder.Told;
}

std::string Fault(DocumentFault fault) {
  return "fault " + std::to_string(static_cast<int>(fault));
}

TEST(XmlWalker, TellsElementsAndTextInTheirOrderHoweverTheBytesCome) {
  const std::string xml =
      "<?xml version=\"1.0\"?>\n<a id='1'>one<!-- no --><b/>\n<x:c id=\"&lt;2\">t&#119;o</x:c></a>";
  for (const size_t piece : {1, 2, 7, 1000})
    EXPECT_EQ(Told(xml, piece), "<a id=1@2>one<b@2></b>\n<x:c id=<2@3>two</x:c></a>") << piece;
}

TEST(XmlWalker, KnowsEncodings) {
  const auto with = [](const char* encoding, const std::string& text) {
    return std::string("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?><a>" + text + "</a>";
  };
  EXPECT_EQ(Told(with("UTF-8", "\xC3\xA9")), "<a@1>\u00E9</a>");
  EXPECT_EQ(Told(with("ISO-8859-1", "\xE9")), "<a@1>\u00E9</a>");
  EXPECT_EQ(Told(with("windows-1252", "\x80")), "<a@1>\u20AC</a>");
  EXPECT_EQ(Told(with("windows-1251", "\xE9")), "<a@1>\u0439</a>");
  EXPECT_EQ(Told(with("Shift_JIS", "a")), Fault(DocumentFault::UnknownEncoding))
      << "several bytes a character";
  EXPECT_EQ(Told(with("no-such-encoding", "a")), Fault(DocumentFault::UnknownEncoding));
  EXPECT_EQ(Told(with("UTF-8", "\xFF")), Fault(DocumentFault::NotWellFormed));
  std::string wide = "\xFF\xFE";
  for (const char c : std::string("<a>b</a>")) wide += std::string{c, '\0'};
  EXPECT_EQ(Told(wide), "<a@1>b</a>");
}

TEST(XmlWalker, PutsNoEntityInPlaceThatTheDocumentDeclares) {
  EXPECT_EQ(Told("<!DOCTYPE a [<!ENTITY b 'text'><!ENTITY c SYSTEM 'file:///etc/passwd'>]><a>1&b;2&c;3</a>"),
            "<a@1>1 23</a>");
  std::string growing = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
  for (int k = 1; k < 12; ++k) {
    growing += "<!ENTITY e" + std::to_string(k) + " '";
    for (int times = 0; times < 10; ++times) growing += "&e" + std::to_string(k - 1) + ";";
    growing += "'>";
  }
  EXPECT_EQ(Told(growing + "]><a>&e11;</a>"), "<a@1> </a>");
  EXPECT_EQ(Told(growing + "]><a id='&e11;'/>"), Fault(DocumentFault::NotWellFormed))
      << "the parser's own limit";
  EXPECT_EQ(Told("<!DOCTYPE a [<!ENTITY b '&c;'><!ENTITY c '&b;'>]><a id='&b;'/>"),
            Fault(DocumentFault::NotWellFormed))
      << "a circle";
}

TEST(XmlWalker, KnowsTheEntitiesOfXhtml) {
  EXPECT_EQ(Told("<a>caf&eacute;&nbsp;&hellip;</a>"), "<a@1>caf\u00E9\u00A0\u2026</a>");
  EXPECT_EQ(Told("<!DOCTYPE html PUBLIC \"x\" \"y\"><a>&euro;</a>"), "<a@1>\u20AC</a>");
  EXPECT_EQ(Told("<a>one&unknown;two</a>"), "<a@1>one two</a>");
}

TEST(XmlWalker, RefusesWhatIsNotWellFormed) {
  for (const char* xml : {"", "words", "<a>", "<a></b>", "<a/><b/>", "<a b=c/>", "<a>&</a>", "<a>\x01</a>"})
    EXPECT_EQ(Told(xml), Fault(DocumentFault::NotWellFormed)) << xml;
}

TEST(XmlWalker, RefusesElementsTooDeepWithinEachOther) {
  const auto nested = [](size_t depth) {
    std::string xml;
    for (size_t k = 0; k < depth; ++k) xml += "<a>";
    for (size_t k = 0; k < depth; ++k) xml += "</a>";
    return xml;
  };
  EXPECT_EQ(Told(nested(kMostXmlDepth)).substr(0, 5), "<a@1>");
  EXPECT_EQ(Told(nested(kMostXmlDepth + 1)), Fault(DocumentFault::TooDeep));
  EXPECT_EQ(Told(nested(kMostXmlDepth) + std::string()), Told(nested(kMostXmlDepth), 100));
}

TEST(XmlWalker, RefusesATagThatDoesNotEnd) {
  const std::string tag = "<a b='" + std::string(size_t{5} << 20, 'x') + "'/>";
  EXPECT_EQ(Told(tag), Fault(DocumentFault::TooLarge));
}

TEST(XmlWalker, RefusesMoreTextThanIsHeld) {
  Pieces bytes("<a>" + std::string(1000, 'x') + "</a>", 100);
  Recorder recorder;
  recorder.Weight = kMostTextBytes / 500;
  NoYielder yielder;
  EXPECT_EQ(WalkXml(bytes, recorder, yielder), DocumentFault::TooLarge);
  EXPECT_LT(recorder.Told.size(), 700u) << "as soon as it is seen";
}

TEST(XmlWalker, EndsWhereAStopIsRequested) {
  Pieces bytes("<a>words", 4);
  Recorder recorder;
  NoYielder yielder;
  yielder.RequestStop();
  EXPECT_EQ(WalkXml(bytes, recorder, yielder), std::nullopt);
  EXPECT_EQ(recorder.Told, "");
}

}  // namespace
}  // namespace korv
