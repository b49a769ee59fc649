#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Of a file that is refused as text: what it is and what to do, as a line below the refusal; empty where its
/// beginning tells nothing. A few hundred bytes are enough, a zip archive tells more in 16 KB.
std::string ForeignKindAdvice(std::string_view head);

/// The same of a file that was to be a list of words.
std::string ForeignListAdvice(std::string_view head);

}  // namespace korv
