#include "engine/counting/count_phrases.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <string>

#include "base/workers.h"
#include "engine/corpus/suffix_sorter.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/long_phrases.h"
#include "engine/counting/phrase_sweep.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

/// Below this many words a thread costs more than it saves.
constexpr size_t kTooFewForThreads = 20000;
constexpr size_t kBlock = size_t{1} << 18;

bool TooFew(const PhraseTableData& data) {
  return data.Corpus.Tokens.size() < kTooFewForThreads;
}

/// Renumbers words by rank, so that the order of numbers is the order of Keys, then Texts.
bool RankText(PhraseTableData& data, Yielder& yielder) {
  if (!data.Corpus.Words.Ranked() && !RunTasks(1, TooFew(data), yielder, [&](size_t, size_t) {
        data.Corpus.Words.Rank(data.NewNumbers, yielder);
      }))
    return false;
  const size_t blocks = (data.Corpus.Tokens.size() + kBlock - 1) / kBlock;
  data.BlockRenumbered.resize(blocks, 0);
  return RunTasks(blocks, TooFew(data), yielder, [&](size_t block, size_t) {
    if (data.BlockRenumbered[block]) return;
    const size_t end = std::min(data.Corpus.Tokens.size(), (block + 1) * kBlock);
    for (size_t i = block * kBlock; i < end; ++i)
      data.Corpus.Tokens[i] = data.NewNumbers[data.Corpus.Tokens[i]];
    data.BlockRenumbered[block] = 1;
  });
}

/// Where phrases may start, grouped by their first word.
struct Starts {
  std::vector<uint8_t> MostWords;     ///< Per number of the text; 0 where no phrase starts.
  std::vector<uint32_t> Places;       ///< Those with a phrase that counts, by first word, then ascending.
  std::vector<uint64_t> BucketEnds;   ///< Per word: end of its part of Places.
  std::vector<uint64_t> Occurrences;  ///< Per word: phrases that count and start with it.
  uint64_t LongPhrases = 0;           ///< Would count but for their characters; not with entries for phrases.
};

/// Goes through the text from its end, as everything that bounds a phrase lies behind its start.
class StartFinder {
 public:
  StartFinder(PhraseTableData& data, const CountRule& accepted, Starts& starts)
      : data_(data), accepted_(accepted), starts_(starts) {}

  bool Find(Yielder& yielder) {
    const size_t n = data_.Corpus.Tokens.size();
    const uint32_t words = data_.Corpus.Words.Size();
    const bool folder = data_.Corpus.Options.SourceKind == TextSource::Folder;
    starts_.MostWords.assign(n, 0);
    starts_.Occurrences.assign(words + 1, 0);
    std::vector<uint64_t> inBucket(words + 2, 0);
    std::vector<uint8_t> sourceHasPhrase(data_.Corpus.Sources.size(), 0);
    size_t source = data_.Corpus.Sources.size();

    const WordNumber* text = data_.Corpus.Tokens.data();
    const int minWords = data_.Corpus.Options.MinWords;
    const int maxWords = data_.Corpus.Options.MaxWords;
    const bool all = accepted_.AcceptsAll();
    const bool excludeAll = accepted_.ExcludesAllIgnored();
    const bool countOnly = accepted_.HasCountOnly();
    size_t end = n;                   // of the longest phrase from here
    size_t noWord = n;                // next place where no phrase goes on
    int characters = 0;               // of its words, with a blank for each
    int ignored = 0;                  // words to ignore in a row from here
    int untilCountOnly = kMostWords;  // words before the next count-only word
    for (size_t i = n; i-- > 0;) {
      if ((i & 4095) == 0) {
        yielder.Yield();
        if (yielder.Stopped()) return false;
      }
      while (source > 0 && data_.Corpus.Sources[source - 1].Begin > i) --source;
      const WordNumber word = text[i];
      if (word == kNoWord) {
        end = noWord = i;
        characters = 0;
        ignored = 0;
        untilCountOnly = kMostWords;
        continue;
      }
      characters += data_.Corpus.Words.Characters(word) + 1;
      while (end - i > static_cast<size_t>(maxWords) || characters - 1 > kMostPhraseCharacters)
        characters -= data_.Corpus.Words.Characters(text[--end]) + 1;
      const auto most = static_cast<int>(end - i);
      int first = minWords;
      if (!all) {
        if (excludeAll) {
          ignored = accepted_.IsWordToIgnore(word) ? std::min(ignored + 1, kMostWords) : 0;
          first = std::max(first, ignored + 1);
        }
        if (countOnly) {
          untilCountOnly = accepted_.IsCountOnlyWord(word) ? 0 : std::min(untilCountOnly + 1, kMostWords);
          first = std::max(first, untilCountOnly + 1);
        }
        if (accepted_.ByPhrase()) first = minWords;
      }
      starts_.MostWords[i] = static_cast<uint8_t>(most);
      if (const int reach = static_cast<int>(std::min<size_t>(noWord - i, static_cast<size_t>(maxWords)));
          reach > most)
        starts_.LongPhrases += static_cast<uint64_t>(std::max(0, reach - std::max(first, most + 1) + 1));
      if (most < first) continue;
      ++inBucket[word + 1];
      starts_.Occurrences[word] += static_cast<uint64_t>(most - first + 1);
      if (folder && source > 0) sourceHasPhrase[source - 1] = 1;
    }

    std::partial_sum(inBucket.begin(), inBucket.end(), inBucket.begin());
    starts_.Places.resize(inBucket.back());
    for (size_t i = 0; i < n; ++i) {
      if ((i & 4095) == 0) {
        yielder.Yield();
        if (yielder.Stopped()) return false;
      }
      if (starts_.MostWords[i] >= minWords && (all || Counts(text + i, starts_.MostWords[i])))
        starts_.Places[inBucket[text[i]]++] = static_cast<uint32_t>(i);
    }
    starts_.BucketEnds = std::move(inBucket);
    if (!accepted_.ByPhrase()) NumberFiles(sourceHasPhrase);
    return true;
  }

