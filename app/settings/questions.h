#pragma once

#include "platform/messages.h"

/// What opening settings asks.
namespace korv::questions {

/// Set the defaults after a settings file that ended early?
inline constexpr Question kSetDefaults{"SetDefaults"};
/// Load the word-list file that restored settings select?
inline constexpr Question kLoadWordFile{"LoadWordFile"};

}  // namespace korv::questions
