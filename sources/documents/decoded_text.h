#pragma once

#include <string>

#include "base/expected.h"
#include "sources/documents/byte_source.h"

namespace korv {

/// All of a file that is text, as UTF-8 without a signature: by its signature (UTF-8, UTF-16), else UTF-8
/// where it looks like that, else Windows-1252. TooLarge beyond kMostTextBytes; UnknownEncoding where the
/// system lacks a converter.
Expected<std::string, DocumentFault> ReadDecoded(ByteSource& source);

}  // namespace korv
