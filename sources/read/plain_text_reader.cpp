#include <utility>

#include "sources/read/text_document.h"

namespace korv {

namespace {

/// Files in which every character is text.
class PlainText final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view /*extension*/) const override { return true; }
  bool OpeningIsWork() const override { return false; }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenDecoded(path, std::move(opened), {}, context);
  }
};

}  // namespace

const DocumentReader& PlainTextReader() {
  static const PlainText kReader;
  return kReader;
}

}  // namespace korv
