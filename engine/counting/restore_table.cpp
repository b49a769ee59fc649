#include "engine/counting/restore_table.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <utility>

#include "base/pieces.h"
#include "base/workers.h"
#include "engine/counting/entry_order.h"

namespace korv {

namespace {

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

/// Looks whether the places of a corpus are a suffix array, and finds which belong to which word.
class PlacesCheck {
 public:
  PlacesCheck(Corpus& corpus, Yielder& yielder) : corpus_(corpus), yielder_(yielder) {}

  bool Holds() {
    const RawVector<Place>& places = corpus_.Places;
    std::atomic<bool> holds{true};
    const bool inText = RunParts(places.size(), yielder_, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end; ++i)
        if (ValueOf(places[i]) >= corpus_.Tokens.size() - kTrailingEnds ||
            *corpus_.From(places[i]) == kNoWord)
          holds = false;
    });
    if (!inText || !holds) return false;
    const bool sorted = RunParts(places.size(), yielder_, [&](size_t begin, size_t end) {
      for (size_t i = std::max<size_t>(begin, 1); i < end && holds; ++i)
        if (!Before(places[i - 1], places[i])) holds = false;
    });
    return sorted && holds && FindPlacesOfWords();
  }

 private:
  bool Before(Place a, Place b) const {
    const WordNumber* const x = corpus_.From(a);
    const WordNumber* const y = corpus_.From(b);
    for (int k = 0; k < corpus_.Options.MaxWords; ++k) {
      if (x[k] != y[k]) return x[k] < y[k];
      if (x[k] == kNoWord) break;
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
  EntryCheck(PhraseTableData& data, Yielder& yielder) : data_(data), yielder_(yielder) {}

  bool Holds() {
    uint64_t occurrences = 0;
    PhraseEntry* before = nullptr;
    for (PhraseEntry& entry : data_.Entries) {
      yielder_.Yield();
      if (yielder_.Stopped() || !IsPhrase(entry) || !FindFirst(entry)) return false;
      if (before != nullptr && !EntryBefore(data_.Corpus, *before, entry)) return false;
      before = &entry;
      occurrences += entry.Count;
    }
    return occurrences <= data_.Occurrences && data_.Entries.size() <= data_.PhraseCount &&
           data_.PhraseCount <= data_.Occurrences;
  }

 private:
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
    return characters <= kMostPhraseCharacters && Begins(places[end - 1], words, entry.Words) &&
           (end == places.size() || !Begins(places[end], words, entry.Words)) &&
           (entry.Slice == 0 || !Begins(places[entry.Slice - 1], words, entry.Words));
  }
  bool Begins(Place place, const WordNumber* words, int count) const {
    return std::equal(words, words + count, data_.Corpus.From(place));
  }

  bool FindFirst(PhraseEntry& entry) const {
    const auto begin = data_.Corpus.Places.begin() + static_cast<std::ptrdiff_t>(entry.Slice);
    const auto end = begin + static_cast<std::ptrdiff_t>(entry.Count);
    entry.First = *std::min_element(begin, end);
    return data_.FileNumberOfSource.empty() || std::all_of(begin, end, [this](Place place) {
             return data_.FileNumberOfSource[data_.Corpus.SourceAt(place)] != kNoDocument;
           });
  }

  PhraseTableData& data_;
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
  if (!NumberFiles(stored.SourceHasPhrase, data) || !PlacesCheck(data.Corpus, yielder).Holds()) return false;
  data.Entries = std::move(stored.Entries);
  data.PhraseCount = stored.PhraseCount;
  data.Occurrences = stored.Occurrences;
  data.LongPhrases = stored.LongPhrases;
  data.OnlyMaximal = !data.Corpus.Lists->HasCountOnlyPhrases();
  data.OrderedByNumbers = true;
  return EntryCheck(data, yielder).Holds();
}

}  // namespace korv
