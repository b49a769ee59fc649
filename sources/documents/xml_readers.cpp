#include <string>
#include <utility>

#include "base/utf8.h"
#include "platform/code_page_text.h"
#include "sources/documents/element_text.h"
#include "sources/documents/extracted_document.h"
#include "sources/documents/po_text.h"
#include "sources/documents/tmx_text.h"
#include "sources/documents/xml_walker.h"

namespace korv {

namespace {

std::optional<DocumentFault> NoTextIfEmpty(const ExtractedText& text, const ReadContext& context) {
  return text.Size() > 0 || context.Yielder.Stopped() ? std::nullopt : std::optional(DocumentFault::NoText);
}

/// A file that is XML, from which `Handler` takes the text.
template <typename Handler, typename Choose>
Expected<DocumentText, DocumentRefusal> OpenXml(const std::filesystem::path& path, OpenedText opened,
                                                PlaceUnit unit, const ReadContext& context, Choose choose) {
  return OpenExtracted(path, std::move(opened), unit,
                       [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                         FileBytes bytes(std::move(file));
                         Handler handler(text, choose(context.Documents));
                         if (const auto fault = WalkXml(bytes, handler, context.Yielder)) return fault;
                         return NoTextIfEmpty(text, context);
                       });
}

SegmentChoice SegmentsOf(const DocumentChoice& choice) {
  return SegmentChoice(choice.Segments);
}

class Tmx final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override { return extension == "tmx"; }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenXml<TmxText>(path, std::move(opened), PlaceUnit::Segment, context, &SegmentsOf);
  }
};

class Xliff final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    return extension == "xlf" || extension == "xliff";
  }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenXml<XliffText>(path, std::move(opened), PlaceUnit::Segment, context, &SegmentsOf);
  }
};

/// TEI, and any XML by the names of its elements.
class Xml final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    return extension == "xml" || extension == "tei";
  }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenXml<ElementText>(path, std::move(opened), PlaceUnit::Line, context,
                                [](const DocumentChoice& choice) { return choice; });
  }
};

/// Catalogues of translations.
class Po final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    return extension == "po" || extension == "pot";
  }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Segment,
                         [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                           FileBytes source(std::move(file));
                           const Expected<std::string, DocumentFault> bytes = ReadAll(source, kMostTextBytes);
                           if (!bytes) return bytes.Error();
                           const auto catalogue = Decoded(*bytes);
                           if (!catalogue) return DocumentFault::UnknownEncoding;
                           if (!AddPo(*catalogue, SegmentsOf(context.Documents), text))
                             return DocumentFault::Damaged;
                           return NoTextIfEmpty(text, context);
                         });
  }

 private:
  static std::optional<std::string> Decoded(const std::string& bytes) {
    const std::string encoding = EncodingOfPo(bytes);
    if (encoding == "UTF-8" || encoding == "utf-8" || encoding == "ASCII") return MendedUtf8(bytes);
    auto text = TextOfBytes(bytes, encoding);
    if (text) *text = MendedUtf8(*text);
    return text;
  }
};

}  // namespace

const DocumentReader& TmxReader() {
  static const Tmx kReader;
  return kReader;
}

const DocumentReader& XliffReader() {
  static const Xliff kReader;
  return kReader;
}

const DocumentReader& XmlReader() {
  static const Xml kReader;
  return kReader;
}

const DocumentReader& PoReader() {
  static const Po kReader;
  return kReader;
}

}  // namespace korv
