#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <optional>
#include <vector>

#include "engine/analysis/phrase_list.h"
#include "engine/analysis/phrase_order.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_query.h"

// Orders and filters of lists against the model: a stable sort, and a look at every row.

namespace korv {
namespace {

constexpr double kNoKey = std::numeric_limits<double>::quiet_NaN();

using Entries = std::vector<PhraseIndex>;

Entries Listed(const PhraseTable& table) {
  Entries listed;
  for (const PhraseIndex i : table.All())
    if (table.Listed(i)) listed.push_back(i);
  return listed;
}

Entries ModelOrder(const PhraseTable& table, const std::vector<double>& keys, SortDirection direction) {
  const Entries listed = Listed(table);
  std::vector<std::optional<double>> values;
  for (const PhraseIndex i : listed) {
    const double key = keys[ValueOf(i)];
    values.push_back(key == key ? std::optional(key) : std::nullopt);
  }
  Entries order;
  for (const size_t i : reference::OrderOfValues(values, direction == SortDirection::Descending))
    order.push_back(listed[i]);
  return order;
}

Entries EntriesOf(const SharedOrder& order) {
  return {order->Entries.begin(), order->Entries.end()};
}

Entries EntriesOf(const PhraseList& list) {
  Entries entries;
  for (uint32_t row = 0; row < list.Rows(); ++row) entries.push_back(list.EntryAt(row));
  return entries;
}

/// Keys of every size, most of them more than once.
std::vector<double> DrawKeys(const PhraseTable& table) {
  static const std::vector<double> kKeys = {kNoKey,
                                            0,
                                            -0.0,
                                            1,
                                            2,
                                            2.5,
                                            -1,
                                            1e300,
                                            -1e300,
                                            1e-300,
                                            0.1,
                                            0.1 + 1e-17,
                                            0.10000000000000002,
                                            4294967296,
                                            4294967297,
                                            4294967298,
                                            std::numeric_limits<double>::infinity(),
                                            -std::numeric_limits<double>::infinity()};
  return *rc::gen::container<std::vector<double>>(size_t{table.EntryCount()} + 1, rc::gen::elementOf(kKeys));
}

PhraseTable DrawTable() {
  const CountingWorld world = DrawWorld({.Rules = true});
  RC_LOG() << world;
  return CountedByEngine(world).Table;
}

constexpr SortDirection kDirections[] = {SortDirection::Ascending, SortDirection::Descending};

RC_GTEST_PROP(PhraseListProperties, OrdersByKeysAsAStableSort, ()) {
  const PhraseTable table = DrawTable();
  const std::vector<double> keys = DrawKeys(table);
  NoYielder yielder;
  for (const SortDirection direction : kDirections) {
    const SharedOrder order = OrderByKeys(table, keys, direction, yielder);
    RC_ASSERT(EntriesOf(order) == ModelOrder(table, keys, direction));
    const SortDirection other =
        direction == SortDirection::Ascending ? SortDirection::Descending : SortDirection::Ascending;
    const SharedOrder reversed = Reversed(*order, yielder);
    RC_ASSERT(EntriesOf(reversed) == ModelOrder(table, keys, other));
    RC_ASSERT(reversed->BeginsGroup == OrderByKeys(table, keys, other, yielder)->BeginsGroup);
  }
}

RC_GTEST_PROP(PhraseListProperties, OrdersByCountAndByPhrase, ()) {
  const PhraseTable table = DrawTable();
  std::vector<double> counts = {0};
  std::vector<double> indices = {0};
  for (const PhraseIndex i : table.All()) {
    counts.push_back(table.Count(i));
    indices.push_back(ValueOf(i));
  }
  NoYielder yielder;
  for (const SortDirection direction : kDirections) {
    RC_ASSERT(EntriesOf(OrderByCount(table, direction, yielder)) == ModelOrder(table, counts, direction));
    RC_ASSERT(EntriesOf(OrderByPhrase(table, direction, yielder)) == ModelOrder(table, indices, direction));
  }
  const std::vector<PhraseRank> ranks = RanksByCount(table, yielder);
  uint32_t rank = 0;
  for (const PhraseIndex i : ModelOrder(table, counts, SortDirection::Descending))
    RC_ASSERT(ranks[ValueOf(i)] == PhraseRank{++rank});
}

RC_GTEST_PROP(PhraseListProperties, RowsAreThoseThatPass, ()) {
  const PhraseTable table = DrawTable();
  NoYielder yielder;
  const SharedOrder order = OrderByKeys(table, DrawKeys(table), SortDirection::Ascending, yielder);
  const auto passes = *rc::gen::container<std::vector<int>>(size_t{table.EntryCount()} + 1,
                                                            rc::gen::inRange(0, *rc::gen::inRange(1, 5)));
  const auto passesToo =
      *rc::gen::container<std::vector<bool>>(size_t{table.EntryCount()} + 1, rc::gen::arbitrary<bool>());
  const auto testOf = [](const auto& flags) {
    return [&flags](std::span<const PhraseIndex> entries, uint64_t candidates) {
      uint64_t passing = 0;
      for (size_t k = 0; k < entries.size(); ++k) passing |= uint64_t{flags[ValueOf(entries[k])] != 0} << k;
      return passing & candidates;
    };
  };
  const auto expect = [&](const PhraseList& list, const auto& isIn, const SharedOrder& inOrder) {
    Entries expected;
    uint64_t occurrences = 0;
    for (const PhraseIndex i : inOrder->Entries) {
      if (!isIn(i)) {
        RC_ASSERT(!list.RowOf(i));
        continue;
      }
      RC_ASSERT(list.RowOf(i) == static_cast<uint32_t>(expected.size()));
      expected.push_back(i);
      occurrences += table.Count(i);
    }
    RC_ASSERT(EntriesOf(list) == expected);
    RC_ASSERT(list.Occurrences() == occurrences);
    RC_ASSERT(list.Phrases() == inOrder->Entries.size());
  };

  const auto inFirst = [&](PhraseIndex i) { return passes[ValueOf(i)] != 0; };
  const auto inBoth = [&](PhraseIndex i) { return inFirst(i) && passesToo[ValueOf(i)]; };
  expect(
      AllRows(table, order), [](PhraseIndex) { return true; }, order);
  const auto filtered = FilterRows(table, order, testOf(passes), yielder);
  expect(*filtered, inFirst, order);
  expect(*FilterRows(table, order, testOf(passesToo), yielder, {}, &*filtered), inBoth, order);
  const SharedOrder other = OrderByCount(table, SortDirection::Descending, yielder);
  expect(*InOrder(table, *filtered, other, yielder), inFirst, other);
}

}  // namespace
}  // namespace korv
