#include <utility>

#include "sources/documents/html_text.h"
#include "sources/documents/page_reader.h"
#include "sources/read/document_readers.h"
#include "sources/read/text_document.h"

namespace korv {

namespace {

/// HTML, XML and PHP: tags, scripts and comments are no text, entities stand for characters.
class Markup final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    return IsMarkup(MarkersOfExtension(extension).Language);
  }
  CommentMarkers Markers(std::string_view extension) const override { return MarkersOfExtension(extension); }
  bool OpeningIsWork() const override { return false; }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    const CommentMarkers markers = MarkersOfFile(path, context.ReadAs);
    if (context.Reading.ShownMarkup && (markers.Language == MarkupLanguage::Xml || ReadsHtml()))
      return OpenPage(path, std::move(opened), markers.Language, context);
    return OpenDecoded(path, std::move(opened), markers, context);
  }
};

}  // namespace

const DocumentReader& MarkupReader() {
  static const Markup kReader;
  return kReader;
}

}  // namespace korv
