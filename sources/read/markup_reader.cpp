#include <utility>

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
    return OpenTextDocument(path, std::move(opened), MarkersOfFile(path, context.ReadAs));
  }
};

}  // namespace

const DocumentReader& MarkupReader() {
  static const Markup kReader;
  return kReader;
}

}  // namespace korv
