#pragma once

#include <string>
#include <string_view>

namespace korv {

/// What ends a line of a report, of a settings file and of a window's text box. Inside the program texts have
/// LF.
inline constexpr std::string_view kCrLf = "\r\n";

/// `text` with `lineEnd` in place of each LF. One pass.
std::string WithLineEnds(std::string_view text, std::string_view lineEnd);

}  // namespace korv
