#include "engine/corpus/vocabulary.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "base/bytes_of.h"
#include "base/pieces.h"
#include "base/utf8.h"
#include "engine/text/folding.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

bool IsPlainAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80 && (c < 'A' || c > 'Z'); });
}

/// The first eight bytes as a number that compares as they do.
uint64_t Beginning(std::string_view text) {
  uint64_t v = 0;
  for (size_t i = 0; i < 8; ++i) v = v << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
  return v;
}

/// The words of a string table in the order of Keys, then Texts.
class KeyedWords {
 public:
  struct Row {
    uint64_t Beginning;    ///< Of Key, as a number.
    std::string_view Key;  ///< Lives as long as the table and this object.
    uint32_t Number;       ///< In the table.
  };

  explicit KeyedWords(const StringTable& table) : table_(table) {}

  /// Called one after the other; both return false when stopped.
  bool FindKeys(const Yielder& yielder);
  bool Sort(const Yielder& yielder);

  const std::vector<Row>& Rows() const { return rows_; }

 private:
  /// Thrown by a comparison, the only place of a sort that can notice a stop.
  struct Interrupted {};

  const StringTable& table_;
  StringTable folded_;  ///< The Keys of words that are not their own.
  std::vector<Row> rows_;
};

bool KeyedWords::FindKeys(const Yielder& yielder) {
  const size_t n = table_.Size();
  // A view into folded_ lasts until the next Key is added, so that rows are made when all are there.
  RawVector<uint32_t> keyNumbers(n);
  const bool folded = InPieces(n, yielder, [&](size_t begin, size_t end) {
    for (auto w = static_cast<uint32_t>(begin); w < end; ++w) {
      const std::string_view text = table_.Text(w);
      keyNumbers[w] = IsPlainAscii(text) ? StringTable::kNone : folded_.Number(FoldKey(FoldAccents(text)));
    }
  });
  if (!folded) return false;
  rows_.reserve(n);
  return InPieces(n, yielder, [&](size_t begin, size_t end) {
    for (auto w = static_cast<uint32_t>(begin); w < end; ++w) {
      const std::string_view key =
          keyNumbers[w] == StringTable::kNone ? table_.Text(w) : folded_.Text(keyNumbers[w]);
      rows_.push_back({Beginning(key), key, w});
    }
  });
}

bool KeyedWords::Sort(const Yielder& yielder) try {
  // Last key: the text itself, which no two words share.
  std::sort(rows_.begin(), rows_.end(), [&](const Row& a, const Row& b) {
    if (yielder.Stopped()) throw Interrupted{};
    if (a.Beginning != b.Beginning) return a.Beginning < b.Beginning;
    if (const int c = a.Key.compare(b.Key); c != 0) return c < 0;
    return table_.Text(a.Number) < table_.Text(b.Number);
  });
  return true;
} catch (const Interrupted&) {
  return false;
}

/// The Keys of words one after the other, each compared with the one before.
class KeysInOrder {
 public:
  /// How the Key of `text` compares with that of the text before; below 0 for the first one.
  int Compare(std::string_view text) {
    std::string folded;
    if (!IsPlainAscii(text)) folded = FoldKey(FoldAccents(text));
    const std::string_view key = folded.empty() ? text : folded;
    const int order = first_ ? -1 : std::string_view(before_).compare(key);
    before_.assign(key);
    first_ = false;
    return order;
  }

 private:
  std::string before_;
  bool first_ = true;
};

}  // namespace

bool IsWordText(std::string_view text) {
  if (text.empty() || std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) <= ' '; }))
    return false;
  for (size_t at = PastAscii(text, 0); at < text.size();) {
    const Utf8Sequence sequence = Utf8SequenceAt(text, at);
    if (sequence.Kind != Utf8Kind::WellFormed) return false;
    at += sequence.Length;
  }
  return true;
}

WordNumber Vocabulary::Number(std::string_view word) {
  const WordNumber number{table_.Number(word) + 1};
  if (ValueOf(number) == characters_.size())
    characters_.push_back(static_cast<uint8_t>(std::min<size_t>(CharacterCount(word), 255)));
  return number;
}

