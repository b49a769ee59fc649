#include "sources/read/text_document.h"

#include <utility>

#include "sources/detect/declared_encoding.h"
#include "sources/detect/text_file_check.h"
#include "sources/read/whole_text.h"

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

namespace {

/// The encoding that is to be read by its name; empty where bytes and the user tell, as ever.
std::string NamedEncoding(const OpenedText& opened, MarkupLanguage language, const ReadingOptions& reading) {
  std::string name =
      reading.Encoding.empty()
          ? (reading.DeclaredEncodings ? DeclaredEncoding(opened.Head, language) : std::string())
          : EncodingAsBrowsersHaveIt(reading.Encoding);
  // ANSI is Windows-1252 then.
  if (reading.Encoding.empty() && (name == "WINDOWS-1252" || name == "UTF-8")) return {};
  return name;
}

}  // namespace

Expected<DocumentText, DocumentRefusal> OpenDecoded(const std::filesystem::path& path, OpenedText opened,
                                                    const CommentMarkers& markers,
                                                    const ReadContext& context) {
  const std::string name =
      opened.File ? NamedEncoding(opened, markers.Language, context.Reading) : std::string();
  if (name.empty() || opened.Facts.Code == TextFileCode::ZeroLength)
    return OpenTextDocument(path, std::move(opened), markers);
  DocumentText text;
  text.Facts = opened.Facts;
  text.Encoding = TextEncoding::Utf8;
  text.EncodingName = name;
  text.Markers = markers;
  text.Origin = {.IsDocument = true, .Size = opened.File->Size(), .Modified = opened.File->Modified()};
  auto bytes = ReadWholeFile(opened, kMostTextBytes, context.Yielder);
  if (!bytes) return RefusalOf(bytes.Error(), path);
  auto decoded = TextInUtf8(std::move(*bytes), name);
  if (!decoded) return RefusalOf(DocumentFault::UnknownEncoding, path);
  text.Head = std::move(*decoded);
  return text;
}

}  // namespace korv
