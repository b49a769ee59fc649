#include "engine/counting/restore_table.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <tuple>
#include <utility>

#include "base/pieces.h"
#include "base/workers.h"
#include "engine/counting/entry_order.h"

namespace korv {

namespace {

/// Tokens lie all over the memory where places are sorted; those of so many places later are prefetched.
constexpr size_t kAhead = 16;

/// Looks whether tokens and texts are those of a corpus.
class TextCheck {
 public:
  TextCheck(const Corpus& corpus, Yielder& yielder) : corpus_(corpus), yielder_(yielder) {}

  bool Holds(const WordCounts& words) {
    return TokensHold() && EndsHold() && SourcesHold() && CountsHold(words);
  }

 private:
  bool TokensHold() {
    const size_t n = corpus_.Tokens.size();
    if (n <= kTrailingEnds || n > std::numeric_limits<uint32_t>::max() || corpus_.Tokens[0] != kNoWord)
      return false;
    const WordNumber last{corpus_.Words.Size()};
    std::atomic<bool> holds{true};
    const bool finished = RunParts(n, yielder_, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end; ++i)
        if (corpus_.Tokens[i] > last) holds = false;
    });
    return finished && holds &&
           std::all_of(corpus_.Tokens.end() - kTrailingEnds, corpus_.Tokens.end(),
                       [](WordNumber token) { return token == kNoWord; });
  }

  bool EndsHold() const {
    const GrowingArray<Place>& ends = corpus_.WordsAtEnds;
    for (size_t i = 0; i < ends.size(); ++i)
      if (ValueOf(ends[i]) >= corpus_.Tokens.size() || *corpus_.From(ends[i]) != kNoWord ||
          (i > 0 && ends[i] < ends[i - 1]))
        return false;
    return true;
  }

  bool SourcesHold() const {
    const std::vector<CorpusSource>& sources = corpus_.Sources;
    // Every file of a folder may have been refused.
    if (sources.empty()) return TextIsEmpty() && corpus_.Lines.Anchors().empty();
    if (sources.front().Begin != 1) return false;
    for (size_t s = 0; s < sources.size(); ++s)
      if (sources[s].Begin > corpus_.Tokens.size() - kTrailingEnds ||
          (s > 0 && sources[s].Begin < sources[s - 1].Begin) ||
          corpus_.Tokens[sources[s].Begin - 1] != kNoWord)
        return false;
    const std::vector<LineAnchor>& anchors = corpus_.Lines.Anchors();
    return anchors.empty() ? TextIsEmpty()
                           : anchors.front().Token() == Place{1} &&
                                 ValueOf(anchors.back().Token()) < corpus_.Tokens.size();
  }
  bool TextIsEmpty() const {
    return std::all_of(corpus_.Tokens.begin(), corpus_.Tokens.end(),
                       [](WordNumber token) { return token == kNoWord; });
  }

  /// The numbers of words taken before the texts, and in all of them.
  bool CountsHold(const WordCounts& words) const {
    uint64_t taken = 0;
    size_t place = 0;
    for (const CorpusSource& source : corpus_.Sources) {
      for (; place < source.Begin; ++place) taken += corpus_.Tokens[place] != kNoWord ? 1 : 0;
      // A word that ended phrases at the very begin of a text has the place of those at the end of the text
      // before it.
      if (source.WordsBefore < taken + EndsBefore(source.Begin - 1) ||
          source.WordsBefore > taken + EndsBefore(source.Begin))
        return false;
    }
    for (; place < corpus_.Tokens.size(); ++place) taken += corpus_.Tokens[place] != kNoWord ? 1 : 0;
    return words.Taken == taken + corpus_.WordsAtEnds.size() &&
           std::is_sorted(
               corpus_.Sources.begin(), corpus_.Sources.end(),
               [](const CorpusSource& a, const CorpusSource& b) { return a.WordsBefore < b.WordsBefore; });
  }
  uint64_t EndsBefore(size_t place) const {
    const auto& ends = corpus_.WordsAtEnds;
    return static_cast<uint64_t>(
        std::lower_bound(ends.begin(), ends.end(), Place{static_cast<uint32_t>(place)}) - ends.begin());
  }

  const Corpus& corpus_;
  Yielder& yielder_;
};

