#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

namespace korv {

/// What a column says of one phrase: a text (valid until the next phrase is looked at), a whole number, a
/// real one, or nothing where the value is not defined.
using Cell = std::variant<std::monostate, int64_t, double, std::string_view>;

}  // namespace korv
