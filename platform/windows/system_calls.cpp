#include "platform/system_calls.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace korv {

namespace fs = std::filesystem;

namespace {

FileFault FaultOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
      return FileFault::NotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return FileFault::PermissionDenied;
    case ERROR_DIRECTORY:
      return FileFault::NotAFolder;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return FileFault::NoSpace;
    default:
      return FileFault::Other;
  }
}

FileError ErrorOf(DWORD error) {
  const std::error_code code(static_cast<int>(error), std::system_category());
  return {FaultOf(error), FileErrorOf(code).description};
}

FileError LastError() {
  return ErrorOf(::GetLastError());
}

class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&&) = delete;
  ~Handle() {
    if (Open()) ::CloseHandle(handle_);
  }
  bool Open() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  bool Close() { return ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0; }

 private:
  HANDLE handle_;
};

// What one call takes at most; its counts have 32 bits.
constexpr size_t kMostAtOnce = size_t{1} << 30;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool IsFolder(const fs::path& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

FileError FolderError() {
  return FileErrorOf(std::make_error_code(std::errc::is_a_directory));
}

class WindowsInput final : public InputFile {
 public:
  WindowsInput(Handle file, uint64_t size) : file_(std::move(file)), size_(size) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    // A file that grows while it is read ends where it ended when it was opened.
    uint64_t most = std::min<uint64_t>(buffer.size(), kMostAtOnce);
    if (size_ > 0) most = std::min(most, size_ - std::min(position_, size_));
    if (most == 0) return size_t{0};
    DWORD got = 0;
    if (!::ReadFile(file_.Get(), buffer.data(), static_cast<DWORD>(most), &got, nullptr)) {
      const DWORD error = ::GetLastError();
      if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) return size_t{0};
      return ErrorOf(error);
    }
    position_ += got;
    return static_cast<size_t>(got);
  }
  uint64_t Size() const override { return size_; }
  std::optional<FileError> SeekTo(uint64_t position) override {
    LARGE_INTEGER to;
    to.QuadPart = static_cast<LONGLONG>(position);
    if (!::SetFilePointerEx(file_.Get(), to, nullptr, FILE_BEGIN)) return LastError();
    position_ = position;
    return std::nullopt;
  }

 private:
  Handle file_;
  uint64_t size_;  ///< 0 where there is no telling.
  uint64_t position_ = 0;
};

std::optional<FileError> WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto most = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (!::WriteFile(file, bytes.data(), most, &written, nullptr)) return LastError();
    bytes.remove_prefix(written);
  }
  return std::nullopt;
}

/// Devices and pipes: what is written is gone.
class DirectOutput final : public OutputFile {
 public:
  explicit DirectOutput(Handle file) : file_(std::move(file)) {}

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(file_.Get(), bytes);
    return fault_;
  }
  std::optional<FileError> Commit() override {
    if (!fault_ && file_.Open() && !file_.Close()) fault_ = LastError();
    return fault_;
  }

 private:
  Handle file_;
  std::optional<FileError> fault_;
};

class ReplacingOutput final : public OutputFile {
 public:
  ReplacingOutput(Handle file, fs::path temporary, fs::path target, bool replaces)
      : file_(std::move(file)),
        temporary_(std::move(temporary)),
        target_(std::move(target)),
        replaces_(replaces) {}
  ~ReplacingOutput() override {
    if (committed_) return;
    if (file_.Open()) file_.Close();
    ::DeleteFileW(temporary_.c_str());
  }

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(file_.Get(), bytes);
    return fault_;
  }

  std::optional<FileError> Commit() override {
    if (fault_ || committed_) return fault_;
    const bool kept = !replaces_ || ::FlushFileBuffers(file_.Get());
    if (!kept || !file_.Close() || !TakePlace())
      fault_ = LastError();
    else
      committed_ = true;
    return fault_;
  }

 private:
  // Replacing keeps the permissions and attributes of the old file, moving does not.
  bool TakePlace() {
    constexpr DWORD kIgnore = REPLACEFILE_IGNORE_MERGE_ERRORS;
    if (replaces_ && ::ReplaceFileW(target_.c_str(), temporary_.c_str(), nullptr, kIgnore, nullptr, nullptr))
      return true;
    return ::MoveFileExW(temporary_.c_str(), target_.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
  }

  Handle file_;
  fs::path temporary_;
  fs::path target_;
  bool replaces_;
  bool committed_ = false;
  std::optional<FileError> fault_;
};