/// For each place the number of words that it has in common with the one before, MaxWords at most.
using CommonWords = RawVector<uint8_t>;

/// Looks whether the places of a corpus are a suffix array, and finds which belong to which word.
class PlacesCheck {
 public:
  PlacesCheck(Corpus& corpus, Yielder& yielder) : corpus_(corpus), yielder_(yielder) {}

  bool Holds(CommonWords& common) {
    const RawVector<Place>& places = corpus_.Places;
    std::atomic<bool> holds{true};
    const bool inText = RunParts(places.size(), yielder_, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end; ++i)
        if (ValueOf(places[i]) >= corpus_.Tokens.size() - kTrailingEnds ||
            *corpus_.From(places[i]) == kNoWord)
          holds = false;
    });
    if (!inText || !holds) return false;
    common.resize(places.size());
    const bool sorted = RunParts(places.size(), yielder_, [&](size_t begin, size_t end) {
      if (begin == 0 && end > 0) common[0] = 0;
      for (size_t i = std::max<size_t>(begin, 1); i < end && holds; ++i) {
        if (i + kAhead < end) __builtin_prefetch(corpus_.From(places[i + kAhead]));
        if (!Before(places[i - 1], places[i], common[i])) holds = false;
      }
    });
    return sorted && holds && FindPlacesOfWords();
  }

 private:
  bool Before(Place a, Place b, uint8_t& common) const {
    const WordNumber* const x = corpus_.From(a);
    const WordNumber* const y = corpus_.From(b);
    common = 0;
    for (int k = 0; k < corpus_.Options.MaxWords; ++k) {
      if (x[k] != y[k]) return x[k] < y[k];
      if (x[k] == kNoWord) break;
      ++common;
    }
    return a < b;
  }

  bool FindPlacesOfWords() {
    corpus_.PlacesOfWord.assign(size_t{corpus_.Words.Size()} + 2, 0);
    if (!InPieces(corpus_.Places.size(), yielder_, [this](size_t begin, size_t end) {
          for (size_t i = begin; i < end; ++i)
            ++corpus_.PlacesOfWord[ValueOf(*corpus_.From(corpus_.Places[i]))];
        }))
      return false;
    uint32_t end = 0;
    for (uint32_t& places : corpus_.PlacesOfWord) places = end += places;
    return true;
  }

  Corpus& corpus_;
  Yielder& yielder_;
};

/// Looks whether entries are those of a table, and finds their first places.
class EntryCheck {
 public:
  EntryCheck(PhraseTableData& data, const CommonWords& common, Yielder& yielder)
      : data_(data), common_(common), yielder_(yielder) {}

  bool Holds() {
    std::vector<PhraseEntry>& entries = data_.Entries;
    std::atomic<bool> holds{true};
    std::atomic<uint64_t> occurrences{0};
    const bool finished = RunParts(entries.size(), yielder_, [&](size_t begin, size_t end) {
      uint64_t sum = 0;
      for (size_t e = begin; e < end && holds && !yielder_.Stopped(); ++e) {
        if (e + kAhead < end) Prefetch(entries[e + kAhead]);
        if (!IsPhrase(entries[e]) || !FindFirst(entries[e])) holds = false;
        sum += entries[e].Count;
      }
      occurrences += sum;
    });
    return finished && holds && InOrder() && occurrences <= data_.Occurrences &&
           entries.size() <= data_.PhraseCount && data_.PhraseCount <= data_.Occurrences;
  }

 private:
  void Prefetch(const PhraseEntry& entry) const {
    const RawVector<Place>& places = data_.Corpus.Places;
    if (entry.Slice < places.size()) __builtin_prefetch(data_.Corpus.From(places[entry.Slice]));
  }

