#include <utility>

#include "sources/read/document_readers.h"
#include "sources/read/text_document.h"

namespace korv {

namespace {

/// Programs in C and C++: their comments are left out.
class Program final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    return MarkersOfExtension(extension).Language == MarkupLanguage::C;
  }
  CommentMarkers Markers(std::string_view extension) const override { return MarkersOfExtension(extension); }
  bool OpeningIsWork() const override { return false; }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenDecoded(path, std::move(opened), MarkersOfFile(path, context.ReadAs), context);
  }
};

}  // namespace

const DocumentReader& ProgramReader() {
  static const Program kReader;
  return kReader;
}

}  // namespace korv
