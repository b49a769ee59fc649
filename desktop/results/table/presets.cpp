#include "desktop/results/table/presets.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/translation.h"
#include "report/columns/registry.h"

namespace korv {

namespace {

/// Below this number of running words, thresholds per million mean little.
constexpr uint64_t kFewWords = 200'000;

bool HasItsColumns(const Preset& preset) {
  const auto isThere = [](std::string_view id) { return FindColumn(id) != nullptr; };
  return isThere(preset.SortBy) && std::ranges::all_of(preset.Columns, isThere);
}

}  // namespace

std::vector<Preset> Presets() {
  std::vector<Preset> presets = {
      {.Name = "bundles1999",
       .Caption = Tr("Lexical bundles, 1999: &4 words"),
       .Tip =
           Tr("4 words, at least 10 occurrences per million words, in at least 5 files (Biber et al. 1999)."),
       .PerMillion = 10,
       .LeastWords = 4,
       .MostWords = 4,
       .LeastFiles = 5},
      {.Name = "bundles1999Long",
       .Caption = Tr("Lexical bundles, 1999: &5 to 6 words"),
       .Tip = Tr("5 to 6 words, at least 5 occurrences per million words, in at least 5 files (Biber et al. "
                 "1999)."),
       .PerMillion = 5,
       .LeastWords = 5,
       .MostWords = 6,
       .LeastFiles = 5},
      {.Name = "bundles2004",
       .Caption = Tr("Lexical bundles, &2004"),
       .Tip = Tr("4 words, at least 40 occurrences per million words, in at least 5 files (Biber, Conrad and "
                 "Cortes 2004)."),
       .PerMillion = 40,
       .LeastWords = 4,
       .MostWords = 4,
       .LeastFiles = 5},
      {.Name = "bundlesHyland",
       .Caption = Tr("Lexical bundles, &Hyland"),
       .Tip = Tr("At least 20 occurrences per million words, in at least 10 % of the files (Hyland 2008)."),
       .PerMillion = 20,
       .LeastFilesPercent = 10},
      {.Name = "petPhrases",
       .Caption = Tr("&Pet phrases"),
       .Tip = Tr("Phrases that stand on their own at least 3 times, most often first."),
       .LeastAlone = 3,
       .SortBy = "net_frequency",
       .Columns = {"net_frequency"}},
      {.Name = "terms",
       .Caption = Tr("&Terms"),
       .Tip = Tr("Ordered by C-value, with measures of how firmly the words belong together."),
       .SortBy = "c_value",
       .Columns = {"c_value", "mi_min", "log_dice"}},
      {.Name = "allPhrases",
       .Caption = Tr("&All phrases"),
       .Tip = Tr("No filter, the usual order and the columns that you have chosen.")},
  };
  std::erase_if(presets, [](const Preset& preset) { return !HasItsColumns(preset); });
  return presets;
}

double LeastFrequency(double perMillion, uint64_t words) {
  return std::max(2.0, std::ceil(perMillion * static_cast<double>(words) / 1e6));
}

std::vector<Limit> LimitsOf(const Preset& preset, const TableSource& source) {
  std::vector<Limit> limits;
  const auto add = [&](std::string_view id, std::optional<double> least, std::optional<double> most = {}) {
    if (const Column* column = FindColumn(id)) limits.push_back({column, least, most});
  };
  if (preset.PerMillion > 0)
    add("frequency", LeastFrequency(preset.PerMillion, source.Run().Facts.Words.Read()));
  if (preset.LeastWords > 0) add("words", preset.LeastWords, preset.MostWords);
  const double share =
      std::ceil(preset.LeastFilesPercent * static_cast<double>(source.FilesWithWords()) / 100);
  const double files = std::max<double>(preset.LeastFiles, share);
  if (files > 0 && !source.IsOneFile()) add("files", files);
  if (preset.LeastAlone > 0) add("net_frequency", preset.LeastAlone);
  return limits;
}

std::string NoteOf(const Preset& preset, const TableSource& source) {
  if (!preset.IsBundle()) return {};
  std::string note;
  const auto say = [&](std::string_view sentence) {
    if (!note.empty()) note += ' ';
    note += sentence;
  };
  if (source.Run().Facts.Words.Read() < kFewWords)
    say(Tr(
        "The text has fewer than 200,000 words: 10 occurrences per million are less than 2 there, and such "
        "thresholds say little."));
  if (source.IsOneFile()) say(Tr("The text is one file, so no number of files is asked for."));
  if (DropsShortWords(preset, source))
    say(Fill(Tr("Words of fewer than %1 letters were left out of the phrases of this run."),
             {std::to_string(source.Run().Facts.MinCharacters)}));
  return note;
}

bool DropsShortWords(const Preset& preset, const TableSource& source) {
  const RunSummary& facts = source.Run().Facts;
  return preset.IsBundle() && facts.MinCharacters > 0 && facts.Words.DroppedFor(DropReason::Short) > 0;
}

}  // namespace korv
