#include "desktop/results/table/phrase_details.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <map>
#include <span>
#include <tuple>

#include "app/contexts/context_texts.h"
#include "desktop/results/pictures/place_bar.h"
#include "engine/analysis/phrase_query.h"
#include "engine/analysis/phrase_spread.h"
#include "engine/corpus/corpus.h"
#include "platform/files.h"
#include "report/columns/registry.h"
#include "sources/places/context_text.h"
#include "sources/places/words_around.h"

namespace korv {

namespace {

using Others = std::vector<PhraseIndex>;

void CountByFile(const TableSource& source, PhraseDetails& details) {
  const Corpus& corpus = source.Table().Corpus();
  std::map<size_t, uint32_t> counts;
  for (const Place place : source.Table().Places(details.Phrase)) ++counts[corpus.SourceAt(place)];
  std::vector<std::pair<size_t, uint32_t>> files(counts.begin(), counts.end());
  // Files of equal counts stay in the order of reading.
  std::ranges::stable_sort(files, std::greater(), &std::pair<size_t, uint32_t>::second);
  details.AllFiles = files.size();
  for (const auto& [file, count] : std::span(files).first(std::min(files.size(), PhraseDetails::kMostShown)))
    details.Files.push_back({PathToText(corpus.Sources[file].Path), count});
}

std::vector<PhraseDetails::Other> MostFrequent(const PhraseTable& table, Others& others) {
  const auto order = [&](PhraseIndex a, PhraseIndex b) {
    return std::tuple(table.Count(b), a) < std::tuple(table.Count(a), b);
  };
  const size_t shown = std::min(others.size(), PhraseDetails::kMostShown);
  std::ranges::partial_sort(others, others.begin() + static_cast<ptrdiff_t>(shown), order);
  std::vector<PhraseDetails::Other> most;
  for (const PhraseIndex other : std::span(others).first(shown))
    most.push_back({other, table.Text(other), table.Count(other)});
  return most;
}

/// The words of a phrase.
std::span<const WordNumber> WordsOf(const PhraseTable& table, PhraseIndex phrase) {
  return {table.Corpus().From(table.First(phrase)), static_cast<size_t>(table.Words(phrase))};
}

bool Holds(std::span<const WordNumber> whole, std::span<const WordNumber> part) {
  return std::search(whole.begin(), whole.end(), part.begin(), part.end()) != whole.end();
}

/// All listed phrases that contain the phrase, or are contained by it, each with more or fewer words.
bool FindOthers(const PhraseTable& table, const PhraseList& rows, PhraseIndex phrase, Yielder& yielder,
                Others& longer, Others& shorter) {
  const std::span<const WordNumber> words = WordsOf(table, phrase);
  const auto related = [&](std::span<const PhraseIndex> entries, uint64_t candidates) {
    uint64_t passing = 0;
    for (uint64_t left = candidates; left != 0; left &= left - 1) {
      const auto k = static_cast<size_t>(std::countr_zero(left));
      const std::span<const WordNumber> other = WordsOf(table, entries[k]);
      const bool isLonger = other.size() > words.size();
      const bool holds =
          other.size() != words.size() && (isLonger ? Holds(other, words) : Holds(words, other));
      passing |= uint64_t{holds} << k;
    }
    return passing;
  };
  const std::optional<PhraseList> found = FilterRows(table, rows.Order(), related, yielder);
  if (!found) return false;
  for (uint32_t row = 0; row < found->Rows(); ++row) {
    const PhraseIndex other = found->EntryAt(row);
    (table.Words(other) > table.Words(phrase) ? longer : shorter).push_back(other);
  }
  return true;
}

/// The first occurrences in the order of reading.
std::vector<Place> EarliestPlaces(const PhraseTable& table, PhraseIndex phrase) {
  const std::span<const Place> places = table.Places(phrase);
  std::vector<Place> earliest(std::min(places.size(), PhraseDetails::kMostContexts));
  std::partial_sort_copy(places.begin(), places.end(), earliest.begin(), earliest.end());
  return earliest;
}

void FindPlaces(const TableSource& source, PhraseDetails& details) {
  const PhraseTable& table = source.Table();
  const Corpus& corpus = table.Corpus();
  const PhraseAnalysis* const analysis = source.View().Analysis;
  if (const TakenWords* words = analysis != nullptr ? analysis->Words() : nullptr) {
    details.Cells = OccurrencesByPart(table, details.Phrase, *words, kPlaceCells);
    details.Borders = ShownBorders(corpus, *words);
  }
  for (const Place place : EarliestPlaces(table, details.Phrase)) {
    PlaceInText text = WordsAround(corpus, place, table.Words(details.Phrase), PhraseDetails::kAround);
    details.First.push_back({place, NameOfText(source.Run(), corpus.SourceAt(place)), std::move(text.Left),
                             std::move(text.Phrase), std::move(text.Right)});
  }
}

}  // namespace

void ReadContexts(const CountedRun& run, PlaceLocator& locator, PhraseDetails& details) {
  const Corpus& corpus = run.Table.Corpus();
  for (PhraseDetails::Context& context : details.First) {
    // A run that kept no lines does not lead back to its text.
    if (corpus.Lines.LineNumber(context.At) == 0) continue;
    auto text = locator.Locate(context.At, run.Table.Words(details.Phrase), PhraseDetails::kAround);
    if (!text) continue;
    context.Where = PlaceName(run, corpus.SourceAt(context.At), text->Number);
    context.Left = std::move(text->Left);
    context.Phrase = WithSingleBlanks(text->Phrase);
    context.Right = std::move(text->Right);
  }
}

std::optional<PhraseDetails> DetailsOf(const TableSource& source, const PhraseList& rows, PhraseIndex phrase,
                                       Yielder& yielder) {
  const PhraseTable& table = source.Table();
  PhraseDetails details{.Phrase = phrase, .Text = table.Text(phrase), .Count = table.Count(phrase)};
  std::string text;
  if (const Column* alone = FindColumn("net_frequency"); alone != nullptr && source.Has(alone->Needs)) {
    const Cell cell = source.ValueOf(*alone, phrase, text);
    if (const auto* whole = std::get_if<int64_t>(&cell)) details.Alone = *whole;
  }
  if (!source.IsOneFile()) CountByFile(source, details);
  FindPlaces(source, details);
  Others longer;
  Others shorter;
  if (!FindOthers(table, rows, phrase, yielder, longer, shorter)) return std::nullopt;
  details.AllLonger = longer.size();
  details.AllShorter = shorter.size();
  details.Longer = MostFrequent(table, longer);
  details.Shorter = MostFrequent(table, shorter);
  return details;
}

}  // namespace korv
