#include <algorithm>
#include <span>
#include <vector>

#include "base/workers.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/entry_order.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

/// Brings entries that ascend by word numbers into the order of Keys, then Texts.
///
/// Word numbers ascend by (Key, Text) of single words. The two orders differ only where words have equal
/// Keys: the phrases that begin with "a" and those that begin with "á" must be merged. Merges go from the
/// longest common prefix to the shortest, and each is linear in its entries.
class KeyOrder {
 public:
  KeyOrder(PhraseTableData& data, const Yielder& yielder) : data_(data), yielder_(yielder) {}

  /// Sorts entries [begin, end), whose first `depth` words are equal.
  void Mend(size_t begin, size_t end, int depth) {
    while (begin < end && !yielder_.Stopped()) {
      // A phrase that ends here stands before those that go on.
      if (data_.Entries[begin].Words == depth) {
        ++begin;
        continue;
      }
      const uint32_t keyClass = data_.Corpus.Words.KeyClass(WordAt(begin, depth));
      const size_t classBegin = begin;
      while (begin < end && data_.Corpus.Words.KeyClass(WordAt(begin, depth)) == keyClass) {
        const WordNumber word = WordAt(begin, depth);
        const size_t wordBegin = begin;
        while (begin < end && WordAt(begin, depth) == word) ++begin;
        if (begin - wordBegin > 1) Mend(wordBegin, begin, depth + 1);
        if (wordBegin > classBegin) Merge(classBegin, wordBegin, begin);
      }
    }
  }

 private:
  WordNumber WordAt(size_t entry, int depth) const {
    const PhraseEntry& e = data_.Entries[entry];
    return depth < e.Words ? data_.Corpus.From(e.First)[depth] : kNoWord;
  }

  /// Merges entries [begin, middle) with those up to `end`, each in order. A stop leaves all as it was.
  void Merge(size_t begin, size_t middle, size_t end) {
    // They are in order already, as after a stop behind this merge.
    if (Before(data_.Entries[middle - 1], data_.Entries[middle])) return;
    merged_.clear();
    merged_.reserve(end - begin);
    size_t a = begin;
    size_t b = middle;
    while (a < middle && b < end) {
      if (yielder_.Stopped()) return;
      merged_.push_back(data_.Entries[Before(data_.Entries[b], data_.Entries[a]) ? b++ : a++]);
    }
    merged_.insert(merged_.end(), At(a), At(middle));
    // The rest of the second part is in its place.
    std::copy(merged_.begin(), merged_.end(), At(begin));
  }
  std::vector<PhraseEntry>::iterator At(size_t i) {
    return data_.Entries.begin() + static_cast<std::ptrdiff_t>(i);
  }

  bool Before(const PhraseEntry& a, const PhraseEntry& b) const { return EntryBefore(data_.Corpus, a, b); }

  PhraseTableData& data_;
  const Yielder& yielder_;
  std::vector<PhraseEntry> merged_;
};

void RankWords(PhraseTableData& data, const Yielder& yielder) {
  data.Corpus.Words.Rank(data.NewNumbers, yielder);
  if (!data.Corpus.Words.Ranked()) return;
  for (WordNumber& word : data.Corpus.Tokens) word = data.NewNumbers[ValueOf(word)];
}

}  // namespace

bool SortPhrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  data.IndexOfText.clear();
  data.ByText.clear();
  const bool small = data.Entries.size() < 1000;
  return RunTasks(1, small, yielder, [&](size_t, size_t) {
    if (!data.Corpus.Words.Ranked()) RankWords(data, yielder);
    if (!data.Corpus.Words.Ranked()) return;
    if (!data.OrderedByNumbers) {
      std::sort(data.Entries.begin(), data.Entries.end(), [&](const PhraseEntry& a, const PhraseEntry& b) {
        return std::ranges::lexicographical_compare(std::span(data.Corpus.From(a.First), a.Words),
                                                    std::span(data.Corpus.From(b.First), b.Words));
      });
      data.OrderedByNumbers = true;
    }
    if (!data.Corpus.Words.KeysDiffer()) KeyOrder(data, yielder).Mend(0, data.Entries.size(), 0);
  });
}

void ListByFrequency(PhraseTable& table, int minFrequency) {
  for (PhraseEntry& entry : table.Data().Entries)
    entry.Listed = entry.Count >= static_cast<uint32_t>(minFrequency);
}

}  // namespace korv
