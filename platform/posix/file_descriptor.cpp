#include "platform/posix/file_descriptor.h"

#include <fcntl.h>

#include "platform/posix/system_calls.h"

namespace korv {

FileError LastError() {
  const int number = errno;
  FileError error = FileErrorOf({number, std::generic_category()});
  if (number == EDQUOT) error.Fault = FileFault::NoSpace;
  errno = number;
  return error;
}

std::optional<FileError> WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = Uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
    if (written < 0) return LastError();
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return std::nullopt;
}

bool SyncFile(int file) {
  return Uninterrupted([&] { return ::fsync(file); }) == 0 || errno == EINVAL;
}

void SyncFolder(const std::filesystem::path& folder) {
  const FileDescriptor opened(
      Uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
  if (opened.Open()) static_cast<void>(SyncFile(opened.Number()));
}

}  // namespace korv
