#include "report/columns/row_filter.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <utility>

#include "report/columns/column_keys.h"

namespace korv {

namespace {

bool Limits(const Limit& limit) {
  return limit.Least || limit.Most;
}

bool Within(const Limit& limit, double value) {
  // A NaN, which is no value, compares false.
  return limit.Least ? value >= *limit.Least && (!limit.Most || value <= *limit.Most) : value <= *limit.Most;
}

bool AsTight(const Limit& before, const Limit& after) {
  return before.Of == after.Of && (!before.Least || (after.Least && *after.Least >= *before.Least)) &&
         (!before.Most || (after.Most && *after.Most <= *before.Most));
}

uint64_t WithinLimit(const Limit& limit, const ColumnSource& source, std::span<const PhraseIndex> entries,
                     uint64_t candidates) {
  if (candidates == 0) return 0;
  ColumnKeys keys(*limit.Of, source);
  uint64_t passing = 0;
  for (uint64_t left = candidates; left != 0; left &= left - 1) {
    const int k = std::countr_zero(left);
    passing |= uint64_t{Within(limit, keys.Of(entries[static_cast<size_t>(k)]))} << k;
  }
  return passing;
}

}  // namespace

bool PassesAll(const RowFilter& filter) {
  return MatchesAll(filter.Query) && std::ranges::none_of(filter.Limits, Limits);
}

bool Narrows(const RowFilter& before, const RowFilter& after) {
  return Narrows(before.Query, after.Query) && std::ranges::all_of(before.Limits, [&](const Limit& limit) {
           return !Limits(limit) || std::ranges::any_of(after.Limits, [&](const Limit& other) {
             return AsTight(limit, other);
           });
         });
}

Expected<RowTest, std::string> CompileFilter(const RowFilter& filter, const ColumnSource& source,
                                             Yielder& yielder) {
  auto compiled = PhraseMatcher::Compile(filter.Query, source.Table, yielder);
  if (!compiled) return compiled.Error();
  std::vector<Limit> limits;
  std::ranges::copy_if(filter.Limits, std::back_inserter(limits), Limits);
  return RowTest([&source, limits = std::move(limits),
                  matcher = std::make_shared<const PhraseMatcher>(std::move(*compiled))](
                     std::span<const PhraseIndex> entries, uint64_t candidates) {
    uint64_t passing = matcher->Passing(entries, candidates);
    for (const Limit& limit : limits) passing = WithinLimit(limit, source, entries, passing);
    return passing;
  });
}

}  // namespace korv
