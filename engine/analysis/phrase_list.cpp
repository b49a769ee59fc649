#include "engine/analysis/phrase_list.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <utility>

#include "base/workers.h"

namespace korv {

namespace {

constexpr uint32_t kWordsOfBlock = 8;
constexpr uint32_t kRowsOfBlock = 64 * kWordsOfBlock;

/// Words of bits that a task looks at: 4,096 phrases.
constexpr size_t kWordsOfTask = 64;
/// Those before the first answer: 64 K phrases.
constexpr size_t kFirstWords = 1024;

/// Which bit of `word` has `n` bits set before it.
uint32_t NthBit(uint64_t word, uint32_t n) {
  for (; n > 0; --n) word &= word - 1;
  return static_cast<uint32_t>(std::countr_zero(word));
}

/// The bits of a word that stand for rows, where there are `rows` in all.
uint64_t RowsOfWord(size_t word, size_t rows) {
  const size_t left = rows - word * 64;
  return left >= 64 ? ~uint64_t{0} : (uint64_t{1} << left) - 1;
}

/// Tests the rows of an order, some at a time.
class RowSearch {
 public:
  RowSearch(const PhraseTable& table, const PhraseOrder& order, const RowTest& test, const PhraseList* within)
      : table_(table),
        order_(order),
        test_(test),
        within_(within != nullptr && within->Filtered() ? within->Visible().Bits()
                                                        : std::span<const uint64_t>()),
        passing_((order.Entries.size() + 63) / 64, 0) {}

  size_t Words() const { return passing_.size(); }

  /// False when stopped.
  bool Search(size_t beginWord, size_t endWord, Yielder& yielder) {
    const size_t tasks = (endWord - beginWord + kWordsOfTask - 1) / kWordsOfTask;
    return RunTasks(tasks, tasks <= 1, yielder, [&](size_t task, size_t) {
      const size_t begin = beginWord + task * kWordsOfTask;
      const size_t end = std::min(endWord, begin + kWordsOfTask);
      uint64_t occurrences = 0;
      for (size_t word = begin; word < end && !yielder.Stopped(); ++word) occurrences += Look(word);
      occurrences_.fetch_add(occurrences, std::memory_order_relaxed);
    });
  }

  /// The rows that have passed so far.
  RowSet Passing() const { return RowSet(passing_); }
  RowSet TakePassing() { return RowSet(std::move(passing_)); }
  uint64_t Occurrences() const { return occurrences_.load(std::memory_order_relaxed); }

 private:
  uint64_t Look(size_t word) {
    const size_t rows = order_.Entries.size();
    const std::span<const PhraseIndex> entries =
        std::span(order_.Entries).subspan(word * 64, std::min<size_t>(64, rows - word * 64));
    const uint64_t candidates = within_.empty() ? RowsOfWord(word, rows) : within_[word];
    if (candidates == 0) return 0;
    passing_[word] = test_(entries, candidates);
    uint64_t occurrences = 0;
    for (uint64_t left = passing_[word]; left != 0; left &= left - 1)
      occurrences += table_.Count(entries[static_cast<size_t>(std::countr_zero(left))]);
    return occurrences;
  }

