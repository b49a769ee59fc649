#pragma once

#include <string_view>

namespace korv {

/// The version of Korv, as in "1.2.0".
std::string_view ProgramVersion();

}  // namespace korv
