#pragma once

#include <string>

#include "base/number_format.h"

namespace korv {

/// The format of a locale of this system ("de_DE.UTF-8"), of the user's own one for the empty name. `known`
/// becomes false when there is no such locale; the result is the default format then.
NumberFormat NumberFormatOfLocale(const std::string& name, bool& known);

}  // namespace korv
