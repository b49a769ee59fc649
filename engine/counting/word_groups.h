#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/raw_vector.h"
#include "engine/corpus/vocabulary.h"

namespace korv {

/// Items gathered by their member First, a word. Tasks give them, each on one thread, then Gather() puts
/// those of each word side by side, in no order.
///
/// Words are spread over buckets, each of which is for one thread at a time. Linear in items and words;
/// memory is that of the items, once for the tasks and once for the buckets that have been gathered, and 4
/// bytes a word.
template <typename Item>
class WordGroups {
 public:
  WordGroups(uint32_t vocabularySize, size_t tasks, size_t buckets)
      : words_(size_t{vocabularySize} + 1), given_(tasks), buckets_(buckets) {}

  size_t Buckets() const { return buckets_.size(); }
  size_t Tasks() const { return given_.size(); }
  /// Words of a bucket, the last of which may be beyond the vocabulary.
  size_t WordsOfBucket() const { return (words_ + buckets_.size() - 1) / buckets_.size(); }
  size_t BucketOf(WordNumber word) const { return ValueOf(word) % buckets_.size(); }
  /// Of a word among those of its bucket.
  size_t IndexOf(WordNumber word) const { return ValueOf(word) / buckets_.size(); }
  WordNumber WordAt(size_t bucket, size_t index) const {
    return WordNumber{static_cast<uint32_t>(index * buckets_.size() + bucket)};
  }

  /// The items of a task, which gives them once.
  void Give(size_t task, std::span<const Item> items) {
    Grouped& given = given_[task];
    given.Begins.assign(buckets_.size() + 1, 0);
    for (const Item& item : items) ++given.Begins[BucketOf(item.First)];
    AddUp(given.Begins);
    given.Items.resize(items.size());
    for (const Item& item : items) given.Items[--given.Begins[BucketOf(item.First)]] = item;
  }

  /// Call it for each bucket when all tasks have ended; several may be gathered at a time.
  void Gather(size_t bucket) {
    std::vector<uint32_t>& begins = buckets_[bucket].Begins;
    begins.assign(WordsOfBucket() + 1, 0);
    for (const Grouped& given : given_)
      for (const Item& item : given.Of(bucket)) ++begins[IndexOf(item.First)];
    AddUp(begins);
    RawVector<Item>& items = buckets_[bucket].Items;
    items.resize(begins.back());
    for (const Grouped& given : given_)
      for (const Item& item : given.Of(bucket)) items[--begins[IndexOf(item.First)]] = item;
  }

  /// The items of a word whose bucket has been gathered.
  std::span<const Item> Of(WordNumber word) const {
    const Grouped& bucket = buckets_[BucketOf(word)];
    return bucket.Of(IndexOf(word));
  }
  /// Those of all words of a bucket that has been gathered.
  std::span<const Item> OfBucket(size_t bucket) const { return buckets_[bucket].Items; }
  /// Of all items, when all tasks have ended.
  size_t Size() const {
    size_t size = 0;
    for (const Grouped& given : given_) size += given.Items.size();
    return size;
  }

  /// Frees what tasks gave, when all buckets have been gathered.
  void DropGiven() { given_.clear(); }
  /// Frees a bucket.
  void Drop(size_t bucket) { buckets_[bucket] = {}; }

 private:
  struct Grouped {
    std::vector<uint32_t> Begins;  ///< Of the items of each bucket, or word; and the end of the last.
    RawVector<Item> Items;

    std::span<const Item> Of(size_t k) const {
      return std::span<const Item>(Items).subspan(Begins[k], Begins[k + 1] - Begins[k]);
    }
  };

  /// Turns sizes into ends. Groups are filled from their ends, which moves these to the begins.
  static void AddUp(std::vector<uint32_t>& sizes) {
    uint32_t sum = 0;
    for (uint32_t& size : sizes) size = sum += size;
  }

  size_t words_;
  std::vector<Grouped> given_;  ///< By task, in the order of buckets.
  std::vector<Grouped> buckets_;
};

}  // namespace korv
