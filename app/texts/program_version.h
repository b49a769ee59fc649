#pragma once

#include <string_view>

namespace korv {

/// The version of Korv, as in "1.2.0".
std::string_view ProgramVersion();

/// The libraries that it was built with, and their versions: "fmt 9.1.0, libzip 1.7.3".
std::string_view LibraryVersions();

}  // namespace korv
