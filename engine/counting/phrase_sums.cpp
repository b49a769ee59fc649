#include "engine/counting/phrase_sums.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "base/pieces.h"
#include "base/translation.h"
#include "base/workers.h"
#include "engine/corpus/suffix_sorter.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_hash.h"
#include "engine/counting/rank_text.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

/// Puts phrases of a ranked text into the order of their words.
class EntrySort {
 public:
  /// The entries ascend by First.
  EntrySort(const PhraseTableData& data, std::span<const PhraseEntry> entries, Yielder& yielder)
      : data_(data), entries_(entries), yielder_(yielder) {}

  /// False when stopped.
  bool Sort(std::vector<PhraseEntry>& sorted) {
    if (!FillBuckets() || !SortBuckets()) return false;
    sorted.resize(entries_.size());
    return RunParts(entries_.size(), yielder_, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end && (i % kLook != 0 || !yielder_.Stopped()); ++i)
        sorted[i] = *std::ranges::lower_bound(entries_, places_[i], {}, &PhraseEntry::First);
    });
  }

 private:
  static constexpr size_t kLook = 4096;

  WordNumber FirstWord(const PhraseEntry& entry) const { return *data_.Corpus.From(entry.First); }

  /// By first word; the places in a bucket ascend.
  bool FillBuckets() {
    const size_t words = data_.Corpus.Words.Size();
    bucketEnds_ = ZeroedArray<uint64_t>(words + 1);
    ZeroedArray<uint64_t> next(words + 1);
    places_.resize(entries_.size());
    if (!InPieces(entries_.size(), yielder_, [&](size_t begin, size_t end) {
          for (size_t i = begin; i < end; ++i) ++bucketEnds_[ValueOf(FirstWord(entries_[i]))];
        }))
      return false;
    for (size_t w = 1; w <= words; ++w) {
      next[w] = bucketEnds_[w - 1];
      bucketEnds_[w] += bucketEnds_[w - 1];
    }
    return InPieces(entries_.size(), yielder_, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end; ++i)
        places_[next[ValueOf(FirstWord(entries_[i]))]++] = entries_[i].First;
    });
  }

  bool SortBuckets() {
    const std::vector<WordNumber> firsts =
        FirstWordsOfTasks(bucketEnds_, entries_.size(), data_.Corpus.Words);
    std::vector<std::unique_ptr<SuffixSorter>> sorters(WorkerCount(yielder_));
    return RunTasks(firsts.size() - 1, TooFewForThreads(data_), yielder_, [&](size_t task, size_t worker) {
      if (!sorters[worker])
        sorters[worker] = std::make_unique<SuffixSorter>(data_.Corpus.Tokens, data_.Corpus.Words.Size(),
                                                         kMostWords, yielder_);
      for (WordNumber word = firsts[task]; word < firsts[task + 1] && !yielder_.Stopped(); ++word)
        SortBucket(word, *sorters[worker]);
    });
  }

  void SortBucket(WordNumber word, SuffixSorter& sorter) {
    const uint64_t begin = bucketEnds_[ValueOf(word) - 1];
    const std::span<Place> places(places_.data() + begin, bucketEnds_[ValueOf(word)] - begin);
    if (places.size() < 2) return;
    sorter.Sort(places);
    if (yielder_.Stopped()) return;
    std::ranges::transform(sorter.Suffixes(), places.begin(), &Suffix::At);
  }

  const PhraseTableData& data_;
  std::span<const PhraseEntry> entries_;
  Yielder& yielder_;
  RawVector<Place> places_;
  ZeroedArray<uint64_t> bucketEnds_;
};

}  // namespace

PhraseSums::PhraseSums(const RunOptions& options, const WordFilters& lists, PhraseTable& table)
    : data_((table = PhraseTable(), table.Data())),
      looksForIgnored_(lists.HasWordsToIgnore() && (options.IgnoreMode == IgnoreRule::Remove ||
                                                    options.IgnoreMode == IgnoreRule::ExcludeWith)),
      slots_(1024) {
  data_.Corpus.Options = options;
  data_.Corpus.Options.KeepPlaces = false;
  data_.Corpus.Lists = &lists;
  data_.Corpus.Tokens.push_back(kNoWord);
}

CountVerdict PhraseSums::Add(std::string_view phrase, uint32_t frequency) {
  int words = 0;
  for (size_t begin = 0; begin <= phrase.size(); ++words) {
    const size_t end = std::min(phrase.find(' ', begin), phrase.size());
    if (!IsWordText(phrase.substr(begin, end - begin))) return CountVerdict::NoPhrase;
    begin = end + 1;
  }
  const RunOptions& options = data_.Corpus.Options;
  if (words < options.MinWords || words > options.MaxWords) return CountVerdict::OtherLength;
  if (CharacterCount(phrase) > static_cast<size_t>(options.MostCharacters)) {
    data_.LongPhrases += frequency;
    return CountVerdict::TooLong;
  }
  const CountVerdict verdict = NumberWords(phrase);
  if (verdict != CountVerdict::Added) return verdict;
  PhraseEntry& entry = EntryOf(words);
  if (frequency > kMostFrequency - entry.Count) return CountVerdict::SumTooLarge;
  entry.Count += frequency;
  return CountVerdict::Added;
}

