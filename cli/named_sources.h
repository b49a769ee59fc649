#pragma once

#include <vector>

#include "base/expected.h"
#include "cli/count_program.h"
#include "cli/options.h"
#include "engine/source_path.h"
#include "platform/messages.h"

namespace korv {

/// The files and folders that a command line names.
struct NamedSources {
  std::vector<SourcePath> Paths;     ///< In the order given; empty where it names none.
  std::vector<SourcePath> Compared;  ///< What they are compared with; empty for nothing.
  bool Together = false;             ///< They are counted together, like the files of one folder.
};

/// Reads the lists of the options, replaces patterns where no shell has done it, and looks which paths are
/// folders. Else the status to exit with, after saying what is wrong.
Expected<NamedSources, int> NamedSourcesOf(const CountOptions& options, const CountEnvironment& environment,
                                           Messages& messages);

}  // namespace korv
