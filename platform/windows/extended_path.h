#pragma once

#include <string>
#include <string_view>

namespace korv {

/// An absolute path without "." and ".." in the form that the system takes at any length and word for word:
/// \\?\C:\folder, \\?\UNC\server\share. What names a device (\\.\NUL) or has that form stays as it is.
std::wstring ExtendedPath(std::wstring_view absolute);

/// The path that people know, from that form or from the one for devices: \\?\C:\folder becomes C:\folder,
/// \\?\UNC\server\share becomes \\server\share. What has no such form stays as it is.
std::wstring PlainPath(std::wstring_view path);

}  // namespace korv
