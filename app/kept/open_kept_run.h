#pragma once

#include <filesystem>
#include <optional>

#include "app/kept/kept_run_error.h"
#include "app/run/shown_result.h"

namespace korv {

/// Whether the name of a file is that of a kept run: it ends in ".korvrun", case aside.
bool NamesKeptRun(const std::filesystem::path& path);

/// Reads a file that KeepRun() has written, from anywhere: nothing in it is trusted. `result` becomes what it
/// was when it was kept, but for its listing; its text is not counted. After a fault it is of no use, and
/// freed. The files that were counted are not looked at.
///
/// Memory: in proportion to the size of the file. Cost: the reading, and somewhat more for looking at every
/// part, on all threads.
std::optional<OpenError> OpenKeptRun(const std::filesystem::path& path, const KeptServices& services,
                                     ShownResult& result);

}  // namespace korv
