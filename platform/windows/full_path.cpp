#include "platform/windows/full_path.h"

#include <algorithm>
#include <string_view>

#include "platform/windows/extended_path.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

/// Calls a function of the system that fills a buffer and says how much room it needs; empty on failure.
template <typename Call>
std::wstring FilledBy(const Call& call) {
  std::wstring text(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
    const bool fits = length < text.size();
    text.resize(length);
    if (fits) return text;
  }
}

std::wstring SystemFullPath(const std::wstring& path) {
  return FilledBy(
      [&](wchar_t* text, DWORD room) { return ::GetFullPathNameW(path.c_str(), room, text, nullptr); });
}

// The standard library takes \\server\share for a path without a root.
bool IsOnServer(std::wstring_view path) {
  return path.size() > 2 && path.find_first_not_of(LR"(\/)") == 2;
}

/// Whether a path that ends with a separator needs it: \, C:\, and \\server\share\ by custom.
bool IsRoot(std::wstring_view path) {
  if (IsOnServer(path)) return std::ranges::count(path, L'\\') <= 4;
  return path.size() == 1 || (path.size() == 3 && path[1] == L':');
}

fs::path WithoutEndSeparator(std::wstring path) {
  while (path.ends_with(L'\\') && !IsRoot(path)) path.pop_back();
  return path;
}

/// What a path begins at: the root of a drive, the servers, or the folder that is the current one.
std::wstring BaseOf(const fs::path& path) {
  if (IsOnServer(path.native())) return LR"(\\)";
  const std::wstring root = path.root_name().native();
  if (path.has_root_directory()) return root.empty() ? SystemFullPath(LR"(\)") : root + L'\\';
  std::wstring current = SystemFullPath(root + L'.');
  if (!current.ends_with(L'\\')) current += L'\\';
  return current;
}

/// The path with its names as they are written.
fs::path WordForWord(const fs::path& path) {
  return WithoutEndSeparator(BaseOf(path) +
                             path.relative_path().lexically_normal().make_preferred().native());
}

bool GoesUp(const fs::path& path) {
  return std::ranges::find(path, fs::path(L"..")) != path.end();
}

}  // namespace

fs::path FullPath(const fs::path& given) {
  const fs::path path = PlainPath(given.native());
  const std::wstring system = SystemFullPath(path.native());
  if (system.empty()) return path;
  const fs::path full = WithoutEndSeparator(PlainPath(system));
  if (!path.has_parent_path() || IsDevice(path) || GoesUp(path)) return full;
  const fs::path wordForWord = WordForWord(path);
  if (wordForWord == full) return full;
  const std::wstring name = ExtendedPath(wordForWord.native());
  return ::GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES ? wordForWord : full;
}

bool IsDevice(const fs::path& full) {
  return full.native().starts_with(LR"(\\.\)");
}

Handle OpenToAsk(const fs::path& full) {
  return Handle(::CreateFileW(ExtendedPath(full.native()).c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

fs::path FinalPath(const Handle& file, const fs::path& otherwise) {
  const std::wstring name = FilledBy([&](wchar_t* text, DWORD room) {
    return ::GetFinalPathNameByHandleW(file.Get(), text, room, FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
  });
  return name.empty() ? otherwise : fs::path(PlainPath(name));
}

}  // namespace korv
