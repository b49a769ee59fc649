#pragma once

#include <set>
#include <string>

#include "base/yielder.h"
#include "engine/corpus/corpus.h"
#include "platform/files.h"

namespace korv {

/// What has become of the files of finished runs since they were counted. Paths as text, UTF-8, each once.
struct ChangedSources {
  std::set<std::string> Changed;  ///< They have another size or time.
  std::set<std::string> Gone;     ///< They cannot be opened any more.
};

/// Adds what became of the files of a run. New files of its folders are not looked for. Cost: opens each
/// file. After a stop some are missing.
void AddChangedSources(const Corpus& corpus, FileSystem& files, Yielder& yielder, ChangedSources& sources);

}  // namespace korv
