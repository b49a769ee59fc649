#include "sources/documents/page_reader.h"

#include <utility>

#include "base/utf8.h"
#include "engine/text/unicode.h"
#include "sources/detect/declared_encoding.h"
#include "sources/detect/encoding_sample.h"
#include "sources/documents/byte_source.h"
#include "sources/documents/html_text.h"
#include "sources/documents/php_page.h"
#include "sources/documents/xml_shown_text.h"
#include "sources/read/whole_text.h"

namespace korv {

namespace {

/// The encoding of a page, found as browsers find it.
std::string EncodingOfPage(std::string_view page, MarkupLanguage language, const ReadContext& context) {
  if (!context.Reading.Encoding.empty()) return EncodingAsBrowsersHaveIt(context.Reading.Encoding);
  if (std::string declared = DeclaredEncoding(page.substr(0, kScannedBytes), language); !declared.empty())
    return declared;
  const size_t ascii = PastAscii(page, 0);
  return ascii == page.size() || LooksLikeUtf8(page.substr(ascii, kEncodingSample)) ? "UTF-8"
                                                                                    : "WINDOWS-1252";
}

Expected<ShownText, DocumentFault> ShownOfHtml(OpenedText opened, MarkupLanguage language,
                                               const ReadContext& context, std::string& encoding) {
  auto bytes = ReadWholeFile(opened, kMostPageBytes, context.Yielder);
  if (!bytes) return bytes.Error();
  encoding = EncodingOfPage(*bytes, language, context);
  std::optional<std::string> page = TextInUtf8(std::move(*bytes), encoding);
  if (!page) return DocumentFault::UnknownEncoding;
  if (language == MarkupLanguage::Php) page = WithoutPrograms(*page);
  return HtmlText(MendedUtf8(*page), context.Yielder);
}

Expected<ShownText, DocumentFault> ShownOfXml(OpenedText opened, const ReadContext& context,
                                              std::string& encoding) {
  encoding = DeclaredEncoding(opened.Head, MarkupLanguage::Xml);
  if (encoding.empty()) encoding = "UTF-8";
  FileBytes bytes(std::move(opened));
  XmlShownText text;
  if (const auto fault = WalkXml(bytes, text, context.Yielder)) return *fault;
  return text.Take();
}

}  // namespace

Expected<DocumentText, DocumentRefusal> OpenPage(const std::filesystem::path& path, OpenedText opened,
                                                 MarkupLanguage language, const ReadContext& context) {
  if (!opened.File) return RefusalOf(DocumentFault::Unreadable, path);
  DocumentText document;
  document.Facts = opened.Facts;
  document.Encoding = TextEncoding::Utf8;
  document.Origin = {.IsDocument = true, .Size = opened.File->Size(), .Modified = opened.File->Modified()};
  auto shown = language == MarkupLanguage::Xml
                   ? ShownOfXml(std::move(opened), context, document.EncodingName)
                   : ShownOfHtml(std::move(opened), language, context, document.EncodingName);
  if (!shown) return RefusalOf(shown.Error(), path);
  document.Head = std::move(shown->Text);
  document.Marks = std::move(shown->Marks);
  document.Unit = PlaceUnit::Line;
  return document;
}

}  // namespace korv
