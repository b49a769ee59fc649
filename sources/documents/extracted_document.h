#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

#include "sources/documents/document_fault.h"
#include "sources/documents/extracted_text.h"
#include "sources/read/document_reader.h"

namespace korv {

/// What zip archives with members begin with.
inline constexpr std::string_view kZipSignature = "PK\x03\x04";
/// What may come out of a document that is an archive, all of its members that are read together.
inline constexpr uint64_t kMostUnpackedBytes = uint64_t{4} << 30;

/// Takes the text out of a document that was opened. An empty result on success.
using Extraction = std::function<std::optional<DocumentFault>(OpenedText file, ExtractedText& text)>;

/// Makes a document's text of what `extract` gives; a document without text is no fault. `unit`: what the
/// places of the text are counted in.
Expected<DocumentText, DocumentRefusal> OpenExtracted(const std::filesystem::path& path, OpenedText opened,
                                                      PlaceUnit unit, const Extraction& extract);

}  // namespace korv
