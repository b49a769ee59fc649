#pragma once

#include <filesystem>
#include <span>
#include <string_view>

#include "sources/read/document_reader.h"

namespace korv {

/// The readers of all kinds of documents, in the order in which they are asked. The last one takes every
/// file.
std::span<const DocumentReader* const> DocumentReaders();

/// The reader of the files with that name.
const DocumentReader& ReaderOfName(const std::filesystem::path& path);
/// The reader of a file that begins with `head`.
const DocumentReader& ReaderOfFile(const std::filesystem::path& path, std::string_view head);

/// The regions that are no text in a file of that name.
CommentMarkers MarkersOfFile(const std::filesystem::path& path);

}  // namespace korv
