#include "desktop/results/table/phrase_jump.h"

#include <algorithm>
#include <string>

#include "engine/corpus/corpus.h"
#include "engine/text/folding.h"

namespace korv {

namespace {

/// The first number of begin..end - 1 for which `holds` does not hold, where it holds for all before that;
/// else `end`.
template <typename Holds>
uint32_t FirstThatFails(uint32_t begin, uint32_t end, Holds holds) {
  while (begin < end) {
    const uint32_t middle = begin + (end - begin) / 2;
    if (holds(middle))
      begin = middle + 1;
    else
      end = middle;
  }
  return begin;
}

/// The words that a phrase beginning with `key` may begin with: their numbers are First..Last-1.
struct FirstWords {
  FirstWords(const Vocabulary& words, std::string_view key) {
    const size_t blank = key.find(' ');
    const std::string_view word = key.substr(0, blank);
    const auto keyOf = [&](uint32_t number) { return FoldKey(FoldAccents(words.Text(WordNumber{number}))); };
    const auto before = [&](uint32_t number) { return keyOf(number) < word; };
    const auto within = [&](uint32_t number) {
      const std::string there = keyOf(number);
      return blank == std::string_view::npos ? there.starts_with(word) : there == word;
    };
    First = FirstThatFails(1, words.Size() + 1, before);
    Last = FirstThatFails(First, words.Size() + 1, within);
  }
  bool Hold(WordNumber word) const { return ValueOf(word) >= First && ValueOf(word) < Last; }

  uint32_t First;
  uint32_t Last;
};

std::optional<uint32_t> FindInAlphabet(const PhraseTable& table, const PhraseList& rows,
                                       SortDirection direction, std::string_view key) {
  const auto comesBefore = [&](uint32_t row) {
    const std::string there = table.Key(rows.EntryAt(row));
    return direction == SortDirection::Ascending ? there < key : there > key && !there.starts_with(key);
  };
  const uint32_t row = FirstThatFails(0, rows.Rows(), comesBefore);
  if (row == rows.Rows() || !table.Key(rows.EntryAt(row)).starts_with(key)) return std::nullopt;
  return row;
}

}  // namespace

std::optional<uint32_t> FindRow(const PhraseTable& table, const PhraseList& rows,
                                std::optional<SortDirection> alphabetical, uint32_t from,
                                std::string_view typed) {
  const std::string key = FoldKey(FoldAccents(typed));
  if (rows.Rows() == 0) return std::nullopt;
  if (alphabetical) return FindInAlphabet(table, rows, *alphabetical, key);
  const Corpus& corpus = table.Corpus();
  const FirstWords first(corpus.Words, key);
  for (uint32_t step = 0; step < std::min(rows.Rows(), kMostRowsOfJump); ++step) {
    const auto row = static_cast<uint32_t>((uint64_t{from} + step) % rows.Rows());
    const PhraseIndex entry = rows.EntryAt(row);
    // A look at a number rejects nearly all.
    if (first.Hold(*corpus.From(table.First(entry))) && table.Key(entry).starts_with(key)) return row;
  }
  return std::nullopt;
}

}  // namespace korv
