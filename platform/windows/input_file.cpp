#include <algorithm>
#include <utility>

#include "platform/windows/extended_path.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/full_path.h"
#include "platform/windows/open_files.h"
#include "platform/windows/system_error.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

// What one call takes at most; its counts have 32 bits.
constexpr size_t kMostAtOnce = size_t{1} << 30;

Expected<size_t, FileError> ReadSome(HANDLE file, char* bytes, size_t most) {
  DWORD got = 0;
  if (::ReadFile(file, bytes, static_cast<DWORD>(std::min(most, kMostAtOnce)), &got, nullptr))
    return static_cast<size_t>(got);
  const DWORD error = ::GetLastError();
  // The other end of a pipe was closed; of a message that is longer than the buffer the rest comes next.
  if (error == ERROR_BROKEN_PIPE || error == ERROR_PIPE_NOT_CONNECTED) return size_t{0};
  if (error == ERROR_MORE_DATA) return static_cast<size_t>(got);
  return ErrorOf(error);
}

class DiskInput final : public InputFile {
 public:
  DiskInput(Handle file, uint64_t size, int64_t modified)
      : file_(std::move(file)), size_(size), modified_(modified) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    // A file that grows while it is read ends where it ended when it was opened: one that grows faster than
    // it is read would have no end.
    const uint64_t most = std::min<uint64_t>(buffer.size(), size_ - std::min(position_, size_));
    if (most == 0) return size_t{0};
    Expected<size_t, FileError> got = ReadSome(file_.Get(), buffer.data(), static_cast<size_t>(most));
    if (got) position_ += *got;
    return got;
  }
  uint64_t Size() const override { return size_; }
  int64_t Modified() const override { return modified_; }
  std::optional<FileError> SeekTo(uint64_t position) override {
    LARGE_INTEGER to;
    to.QuadPart = static_cast<LONGLONG>(position);
    if (!::SetFilePointerEx(file_.Get(), to, nullptr, FILE_BEGIN)) return LastError();
    position_ = position;
    return std::nullopt;
  }

 private:
  Handle file_;
  uint64_t size_;
  int64_t modified_;
  uint64_t position_ = 0;
};

/// 0 where the file system does not tell.
int64_t TimeOfChange(HANDLE file) {
  FILETIME time{};
  if (!::GetFileTime(file, nullptr, nullptr, &time)) return 0;
  return static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

/// Pipes and devices: there is no telling how much comes, and no going back.
class StreamInput final : public InputFile {
 public:
  explicit StreamInput(Handle file) : file_(std::move(file)) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    return ReadSome(file_.Get(), buffer.data(), buffer.size());
  }
  uint64_t Size() const override { return 0; }

 private:
  Handle file_;
};

}  // namespace

Expected<std::unique_ptr<InputFile>, FileError> OpenInput(const fs::path& full) {
  Handle file(::CreateFileW(ExtendedPath(full.native()).c_str(), GENERIC_READ, kShareAll, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.Open()) {
    const DWORD error = ::GetLastError();
    if (!IsDevice(full)) {
      const Expected<FileFacts, FileError> facts = FactsOf(full);
      if (facts && facts->Folder) return FolderError();
    }
    return ErrorAt(full, error);
  }
  if (::GetFileType(file.Get()) != FILE_TYPE_DISK)
    return std::unique_ptr<InputFile>(std::make_unique<StreamInput>(std::move(file)));
  LARGE_INTEGER size;
  if (!::GetFileSizeEx(file.Get(), &size)) return LastError();
  const int64_t modified = TimeOfChange(file.Get());
  return std::unique_ptr<InputFile>(
      std::make_unique<DiskInput>(std::move(file), static_cast<uint64_t>(size.QuadPart), modified));
}

}  // namespace korv
