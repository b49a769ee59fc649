#include "sources/read/document_readers.h"

#include <algorithm>
#include <array>
#include <string>

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

const DocumentReader& ReaderOfName(const std::filesystem::path& path) {
  const std::string extension = FileExtension(PathToText(path), true);
  return **std::ranges::find_if(DocumentReaders(), [&extension](const DocumentReader* reader) {
    return reader->TakesExtension(extension);
  });
}

const DocumentReader& ReaderOfFile(const std::filesystem::path& path, std::string_view head) {
  const DocumentReader& byName = ReaderOfName(path);
  return byName.TakesBeginning(head) ? byName : PlainTextReader();
}

CommentMarkers MarkersOfFile(const std::filesystem::path& path) {
  return ReaderOfName(path).Markers(FileExtension(PathToText(path), true));
}

}  // namespace korv
