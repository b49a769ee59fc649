#include "app/run/is_source.h"

#include <algorithm>

namespace korv {

bool IsSource(const std::filesystem::path& path, const Corpus& corpus, const FileSystem& files) {
  return files.FileExists(path) && std::ranges::any_of(corpus.Sources, [&](const CorpusSource& source) {
           return !source.Path.empty() && files.SameFile(source.Path, path);
         });
}

}  // namespace korv
