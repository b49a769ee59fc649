#pragma once

#include <vector>

#include "app/run/run.h"

namespace korv {

/// The same run, but compared with `compared`, side B. Its source becomes side A, a list of one where it is
/// a single one; a clipboard is named as standard input there. Phrases occur three times or more unless
/// another minimum than the usual one is asked for; the changes of a draft are shown from any minimum. No
/// output file is written.
RunRequest ComparisonOf(RunRequest request, std::vector<SourcePath> compared, const ComparisonChoice& how);

/// Whether the text of a clipboard is read, alone or as a side.
bool ReadsClipboard(const RunRequest& request);

/// Before two sides are counted: whether what they name is there; if not, the user has been told. Settles
/// which paths of side B are folders. Cost: a look at each path.
bool SidesAreThere(RunRequest& request, const FileSystem& files, Messages& messages);

}  // namespace korv
