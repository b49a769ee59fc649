#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korv {

/// The name of the member that `reference`, a relative URL in the member `base`, leads to: from the root of
/// the archive, without "." and "..", escapes decoded, without "#...". Empty where it leads out of the
/// archive or to nothing.
std::optional<std::string> MemberBeside(std::string_view base, std::string_view reference);

}  // namespace korv
