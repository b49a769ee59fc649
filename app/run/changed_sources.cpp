#include "app/run/changed_sources.h"

namespace korv {

void AddChangedSources(const Corpus& corpus, FileSystem& files, Yielder& yielder, ChangedSources& sources) {
  for (const CorpusSource& source : corpus.Sources) {
    yielder.Yield();
    if (yielder.Stopped()) return;
    // The text of a clipboard was kept.
    if (source.Path.empty()) continue;
    const auto file = files.OpenForReading(source.Path);
    if (!file)
      sources.Gone.insert(PathToText(source.Path));
    else if ((*file)->Size() != source.Origin.Size || (*file)->Modified() != source.Origin.Modified)
      sources.Changed.insert(PathToText(source.Path));
  }
}

}  // namespace korv
