#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/program_text.h"

namespace korv {

/// Numbers under which errors are reported to the user.
inline constexpr int kErrorOutOfMemory = 7;
inline constexpr int kErrorFileNotFound = 53;
inline constexpr int kErrorDevice = 57;
inline constexpr int kErrorDiskFull = 61;
inline constexpr int kErrorPermissionDenied = 70;
inline constexpr int kErrorPath = 75;
inline constexpr int kErrorUnexpected = 5;

int ErrorNumber(FileFault fault);

/// "At ListWords error # 57." and the description on a line of its own.
std::string UnexpectedErrorText(std::string_view place, int number, std::string_view description);

/// What the user can do about an unexpected error in a listing: lines that follow the text above, each
/// after a line break. Empty without texts.
std::string ListingAdvice(const ProgramText* texts);

}  // namespace korv
