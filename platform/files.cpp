#include "platform/files.h"

#include <system_error>

namespace korv {

std::optional<FileError> InputFile::SeekTo(uint64_t) {
  return FileError{FileFault::Other, std::make_error_code(std::errc::invalid_seek).message()};
}

}  // namespace korv
