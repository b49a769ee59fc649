#include <windows.h>

#include <sddl.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/random_name.h"
#include "platform/windows/extended_path.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/full_path.h"
#include "platform/windows/open_files.h"
#include "platform/windows/system_error.h"
#include "platform/windows/wide_text.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

/// A folder's names, as the system hands them out.
class FolderSearch {
 public:
  /// The names of a FullPath() that is a folder.
  explicit FolderSearch(const fs::path& full)
      : search_(::FindFirstFileExW(ExtendedPath((full / L"*").native()).c_str(), FindExInfoBasic, &entry_,
                                   FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH)) {
    error_ = Found() ? ERROR_SUCCESS : ::GetLastError();
  }
  ~FolderSearch() {
    if (Found()) ::FindClose(search_);
  }
  FolderSearch(const FolderSearch&) = delete;
  FolderSearch& operator=(const FolderSearch&) = delete;

  bool AtEntry() const { return error_ == ERROR_SUCCESS; }
  const WIN32_FIND_DATAW& Entry() const { return entry_; }
  void GoOn() {
    if (!::FindNextFileW(search_, &entry_)) error_ = ::GetLastError();
  }
  /// Why there are no more. The root of a drive may have no entries at all, not even itself.
  DWORD Fault() const {
    return error_ == ERROR_NO_MORE_FILES || error_ == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error_;
  }

 private:
  bool Found() const { return search_ != INVALID_HANDLE_VALUE; }

  WIN32_FIND_DATAW entry_;
  HANDLE search_;
  DWORD error_;
};

/// Rights for the owner and the system alone, for a folder and what will be in it.
class OwnerOnly {
 public:
  OwnerOnly() {
    ::ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;OICI;FA;;;OW)(A;OICI;FA;;;SY)",
                                                           SDDL_REVISION_1, &descriptor_, nullptr);
    attributes_.lpSecurityDescriptor = descriptor_;
  }
  ~OwnerOnly() { ::LocalFree(descriptor_); }
  OwnerOnly(const OwnerOnly&) = delete;
  OwnerOnly& operator=(const OwnerOnly&) = delete;

  /// Null where the system cannot express it.
  SECURITY_ATTRIBUTES* Get() { return descriptor_ ? &attributes_ : nullptr; }

 private:
  PSECURITY_DESCRIPTOR descriptor_ = nullptr;
  SECURITY_ATTRIBUTES attributes_ = {sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
};

/// What tells a file from every other one.
struct FileIdentity {
  bool Known = false;
  ULONGLONG Volume = 0;
  FILE_ID_128 Number = {};
};

FileIdentity IdentityOf(const Handle& file) {
  FILE_ID_INFO id;
  if (::GetFileInformationByHandleEx(file.Get(), FileIdInfo, &id, sizeof id))
    return {true, id.VolumeSerialNumber, id.FileId};
  // Older file systems have shorter numbers.
  BY_HANDLE_FILE_INFORMATION facts;
  FileIdentity identity;
  if (!::GetFileInformationByHandle(file.Get(), &facts)) return identity;
  const DWORD words[] = {facts.nFileIndexLow, facts.nFileIndexHigh};
  std::memcpy(identity.Number.Identifier, words, sizeof words);
  identity.Volume = facts.dwVolumeSerialNumber;
  identity.Known = true;
  return identity;
}

class SystemFiles final : public FileSystem {
 public:
  bool FileExists(const fs::path& path) const override {
    const fs::path full = FullPath(path);
    if (IsDevice(full)) return DeviceExists(full);
    const Expected<FileFacts, FileError> facts = FactsOf(full);
    return facts && !facts->Folder;
  }

  bool FolderExists(const fs::path& path) const override { return IsFolder(FullPath(path)); }

  Expected<uint64_t, FileError> FileSize(const fs::path& path) const override {
    const fs::path full = FullPath(path);
    if (IsDevice(full)) return ErrorOf(ERROR_INVALID_FUNCTION);
    const Expected<FileFacts, FileError> facts = FactsOf(full);
    if (!facts) return facts.Error();
    if (facts->Folder) return FolderError();
    return facts->Size;
  }

  bool SameFile(const fs::path& a, const fs::path& b) const override {
    const fs::path first = FullPath(a);
    const fs::path second = FullPath(b);
    if (IsDevice(first) || IsDevice(second)) return false;
    // Open at the same time, so that neither number can be given to another file in between.
    const Handle one = OpenToAsk(first);
    const Handle other = OpenToAsk(second);
    if (!one.Open() || !other.Open()) return false;
    const FileIdentity left = IdentityOf(one);
    const FileIdentity right = IdentityOf(other);
    return left.Known && right.Known && left.Volume == right.Volume &&
           std::ranges::equal(left.Number.Identifier, right.Number.Identifier);
  }

  fs::path AbsolutePath(const fs::path& path) const override { return FullPath(path); }

  fs::path CanonicalPath(const fs::path& path) const override {
    const fs::path full = FullPath(path);
    if (IsDevice(full)) return full;
    fs::path missing;
    for (fs::path there = full; there.has_relative_path(); there = there.parent_path()) {
      if (const Handle file = OpenToAsk(there); file.Open()) {
        const fs::path found = FinalPath(file, there);
        return missing.empty() ? found : found / missing;
      }
      missing = missing.empty() ? there.filename() : there.filename() / missing;
    }
    return full;
  }

