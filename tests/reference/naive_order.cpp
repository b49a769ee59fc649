#include "tests/reference/naive_order.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

using SortString = std::pair<std::u32string, std::string>;

SortString SortStringOf(const Phrase& entry, int32_t startChar) {
  std::u32string key = Decode(entry.Key);
  size_t from = std::min(static_cast<size_t>(startChar - 1), key.size());
  return {key.substr(from), entry.Text};
}

bool Precedes(const SortString& a, const SortString& b, Direction direction) {
  return direction == Direction::Descending ? a > b : a < b;
}

}  // namespace

void SortPhrases(Table& table, int32_t first, int32_t last, int32_t startChar, Direction direction) {
  if (first >= last) return;
  const SortString pivot = SortStringOf(table[first + (last - first) / 2], startChar);
  int32_t i = first, j = last;
  while (i <= j) {
    while (i < last && Precedes(SortStringOf(table[i], startChar), pivot, direction)) ++i;
    while (j > first && Precedes(pivot, SortStringOf(table[j], startChar), direction)) --j;
    if (i <= j) {
      std::swap(table[i], table[j]);
      ++i;
      --j;
    }
  }
  SortPhrases(table, first, j, startChar, direction);
  SortPhrases(table, i, last, startChar, direction);
}

void ExcludeRedundantSubphrases(Table& table) {
  std::vector<int> lengths{0};
  for (int32_t i = 1; i <= table.PhraseCount; ++i) lengths.push_back(CharacterCount(table[i].Text));
  auto lengthOf = [&](int32_t i) { return lengths[static_cast<size_t>(i)]; };

  for (int32_t i = 1; i <= table.PhraseCount; ++i) {
    if (!table[i].Listed) continue;
    for (int32_t j = 1; j <= table.PhraseCount; ++j) {
      if (j == i || !table[j].Listed) continue;
      if (lengthOf(j) > lengthOf(i) && table[j].Count == table[i].Count &&
          table[j].Text.find(table[i].Text) != std::string::npos) {
        table[i].Listed = false;
        break;
      }
    }
  }
}

void SetUpFrequencyChain(Table& table, ChainBy by) {
  int32_t maxCount = 0, maxFiles = 0;
  for (int32_t i = 1; i <= table.PhraseCount; ++i) {
    table[i].ChainPosition = table[i].ChainNext = 0;
    maxCount = std::max(maxCount, table[i].Count);
    maxFiles = std::max(maxFiles, table[i].FileCount);
  }
  table.ChainHead = 0;

  int32_t position = 0;
  auto take = [&](auto belongs) {
    for (int32_t i = 1; i <= table.PhraseCount; ++i) {
      if (!table[i].Listed || !belongs(table[i])) continue;
      table[i].ChainPosition = ++position;
      if (position == 1) table.ChainHead = i;
    }
  };
  if (by == ChainBy::Count) {
    for (int32_t c = maxCount; c >= 1; --c) take([&](const Phrase& p) { return p.Count == c; });
  } else {
    for (int32_t f = maxFiles; f >= 1; --f) {
      for (int32_t c = maxCount; c >= 1; --c) {
        take([&](const Phrase& p) { return p.FileCount == f && p.Count == c; });
      }
    }
  }

  auto at = [&](int32_t p) {
    for (int32_t i = 1; i <= table.PhraseCount; ++i) {
      if (table[i].ChainPosition == p) return i;
    }
    return 0;
  };
  for (int32_t p = 1; p < position; ++p) table[at(p)].ChainNext = at(p + 1);
}

}  // namespace korv::reference
