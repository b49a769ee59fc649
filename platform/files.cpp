#include "platform/files.h"

#include <system_error>

namespace korv {

std::optional<FileError> InputFile::SeekTo(uint64_t) {
  return FileError{FileFault::Other, std::make_error_code(std::errc::invalid_seek).message()};
}

Expected<std::unique_ptr<InputFile>, FileError> FileSystem::OpenOutputOf(
    const std::string& /*program*/, const std::vector<std::filesystem::path>& /*arguments*/,
    Yielder& /*yielder*/) {
  return FileError{FileFault::NotFound, std::make_error_code(std::errc::no_such_file_or_directory).message()};
}

}  // namespace korv