WordNumber Vocabulary::Find(std::string_view word) const {
  const std::string key = FoldKey(FoldAccents(word));
  WordNumber low{1};
  WordNumber high{Size() + 1};
  while (low < high) {
    const WordNumber middle = low + (high - low) / 2;
    const std::string_view text = Text(middle);
    const int order = FoldKey(FoldAccents(text)).compare(key);
    if (order < 0 || (order == 0 && text < word))
      low = middle + 1;
    else
      high = middle;
  }
  return ValueOf(low) <= Size() && Text(low) == word ? low : kNoWord;
}

bool Vocabulary::Rank(RawVector<WordNumber>& renumbered, const Yielder& yielder) {
  KeyedWords words(table_);
  if (!words.FindKeys(yielder) || !words.Sort(yielder)) return false;

  const std::vector<KeyedWords::Row>& rows = words.Rows();
  const size_t n = rows.size();
  RawVector<WordNumber> newNumbers(n + 1);
  RawVector<uint8_t> characters(n + 1);
  RawVector<uint32_t> classes(n + 1);
  RawVector<uint64_t> begins(n + 2);
  GrowingArray<char> bytes;
  newNumbers[0] = kNoWord;
  characters[0] = 0;
  classes[0] = 0;
  begins[0] = begins[1] = 0;
  const bool finished = InPieces(n, yielder, [&](size_t begin, size_t end) {
    for (size_t r = begin; r < end; ++r) {
      const size_t number = r + 1;
      const size_t old = size_t{rows[r].Number} + 1;
      newNumbers[old] = WordNumber{static_cast<uint32_t>(number)};
      characters[number] = characters_[old];
      classes[number] = classes[r] + (r == 0 || rows[r].Key != rows[r - 1].Key ? 1 : 0);
      bytes.append(std::span(table_.Text(rows[r].Number)));
      begins[number + 1] = bytes.size();
    }
  });
  if (!finished) return false;
  renumbered = std::move(newNumbers);
  characters_ = std::move(characters);
  if (classes[n] != n) keyClasses_ = std::move(classes);
  begins_ = std::move(begins);
  bytes_ = std::move(bytes);
  table_ = StringTable();
  return true;
}

bool Vocabulary::Restore(const RawVector<uint64_t>& ends, GrowingArray<char> bytes, const Yielder& yielder) {
  const size_t n = ends.size();
  RawVector<uint8_t> characters(n + 1);
  RawVector<uint32_t> classes(n + 1);
  RawVector<uint64_t> begins(n + 2);
  characters[0] = 0;
  classes[0] = 0;
  begins[0] = begins[1] = 0;
  KeysInOrder keys;
  std::string_view before;
  bool wellFormed = n == 0 ? bytes.size() == 0 : ends[n - 1] == bytes.size();
  const bool finished = InPieces(n, yielder, [&](size_t begin, size_t end) {
    for (size_t w = begin + 1; w <= end && wellFormed; ++w) {
      begins[w + 1] = ends[w - 1];
      wellFormed = begins[w] <= begins[w + 1] && begins[w + 1] <= bytes.size();
      if (!wellFormed) return;
      const std::string_view text(bytes.data() + begins[w], begins[w + 1] - begins[w]);
      wellFormed = IsWordText(text);
      if (!wellFormed) return;
      const int order = keys.Compare(text);
      wellFormed = order < 0 || (order == 0 && before < text);
      before = text;
      characters[w] = static_cast<uint8_t>(std::min<size_t>(CharacterCount(text), 255));
      classes[w] = classes[w - 1] + (order < 0 ? 1 : 0);
    }
  });
  if (!finished || !wellFormed) return false;
  keyClasses_ = classes[n] == n ? RawVector<uint32_t>() : std::move(classes);
  characters_ = std::move(characters);
  begins_ = std::move(begins);
  bytes_ = std::move(bytes);
  table_ = StringTable();
  return true;
}

uint64_t Vocabulary::Bytes() const {
  return BytesOf(characters_) + BytesOf(begins_) + BytesOf(bytes_) + BytesOf(keyClasses_);
}

}  // namespace korv