  Expected<std::unique_ptr<InputFile>, FileError> OpenForReading(const fs::path& path) override {
    return OpenInput(FullPath(path));
  }

  Expected<std::unique_ptr<OutputFile>, FileError> OpenForWriting(const fs::path& path) override {
    return OpenOutput(FullPath(path));
  }

  Expected<FolderListing, FileError> ListFolder(const fs::path& path) override {
    const fs::path full = FullPath(path);
    if (IsDevice(full)) return ErrorOf(ERROR_DIRECTORY);
    const Expected<FileFacts, FileError> facts = FactsOf(full);
    if (!facts) return facts.Error();
    if (!facts->Folder) return ErrorOf(ERROR_DIRECTORY);
    FolderListing listing;
    FolderSearch search(full);
    for (; search.AtEntry(); search.GoOn()) Sort(full, search.Entry(), listing);
    if (const DWORD fault = search.Fault(); fault != ERROR_SUCCESS) return ErrorAt(full, fault);
    return listing;
  }

  std::optional<FileError> CreateFolder(const fs::path& path) override {
    const fs::path full = FullPath(path);
    if (::CreateDirectoryW(ExtendedPath(full.native()).c_str(), nullptr)) return std::nullopt;
    const DWORD error = ::GetLastError();
    if (IsFolder(full)) return std::nullopt;
    return ErrorAt(full, error == ERROR_ALREADY_EXISTS ? ERROR_DIRECTORY : error);
  }

  std::optional<FileError> Remove(const fs::path& path) override {
    const fs::path full = FullPath(path);
    if (IsDevice(full)) return ErrorOf(ERROR_ACCESS_DENIED);
    const std::wstring name = ExtendedPath(full.native());
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    const bool folder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (folder ? ::RemoveDirectoryW(name.c_str()) : ::DeleteFileW(name.c_str())) return std::nullopt;
    return ErrorAt(full, ::GetLastError());
  }

  Expected<fs::path, FileError> CreatePrivateTemporaryFolder() override {
    wchar_t parent[MAX_PATH + 2];
    const DWORD length = ::GetTempPathW(static_cast<DWORD>(std::size(parent)), parent);
    if (length == 0 || length >= std::size(parent)) return LastError();
    OwnerOnly rights;
    for (;;) {
      const fs::path folder = FullPath(parent) / ("korv-" + RandomNamePart());
      if (::CreateDirectoryW(ExtendedPath(folder.native()).c_str(), rights.Get())) return folder;
      if (::GetLastError() != ERROR_ALREADY_EXISTS) return ErrorAt(folder, ::GetLastError());
    }
  }

 private:
  static bool IsFolder(const fs::path& full) {
    if (IsDevice(full)) return false;
    const Expected<FileFacts, FileError> facts = FactsOf(full);
    return facts && facts->Folder;
  }

  static bool DeviceExists(const fs::path& full) {
    if (full.native().starts_with(LR"(\\.\pipe\)")) {
      // Opening a pipe would be using it; one whose other ends are all in use is there as well.
      constexpr DWORD kMilliseconds = 1;
      return ::WaitNamedPipeW(full.c_str(), kMilliseconds) || ::GetLastError() == ERROR_SEM_TIMEOUT;
    }
    wchar_t meaning[1024];
    return ::QueryDosDeviceW(full.filename().c_str(), meaning, static_cast<DWORD>(std::size(meaning))) != 0;
  }

  static void Sort(const fs::path& folder, const WIN32_FIND_DATAW& entry, FolderListing& listing) {
    const fs::path name = entry.cFileName;
    if (name == L"." || name == L"..") return;
    switch (KindOfEntry(entry.dwFileAttributes, entry.dwReserved0)) {
      case EntryKind::File:
        listing.Files.push_back(name);
        break;
      case EntryKind::Folder:
        listing.Subfolders.push_back(name);
        break;
      case EntryKind::Link:
        // A link is made for files or for folders; one for folders that leads nowhere is of no use either.
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && !IsFolder(folder / name))
          listing.Files.push_back(name);
        break;
      case EntryKind::Special:
        break;
    }
  }
};

/// Nothing where it lacks one of the letters.
std::optional<std::string> InCodePage(std::wstring_view text) {
  // That code page has them all, and the converter refuses to be asked.
  if (::GetACP() == CP_UTF8) return ToUtf8(text);
  const int size = static_cast<int>(text.size());
  const int length =
      ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<size_t>(length), '\0');
  BOOL lacks = FALSE;
  ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), size, bytes.data(), length, nullptr,
                        &lacks);
  return lacks ? std::nullopt : std::optional(bytes);
}

}  // namespace

std::unique_ptr<FileSystem> MakeSystemFiles() {
  return std::make_unique<SystemFiles>();
}

std::string PathToText(const fs::path& path) {
  return ToUtf8(path.native());
}

fs::path PathFromText(std::string_view text) {
  return ToWide(text);
}

std::string PathForLibraries(const fs::path& path) {
  if (const auto name = InCodePage(path.native())) return *name;
  wchar_t shortName[MAX_PATH];
  const DWORD length = ::GetShortPathNameW(path.c_str(), shortName, static_cast<DWORD>(std::size(shortName)));
  const bool found = length > 0 && length < std::size(shortName);
  return (found ? InCodePage({shortName, length}) : std::nullopt).value_or(PathToText(path));
}

}  // namespace korv
