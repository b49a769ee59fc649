#include "desktop/results/pictures/make_picture.h"

#include <algorithm>
#include <span>
#include <utility>

#include "desktop/results/pictures/file_picture.h"
#include "desktop/results/pictures/key_points.h"
#include "desktop/results/pictures/length_picture.h"
#include "desktop/results/pictures/place_bar.h"
#include "desktop/results/pictures/place_picture.h"
#include "desktop/results/pictures/rank_picture.h"
#include "desktop/results/pictures/sides_picture.h"
#include "desktop/toolkit/text.h"
#include "engine/analysis/list_profile.h"
#include "engine/analysis/phrase_spread.h"
#include "platform/files.h"

namespace korv {
namespace {

constexpr size_t kMostFiles = 30;

using Phrases = std::vector<PhraseIndex>;

/// Those that were chosen, or the most frequent ones where none was.
Phrases PicturedPhrases(const PhraseTable& table, const Phrases& chosen, Yielder& yielder) {
  if (!chosen.empty())
    return {chosen.begin(), chosen.begin() + std::min<ptrdiff_t>(std::ssize(chosen), kMostPicturedPhrases)};
  Phrases most;
  const auto before = [&table](PhraseIndex a, PhraseIndex b) {
    return table.Count(a) != table.Count(b) ? table.Count(a) > table.Count(b) : a < b;
  };
  for (const PhraseIndex i : table.All()) {
    yielder.Yield();
    if (yielder.Stopped()) return {};
    if (!table.Listed(i) || (most.size() == kMostPicturedPhrases && !before(i, most.back()))) continue;
    most.insert(std::ranges::upper_bound(most, i, before), i);
    if (most.size() > kMostPicturedPhrases) most.pop_back();
  }
  return most;
}

std::shared_ptr<const Picture> MakePlaces(const PhraseTable& table, const Phrases& phrases,
                                          const NumberFormat& numbers, Yielder& yielder) {
  const Corpus& corpus = table.Corpus();
  TakenWords words;
  if (!words.Build(corpus, yielder)) return nullptr;
  std::vector<PlacePicture::Row> rows;
  for (const PhraseIndex phrase : phrases) {
    if (yielder.Stopped()) return nullptr;
    rows.push_back({ToQt(table.Text(phrase)), table.Count(phrase),
                    OccurrencesByPart(table, phrase, words, kPlaceCells)});
  }
  return std::make_shared<PlacePicture>(std::move(rows), ShownBorders(corpus, words), words.Total(), numbers);
}

std::shared_ptr<const Picture> MakeFiles(const PhraseTable& table, const Phrases& phrases,
                                         const NumberFormat& numbers) {
  std::vector<QString> names;
  for (const PhraseIndex phrase : phrases) names.push_back(ToQt(table.Text(phrase)));
  const std::vector<SourceOccurrences> sources = OccurrencesBySource(table, phrases);
  std::vector<FilePicture::Row> rows;
  for (const SourceOccurrences& source : std::span(sources).first(std::min(sources.size(), kMostFiles)))
    rows.push_back(
        {ToQt(PathToText(table.Corpus().Sources[source.Source].Path.filename())), source.Occurrences});
  return std::make_shared<FilePicture>(std::move(names), std::move(rows), sources.size() - rows.size(),
                                       numbers);
}

}  // namespace

std::shared_ptr<const Picture> MakePicture(const PictureChoice& choice, const CountedRun& run,
                                           const NumberFormat& numbers, Yielder& yielder) {
  const PhraseTable& table = run.Table;
  const PictureKind kind = choice.Kind;
  if (kind == PictureKind::Sides) {
    auto points = FindKeyPoints(run, choice.ComparedBy, yielder);
    if (!points || points->Points.empty()) return nullptr;
    return std::make_shared<SidesPicture>(std::move(*points), numbers);
  }
  if (kind == PictureKind::Ranks || kind == PictureKind::Lengths) {
    ListProfile profile;
    if (!FindListProfile(table, yielder, profile) || profile.Frequencies.empty()) return nullptr;
    if (kind == PictureKind::Lengths) return std::make_shared<LengthPicture>(profile, numbers);
    return std::make_shared<RankPicture>(std::move(profile.Frequencies), numbers);
  }
  const Phrases pictured = PicturedPhrases(table, choice.Phrases, yielder);
  if (pictured.empty()) return nullptr;
  return kind == PictureKind::Places ? MakePlaces(table, pictured, numbers, yielder)
                                     : MakeFiles(table, pictured, numbers);
}

}  // namespace korv
