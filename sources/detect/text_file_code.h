#pragma once

#include <cstdint>

namespace korv {

/// Whether a file is text that can be read, and why not.
enum class TextFileCode : int16_t {
  CannotOpen = -9,        ///< Opening or reading failed for any other reason than permission.
  NoPath = -5,            ///< No path was given.
  TooShort = -4,          ///< 1 to 4 bytes long.
  PermissionDenied = -3,  ///< The file may not be opened.
  ZeroLength = -2,
  NotFound = -1,
  NotText = 0,         ///< Too many control bytes.
  WindowsText = 1,     ///< Lines end in CR LF, or there is no line end at all, or UTF-8 with any line ends.
  UnixText = 2,        ///< Lines end in LF only.
  MacText = 3,         ///< Lines end in CR only.
  Rtf = 6,             ///< Begins as a file in Rich Text Format.
  UnicodeNotUtf8 = 7,  ///< UTF-16 of either order, or UTF-32.
};

/// What the first bytes and a declared character set say. The negative values are those of TextFileCode.
enum class EncodingSignature : int16_t {
  CannotOpen = -9,
  NoPath = -5,
  TooShort = -4,
  PermissionDenied = -3,
  ZeroLength = -2,
  NotFound = -1,
  None = 0,
  Utf16LittleEndian = 1,
  Utf16BigEndian = 2,
  Utf8 = 3,
  Utf32BigEndian = 5,
  Rtf = 6,
};

constexpr bool IsReadableText(TextFileCode code) {
  return code == TextFileCode::WindowsText || code == TextFileCode::UnixText || code == TextFileCode::MacText;
}

}  // namespace korv
