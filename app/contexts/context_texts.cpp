#include "app/contexts/context_texts.h"

#include "app/run/result_notes.h"
#include "base/translation.h"

namespace korv {

namespace {

std::string Grouped(uint64_t number, const NumberFormat& numbers) {
  return numbers.Grouped(static_cast<int64_t>(number));
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
    const RunSummary& facts = run.Facts;
    const auto second = run.Table.Corpus().SecondSide;
    if (facts.SecondSide && second && source >= *second) return NameAmong(facts.SecondSide->Paths, path);
    if (!facts.Paths.empty()) return NameAmong(facts.Paths, path);
    const auto below = path.lexically_relative(PathFromText(run.Facts.InputPath).lexically_normal());
    if (IsBelow(below)) return PathToText(below);
  }
  return PathToText(path.filename());
}

std::string PlaceName(const CountedRun& run, size_t source, uint64_t line) {
  return NameOfText(run, source) + ":" + std::to_string(line);
}

std::string LineText(const PlaceInText& place) {
  const std::string number = std::to_string(place.Number);
  switch (place.Unit) {
    case PlaceUnit::Page:
      return Fill(Tr("Page %1"), {number});
    case PlaceUnit::Chapter:
      return Fill(Tr("Chapter %1"), {number});
    case PlaceUnit::Cue:
      return Fill(Tr("Cue %1"), {number});
    case PlaceUnit::Segment:
      return Fill(Tr("Segment %1"), {number});
    case PlaceUnit::Line:
      break;
  }
  return Fill(Tr("Line %1, column %2"), {number, std::to_string(place.Column)});
}

std::string OccurrencePlaceText(const PlaceInText& place, const std::string& name,
                                const std::string& occurrence, const std::string& all,
                                const NumberFormat& numbers) {
  const std::string number = Grouped(place.Number, numbers);
  switch (place.Unit) {
    case PlaceUnit::Page:
      return Fill(Tr("%1, page %2 \u2013 occurrence %3 of %4"), {name, number, occurrence, all});
    case PlaceUnit::Chapter:
      return Fill(Tr("%1, chapter %2 \u2013 occurrence %3 of %4"), {name, number, occurrence, all});
    case PlaceUnit::Cue:
      return Fill(Tr("%1, cue %2 \u2013 occurrence %3 of %4"), {name, number, occurrence, all});
    case PlaceUnit::Segment:
      return Fill(Tr("%1, segment %2 \u2013 occurrence %3 of %4"), {name, number, occurrence, all});
    case PlaceUnit::Line:
      break;
  }
  return Fill(Tr("%1, line %2, column %3 \u2013 occurrence %4 of %5"),
              {name, number, Grouped(place.Column, numbers), occurrence, all});
}

std::string OccurrencesText(const ContextList& list, const NumberFormat& numbers) {
  const uint64_t occurrences = list.Occurrences();
  if (occurrences == 0) return Tr("No occurrence");
  std::string text =
      Fill(TrCount("%1 occurrence", "%1 occurrences", occurrences), {Grouped(occurrences, numbers)});
  if (list.Files() && list.Run().Facts.Options.SourceKind == TextSource::Folder) {
    const uint64_t files = *list.Files();
    text = Fill(TrCount("%1 in %2 file", "%1 in %2 files", files), {text, Grouped(files, numbers)});
  }
  if (!list.Query().SampleSeed || occurrences <= kContextSample) return text;
  return Fill(Tr("%1 of %2, drawn at random (seed %3)"),
              {Grouped(kContextSample, numbers), text, std::to_string(*list.Query().SampleSeed)});
}

std::string ChangedTextsText(const CountedRun& run, const ChangedTexts& changed,
                             const NumberFormat& numbers) {
  if (changed.empty()) return {};
  if (changed.size() > 1)
    return Fill(TrCount("%1 file has changed since it was counted or cannot be read any more: the words that "
                        "were counted stand for its lines.",
                        "%1 files have changed since they were counted or cannot be read any more: the words "
                        "that were counted stand for their lines.",
                        changed.size()),
                {Grouped(changed.size(), numbers)});
  const auto& [source, fault] = *changed.begin();
  switch (fault) {
    case PlaceFault::Changed:
      return Fill(Tr("%1 has changed since it was counted: the words that were counted stand for its lines."),
                  {NameOfText(run, source)});
    case PlaceFault::Unreadable:
      return Fill(Tr("%1 cannot be read any more: the words that were counted stand for its lines."),
                  {NameOfText(run, source)});
    case PlaceFault::NotKept:
      break;
  }
  return Tr("The text was not kept: the words that were counted stand for its lines.");
}

}  // namespace korv
