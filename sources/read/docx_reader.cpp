#include <utility>

#include "sources/documents/docx_parts.h"
#include "sources/read/document_reader.h"
#include "sources/read/docx.h"

namespace korv {

namespace {

DocumentRefusal DocxRefusalOf(DocxFault fault, const std::filesystem::path& path) {
  const std::string name = PathToText(path);
  return {.MessageAlone = [fault, name](const NumberFormat& /*format*/) { return DocxRefusal(fault, name); },
          .MessageOnce = DocxFolderRefusal(fault, name),
          .SkipReason = DocxSkipReason(fault)};
}

/// Documents of word processors: archives with the text in a member, from which it is extracted.
class Docx final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override { return extension == kDocxExtension; }
  bool TakesBeginning(std::string_view head) const override { return BeginsAsDocx(head); }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    DocumentText text;
    text.Encoding = TextEncoding::Utf8;
    text.LinesAreBlocks = true;
    text.Origin = {.IsDocument = true, .Size = opened.File->Size(), .Modified = opened.File->Modified()};
    if (context.Reading.NotesAndBoxes) {
      auto whole = DocxWithNotes(std::move(opened.File), context.Yielder);
      if (!whole) return RefusalOf(whole.Error(), path);
      text.Head = std::move(*whole);
      return text;
    }
    const Expected<int32_t, DocxFault> result =
        ReadDocx({context.Files, context.Messages, context.Yielder}, path, std::move(opened.File),
                 kProductWord, !context.IsOneOfMany, text.Head, context.ShowProgress);
    if (!result) return DocxRefusalOf(result.Error(), path);
    return text;
  }
};

}  // namespace

const DocumentReader& DocxReader() {
  static const Docx kReader;
  return kReader;
}

}  // namespace korv
