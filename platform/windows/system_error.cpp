#include "platform/windows/system_error.h"

#include <string_view>
#include <system_error>

#include "base/translation.h"
#include "platform/windows/extended_path.h"
#include "platform/windows/wide_text.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

// ERROR_DISK_QUOTA_EXCEEDED, which not every version of the system's headers has.
constexpr DWORD kDiskQuotaExceeded = 1295;

FileFault FaultOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return FileFault::NotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
      return FileFault::PermissionDenied;
    case ERROR_DIRECTORY:
      return FileFault::NotAFolder;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return FileFault::NoSpace;
    default:
      return FileFault::Other;
  }
}

bool EndsSentence(wchar_t c) {
  constexpr wchar_t kIdeographicFullStop = 0x3002;
  return c <= L' ' || c == L'.' || c == kIdeographicFullStop;
}

std::string WordsOf(DWORD error) {
  wchar_t buffer[1024];
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
      error, 0, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
  std::wstring_view words(buffer, length);
  while (!words.empty() && EndsSentence(words.back())) words.remove_suffix(1);
  return words.empty() ? Fill(Tr("Error %1"), {std::to_string(error)}) : ToUtf8(words);
}

bool LeadsThroughFile(const fs::path& full) {
  for (fs::path parent = full.parent_path(); parent.has_relative_path(); parent = parent.parent_path()) {
    const DWORD attributes = ::GetFileAttributesW(ExtendedPath(parent.native()).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  }
  return false;
}

}  // namespace

FileError ErrorOf(DWORD error) {
  return {FaultOf(error), WordsOf(error)};
}

FileError LastError() {
  return ErrorOf(::GetLastError());
}

FileError FolderError() {
  // The system has no number for it.
  return {FileFault::IsFolder, std::make_error_code(std::errc::is_a_directory).message()};
}

FileError ErrorAt(const fs::path& full, DWORD error) {
  return ErrorOf(error == ERROR_PATH_NOT_FOUND && LeadsThroughFile(full) ? ERROR_DIRECTORY : error);
}

}  // namespace korv
