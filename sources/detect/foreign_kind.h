#pragma once

#include <string>
#include <string_view>

namespace korv {

/// A line to show below the refusal of a file that is no text: what the file is, by its beginning `head`, and
/// what the user can do. Empty for an unknown kind. A few hundred bytes are enough, but zip archives need 16
/// KB.
std::string ForeignKindAdvice(std::string_view head);

/// The same for a file that should have been a list of words.
std::string ForeignListAdvice(std::string_view head);

}  // namespace korv
