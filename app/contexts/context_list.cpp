#include "app/contexts/context_list.h"

#include <algorithm>
#include <random>
#include <utility>

#include "base/pieces.h"
#include "engine/corpus/phrase_places.h"

namespace korv {

namespace {

/// In no order.
std::vector<Place> AllPlaces(const Corpus& corpus, std::span<const WordNumber> phrase) {
  if (phrase.empty() || std::ranges::find(phrase, kNoWord) != phrase.end()) return {};
  if (const auto sorted = SortedPlaces(corpus, phrase)) return {sorted->begin(), sorted->end()};
  return ScanForPlaces(corpus, phrase);
}

std::optional<size_t> CountFiles(const Corpus& corpus, const std::vector<Place>& places,
                                 const Yielder& yielder) {
  std::vector<bool> seen(corpus.Sources.size());
  if (!InPieces(places.size(), yielder, [&](size_t begin, size_t end) {
        for (size_t k = begin; k < end; ++k) seen[corpus.SourceAt(places[k])] = true;
      }))
    return std::nullopt;
  return static_cast<size_t>(std::ranges::count(seen, true));
}

/// Draws without putting back, the same with every standard library.
void TakeSample(uint64_t seed, std::vector<Place>& places) {
  if (places.size() <= kContextSample) return;
  std::mt19937_64 random(seed);
  for (size_t k = 0; k < kContextSample; ++k)
    std::swap(places[k], places[k + random() % (places.size() - k)]);
  places.resize(kContextSample);
}

}  // namespace

ContextList::ContextList(std::shared_ptr<const CountedRun> run, ContextQuery query, std::vector<Place> places,
                         uint64_t occurrences, bool whole)
    : run_(std::move(run)),
      query_(std::move(query)),
      places_(std::move(places)),
      occurrences_(occurrences),
      whole_(whole) {
  if (!query_.FileByFile) return;
  const Corpus& corpus = run_->Table.Corpus();
  for (size_t k = 0; k < places_.size(); ++k)
    if (const size_t source = corpus.SourceAt(places_[k]); groups_.empty() || groups_.back().Source != source)
      groups_.push_back({k, source});
}

size_t ContextList::GroupOfRow(size_t row) const {
  // The heading of group g is row Begin + g.
  size_t low = 0;
  size_t high = groups_.size();
  while (high - low > 1) {
    const size_t middle = low + (high - low) / 2;
    (groups_[middle].Begin + middle <= row ? low : high) = middle;
  }
  return low;
}

std::optional<size_t> ContextList::PlaceAt(size_t row) const {
  if (groups_.empty()) return row;
  const size_t group = GroupOfRow(row);
  if (row == groups_[group].Begin + group) return std::nullopt;
  return row - group - 1;
}

ContextList::Heading ContextList::HeadingAt(size_t row) const {
  const size_t group = GroupOfRow(row);
  const size_t end = group + 1 < groups_.size() ? groups_[group + 1].Begin : places_.size();
  return {groups_[group].Source, end - groups_[group].Begin};
}

size_t ContextList::RowOf(size_t index) const {
  const auto behind =
      std::ranges::upper_bound(groups_, index, {}, [](const Group& group) { return group.Begin; });
  return index + static_cast<size_t>(behind - groups_.begin());
}

bool FindContexts(const std::shared_ptr<const CountedRun>& run, const ContextQuery& query, size_t first,
                  Yielder& yielder, const std::function<void(std::shared_ptr<const ContextList>)>& tell) {
  const Corpus& corpus = run->Table.Corpus();
  std::vector<Place> places = AllPlaces(corpus, query.Words);
  if (query.Of) {
    const Place border = corpus.EndOfSideA();
    std::erase_if(places, [&](Place place) { return (place < border) != (query.Of == Side::A); });
  }
  const uint64_t occurrences = places.size();
  std::optional<size_t> files;
  const auto countFiles = [&] { files = CountFiles(corpus, places, yielder); };
  if (query.SampleSeed) {
    countFiles();
    TakeSample(*query.SampleSeed, places);
  }
  const FirstPlaces early{
      first, [&] {
        tell(std::make_shared<const ContextList>(
            run, query, std::vector(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(first)),
            occurrences, /*whole=*/false));
      }};
  if (!OrderPlaces(corpus, static_cast<int>(query.Words.size()), query.Order, query.FileByFile, yielder,
                   places, early))
    return false;
  if (!files) countFiles();
  if (!files) return false;
  auto list = std::make_shared<ContextList>(run, query, std::move(places), occurrences, /*whole=*/true);
  list->SetFiles(*files);
  tell(std::move(list));
  return !yielder.Stopped();
}

}  // namespace korv
