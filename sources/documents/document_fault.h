#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "sources/read/document_reader.h"

namespace korv {

/// Why a document of the further kinds cannot be read.
enum class DocumentFault : uint8_t {
  Damaged,        ///< Cut off, or not what its name says.
  NotWellFormed,  ///< Its XML.
  TooDeep,        ///< Elements or groups within each other, more than any real document has.
  UnknownEncoding,
  Encrypted,
  Unsupported,  ///< Packed in a way that is not known.
  BadChecksum,
  TooLarge,
  TooPacked,     ///< Unpacks to so much more than it holds that it may be made to do harm.
  OnlyPictures,  ///< Pages without any text, as a scanner makes them.
  NoText,        ///< A good document, but without text of the kind that was asked for.
  InPacked,      ///< A document of a kind that is not read where it is packed once more.
  NoProgram,     ///< The program that reads such documents is not installed.
  ProgramFailed,
  Unreadable,  ///< The file.
};

/// A document's text may be as long as this, in bytes: it is held in memory.
inline constexpr size_t kMostTextBytes = size_t{256} << 20;

/// Why a folder run skips the document: "is encrypted". In English, as SkipReason().
std::string_view ReasonOf(DocumentFault fault);
/// The refusal with that reason.
DocumentRefusal RefusalOf(DocumentFault fault, const std::filesystem::path& path);

}  // namespace korv
