#pragma once

#include <span>
#include <string_view>

namespace korv {

/// The name that was probably meant by `typed`; empty where none is near.
std::string_view NearestName(std::string_view typed, std::span<const std::string_view> names);

}  // namespace korv
