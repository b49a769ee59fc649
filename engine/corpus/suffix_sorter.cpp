#include "engine/corpus/suffix_sorter.h"

#include <algorithm>
#include <array>
#include <bit>

#include "base/pieces.h"

namespace korv {

namespace {

/// Insertion sort is fastest up to about so many.
constexpr size_t kShortRun = 32;
/// Suffixes between two looks at the request to stop.
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

size_t DigitOf(const Suffix& suffix, int shift) {
  return (suffix.Key >> shift) & (kDigits - 1);
}

}  // namespace

SuffixSorter::SuffixSorter(std::span<const WordNumber> tokens, uint32_t vocabularySize, int maxWords,
                           const Yielder& yielder)
    : tokens_(tokens),
      maxWords_(maxWords),
      yielder_(yielder),
      wordBits_(std::max(1, static_cast<int>(std::bit_width(vocabularySize)))),
      wordsPerKey_(std::min(64 / wordBits_, 8)) {}

void SuffixSorter::Sort(std::span<const Place> places) {
  const size_t n = places.size();
  // Emptied first, so that growing copies nothing.
  suffixes_.clear();
  suffixes_.resize(n);
  lcp_.clear();
  lcp_.resize(n);
  if (n == 0) return;
  lcp_[0] = 0;
  if (spare_.size() < n) {
    spare_.clear();
    spare_.resize(n);
  }
  const WordNumber* tokens = tokens_.data();
  // The places are scattered over the text. Without a prefetch the sort would wait for every single one.
  constexpr size_t kAhead = 24;
  InPieces(n, yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) {
      if (i + kAhead < n) __builtin_prefetch(tokens + ValueOf(places[i + kAhead]));
      suffixes_[i] = {KeyAt(places[i], 1), places[i], tokens[ValueOf(places[i]) - 1]};
    }
  });
  if (n == 1 || yielder_.Stopped()) return;
  SortByKey(suffixes_.data(), spare_.data(), n);
  FindLcp(0, n, 1);
}

/// The words from `depth` on as one number that compares as they do: the first word in the highest of
/// wordsPerKey_ * wordBits_ bits, zeros from the first kNoWord and from maxWords_ on.
uint64_t SuffixSorter::KeyAt(Place place, int depth) const {
  const int words = std::min(wordsPerKey_, maxWords_ - depth);
  const WordNumber* token = tokens_.data() + ValueOf(place) + depth;
  uint64_t key = 0;
  int k = 0;
  for (; k < words && token[k] != kNoWord; ++k) key = key << wordBits_ | ValueOf(token[k]);
  const int missing = (wordsPerKey_ - k) * wordBits_;
  return missing < 64 ? key << missing : 0;
}

/// Sorts suffixes [begin, end), which have their first `depth` words in common.
void SuffixSorter::SortRun(size_t begin, size_t end, int depth) {
  if (yielder_.Stopped()) return;
  if (end - begin == 2) return SortPair(begin, depth);
  const bool finished = InPieces(end - begin, yielder_, [&](size_t first, size_t last) {
    for (size_t i = begin + first; i < begin + last; ++i) {
      // The prefetch crosses the end of the run on purpose: the next run comes right after.
      if (i + 8 < suffixes_.size()) __builtin_prefetch(tokens_.data() + ValueOf(suffixes_[i + 8].At) + depth);
      suffixes_[i].Key = KeyAt(suffixes_[i].At, depth);
    }
  });
  if (!finished) return;
  SortByKey(suffixes_.data() + begin, spare_.data(), end - begin);
  FindLcp(begin, end, depth);
}

void SuffixSorter::SortPair(size_t begin, int depth) {
  const WordNumber* a = tokens_.data() + ValueOf(suffixes_[begin].At);
  const WordNumber* b = tokens_.data() + ValueOf(suffixes_[begin + 1].At);
  int k = depth;
  while (k < maxWords_ && a[k] == b[k] && a[k] != kNoWord) ++k;
  lcp_[begin + 1] = static_cast<uint8_t>(k);
  if (k < maxWords_ && a[k] > b[k]) std::swap(suffixes_[begin], suffixes_[begin + 1]);
}

/// The first suffix behind `begin` and before `end` with another key than that one, else `end`; also when
/// stopped.
size_t SuffixSorter::EndOfEqualKeys(size_t begin, size_t end) const {
  size_t same = begin + 1;
  for (; same < end && suffixes_[same].Key == suffixes_[begin].Key; ++same)
    if (same % kStopEvery == 0 && yielder_.Stopped()) return end;
  return same;
}

/// Finds the LCPs within suffixes [begin, end), which are in order of their keys, those of the words from
/// `depth` on, and sorts on where keys are equal.
void SuffixSorter::FindLcp(size_t begin, size_t end, int depth) {
  const int unused = 64 - wordsPerKey_ * wordBits_;
  const uint64_t lastWord = (uint64_t{1} << wordBits_) - 1;
  const int reached = std::min(depth + wordsPerKey_, maxWords_);
  size_t i = begin;
  while (i < end) {
    const uint64_t key = suffixes_[i].Key;
    const size_t same = EndOfEqualKeys(i, end);
    if (same - i > 1) {
      const bool phraseEnds = (key & lastWord) == 0;
      if (!phraseEnds && reached < maxWords_)
        SortRun(i, same, reached);
      else
        FillLcp(i, same, depth);
    }
    if (same < end) {
      const int equal = (std::countl_zero(key ^ suffixes_[same].Key) - unused) / wordBits_;
      lcp_[same] = static_cast<uint8_t>(depth + equal);
    }
    i = same;
  }
}

/// The LCPs within suffixes [begin, end) that are equal as far as they are compared.
void SuffixSorter::FillLcp(size_t begin, size_t end, int depth) {
  const int unused = 64 - wordsPerKey_ * wordBits_;
  int words = 0;
  for (uint64_t rest = suffixes_[begin].Key; words < wordsPerKey_; ++words, rest <<= wordBits_)
    if ((rest << unused >> (64 - wordBits_)) == 0) break;
  std::fill(lcp_.begin() + static_cast<std::ptrdiff_t>(begin) + 1,
            lcp_.begin() + static_cast<std::ptrdiff_t>(end), static_cast<uint8_t>(depth + words));
}

/// Sorts n suffixes by the highest digit in which their keys differ, then each group by the next. Stable.
void SuffixSorter::SortByKey(Suffix* a, Suffix* spare, size_t n) {
  if (n <= kShortRun) return InsertionSort(a, n);
  uint64_t different = 0;
  const bool compared = InPieces(n, yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) different |= a[i].Key ^ a[0].Key;
  });
  if (!compared || different == 0) return;

  const int shift = std::max(0, static_cast<int>(std::bit_width(different)) - kDigitBits);
  std::array<uint32_t, kDigits + 1> begins{};
  const bool counted = InPieces(n, yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) ++begins[DigitOf(a[i], shift) + 1];
  });
  if (!counted) return;
  for (size_t d = 0; d < kDigits; ++d) begins[d + 1] += begins[d];
  std::array<uint32_t, kDigits + 1> next = begins;
  const bool scattered = InPieces(n, yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) spare[next[DigitOf(a[i], shift)]++] = a[i];
  });
  if (!scattered) return;
  const bool copied = InPieces(
      n, yielder_, [&](size_t begin, size_t end) { std::copy(spare + begin, spare + end, a + begin); });
  if (!copied || shift == 0) return;
  for (size_t d = 0; d < kDigits; ++d)
    if (const size_t size = begins[d + 1] - begins[d]; size > 1) SortByKey(a + begins[d], spare, size);
}

}  // namespace korv
