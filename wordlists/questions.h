#pragma once

#include "platform/messages.h"

/// What word lists ask.
namespace korv::questions {

/// Load the common-words file of a language?
inline constexpr Question kLoadCommonWords{"LoadCommonWords"};
/// Empty the list of word-list files?
inline constexpr Question kClearWordFiles{"ClearWordFiles"};

}  // namespace korv::questions