  /// The places of the entry are all those that begin with one phrase of its length.
  bool IsPhrase(const PhraseEntry& entry) const {
    const RawVector<Place>& places = data_.Corpus.Places;
    const RunOptions& options = data_.Corpus.Options;
    const uint64_t end = uint64_t{entry.Slice} + entry.Count;
    if (entry.Words < options.MinWords || entry.Words > options.MaxWords || entry.Count == 0 ||
        entry.Count < static_cast<uint32_t>(options.MinFrequency) || end > places.size())
      return false;
    const WordNumber* const words = data_.Corpus.From(places[entry.Slice]);
    int characters = entry.Words - 1;
    for (int k = 0; k < entry.Words; ++k) {
      if (words[k] == kNoWord) return false;
      characters += data_.Corpus.Words.Characters(words[k]);
    }
    const auto isOfPhrase = [&](uint8_t common) { return common >= entry.Words; };
    const auto first = common_.begin() + static_cast<std::ptrdiff_t>(entry.Slice);
    const auto last = first + static_cast<std::ptrdiff_t>(entry.Count);
    return characters <= data_.Corpus.Options.MostCharacters && !isOfPhrase(*first) &&
           std::all_of(first + 1, last, isOfPhrase) && (last == common_.end() || !isOfPhrase(*last));
  }

  bool FindFirst(PhraseEntry& entry) const {
    const auto begin = data_.Corpus.Places.begin() + static_cast<std::ptrdiff_t>(entry.Slice);
    const auto end = begin + static_cast<std::ptrdiff_t>(entry.Count);
    entry.First = *std::min_element(begin, end);
    return data_.FileNumberOfSource.empty() || std::all_of(begin, end, [this](Place place) {
             return data_.FileNumberOfSource[data_.Corpus.SourceAt(place)] != kNoDocument;
           });
  }

  bool InOrder() {
    std::atomic<bool> holds{true};
    const bool byNumbers = data_.Corpus.Words.KeysDiffer();
    const bool finished = RunParts(data_.Entries.size(), yielder_, [&](size_t begin, size_t end) {
      for (size_t e = std::max<size_t>(begin, 1); e < end && holds; ++e) {
        const PhraseEntry& a = data_.Entries[e - 1];
        const PhraseEntry& b = data_.Entries[e];
        // Places ascend by the numbers of their words, a phrase before those that it begins.
        if (byNumbers ? std::tie(a.Slice, a.Words) >= std::tie(b.Slice, b.Words)
                      : !EntryBefore(data_.Corpus, a, b))
          holds = false;
      }
    });
    return finished && holds;
  }

  PhraseTableData& data_;
  const CommonWords& common_;
  Yielder& yielder_;
};

bool NumberFiles(const std::vector<uint8_t>& sourceHasPhrase, PhraseTableData& data) {
  const std::vector<CorpusSource>& sources = data.Corpus.Sources;
  const bool folder = data.Corpus.Options.SourceKind == TextSource::Folder;
  if (sourceHasPhrase.size() != (folder ? sources.size() : 0)) return false;
  for (size_t s = 0; s < sourceHasPhrase.size(); ++s) {
    if (sourceHasPhrase[s] != 0) data.FilePaths.push_back(sources[s].Path);
    data.FileNumberOfSource.push_back(
        sourceHasPhrase[s] == 0 ? kNoDocument : DocumentNumber{static_cast<uint32_t>(data.FilePaths.size())});
  }
  return true;
}

}  // namespace

std::vector<uint8_t> SourcesWithPhrase(const PhraseTableData& data) {
  std::vector<uint8_t> has;
  for (const DocumentNumber number : data.FileNumberOfSource) has.push_back(number == kNoDocument ? 0 : 1);
  return has;
}

bool RestoreTable(StoredTable&& stored, const WordCounts& words, PhraseTable& table, Yielder& yielder) {
  table = PhraseTable();
  PhraseTableData& data = table.Data();
  data.Corpus = std::move(stored.Corpus);
  if (!data.Corpus.Words.Ranked() || !TextCheck(data.Corpus, yielder).Holds(words)) return false;
  data.Corpus.IndexSources();
  CommonWords common;
  if (!NumberFiles(stored.SourceHasPhrase, data) || !PlacesCheck(data.Corpus, yielder).Holds(common))
    return false;
  data.Entries = std::move(stored.Entries);
  data.PhraseCount = stored.PhraseCount;
  data.Occurrences = stored.Occurrences;
  data.LongPhrases = stored.LongPhrases;
  data.OnlyMaximal = !data.Corpus.Lists->HasCountOnlyPhrases();
  data.OrderedByNumbers = true;
  return EntryCheck(data, common, yielder).Holds();
}

}  // namespace korv
