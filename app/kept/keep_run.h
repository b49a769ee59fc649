#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "app/kept/kept_run_error.h"
#include "app/run/shown_result.h"
#include "base/expected.h"

namespace korv {

/// What is kept of a finished run. It may be listed and shown meanwhile; the parts that it refers to outlive
/// this.
struct RunToKeep {
  const Workspace::State& Chosen;
  const CountedRun& Run;
  std::chrono::seconds Took;
  std::chrono::system_clock::time_point Ended;
  std::vector<PhraseIndex> LeftOut;
};

/// Of a result whose Chosen is known.
RunToKeep ToKeep(const ShownResult& result);

/// Writes a finished run that kept places into the file `path` (see kept_format.h) beside what it holds,
/// which is replaced when everything is written: after a fault or a stop it is as it was. A file that was
/// counted is not replaced. Returns the bytes written. Cost: about as many bytes as the run takes in memory;
/// beside the run a megabyte or two, and what the settings, the names of the files and the notices take.
Expected<uint64_t, KeepError> KeepRun(const RunToKeep& run, const std::filesystem::path& path,
                                      const KeptServices& services);

}  // namespace korv