CountVerdict PhraseSums::NumberWords(std::string_view phrase) {
  size_t words = 0;
  for (size_t begin = 0; begin <= phrase.size();) {
    const size_t end = std::min(phrase.find(' ', begin), phrase.size());
    const WordNumber word = data_.Corpus.Words.Number(phrase.substr(begin, end - begin));
    if (looksForIgnored_ && IsWordToIgnore(word))
      return data_.Corpus.Options.IgnoreMode == IgnoreRule::Remove ? CountVerdict::HoldsWordToRemove
                                                                   : CountVerdict::Excluded;
    words_[words++] = word;
    begin = end + 1;
  }
  return CountVerdict::Added;
}

bool PhraseSums::IsWordToIgnore(WordNumber word) {
  if (ValueOf(word) == ignored_.size())
    ignored_.push_back(data_.Corpus.Lists->IsWordToIgnore(data_.Corpus.Words.Text(word)) ? 1 : 0);
  return ignored_[ValueOf(word)] != 0;
}

/// The entry of the first `words` words of words_, a new one where there is none.
PhraseEntry& PhraseSums::EntryOf(int words) {
  const std::span<const WordNumber> phrase = std::span(words_).first(static_cast<size_t>(words));
  const auto hash = static_cast<uint32_t>(Scramble(HashOfWords(phrase.data(), words)) >> 32);
  for (const ZeroedArray<Slot>* slots : {&slots_, &oldSlots_}) {
    if (slots->Empty()) continue;
    const Slot& slot = (*slots)[SlotOf(*slots, hash, phrase)];
    if (slot.EntryPlusOne != 0) return data_.Entries[slot.EntryPlusOne - 1];
  }
  GrowIfFull();
  if (data_.Corpus.Tokens.size() > std::numeric_limits<uint32_t>::max() - kMostWords - kTrailingEnds)
    throw std::length_error(Tr("There are too many phrases."));
  const Place first{static_cast<uint32_t>(data_.Corpus.Tokens.size())};
  data_.Corpus.Tokens.append(phrase);
  data_.Corpus.Tokens.push_back(kNoWord);
  data_.Entries.push_back(
      {.First = first, .Count = 0, .Slice = 0, .Words = static_cast<uint8_t>(words), .Listed = false});
  slots_[SlotOf(slots_, hash, phrase)] = {hash, static_cast<uint32_t>(data_.Entries.size())};
  return data_.Entries.back();
}

/// That of the phrase, or the empty one where it belongs.
size_t PhraseSums::SlotOf(const ZeroedArray<Slot>& slots, uint32_t hash,
                          std::span<const WordNumber> phrase) const {
  const size_t mask = slots.Size() - 1;
  for (size_t at = hash & mask;; at = (at + 1) & mask) {
    const Slot& slot = slots[at];
    if (slot.EntryPlusOne == 0 || (slot.Hash == hash && IsAt(data_.Entries[slot.EntryPlusOne - 1], phrase)))
      return at;
  }
}

bool PhraseSums::IsAt(const PhraseEntry& entry, std::span<const WordNumber> phrase) const {
  return entry.Words == phrase.size() &&
         std::ranges::equal(phrase, std::span(data_.Corpus.From(entry.First), size_t{entry.Words}));
}

/// Slots move a few at a time, so that no call takes long. Those before are only looked into, so what has
/// moved may stay there.
void PhraseSums::GrowIfFull() {
  constexpr size_t kStep = 8;
  if (oldSlots_.Empty() && data_.Entries.size() >= slots_.Size() / 3 * 2) {
    oldSlots_ = std::move(slots_);
    slots_ = ZeroedArray<Slot>(oldSlots_.Size() * 2);
    moved_ = 0;
  }
  if (oldSlots_.Empty()) return;
  const size_t mask = slots_.Size() - 1;
  for (const size_t end = std::min(moved_ + kStep, oldSlots_.Size()); moved_ < end; ++moved_) {
    const Slot& slot = oldSlots_[moved_];
    if (slot.EntryPlusOne == 0) continue;
    size_t at = slot.Hash & mask;
    while (slots_[at].EntryPlusOne != 0) at = (at + 1) & mask;
    slots_[at] = slot;
  }
  if (moved_ == oldSlots_.Size()) oldSlots_ = {};
}

bool PhraseSums::Finish(Yielder& yielder) {
  if (!ended_) {
    for (size_t k = 0; k < kTrailingEnds; ++k) data_.Corpus.Tokens.push_back(kNoWord);
    slots_ = {};
    oldSlots_ = {};
    ended_ = true;
  }
  bool stopped = !RankText(data_, yielder);
  if (stopped) return false;
  const CountRule rule(data_, yielder, stopped);
  return !stopped && TakeInOrder(rule, yielder);
}

bool PhraseSums::TakeInOrder(const CountRule& rule, Yielder& yielder) {
  std::vector<PhraseEntry> accepted;
  uint64_t occurrences = 0;
  std::string scratch;
  if (!InPieces(data_.Entries.size(), yielder, [&](size_t begin, size_t end) {
        for (size_t i = begin; i < end; ++i) {
          const PhraseEntry& entry = data_.Entries[i];
          if (!rule.Accepts(data_.Corpus.From(entry.First), entry.Words, scratch)) continue;
          if (!rule.AcceptsAll()) accepted.push_back(entry);
          occurrences += entry.Count;
        }
      }))
    return false;
  std::vector<PhraseEntry> sorted;
  if (!EntrySort(data_, rule.AcceptsAll() ? data_.Entries : accepted, yielder).Sort(sorted)) return false;
  data_.Entries = std::move(sorted);
  data_.Occurrences = occurrences;
  data_.PhraseCount = data_.Entries.size();
  data_.OrderedByNumbers = true;
  return true;
}

}  // namespace korv
