#pragma once

#include <string>
#include <string_view>

namespace korv {

// Text as the system takes it, and as the program holds it.

/// Ill-formed bytes become U+FFFD.
std::wstring ToWide(std::string_view utf8);
/// Surrogates without their other half become U+FFFD.
std::string ToUtf8(std::wstring_view wide);

}  // namespace korv
