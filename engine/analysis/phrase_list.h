#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "base/yielder.h"
#include "engine/analysis/phrase_order.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// Which rows of an order pass a filter: a bit each, and a number for each 512 of them.
class RowSet {
 public:
  RowSet() = default;
  /// Bit r of the words is row r.
  explicit RowSet(std::vector<uint64_t> bits);

  uint32_t Count() const { return count_; }
  bool Holds(uint32_t row) const { return (bits_[row / 64] >> (row % 64) & 1) != 0; }
  /// The rows of the set before `row`.
  uint32_t Before(uint32_t row) const;
  /// The row with so many of the set before it; `n` < Count(). A binary search and some steps: about 50 ns.
  uint32_t Nth(uint32_t n) const;
  std::span<const uint64_t> Bits() const { return bits_; }

 private:
  std::vector<uint64_t> bits_;
  std::vector<uint32_t> before_;  ///< The rows of the set before each block.
  uint32_t count_ = 0;
};

/// The rows of a table on the screen: the listed phrases in an order, and of these the ones that pass a
/// filter. A value of two pointers and some numbers: a worker makes one from constant data, and the window's
/// thread takes it in place of the one before. Any thread may read it.
///
///   EntryAt(*RowOf(i)) == i for every visible entry i.
///
/// Memory: 4.1 bytes a phrase, with a filter 4.3.
class PhraseList {
 public:
  /// No rows.
  PhraseList() = default;
  /// All of an order, with `occurrences` together.
  PhraseList(SharedOrder order, uint64_t occurrences) : order_(std::move(order)), occurrences_(occurrences) {}
  /// Those rows of the order that are in the set, with `occurrences` together.
  PhraseList(SharedOrder order, RowSet visible, uint64_t occurrences);

  uint32_t Phrases() const;                              ///< Visible or not.
  uint32_t Rows() const;                                 ///< The visible ones.
  uint64_t Occurrences() const { return occurrences_; }  ///< Of the visible ones.
  bool Filtered() const { return visible_ != nullptr; }

  PhraseIndex EntryAt(uint32_t row) const;
  /// Nothing where it is not visible. A scan of the order: about a millisecond for 5 million phrases.
  std::optional<uint32_t> RowOf(PhraseIndex entry) const;

  /// Null for a list without rows that was never given an order.
  const SharedOrder& Order() const { return order_; }
  /// Only where Filtered().
  const RowSet& Visible() const { return *visible_; }

 private:
  SharedOrder order_;
  std::shared_ptr<const RowSet> visible_;  ///< Null: all of them.
  uint64_t occurrences_ = 0;
};

/// All listed phrases of a table, in `order`, which is one of its orders. Cost: a look at each of them, for
/// their occurrences.
PhraseList AllRows(const PhraseTable& table, SharedOrder order);

/// Tells which of up to 64 entries pass: bit k for entries[k]. Those without bit k of `candidates` do not.
/// Called on several threads at once.
using RowTest = std::function<uint64_t(std::span<const PhraseIndex> entries, uint64_t candidates)>;

/// Called with the rows that pass among the first `searched` phrases of the order, while the rest is still
/// looked at. On the thread that asked.
using FirstRows = std::function<void(const PhraseList& rows, uint32_t searched)>;

/// The rows of `order` that pass. On all cores. `first` gets the rows of the first 64 K phrases, then of four
/// times as many, and so on. With `within`, a list in the same order, only its rows are tested: for a filter
/// that narrows the one before. Nothing when stopped.
std::optional<PhraseList> FilterRows(const PhraseTable& table, const SharedOrder& order, const RowTest& test,
                                     Yielder& yielder, const FirstRows& first = {},
                                     const PhraseList* within = nullptr);

/// The same visible phrases in another order of the same table. Nothing when stopped.
std::optional<PhraseList> InOrder(const PhraseTable& table, const PhraseList& list, SharedOrder order,
                                  Yielder& yielder);

}  // namespace korv
