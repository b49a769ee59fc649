#pragma once

#include "platform/messages.h"

/// What the windows ask.
namespace korv::questions {

/// Load the English common words at the first start?
inline constexpr Question kFirstCommonWords{"FirstCommonWords"};
/// List again, now into the output file?
inline constexpr Question kRelist{"Relist"};
/// May a changed word rule discard the counted result?
inline constexpr Question kRereadSource{"RereadSource"};
/// Quit?
inline constexpr Question kReallyQuit{"ReallyQuit"};
/// Keep changed settings that quitting would forget?
inline constexpr Question kKeepSettings{"KeepSettings"};
/// Set everything to its defaults?
inline constexpr Question kReinitialize{"Reinitialize"};

/// Export into a file that exists?
inline constexpr Question kReplaceExport{"ReplaceExport"};

/// Copy a great many rows of the table?
inline constexpr Question kCopyManyRows{"CopyManyRows"};

/// Compare runs whose files have changed since?
inline constexpr Question kCompareChanged{"CompareChanged"};

}  // namespace korv::questions
