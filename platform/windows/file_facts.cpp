#include "platform/windows/file_facts.h"

#include "platform/windows/extended_path.h"
#include "platform/windows/full_path.h"
#include "platform/windows/system_error.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

// The system's headers do not know them all: files that programs of another system made.
constexpr DWORD kUnixSocket = 0x80000023;
constexpr DWORD kUnixPipe = 0x80000024;
constexpr DWORD kUnixCharacterDevice = 0x80000025;
constexpr DWORD kUnixBlockDevice = 0x80000026;

FileFacts FactsFrom(DWORD attributes, DWORD sizeHigh, DWORD sizeLow) {
  return {(attributes & FILE_ATTRIBUTE_DIRECTORY) != 0, (attributes & FILE_ATTRIBUTE_READONLY) != 0,
          (static_cast<uint64_t>(sizeHigh) << 32) | sizeLow};
}

bool FindEntry(const std::wstring& name, WIN32_FIND_DATAW& entry) {
  const HANDLE search =
      ::FindFirstFileExW(name.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr, 0);
  return search != INVALID_HANDLE_VALUE && ::FindClose(search) != 0;
}

Expected<FileFacts, FileError> FactsBehindLink(const fs::path& full) {
  const Handle file = OpenToAsk(full);
  BY_HANDLE_FILE_INFORMATION facts;
  if (!file.Open() || !::GetFileInformationByHandle(file.Get(), &facts))
    return ErrorAt(full, ::GetLastError());
  return FactsFrom(facts.dwFileAttributes, facts.nFileSizeHigh, facts.nFileSizeLow);
}

}  // namespace

Expected<FileFacts, FileError> FactsOf(const fs::path& full) {
  const std::wstring name = ExtendedPath(full.native());
  WIN32_FILE_ATTRIBUTE_DATA facts;
  if (::GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &facts)) {
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return FactsBehindLink(full);
    return FactsFrom(facts.dwFileAttributes, facts.nFileSizeHigh, facts.nFileSizeLow);
  }
  const DWORD error = ::GetLastError();
  // What may not be asked itself is still in its folder's list.
  WIN32_FIND_DATAW entry;
  if ((error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION) && FindEntry(name, entry))
    return FactsFrom(entry.dwFileAttributes, entry.nFileSizeHigh, entry.nFileSizeLow);
  return ErrorAt(full, error);
}

bool IsLink(const fs::path& full) {
  WIN32_FIND_DATAW entry;
  return FindEntry(ExtendedPath(full.native()), entry) &&
         KindOfEntry(entry.dwFileAttributes, entry.dwReserved0) == EntryKind::Link;
}

EntryKind KindOfEntry(DWORD attributes, DWORD reparseTag) {
  if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) return EntryKind::Special;
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    // Where it is not told what it is, it may lead in a circle.
    if (reparseTag == IO_REPARSE_TAG_RESERVED_ZERO || IsReparseTagNameSurrogate(reparseTag))
      return EntryKind::Link;
    if (reparseTag == kUnixSocket || reparseTag == kUnixPipe || reparseTag == kUnixCharacterDevice ||
        reparseTag == kUnixBlockDevice)
      return EntryKind::Special;
  }
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Folder : EntryKind::File;
}

}  // namespace korv
