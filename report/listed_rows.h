#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "engine/analysis/phrase_list.h"
#include "engine/counting/phrase_table.h"
#include "report/look_ahead.h"

namespace korv {

/// The phrases of a report in its order, by their place in it. Any thread may ask.
class ListedRows {
 public:
  /// In the order of the table, or in that of the frequency chain.
  static ListedRows Alphabetical(const PhraseTable& table) {
    return {table, Kind::Table, table.EntryCount()};
  }
  static ListedRows ByFrequency(const PhraseTable& table) {
    return {table, Kind::Chain, table.ChainLength()};
  }
  static ListedRows Chosen(const PhraseTable& table, PhraseList rows) {
    ListedRows listed(table, Kind::Chosen, rows.Rows());
    listed.chosen_ = std::move(rows);
    return listed;
  }

  size_t Size() const { return size_; }
  /// kNoPhrase where the entry there is not listed.
  PhraseIndex At(size_t row) const {
    if (kind_ == Kind::Chosen) return chosen_->EntryAt(static_cast<uint32_t>(row));
    const PhraseIndex entry = EntryAt(row);
    return kind_ == Kind::Chain || table_.Listed(entry) ? entry : kNoPhrase;
  }
  /// Prefetches what rows behind this one need. Costs a fraction of a row.
  void PrefetchBehind(size_t row) const {
    if (kind_ != Kind::Chosen)
      table_.Prefetch(EntryAt(row + kLookAhead), EntryAt(row + size_t{2} * kLookAhead));
  }

 private:
  enum class Kind { Table, Chain, Chosen };

  ListedRows(const PhraseTable& table, Kind kind, size_t size) : table_(table), kind_(kind), size_(size) {}

  PhraseIndex EntryAt(size_t row) const {
    const auto number = static_cast<uint32_t>(row) + 1;
    return kind_ == Kind::Table ? PhraseIndex{number} : table_.AtChainPosition(PhraseRank{number});
  }

  const PhraseTable& table_;
  Kind kind_;
  size_t size_;
  std::optional<PhraseList> chosen_;
};

}  // namespace korv
