#pragma once

#include <filesystem>

#include "sources/read/document_reader.h"

namespace korv {

/// Opens a file that is itself text. The regions between `markers` are left out of the words.
Expected<DocumentText, DocumentRefusal> OpenTextDocument(const std::filesystem::path& path, OpenedText opened,
                                                         const CommentMarkers& markers);

}  // namespace korv
