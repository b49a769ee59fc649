#include "sources/read/document_readers.h"

#include <algorithm>
#include <array>
#include <string>

#include "sources/documents/other_readers.h"

namespace korv {

// One for each kind of document, in the file of its name.
const DocumentReader& DocxReader();
const DocumentReader& MarkupReader();
const DocumentReader& ProgramReader();
const DocumentReader& PlainTextReader();

std::span<const DocumentReader* const> DocumentReaders() {
  static const std::array kReaders = {
      &DocxReader(),
      &MarkupReader(),
      &ProgramReader(),
      &PlainTextReader(),
  };
  return kReaders;
}

namespace {

std::string ExtensionOf(const std::filesystem::path& path, std::string_view readAs) {
  std::string own = FileExtension(PathToText(path), true);
  return readAs.empty() || DocxReader().TakesExtension(own) ? own : std::string(readAs);
}

}  // namespace

const DocumentReader& ReaderOfName(const std::filesystem::path& path, std::string_view readAs) {
  const std::string extension = ExtensionOf(path, readAs);
  return **std::ranges::find_if(DocumentReaders(), [&extension](const DocumentReader* reader) {
    return reader->TakesExtension(extension);
  });
}

const DocumentReader& ReaderOfFile(const std::filesystem::path& path, std::string_view head,
                                   std::string_view readAs, bool others) {
  if (others) {
    const std::string extension = FileExtension(PathToText(path), true);
    if (const DocumentReader* const other = OtherReaderOf(extension, head, !readAs.empty())) return *other;
  }
  const DocumentReader& byName = ReaderOfName(path, readAs);
  return byName.TakesBeginning(head) ? byName : PlainTextReader();
}

CommentMarkers MarkersOfFile(const std::filesystem::path& path, std::string_view readAs) {
  return ReaderOfName(path, readAs).Markers(ExtensionOf(path, readAs));
}

}  // namespace korv
