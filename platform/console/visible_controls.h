#pragma once

#include <string>
#include <string_view>

namespace korv {

/// A text of well-formed UTF-8 with its control characters written out, as in "\\x1B", so that no terminal
/// acts on those in the name of a file, and "\\u202E" and its like, which show a name in another order than
/// it has. Line feeds and tabs stay as they are.
std::string WithVisibleControls(std::string_view text);

}  // namespace korv
