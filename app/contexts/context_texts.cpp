#include "app/contexts/context_texts.h"

#include "app/run/result_notes.h"

namespace korv {

namespace {

std::string Counted(uint64_t number, const char* one, const char* many, const NumberFormat& numbers) {
  return numbers.Grouped(static_cast<int64_t>(number)) + (number == 1 ? one : many);
}

bool IsBelow(const std::filesystem::path& relative) {
  return !relative.empty() && *relative.begin() != "..";
}

/// Below a folder among them the name of that folder and the names in it.
std::string NameAmong(const std::vector<SourcePath>& paths, const std::filesystem::path& path) {
  for (const SourcePath& source : paths) {
    if (source.What != SourcePath::Kind::Folder) continue;
    const std::filesystem::path folder = PathFromText(source.Path).lexically_normal();
    const auto below = path.lexically_relative(folder);
    if (IsBelow(below)) return PathToText(folder.filename() / below);
  }
  return PathToText(path.filename());
}

}  // namespace

std::string NameOfText(const CountedRun& run, size_t source) {
  const std::filesystem::path& path = run.Table.Corpus().Sources[source].Path;
  if (path.empty()) return SourceName(TextSource::Clipboard, {});
  if (run.Facts.Options.SourceKind == TextSource::Folder) {
    if (!run.Facts.Paths.empty()) return NameAmong(run.Facts.Paths, path);
    const auto below = path.lexically_relative(PathFromText(run.Facts.InputPath).lexically_normal());
    if (IsBelow(below)) return PathToText(below);
  }
  return PathToText(path.filename());
}

std::string PlaceName(const CountedRun& run, size_t source, uint64_t line) {
  return NameOfText(run, source) + ":" + std::to_string(line);
}

std::string OccurrencesText(const ContextList& list, const NumberFormat& numbers) {
  if (list.Occurrences() == 0) return "No occurrence";
  std::string text = Counted(list.Occurrences(), " occurrence", " occurrences", numbers);
  if (list.Files() && list.Run().Facts.Options.SourceKind == TextSource::Folder)
    text += " in " + Counted(*list.Files(), " file", " files", numbers);
  if (!list.Query().SampleSeed || list.Occurrences() <= kContextSample) return text;
  return numbers.Grouped(static_cast<int64_t>(kContextSample)) + " of " + text + ", drawn at random (seed " +
         std::to_string(*list.Query().SampleSeed) + ")";
}

std::string ChangedTextsText(const CountedRun& run, const ChangedTexts& changed,
                             const NumberFormat& numbers) {
  if (changed.empty()) return {};
  constexpr const char* kInstead = ": the words that were counted stand for its lines.";
  if (changed.size() > 1)
    return Counted(changed.size(), "",
                   " files have changed since they were counted or cannot be read any more", numbers) +
           ": the words that were counted stand for their lines.";
  const auto& [source, fault] = *changed.begin();
  switch (fault) {
    case PlaceFault::Changed:
      return NameOfText(run, source) + " has changed since it was counted" + kInstead;
    case PlaceFault::Unreadable:
      return NameOfText(run, source) + " cannot be read any more" + kInstead;
    case PlaceFault::NotKept:
      break;
  }
  return "The text was not kept: the words that were counted stand for its lines.";
}

}  // namespace korv
