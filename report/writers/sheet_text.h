#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korv {

/// What a cell of a workbook holds at most, in UTF-16 code units.
inline constexpr size_t kMostInCell = 32767;

/// Takes as much from the front of `text` as a cell of `most` units holds (at least one character), as a
/// workbook's file has it: UTF-8 that XML allows, with "_x0041_", which would be read as "A", written so that
/// it is read as it stands. Line ends and other control characters are the library's to write.
std::string TakeSheetText(std::string_view& text, size_t most = kMostInCell);

/// A whole text as one cell. Where it is too long, its end is cut off and "…" stands in its place.
std::string SheetText(std::string_view text, size_t most = kMostInCell);

}  // namespace korv
