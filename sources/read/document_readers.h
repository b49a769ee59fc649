#pragma once

#include <filesystem>
#include <span>
#include <string_view>

#include "sources/read/document_reader.h"

namespace korv {

/// The readers of all kinds of documents, in the order in which they are asked. The last one takes every
/// file.
std::span<const DocumentReader* const> DocumentReaders();

// `readAs`, an extension, stands in the place of the name's own; empty for that. Documents that are no text
// themselves are what they are.

/// The reader of the files with that name.
const DocumentReader& ReaderOfName(const std::filesystem::path& path, std::string_view readAs = {});
/// The reader of a file that begins with `head`. `others`: the further kinds of documents are read too (see
/// other_readers.h).
const DocumentReader& ReaderOfFile(const std::filesystem::path& path, std::string_view head,
                                   std::string_view readAs = {}, bool others = false);

/// The regions that are no text in a file of that name.
CommentMarkers MarkersOfFile(const std::filesystem::path& path, std::string_view readAs = {});

}  // namespace korv
