#include "sources/documents/xml_walker.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <string>

#include "engine/text/unicode.h"
#include "platform/code_page_text.h"
#include "sources/documents/html_entities.h"

namespace korv {

namespace {

constexpr int kBlock = 64 << 10;
constexpr XML_Index kMostOfATag = XML_Index{4} << 20;

struct Free {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

class Walker {
 public:
  explicit Walker(XmlHandler& handler) : handler_(handler), parser_(XML_ParserCreate(nullptr)) {
    XML_Parser parser = parser_.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, &Begin, &End);
    XML_SetCharacterDataHandler(parser, &Text);
    // With it entities that the document declares are not put in place.
    XML_SetDefaultHandler(parser, [](void*, const XML_Char*, int) {});
    XML_SetSkippedEntityHandler(parser, &Entity);
    XML_SetUnknownEncodingHandler(parser, &Encoding, nullptr);
    // Unknown entities are told instead of being a fault.
    XML_UseForeignDTD(parser, XML_TRUE);
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
  }

  /// The next bytes go here.
  std::span<char> Buffer() {
    char* const buffer = static_cast<char*>(XML_GetBuffer(parser_.get(), kBlock));
    if (buffer == nullptr) throw std::bad_alloc();
    return {buffer, static_cast<size_t>(kBlock)};
  }

  std::optional<DocumentFault> Take(size_t bytes, bool isLast) {
    taken_ += static_cast<XML_Index>(bytes);
    const XML_Status status = XML_ParseBuffer(parser_.get(), static_cast<int>(bytes), isLast);
    if (fault_) return fault_;
    if (status != XML_STATUS_OK) return FaultOf(XML_GetErrorCode(parser_.get()));
    if (!isLast && taken_ - XML_GetCurrentByteIndex(parser_.get()) > kMostOfATag)
      return DocumentFault::TooLarge;
    if (handler_.TextBytes() > kMostTextBytes) return DocumentFault::TooLarge;
    return std::nullopt;
  }

 private:
  static Walker& Of(void* user) { return *static_cast<Walker*>(user); }
  uint64_t Line() const { return XML_GetCurrentLineNumber(parser_.get()); }

  static void Begin(void* user, const XML_Char* name, const XML_Char** attributes) {
    Walker& w = Of(user);
    if (++w.depth_ > kMostXmlDepth) {
      w.fault_ = DocumentFault::TooDeep;
      XML_StopParser(w.parser_.get(), XML_FALSE);
      return;
    }
    w.handler_.BeginElement({name, attributes}, w.Line());
  }
  static void End(void* user, const XML_Char* name) {
    Walker& w = Of(user);
    // The end of an empty element may come after its beginning stopped the parser.
    if (w.fault_) return;
    --w.depth_;
    w.handler_.EndElement(name);
  }
  static void Text(void* user, const XML_Char* text, int length) {
    Walker& w = Of(user);
    w.handler_.Characters({text, static_cast<size_t>(length)}, w.Line());
  }
  static void Entity(void* user, const XML_Char* name, int isParameter) {
    if (isParameter) return;
    std::string text;
    if (const char32_t character = HtmlEntity(name)) AppendCharacter(character, text);
    Walker& w = Of(user);
    // What is not known separates.
    w.handler_.Characters(text.empty() ? " " : text, w.Line());
  }
  /// Encodings that the parser does not know, of one byte a character.
  static int Encoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    const auto table = SingleByteTable(name);
    if (!table) return XML_STATUS_ERROR;
    for (size_t code = 0; code < table->size(); ++code)
      encoding->map[code] = (*table)[code] == kNoCharacter ? -1 : static_cast<int>((*table)[code]);
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
  }
  static DocumentFault FaultOf(XML_Error error) {
    if (error == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    return error == XML_ERROR_UNKNOWN_ENCODING ? DocumentFault::UnknownEncoding
                                               : DocumentFault::NotWellFormed;
  }

  XmlHandler& handler_;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_;
  XML_Index taken_ = 0;
  size_t depth_ = 0;
  std::optional<DocumentFault> fault_;
};

}  // namespace

std::optional<std::string_view> XmlElement::Attribute(std::string_view name) const {
  for (const char* const* at = attributes_; *at != nullptr; at += 2)
    if (name == at[0]) return at[1];
  return std::nullopt;
}

std::string_view LocalName(std::string_view name) {
  return name.substr(name.find(':') + 1);
}

std::optional<DocumentFault> WalkXml(ByteSource& source, XmlHandler& handler, Yielder& yielder) {
  Walker walker(handler);
  for (;;) {
    yielder.Yield();
    if (yielder.Stopped()) return std::nullopt;
    const Expected<size_t, DocumentFault> got = source.Read(walker.Buffer());
    if (!got) return got.Error();
    if (const auto fault = walker.Take(*got, *got == 0)) return fault;
    if (*got == 0) return std::nullopt;
  }
}

}  // namespace korv
