#include <utility>

#include "sources/documents/extracted_document.h"
#include "sources/documents/rtf_text.h"

namespace korv {

namespace {

class Rtf final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override { return extension == "rtf"; }
  bool TakesBeginning(std::string_view head) const override { return head.starts_with("{\\rtf"); }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Line, [&](OpenedText file, ExtractedText& text) {
      FileBytes bytes(std::move(file));
      return RtfText(bytes, text).Read(context.Yielder);
    });
  }
};

}  // namespace

const DocumentReader& RtfReader() {
  static const Rtf kReader;
  return kReader;
}

}  // namespace korv