// Where a file that is open really lies, so that a link stays one and its file is replaced.
fs::path FinalPath(const Handle& file, const fs::path& otherwise) {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetFinalPathNameByHandleW(file.Get(), name.data(), static_cast<DWORD>(name.size()),
                                                     FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
    if (length == 0) return otherwise;
    const bool fits = length < name.size();
    name.resize(length);
    if (fits) return name;
  }
}

Expected<std::unique_ptr<OutputFile>, FileError> OpenBeside(const fs::path& target, bool replaces) {
  for (;;) {
    const fs::path temporary = target.parent_path() / ("korv-" + RandomNamePart() + ".tmp");
    Handle file(::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                              nullptr));
    if (!file.Open() && ::GetLastError() == ERROR_FILE_EXISTS) continue;
    if (!file.Open()) return LastError();
    return std::unique_ptr<OutputFile>(
        std::make_unique<ReplacingOutput>(std::move(file), temporary, target, replaces));
  }
}

}  // namespace

Expected<std::unique_ptr<InputFile>, FileError> SystemOpenForReading(const fs::path& path) {
  Handle file(::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.Open()) {
    const FileError error = LastError();
    return IsFolder(path) ? FolderError() : error;
  }
  LARGE_INTEGER size;
  const bool sized = ::GetFileType(file.Get()) == FILE_TYPE_DISK && ::GetFileSizeEx(file.Get(), &size);
  const uint64_t bytes = sized ? static_cast<uint64_t>(size.QuadPart) : 0;
  return std::unique_ptr<InputFile>(std::make_unique<WindowsInput>(std::move(file), bytes));
}

Expected<std::unique_ptr<OutputFile>, FileError> SystemOpenForWriting(const fs::path& path) {
  if (IsFolder(path)) return FolderError();
  Handle existing(::CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!existing.Open()) {
    const DWORD error = ::GetLastError();
    if (error != ERROR_FILE_NOT_FOUND) return ErrorOf(error);
    return OpenBeside(path, false);
  }
  if (::GetFileType(existing.Get()) != FILE_TYPE_DISK)
    return std::unique_ptr<OutputFile>(std::make_unique<DirectOutput>(std::move(existing)));
  const fs::path target = FinalPath(existing, path);
  existing.Close();
  return OpenBeside(target, true);
}

Expected<fs::path, FileError> SystemPrivateTemporaryFolder() {
  std::error_code code;
  const fs::path parent = fs::temp_directory_path(code);
  if (code) return FileErrorOf(code);
  for (;;) {
    // The user's temporary folder is closed to others already, and what is in it inherits that.
    const fs::path folder = parent / ("korv-" + RandomNamePart());
    if (::CreateDirectoryW(folder.c_str(), nullptr)) return folder;
    if (::GetLastError() != ERROR_ALREADY_EXISTS) return LastError();
  }
}

bool SystemIsLink(const fs::directory_entry& entry) {
  // Junctions and mount points too, which lead anywhere just as links do.
  const DWORD attributes = ::GetFileAttributesW(entry.path().c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

std::string PathToText(const fs::path& path) {
  const std::wstring& wide = path.native();
  if (wide.empty()) return {};
  const int length = static_cast<int>(wide.size());
  const int bytes = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<size_t>(bytes), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), bytes, nullptr, nullptr);
  return text;
}

fs::path PathFromText(std::string_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int units = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<size_t>(units), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), units);
  return wide;
}

}  // namespace korv
