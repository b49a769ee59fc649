#pragma once

#include <filesystem>

#include "sources/detect/comment_markers.h"
#include "sources/read/document_reader.h"

namespace korv {

/// Opens a file of HTML, XML or PHP as a reader sees it: its text is what the page shows, in UTF-8, and leads
/// back to lines and columns of the file. Refuses XML that is not well-formed, what is too large, and an
/// unknown encoding.
Expected<DocumentText, DocumentRefusal> OpenPage(const std::filesystem::path& path, OpenedText opened,
                                                 MarkupLanguage language, const ReadContext& context);

}  // namespace korv
