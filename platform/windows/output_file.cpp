#include <algorithm>
#include <utility>

#include "platform/random_name.h"
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

// Replacing a file deletes it in the end. Asking for that too finds out who would not allow it then.
constexpr DWORD kReplace = GENERIC_WRITE | DELETE;

/// `name` in the extended form.
Handle OpenExisting(const std::wstring& name, DWORD access) {
  return Handle(
      ::CreateFileW(name.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::optional<FileError> WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto most = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (!::WriteFile(file, bytes.data(), most, &written, nullptr)) return LastError();
    // A pipe that was set not to wait takes nothing while it is full.
    if (written == 0) return ErrorOf(ERROR_WRITE_FAULT);
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
  bool Replaces() const override { return false; }
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
  /// Both names in the extended form.
  ReplacingOutput(Handle file, std::wstring temporary, std::wstring target, bool replaces)
      : file_(std::move(file)),
        temporary_(std::move(temporary)),
        target_(std::move(target)),
        replaces_(replaces) {}
  ~ReplacingOutput() override {
    if (file_.Open()) file_.Close();
    if (!inPlace_ && !IsLastCopy()) ::DeleteFileW(temporary_.c_str());
  }

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(file_.Get(), bytes);
    return fault_;
  }

  bool Replaces() const override { return replaces_; }
  std::optional<FileError> Commit() override {
    if (fault_ || inPlace_) return fault_;
    // What takes a name must be on the disk first, or a crash of the system could leave an empty file.
    if (!::FlushFileBuffers(file_.Get()) || !file_.Close() || !TakePlace())
      fault_ = LastError();
    else
      inPlace_ = true;
    return fault_;
  }

 private:
  bool TakePlace() {
    if (replaces_ && !MayStillBeReplaced()) return false;
    triedToReplace_ = replaces_;
    // Replacing keeps the rights and times of the old file, moving does not; but not every file system can.
    return (replaces_ && ::ReplaceFileW(target_.c_str(), temporary_.c_str(), nullptr,
                                        REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) ||
           ::MoveFileExW(temporary_.c_str(), target_.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
  }

  /// Asks once more, because a replacement that fails half-way may leave more behind than it found. Readies
  /// the new file with the attributes of the old one.
  bool MayStillBeReplaced() {
    if (!OpenExisting(target_, kReplace).Open()) return ::GetLastError() == ERROR_FILE_NOT_FOUND;
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
    const DWORD attributes = ::GetFileAttributesW(target_.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) ::SetFileAttributesW(temporary_.c_str(), attributes & kKept);
    return true;
  }

  /// Replacing may fail, by what the system says of it, when the old file is gone already.
  bool IsLastCopy() const {
    return triedToReplace_ && ::GetFileAttributesW(target_.c_str()) == INVALID_FILE_ATTRIBUTES &&
           ::GetLastError() == ERROR_FILE_NOT_FOUND;
  }

  Handle file_;
  std::wstring temporary_;
  std::wstring target_;
  bool replaces_;
  bool triedToReplace_ = false;
  bool inPlace_ = false;
  std::optional<FileError> fault_;
};

Expected<std::unique_ptr<OutputFile>, FileError> OpenBeside(const fs::path& target, bool replaces) {
  for (;;) {
    const fs::path beside = target.parent_path() / ("korv-" + RandomNamePart() + ".tmp");
    const std::wstring temporary = ExtendedPath(beside.native());
    Handle file(::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                              nullptr));
    if (!file.Open() && ::GetLastError() == ERROR_FILE_EXISTS) continue;
    if (!file.Open()) return ErrorAt(beside, ::GetLastError());
    return std::unique_ptr<OutputFile>(std::make_unique<ReplacingOutput>(
        std::move(file), temporary, ExtendedPath(target.native()), replaces));
  }
}

Expected<std::unique_ptr<OutputFile>, FileError> OpenDevice(const fs::path& full) {
  Handle device = OpenExisting(full.native(), GENERIC_WRITE);
  if (!device.Open()) return LastError();
  return std::unique_ptr<OutputFile>(std::make_unique<DirectOutput>(std::move(device)));
}

/// Only the system knows what a link that leads nowhere means, so it makes the file and takes it away again.
Expected<std::unique_ptr<OutputFile>, FileError> OpenBehindDeadLink(const fs::path& link) {
  Handle file(::CreateFileW(ExtendedPath(link.native()).c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr,
                            CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  if (!file.Open()) return ErrorAt(link, ::GetLastError());
  const fs::path target = FinalPath(file, link);
  file.Close();
  return OpenBeside(target, false);
}

/// A part of a file ("name:part"), which cannot be renamed into its place.
bool NamesPartOfFile(const fs::path& full) {
  return full.filename().native().find(L':') != std::wstring::npos;
}

}  // namespace

Expected<std::unique_ptr<OutputFile>, FileError> OpenOutput(const fs::path& full) {
  if (IsDevice(full)) return OpenDevice(full);
  if (NamesPartOfFile(full)) return ErrorOf(ERROR_INVALID_NAME);
  if (const auto facts = FactsOf(full)) {
    if (facts->Folder) return FolderError();
    // Not every file system minds.
    if (facts->ReadOnly) return ErrorOf(ERROR_ACCESS_DENIED);
  }
  Handle existing = OpenExisting(ExtendedPath(full.native()), kReplace);
  if (!existing.Open()) {
    const DWORD error = ::GetLastError();
    if ((error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) && IsLink(full))
      return OpenBehindDeadLink(full);
    if (error != ERROR_FILE_NOT_FOUND) return ErrorAt(full, error);
    return OpenBeside(full, false);
  }
  // A link stays one, and its file is replaced.
  const fs::path target = IsLink(full) ? FinalPath(existing, full) : full;
  existing.Close();
  return OpenBeside(target, true);
}

}  // namespace korv
