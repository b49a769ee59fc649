#pragma once

#include <memory>

#include "platform/files.h"

namespace korv {

/// What a file packed by gzip, bzip2, xz or zstd unpacks to, while it is read. Takes the file over, which
/// stands at its beginning. Read() fails where the packed data are damaged or cut off, and where the file
/// is packed in another way. Has no size and cannot seek. Holds some blocks, and what xz and zstd look back
/// into: 256 MB at most.
std::unique_ptr<InputFile> UnpackedFile(std::unique_ptr<InputFile> packed);

}  // namespace korv
