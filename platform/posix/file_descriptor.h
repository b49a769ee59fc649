#pragma once

#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace korv {

/// Closed by its destructor.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number = -1) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }
  bool Open() const { return number_ >= 0; }
  int Number() const { return number_; }
  /// False where the system reports only now that something was not written.
  bool Close() { return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR; }

 private:
  int number_;
};

/// What a system call gives that signals do not interrupt for good.
template <typename Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}

/// Of the last system call; errno stays.
FileError LastError();

/// Writes all of `bytes`.
std::optional<FileError> WriteAll(int file, std::string_view bytes);

/// Writes the bytes of `from`, from its beginning.
std::optional<FileError> CopyBytes(int from, int to);

/// Brings what was written to the disk, as far as the file system can. False with errno on failure.
bool SyncFile(int file);
/// The same for the names in a folder; failures are not told, for nothing can be taken back then.
void SyncFolder(const std::filesystem::path& folder);

}  // namespace korv
