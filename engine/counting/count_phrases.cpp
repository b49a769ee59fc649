#include "engine/counting/count_phrases.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include "base/pieces.h"
#include "base/translation.h"
#include "base/workers.h"
#include "engine/corpus/suffix_sorter.h"
#include "engine/counting/bucket_splitter.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/long_phrases.h"
#include "engine/counting/phrase_sweep.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/rank_text.h"
#include "engine/counting/start_places.h"

namespace korv {

namespace {

/// Counts the phrases of a ranked text into an empty table.
class PhraseCounter {
 public:
  PhraseCounter(PhraseTableData& data, const CountRule& rule, size_t placesAtOnce, Yielder& yielder)
      : data_(data),
        rule_(rule),
        placesAtOnce_(placesAtOnce),
        yielder_(yielder),
        keepsPlaces_(KeepsPlaces(data.Corpus.Options)) {}

  /// False when stopped.
  bool Count() {
    if (!FindStartPlaces(data_.Corpus, rule_, yielder_, starts_) || !SortAndSweep() || !CountTooLong())
      return false;
    data_.Occurrences = occurrences_;
    data_.PhraseCount = different_.load();
    NumberFiles();
    if (!TakeEntries() || !TakePlaces()) return false;
    data_.OnlyMaximal = !rule_.ByPhrase();
    data_.OrderedByNumbers = true;
    return true;
  }

 private:
  /// Sorts each bucket of places by the words that follow and lists its phrases, on all threads.
  bool SortAndSweep() {
    firsts_ = FirstWordsOfTasks(starts_.BucketEnds, starts_.Places.size(), data_.Corpus.Words);
    const size_t tasks = firsts_.size() - 1;
    entries_.resize(tasks);
    sorters_.resize(WorkerCount(yielder_));
    if (rule_.ByPhrase()) sourceHasPhrase_ = std::vector<std::atomic<uint8_t>>(data_.Corpus.Sources.size());
    const bool finished = RunTasks(tasks, TooFewForThreads(data_), yielder_,
                                   [this](size_t task, size_t worker) { RunTask(task, worker); });
    sorters_.clear();
    return finished;
  }

  void RunTask(size_t task, size_t worker) {
    if (!sorters_[worker])
      sorters_[worker] = std::make_unique<SuffixSorter>(data_.Corpus.Tokens, data_.Corpus.Words.Size(),
                                                        data_.Corpus.Options.MaxWords, yielder_);
    PhraseSweep sweep({&data_, &rule_, &yielder_, &starts_.Lengths,
                       sourceHasPhrase_.empty() ? nullptr : &sourceHasPhrase_});
    uint64_t occurrences = 0;
    // Last word first, as the sweep goes within a bucket.
    for (WordNumber word = firsts_[task + 1]; word > firsts_[task];) {
      --word;
      if (!SortAndSweepBucket(word, *sorters_[worker], sweep)) return;
      occurrences += starts_.Occurrences[ValueOf(word)];
    }
    if (rule_.ByPhrase()) occurrences = sweep.Occurrences();
    occurrences_.fetch_add(occurrences, std::memory_order_relaxed);
    TellDifferent(occurrences - sweep.Repeats());
    entries_[task] = std::move(sweep.Entries());
    entries_[task].shrink_to_fit();
  }

  bool SortAndSweepBucket(WordNumber word, SuffixSorter& sorter, PhraseSweep& sweep) {
    const uint64_t begin = starts_.BucketEnds[ValueOf(word) - 1];
    const uint64_t end = starts_.BucketEnds[ValueOf(word)];
    if (begin == end) return true;
    const std::span<Place> places(starts_.Places.data() + begin, static_cast<size_t>(end - begin));
    sweep.BeginBucket(places, static_cast<uint32_t>(begin));
    if (places.size() <= placesAtOnce_)
      return SortAndSweepPart(places, {0, places.size(), 0, 0}, sorter, sweep);
    BucketSplitter splitter(data_.Corpus.Tokens, data_.Corpus.Words.Size(), data_.Corpus.Options.MaxWords,
                            placesAtOnce_, yielder_);
    const std::vector<BucketPart> parts = splitter.Split(places);
    return !yielder_.Stopped() && std::all_of(parts.rbegin(), parts.rend(), [&](const BucketPart& part) {
      return SortAndSweepPart(places, part, sorter, sweep);
    });
  }

  bool SortAndSweepPart(std::span<Place> bucket, const BucketPart& part, SuffixSorter& sorter,
                        PhraseSweep& sweep) {
    const std::span<Place> places = bucket.subspan(part.Begin, part.End - part.Begin);
    const auto begin = static_cast<uint32_t>(part.Begin);
    if (part.Equal > 0) {
      sweep.SweepEqual(places, part.Equal, begin, part.Common);
      return !yielder_.Stopped();
    }
    sorter.Sort(places);
    const auto putInOrder = [&](size_t first, size_t last) {
      for (size_t i = first; i < last; ++i) places[i] = sorter.Suffixes()[i].At;
    };
    if ((keepsPlaces_ || rule_.ByPhrase()) && !InPieces(places.size(), yielder_, putInOrder)) return false;
    if (yielder_.Stopped()) return false;
    sweep.SweepSorted(sorter.Suffixes(), sorter.Lcp(), begin, part.Common);
    return !yielder_.Stopped();
  }

