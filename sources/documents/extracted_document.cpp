#include "sources/documents/extracted_document.h"

#include <utility>

namespace korv {

Expected<DocumentText, DocumentRefusal> OpenExtracted(const std::filesystem::path& path, OpenedText opened,
                                                      PlaceUnit unit, const Extraction& extract) {
  if (!opened.File) return RefusalOf(DocumentFault::Unreadable, path);
  DocumentText document;
  document.Encoding = TextEncoding::Utf8;
  document.Origin = {.IsDocument = true, .Size = opened.File->Size(), .Modified = opened.File->Modified()};
  ExtractedText text;
  if (const auto fault = extract(std::move(opened), text)) return RefusalOf(*fault, path);
  if (text.Size() > kMostTextBytes) return RefusalOf(DocumentFault::TooLarge, path);
  document.Marks = text.TakeMarks();
  document.Unit = unit;
  document.Head = text.TakeText();
  return document;
}

}  // namespace korv