  template <typename Flags>
  void NumberFiles(const Flags& sourceHasPhrase) {
    if (data_.Corpus.Options.SourceKind != TextSource::Folder) return;
    data_.FileNumberOfSource.assign(data_.Corpus.Sources.size(), 0);
    data_.FilePaths.clear();
    for (size_t s = 0; s < data_.Corpus.Sources.size(); ++s) {
      if (!sourceHasPhrase[s]) continue;
      data_.FilePaths.push_back(data_.Corpus.Sources[s].Path);
      data_.FileNumberOfSource[s] = static_cast<uint32_t>(data_.FilePaths.size());
    }
  }

 private:
  bool Counts(const WordNumber* first, int most) const {
    return accepted_.ByPhrase() || accepted_.FirstLength(first, most) <= most;
  }

  PhraseTableData& data_;
  const CountRule& accepted_;
  Starts& starts_;
};

/// Runs of words whose buckets one task sorts: enough tasks for an even share, few enough to cost nothing.
std::vector<WordNumber> Tasks(const Starts& starts, uint32_t words) {
  constexpr uint64_t kTasks = 256;
  const uint64_t perTask = std::max<uint64_t>(1, starts.Places.size() / kTasks);
  std::vector<WordNumber> firsts{1};
  uint64_t begin = 0;
  for (WordNumber w = 1; w <= words; ++w) {
    if (starts.BucketEnds[w] - begin < perTask) continue;
    begin = starts.BucketEnds[w];
    firsts.push_back(w + 1);
  }
  if (firsts.back() <= words) firsts.push_back(words + 1);
  return firsts;
}

struct Found {
  std::vector<PhraseEntry> Entries;  ///< Last phrase first.
};

void Empty(PhraseTableData& data) {
  data.Entries.clear();
  data.Entries.shrink_to_fit();
  data.Corpus.Places.clear();
  data.Corpus.PlacesOfWord.clear();
  data.Chain.clear();
  data.Rank.clear();
}

}  // namespace

void TakeText(CorpusBuilder&& stream, PhraseTable& table) {
  table = PhraseTable();
  table.Data().Corpus = std::move(stream).TakeCorpus();
}

bool HoldsPhrase(PhraseTable& table, Yielder& yielder) {
  const PhraseTableData& data = table.Data();
  bool stopped = false;
  const CountRule accepted(data, yielder, stopped);
  if (stopped) return true;
  std::string scratch;
  for (size_t i = 0; i < data.Corpus.Tokens.size(); ++i) {
    if ((i & 4095) == 0) {
      yielder.Yield();
      if (yielder.Stopped()) return true;
    }
    const WordNumber* const first = data.Corpus.Tokens.data() + i;
    int characters = -1;
    for (int words = 1; words <= data.Corpus.Options.MaxWords && first[words - 1] != kNoWord; ++words) {
      characters += data.Corpus.Words.Characters(first[words - 1]) + 1;
      if (characters > kMostPhraseCharacters) break;
      if (words >= data.Corpus.Options.MinWords && accepted.Accepts(first, words, scratch)) return true;
    }
  }
  return false;
}

