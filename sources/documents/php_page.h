#pragma once

#include <string>
#include <string_view>

namespace korv {

/// A page of PHP with blanks in place of its programs, so that all else stands where it stood. What is echoed
/// is unknown until they run. Linear.
std::string WithoutPrograms(std::string_view php);

}  // namespace korv
