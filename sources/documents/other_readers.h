#pragma once

#include <string_view>

#include "sources/read/document_reader.h"

namespace korv {

/// The reader of a document of the further kinds, which are read where DocumentChoice::Others is set; null
/// for other files. `extension`: lower-cased, without its dot; `head`: what the file begins with. `isTyped`:
/// the user has said what texts are to be read as, so that files that are text are not looked at.
const DocumentReader* OtherReaderOf(std::string_view extension, std::string_view head, bool isTyped);
/// Whether there is a reader of the files with that extension.
bool IsOtherExtension(std::string_view extension);

/// What such a file is, for people: "E-book". In English, for Tr().
std::string_view KindOfOther(std::string_view extension);

}  // namespace korv