bool CountPhrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  Empty(data);
  if (!RankText(data, yielder)) return false;

  bool stopped = false;
  const CountRule accepted(data, yielder, stopped);
  if (stopped) return false;
  Starts starts;
  StartFinder finder(data, accepted, starts);
  if (!finder.Find(yielder)) return false;

  const bool folder = data.Corpus.Options.SourceKind == TextSource::Folder;
  const bool keepsPlaces = KeepsPlaces(data.Corpus.Options);
  std::vector<std::atomic<uint8_t>> sourceHasPhrase(folder && accepted.ByPhrase() ? data.Corpus.Sources.size()
                                                                                  : 0);
  const SweepContext context{&data, &accepted, &yielder, starts.MostWords.data(),
                             sourceHasPhrase.empty() ? nullptr : &sourceHasPhrase};
  const std::vector<WordNumber> firsts = Tasks(starts, data.Corpus.Words.Size());
  const size_t tasks = firsts.size() - 1;
  std::vector<Found> found(tasks);
  std::vector<std::unique_ptr<SuffixSorter>> orders(WorkerCount());
  std::atomic<uint64_t> occurrences{0};
  std::atomic<uint64_t> differentBefore{0};

  // The number of different phrases must never seem to fall, should the count be taken up again.
  const auto tell = [&](uint64_t different) {
    const uint64_t now = differentBefore.fetch_add(different, std::memory_order_relaxed) + different;
    uint64_t shown = data.PhraseCount.load(std::memory_order_relaxed);
    while (shown < now && !data.PhraseCount.compare_exchange_weak(shown, now, std::memory_order_relaxed)) {
    }
  };

  const bool finished = RunTasks(tasks, TooFew(data), yielder, [&](size_t task, size_t worker) {
    if (!orders[worker])
      orders[worker] =
          std::make_unique<SuffixSorter>(std::span<const WordNumber>(data.Corpus.Tokens),
                                         data.Corpus.Words.Size(), data.Corpus.Options.MaxWords, yielder);
    SuffixSorter& order = *orders[worker];
    PhraseSweep sweep(context);
    uint64_t inTask = 0;
    for (WordNumber word = firsts[task + 1]; word-- > firsts[task];) {
      const uint64_t begin = starts.BucketEnds[word - 1];
      const uint64_t end = starts.BucketEnds[word];
      if (begin == end) continue;
      order.Sort({starts.Places.data() + begin, static_cast<size_t>(end - begin)});
      if (yielder.Stopped()) return;
      sweep.Sweep(order.Suffixes(), order.Lcp(), static_cast<uint32_t>(begin));
      if (yielder.Stopped()) return;
      if (keepsPlaces)
        std::transform(order.Suffixes().begin(), order.Suffixes().end(),
                       starts.Places.begin() + static_cast<std::ptrdiff_t>(begin),
                       [](const Suffix& s) { return s.Position; });
      inTask += starts.Occurrences[word];
    }
    if (accepted.ByPhrase()) inTask = sweep.Occurrences();
    occurrences.fetch_add(inTask, std::memory_order_relaxed);
    tell(inTask - sweep.Repeats());
    found[task].Entries = std::move(sweep.Entries());
    found[task].Entries.shrink_to_fit();
  });
  if (!finished) return false;
  orders.clear();

  data.LongPhrases = starts.LongPhrases;
  if (accepted.ByPhrase()) {
    const auto tooLong = CountLongPhrases(data, accepted, starts.MostWords, TooFew(data), yielder);
    if (!tooLong) return false;
    data.LongPhrases = *tooLong;
  }
  data.Occurrences = occurrences;
  data.PhraseCount = differentBefore.load();
  if (accepted.ByPhrase()) finder.NumberFiles(sourceHasPhrase);
  size_t entries = 0;
  for (const Found& part : found) entries += part.Entries.size();
  if (entries >= std::numeric_limits<PhraseIndex>::max())
    throw std::length_error("There are too many phrases.");
  data.Entries.reserve(entries);
  for (Found& part : found) {
    data.Entries.insert(data.Entries.end(), part.Entries.rbegin(), part.Entries.rend());
    part.Entries = {};
    yielder.Yield();
  }
  if (keepsPlaces) {
    data.Corpus.Places = std::move(starts.Places);
    data.Corpus.PlacesOfWord.assign(starts.BucketEnds.begin(), starts.BucketEnds.end());
  }
  data.OnlyMaximal = !accepted.ByPhrase();
  data.OrderedByNumbers = true;
  return true;
}

}  // namespace korv
