#include "engine/corpus/vocabulary.h"

#include <algorithm>
#include <numeric>

#include "engine/text/folding.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

bool IsPlainAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80 && (c < 'A' || c > 'Z'); });
}

/// Thrown by a comparison, the only place of a sort that can notice a stop. Nothing is changed before.
struct Interrupted {};

/// The first eight bytes as a number that compares as they do.
uint64_t Beginning(std::string_view text) {
  uint64_t v = 0;
  for (size_t i = 0; i < 8; ++i) v = v << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
  return v;
}

}  // namespace

WordNumber Vocabulary::Number(std::string_view word) {
  const WordNumber number = table_.Number(word) + 1;
  if (number == characters_.size())
    characters_.push_back(static_cast<uint8_t>(std::min<size_t>(CharacterCount(word), 255)));
  return number;
}

WordNumber Vocabulary::Find(std::string_view word) const {
  const std::string key = FoldKey(FoldAccents(word));
  WordNumber low = 1;
  WordNumber high = Size() + 1;
  while (low < high) {
    const WordNumber middle = low + (high - low) / 2;
    const std::string_view text = Text(middle);
    const int order = FoldKey(FoldAccents(text)).compare(key);
    if (order < 0 || (order == 0 && text < word))
      low = middle + 1;
    else
      high = middle;
  }
  return low <= Size() && Text(low) == word ? low : kNoWord;
}

void Vocabulary::Rank(std::vector<WordNumber>& renumbered, const Yielder& yielder) try {
  const uint32_t n = table_.Size();
  struct Row {
    uint64_t Beginning;
    std::string_view Key;
    WordNumber Word;
  };
  // Most words are their own keys; the folded ones are kept apart, reserved so that views stay valid.
  StringTable folded;
  std::vector<uint32_t> foldedNumber(n + 1, StringTable::kNone);
  for (WordNumber w = 1; w <= n; ++w)
    if (!IsPlainAscii(table_.Text(w - 1)))
      foldedNumber[w] = folded.Number(FoldKey(FoldAccents(table_.Text(w - 1))));

  std::vector<Row> rows(n);
  for (WordNumber w = 1; w <= n; ++w) {
    const std::string_view key =
        foldedNumber[w] == StringTable::kNone ? table_.Text(w - 1) : folded.Text(foldedNumber[w]);
    rows[w - 1] = {Beginning(key), key, w};
  }
  // Last key: the text itself, which no two words share.
  std::sort(rows.begin(), rows.end(), [&](const Row& a, const Row& b) {
    if (yielder.Stopped()) throw Interrupted{};
    if (a.Beginning != b.Beginning) return a.Beginning < b.Beginning;
    if (const int c = a.Key.compare(b.Key); c != 0) return c < 0;
    return table_.Text(a.Word - 1) < table_.Text(b.Word - 1);
  });

  renumbered.assign(n + 1, kNoWord);
  std::vector<uint8_t> characters(n + 1);
  std::vector<uint32_t> classes(n + 1);
  begins_.assign(1, 0);
  begins_.reserve(n + 2);
  bytes_.clear();
  uint32_t lastClass = 0;
  for (uint32_t r = 1; r <= n; ++r) {
    const Row& row = rows[r - 1];
    renumbered[row.Word] = r;
    characters[r] = characters_[row.Word];
    if (r == 1 || row.Key != rows[r - 2].Key) ++lastClass;
    classes[r] = lastClass;
    begins_.push_back(bytes_.size());
    const std::string_view text = table_.Text(row.Word - 1);
    bytes_.insert(bytes_.end(), text.begin(), text.end());
  }
  begins_.push_back(bytes_.size());
  characters_.swap(characters);
  if (lastClass != n) keyClasses_ = std::move(classes);
  table_ = StringTable();
} catch (const Interrupted&) {
}

}  // namespace korv
