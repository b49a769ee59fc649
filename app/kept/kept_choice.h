#pragma once

#include <string>
#include <vector>

#include "app/kept/kept_reader.h"
#include "app/run/run.h"
#include "app/workspace.h"

namespace korv {

/// Under what a run was counted: what was chosen in the window then, and whether words were counted in place
/// of phrases. The run's request follows from this.
struct KeptChoice {
  Workspace::State Chosen;
  bool SingleWords = false;
  /// What the source was compared with, and how; empty where nothing was compared.
  std::vector<SourcePath> Compared = {};
  ComparisonChoice How = {};
};

/// The request of a count under this choice, in a window. Without the text of a clipboard.
RunRequest RequestOf(const KeptChoice& choice);

/// Both for the contents of a section. `run` is what was counted under it. What is no UTF-8 becomes U+FFFD.
void AppendChoice(const Workspace::State& chosen, const CountedRun& run, std::string& bytes);
/// Settings that this version does not know are passed over, and those that the file does not have keep their
/// defaults. A value out of its range is a fault.
KeptChoice TakeChoice(KeptReader& reader);

}  // namespace korv
