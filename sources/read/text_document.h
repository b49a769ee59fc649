#pragma once

#include <filesystem>

#include "sources/read/document_reader.h"

namespace korv {

/// Opens a file that is itself text. The regions between `markers` are left out of the words.
Expected<DocumentText, DocumentRefusal> OpenTextDocument(const std::filesystem::path& path, OpenedText opened,
                                                         const CommentMarkers& markers);

/// The same in the encoding that the context asks for or, where it reads declared ones, that the text
/// declares. Other texts than those in UTF-8 and ANSI are held in memory as a whole, up to kMostTextBytes.
Expected<DocumentText, DocumentRefusal> OpenDecoded(const std::filesystem::path& path, OpenedText opened,
                                                    const CommentMarkers& markers,
                                                    const ReadContext& context);

}  // namespace korv
