#pragma once

#include <filesystem>

#include "engine/corpus/corpus.h"
#include "platform/files.h"

namespace korv {

/// Whether a file is one of those that were counted. Cost: where it exists, a look at each of them.
bool IsSource(const std::filesystem::path& path, const Corpus& corpus, const FileSystem& files);

}  // namespace korv
