#include "platform/posix/file_descriptor.h"

#include <fcntl.h>

#include <vector>

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

std::optional<FileError> CopyBytes(int from, int to) {
  if (::lseek(from, 0, SEEK_SET) < 0) return LastError();
  std::vector<char> block(size_t{1} << 16);
  for (;;) {
    const ssize_t got = Uninterrupted([&] { return ::read(from, block.data(), block.size()); });
    if (got < 0) return LastError();
    if (got == 0) return std::nullopt;
    if (auto fault = WriteAll(to, {block.data(), static_cast<size_t>(got)})) return fault;
  }
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