  const PhraseTable& table_;
  const PhraseOrder& order_;
  const RowTest& test_;
  std::span<const uint64_t> within_;
  std::vector<uint64_t> passing_;
  std::atomic<uint64_t> occurrences_{0};
};

}  // namespace

RowSet::RowSet(std::vector<uint64_t> bits) : bits_(std::move(bits)) {
  before_.reserve(bits_.size() / kWordsOfBlock + 1);
  for (size_t word = 0; word < bits_.size(); ++word) {
    if (word % kWordsOfBlock == 0) before_.push_back(count_);
    count_ += static_cast<uint32_t>(std::popcount(bits_[word]));
  }
}

uint32_t RowSet::Before(uint32_t row) const {
  uint32_t before = before_[row / kRowsOfBlock];
  for (uint32_t word = row / kRowsOfBlock * kWordsOfBlock; word < row / 64; ++word)
    before += static_cast<uint32_t>(std::popcount(bits_[word]));
  return before + static_cast<uint32_t>(std::popcount(bits_[row / 64] & ((uint64_t{1} << (row % 64)) - 1)));
}

uint32_t RowSet::Nth(uint32_t n) const {
  const auto block = static_cast<size_t>(std::ranges::upper_bound(before_, n) - before_.begin()) - 1;
  n -= before_[block];
  size_t word = block * kWordsOfBlock;
  for (uint32_t set = 0; n >= (set = static_cast<uint32_t>(std::popcount(bits_[word]))); ++word) n -= set;
  return static_cast<uint32_t>(word * 64) + NthBit(bits_[word], n);
}

PhraseList::PhraseList(SharedOrder order, RowSet visible, uint64_t occurrences)
    : order_(std::move(order)),
      visible_(std::make_shared<const RowSet>(std::move(visible))),
      occurrences_(occurrences) {}

uint32_t PhraseList::Phrases() const {
  return order_ ? static_cast<uint32_t>(order_->Entries.size()) : 0;
}

uint32_t PhraseList::Rows() const {
  return visible_ ? visible_->Count() : Phrases();
}

PhraseIndex PhraseList::EntryAt(uint32_t row) const {
  return order_->Entries[visible_ ? visible_->Nth(row) : row];
}

std::optional<uint32_t> PhraseList::RowOf(PhraseIndex entry) const {
  if (!order_) return std::nullopt;
  const auto found = std::ranges::find(order_->Entries, entry);
  if (found == order_->Entries.end()) return std::nullopt;
  const auto row = static_cast<uint32_t>(found - order_->Entries.begin());
  if (!visible_) return row;
  if (!visible_->Holds(row)) return std::nullopt;
  return visible_->Before(row);
}

PhraseList AllRows(const PhraseTable& table, SharedOrder order) {
  uint64_t occurrences = 0;
  for (const PhraseIndex i : table.All())
    if (table.Listed(i)) occurrences += table.Count(i);
  return {std::move(order), occurrences};
}

std::optional<PhraseList> FilterRows(const PhraseTable& table, const SharedOrder& order, const RowTest& test,
                                     Yielder& yielder, const FirstRows& first, const PhraseList* within) {
  RowSearch search(table, *order, test, within);
  for (size_t done = 0, next = kFirstWords; done < search.Words(); next *= 4) {
    const size_t end = first ? std::min(search.Words(), next) : search.Words();
    if (!search.Search(done, end, yielder)) return std::nullopt;
    done = end;
    if (done < search.Words())
      first(PhraseList(order, search.Passing(), search.Occurrences()), static_cast<uint32_t>(done * 64));
  }
  return PhraseList(order, search.TakePassing(), search.Occurrences());
}

std::optional<PhraseList> InOrder(const PhraseTable& table, const PhraseList& list, SharedOrder order,
                                  Yielder& yielder) {
  if (!list.Filtered()) return PhraseList(std::move(order), list.Occurrences());
  std::vector<bool> visible(size_t{table.EntryCount()} + 1);
  for (uint32_t row = 0; row < list.Phrases(); ++row) {
    yielder.Yield();
    if (yielder.Stopped()) return std::nullopt;
    if (list.Visible().Holds(row)) visible[ValueOf(list.Order()->Entries[row])] = true;
  }
  std::vector<uint64_t> bits((order->Entries.size() + 63) / 64, 0);
  for (size_t row = 0; row < order->Entries.size(); ++row) {
    yielder.Yield();
    if (yielder.Stopped()) return std::nullopt;
    bits[row / 64] |= uint64_t{visible[ValueOf(order->Entries[row])]} << (row % 64);
  }
  const uint64_t occurrences = list.Occurrences();
  return PhraseList(std::move(order), RowSet(std::move(bits)), occurrences);
}

}  // namespace korv
