#include "engine/corpus/suffix_sorter.h"

#include <algorithm>
#include <array>
#include <bit>

namespace korv {

namespace {

constexpr size_t kShortRun = 32;
/// Places between two looks at the request to stop: some milliseconds.
constexpr size_t kStopEvery = size_t{1} << 16;
constexpr int kDigitBits = 9;
constexpr size_t kDigits = size_t{1} << kDigitBits;

void InsertionSort(Suffix* a, size_t n) {
  for (size_t i = 1; i < n; ++i) {
    const Suffix moved = a[i];
    size_t j = i;
    for (; j > 0 && a[j - 1].Key > moved.Key; --j) a[j] = a[j - 1];
    a[j] = moved;
  }
}

}  // namespace

SuffixSorter::SuffixSorter(std::span<const WordNumber> numbers, uint32_t vocabularySize, int maxWords,
                           const Yielder& yielder)
    : numbers_(numbers),
      maxWords_(maxWords),
      yielder_(yielder),
      wordBits_(std::max(1, static_cast<int>(std::bit_width(vocabularySize)))),
      wordsPerKey_(std::min(64 / wordBits_, 8)) {}

void SuffixSorter::Sort(std::span<const uint32_t> positions) {
  const size_t n = positions.size();
  suffixes_.resize(n);
  lcp_.assign(n, 1);
  if (n == 0) return;
  lcp_[0] = 0;
  if (spare_.size() < n) spare_.resize(n);
  const WordNumber* text = numbers_.data();
  // The places are scattered over the text: without asking ahead every one would be waited for.
  constexpr size_t kAhead = 24;
  for (size_t i = 0; i < n; ++i) {
    if (i % kStopEvery == 0 && yielder_.Stopped()) return;
    if (i + kAhead < n) __builtin_prefetch(text + positions[i + kAhead]);
    const uint32_t p = positions[i];
    suffixes_[i] = {KeyAt(p, 1), p, text[p - 1]};
  }
  if (n == 1) return;
  SortByKey(suffixes_.data(), spare_.data(), n);
  FindLcp(0, n, 1);
}

uint64_t SuffixSorter::KeyAt(uint32_t position, int depth) const {
  const int words = std::min(wordsPerKey_, maxWords_ - depth);
  const WordNumber* text = numbers_.data() + position + depth;
  uint64_t key = 0;
  int k = 0;
  for (; k < words && text[k] != kNoWord; ++k) key = key << wordBits_ | text[k];
  const int missing = (wordsPerKey_ - k) * wordBits_;
  return missing < 64 ? key << missing : 0;
}

void SuffixSorter::SortFrom(size_t begin, size_t end, int depth) {
  if (yielder_.Stopped()) return;
  if (end - begin == 2) return SortPair(begin, depth);
  for (size_t i = begin; i < end; ++i) {
    // Asking ahead crosses the end of the run on purpose: the next run comes right after.
    if (i + 8 < suffixes_.size()) __builtin_prefetch(numbers_.data() + suffixes_[i + 8].Position + depth);
    if (i % kStopEvery == 0 && yielder_.Stopped()) return;
    suffixes_[i].Key = KeyAt(suffixes_[i].Position, depth);
  }
  SortByKey(suffixes_.data() + begin, spare_.data(), end - begin);
  FindLcp(begin, end, depth);
}

void SuffixSorter::SortPair(size_t begin, int depth) {
  const WordNumber* a = numbers_.data() + suffixes_[begin].Position;
  const WordNumber* b = numbers_.data() + suffixes_[begin + 1].Position;
  int k = depth;
  while (k < maxWords_ && a[k] == b[k] && a[k] != kNoWord) ++k;
  lcp_[begin + 1] = static_cast<uint8_t>(k);
  if (k < maxWords_ && a[k] > b[k]) std::swap(suffixes_[begin], suffixes_[begin + 1]);
}

// The run is in order of its keys, which hold the words from `depth` on.
void SuffixSorter::FindLcp(size_t begin, size_t end, int depth) {
  const int unused = 64 - wordsPerKey_ * wordBits_;
  const uint64_t lastWord = (uint64_t{1} << wordBits_) - 1;
  const int reached = std::min(depth + wordsPerKey_, maxWords_);
  size_t i = begin;
  while (i < end) {
    const uint64_t key = suffixes_[i].Key;
    size_t same = i + 1;
    while (same < end && suffixes_[same].Key == key) ++same;
    if (same - i > 1) {
      const bool ended = (key & lastWord) == 0;
      if (!ended && reached < maxWords_) {
        SortFrom(i, same, reached);
      } else {
        int words = 0;
        for (uint64_t rest = key; words < wordsPerKey_; ++words, rest <<= wordBits_)
          if ((rest << unused >> (64 - wordBits_)) == 0) break;
        std::fill(lcp_.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                  lcp_.begin() + static_cast<std::ptrdiff_t>(same), static_cast<uint8_t>(depth + words));
      }
    }
    if (same < end) {
      const int differs = (std::countl_zero(key ^ suffixes_[same].Key) - unused) / wordBits_;
      lcp_[same] = static_cast<uint8_t>(depth + differs);
    }
    i = same;
  }
}

void SuffixSorter::SortByKey(Suffix* a, Suffix* spare, size_t n) {
  if (n <= kShortRun) return InsertionSort(a, n);
  if (yielder_.Stopped()) return;
  uint64_t different = 0;
  for (size_t i = 1; i < n; ++i) different |= a[i].Key ^ a[0].Key;
  if (different == 0 || yielder_.Stopped()) return;
  const int shift = std::max(0, static_cast<int>(std::bit_width(different)) - kDigitBits);
  const auto digit = [shift](const Suffix& s) { return (s.Key >> shift) & (kDigits - 1); };

  std::array<uint32_t, kDigits + 1> begins{};
  for (size_t i = 0; i < n; ++i) ++begins[digit(a[i]) + 1];
  for (size_t d = 0; d < kDigits; ++d) begins[d + 1] += begins[d];
  if (yielder_.Stopped()) return;
  std::array<uint32_t, kDigits + 1> next = begins;
  for (size_t i = 0; i < n; ++i) spare[next[digit(a[i])]++] = a[i];
  if (yielder_.Stopped()) return;
  std::copy(spare, spare + n, a);
  if (shift == 0) return;
  for (size_t d = 0; d < kDigits; ++d)
    if (const size_t size = begins[d + 1] - begins[d]; size > 1) SortByKey(a + begins[d], spare, size);
}

}  // namespace korv