  /// The number that is shown must never fall, not even when a count is taken up again after a stop.
  void TellDifferent(uint64_t more) {
    const uint64_t now = different_.fetch_add(more, std::memory_order_relaxed) + more;
    uint64_t shown = data_.PhraseCount.load(std::memory_order_relaxed);
    while (shown < now && !data_.PhraseCount.compare_exchange_weak(shown, now, std::memory_order_relaxed)) {
    }
  }

  bool CountTooLong() {
    data_.LongPhrases = starts_.LongPhrases;
    if (!rule_.ByPhrase()) return true;
    const auto tooLong =
        CountLongPhrases(data_, rule_, starts_.Lengths.All(), TooFewForThreads(data_), yielder_);
    if (tooLong) data_.LongPhrases = *tooLong;
    return tooLong.has_value();
  }

  /// Files with a phrase are numbered in the order in which they were read.
  void NumberFiles() {
    if (data_.Corpus.Options.SourceKind != TextSource::Folder) return;
    data_.FileNumberOfSource.assign(data_.Corpus.Sources.size(), kNoDocument);
    data_.FilePaths.clear();
    for (size_t s = 0; s < data_.Corpus.Sources.size(); ++s) {
      if (!(rule_.ByPhrase() ? sourceHasPhrase_[s].load() : starts_.SourceHasPhrase[s])) continue;
      data_.FilePaths.push_back(data_.Corpus.Sources[s].Path);
      data_.FileNumberOfSource[s] = DocumentNumber{static_cast<uint32_t>(data_.FilePaths.size())};
    }
  }

  /// Puts the entries of the tasks together in the order of words.
  bool TakeEntries() {
    size_t entries = 0;
    for (const auto& part : entries_) entries += part.size();
    if (entries >= std::numeric_limits<uint32_t>::max())
      throw std::length_error(Tr("There are too many phrases."));
    data_.Entries.reserve(entries);
    for (auto& part : entries_) {
      yielder_.Yield();
      if (!InPieces(part.size(), yielder_, [&](size_t first, size_t last) {
            data_.Entries.insert(data_.Entries.end(), part.rbegin() + static_cast<std::ptrdiff_t>(first),
                                 part.rbegin() + static_cast<std::ptrdiff_t>(last));
          }))
        return false;
      part = {};
    }
    return true;
  }

  bool TakePlaces() {
    if (!keepsPlaces_) return true;
    data_.Corpus.PlacesOfWord.resize(starts_.BucketEnds.Size());
    data_.Corpus.Places = std::move(starts_.Places);
    return InPieces(starts_.BucketEnds.Size(), yielder_, [this](size_t first, size_t last) {
      for (size_t w = first; w < last; ++w)
        data_.Corpus.PlacesOfWord[w] = static_cast<uint32_t>(starts_.BucketEnds[w]);
    });
  }

  PhraseTableData& data_;
  const CountRule& rule_;
  size_t placesAtOnce_;
  Yielder& yielder_;
  bool keepsPlaces_;
  StartPlaces starts_;
  std::vector<WordNumber> firsts_;                      ///< Of the tasks, and the word behind the last.
  std::vector<std::unique_ptr<SuffixSorter>> sorters_;  ///< Of the workers.
  std::vector<std::vector<PhraseEntry>> entries_;       ///< Of the tasks, last phrase first.
  /// Per source; only with entries for whole phrases, which the sweep alone applies.
  std::vector<std::atomic<uint8_t>> sourceHasPhrase_;
  std::atomic<uint64_t> occurrences_{0};
  std::atomic<uint64_t> different_{0};
};

void Empty(PhraseTableData& data) {
  data.Entries = {};
  data.Corpus.Places = {};
  data.Corpus.PlacesOfWord = {};
  data.Chain = {};
  data.Rank = {};
}

}  // namespace

void TakeText(CorpusBuilder&& builder, PhraseTable& table) {
  table = PhraseTable();
  table.Data().Corpus = std::move(builder).TakeCorpus();
}

bool HoldsPhrase(PhraseTable& table, Yielder& yielder) {
  const PhraseTableData& data = table.Data();
  bool stopped = false;
  const CountRule rule(data, yielder, stopped);
  if (stopped) return true;
  std::string scratch;
  for (size_t i = 0; i < data.Corpus.Tokens.size(); ++i) {
    yielder.Yield();
    if (yielder.Stopped()) return true;
    const WordNumber* const first = data.Corpus.Tokens.data() + i;
    int characters = -1;
    for (int words = 1; words <= data.Corpus.Options.MaxWords && first[words - 1] != kNoWord; ++words) {
      characters += data.Corpus.Words.Characters(first[words - 1]) + 1;
      if (characters > data.Corpus.Options.MostCharacters) break;
      if (words >= data.Corpus.Options.MinWords && rule.Accepts(first, words, scratch)) return true;
    }
  }
  return false;
}

bool CountPhrases(PhraseTable& table, Yielder& yielder, size_t placesAtOnce) {
  PhraseTableData& data = table.Data();
  Empty(data);
  if (!RankText(data, yielder)) return false;
  bool stopped = false;
  const CountRule rule(data, yielder, stopped);
  if (stopped) return false;
  if (PhraseCounter(data, rule, placesAtOnce, yielder).Count()) return true;
  Empty(data);
  return false;
}

}  // namespace korv
