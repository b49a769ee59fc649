#pragma once

#include <vector>

#include "app/run/run.h"

namespace korv {

/// What a run reads as a side of a comparison: its paths, or a list of its single source. A clipboard is
/// named as standard input there.
std::vector<SourcePath> SourcesOf(const RunRequest& request);

/// The same run, but compared with `compared`, side B. Its sources become side A. No output file is written.
RunRequest ComparisonOf(RunRequest request, std::vector<SourcePath> compared, const ComparisonChoice& how);

/// Phrases that are compared occur three times or more, unless another minimum than the usual one is asked
/// for. The changes of a draft are shown from any minimum.
void SetKeyFrequency(RunRequest& request);

/// Whether the text of a clipboard is read, alone or as a side.
bool ReadsClipboard(const RunRequest& request);

/// Before two sides are counted: whether what they name is there; if not, the user has been told. Settles
/// which paths of side B are folders. Cost: a look at each path.
bool SidesAreThere(RunRequest& request, const FileSystem& files, Messages& messages);

}  // namespace korv
