#include "platform/windows/extended_path.h"

namespace korv {

namespace {

using std::wstring;
using std::wstring_view;

constexpr wstring_view kExtended = LR"(\\?\)";
constexpr wstring_view kDevice = LR"(\\.\)";
constexpr wstring_view kNetwork = LR"(UNC\)";
constexpr wstring_view kServer = LR"(\\)";

bool HasPrefix(wstring_view path) {
  return path.starts_with(kExtended) || path.starts_with(kDevice);
}

bool IsLetter(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

bool BeginsWithDrive(wstring_view path) {
  return path.size() > 2 && IsLetter(path[0]) && path[1] == L':' && path[2] == L'\\';
}

bool BeginsWithNetwork(wstring_view path) {
  constexpr wchar_t kLowerCase = 0x20;
  if (path.size() <= kNetwork.size()) return false;
  for (size_t k = 0; k < kNetwork.size(); ++k)
    if (path[k] != kNetwork[k] && !(IsLetter(path[k]) && path[k] == (kNetwork[k] | kLowerCase))) return false;
  return true;
}

}  // namespace

wstring ExtendedPath(wstring_view absolute) {
  if (HasPrefix(absolute)) return wstring(absolute);
  if (absolute.starts_with(kServer))
    return wstring(kExtended).append(kNetwork).append(absolute.substr(kServer.size()));
  if (BeginsWithDrive(absolute)) return wstring(kExtended).append(absolute);
  return wstring(absolute);
}

wstring PlainPath(wstring_view path) {
  if (!HasPrefix(path)) return wstring(path);
  const wstring_view rest = path.substr(kExtended.size());
  if (BeginsWithDrive(rest)) return wstring(rest);
  if (BeginsWithNetwork(rest)) return wstring(kServer).append(rest.substr(kNetwork.size()));
  return wstring(path);
}

}  // namespace korv
