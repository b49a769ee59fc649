#include "sources/read/text_document.h"

#include <utility>

#include "sources/detect/text_file_check.h"

namespace korv {

Expected<DocumentText, DocumentRefusal> OpenTextDocument(const std::filesystem::path& path, OpenedText opened,
                                                         const CommentMarkers& markers) {
  const uint64_t size = opened.File ? opened.File->Size() : 0;
  if (!IsReadableText(opened.Facts.Code)) {
    DocumentRefusal refusal;
    refusal.SkipReason = SkipReason(opened.Facts.Code);
    refusal.MessageAlone = [name = PathToText(path), facts = opened.Facts, head = std::move(opened.Head),
                            size](const NumberFormat& format) {
      return SingleFileRefusal(name, facts, head, size, format);
    };
    return refusal;
  }
  DocumentText text;
  text.Facts = opened.Facts;
  text.Head = std::move(opened.Head);
  text.Markers = markers;
  text.Origin = {.Size = size, .Modified = opened.File->Modified()};
  text.Rest = std::move(opened.File);
  return text;
}

}  // namespace korv
