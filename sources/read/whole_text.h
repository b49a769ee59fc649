#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "base/expected.h"
#include "base/yielder.h"
#include "sources/detect/classification.h"
#include "sources/documents/document_fault.h"

namespace korv {

/// All bytes of a file that was opened; TooLarge where there are more than `most`. A stop ends it early.
Expected<std::string, DocumentFault> ReadWholeFile(OpenedText& opened, size_t most, Yielder& yielder);

/// Bytes in the encoding of that name as UTF-8, without its signature; empty where nobody knows the name.
/// UTF-16 and UTF-32 are known in every build. Linear; holds the text twice.
std::optional<std::string> TextInUtf8(std::string bytes, const std::string& encoding);

}  // namespace korv
