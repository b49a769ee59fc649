#pragma once

#include <string>

namespace korv {

/// Eight letters and digits that nobody can foresee, for names of files that must be new.
std::string RandomNamePart();

}  // namespace korv
