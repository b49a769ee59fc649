#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace korv {

/// Elements side by side in memory, appended one after the other, however many. Pointers and spans into it
/// last until the next append.
///
/// For more room it asks std::realloc, which moves the pages of a large block where the system can do that
/// (Linux can), where a vector copies all elements in one step: a gigabyte of them takes a quarter of a
/// second.
template <typename T>
class GrowingArray {
  static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= alignof(std::max_align_t));

 public:
  GrowingArray() = default;
  GrowingArray(GrowingArray&& other) noexcept
      : elements_(std::move(other.elements_)),
        size_(std::exchange(other.size_, 0)),
        capacity_(std::exchange(other.capacity_, 0)) {}
  GrowingArray& operator=(GrowingArray&& other) noexcept {
    elements_ = std::move(other.elements_);
    size_ = std::exchange(other.size_, 0);
    capacity_ = std::exchange(other.capacity_, 0);
    return *this;
  }

  // Named as in the containers of the standard library. NOLINTBEGIN(readability-identifier-naming)

  /// Both throw std::bad_alloc and then leave the array as it was.
  void push_back(T element) {
    if (size_ == capacity_) Grow(1);
    elements_.get()[size_++] = element;
  }
  void append(std::span<const T> elements) {
    if (elements.empty()) return;
    if (capacity_ - size_ < elements.size()) Grow(elements.size());
    std::memcpy(elements_.get() + size_, elements.data(), elements.size_bytes());
    size_ += elements.size();
  }

  /// Appends so many elements without a value and returns where they are. Throws as those above.
  T* Extend(size_t elements) {
    if (capacity_ - size_ < elements) Grow(elements);
    size_ += elements;
    return elements_.get() + (size_ - elements);
  }
  /// Keeps the memory.
  void clear() { size_ = 0; }

  /// Makes room for so many elements in all, and for no more. Throws as those above.
  void reserve(size_t elements) {
    if (elements > capacity_) Resize(elements);
  }

  size_t size() const { return size_; }
  size_t capacity() const { return capacity_; }
  T& operator[](size_t i) { return elements_.get()[i]; }
  const T& operator[](size_t i) const { return elements_.get()[i]; }
  const T& back() const { return elements_.get()[size_ - 1]; }
  T* data() { return elements_.get(); }
  const T* data() const { return elements_.get(); }
  T* begin() { return data(); }
  T* end() { return data() + size_; }
  const T* begin() const { return data(); }
  const T* end() const { return data() + size_; }

  // NOLINTEND(readability-identifier-naming)

 private:
  struct Freer {
    void operator()(T* elements) const { std::free(elements); }
  };

  void Grow(size_t more) { Resize(std::max({size_t{64}, size_ + more, capacity_ * 2})); }

  void Resize(size_t capacity) {
    if (capacity > SIZE_MAX / sizeof(T)) throw std::bad_alloc();
    auto* const grown = static_cast<T*>(std::realloc(elements_.get(), capacity * sizeof(T)));
    if (grown == nullptr) throw std::bad_alloc();
    static_cast<void>(elements_.release());  // std::realloc has freed the old block.
    elements_.reset(grown);
    capacity_ = capacity;
  }

  std::unique_ptr<T, Freer> elements_;
  size_t size_ = 0;
  size_t capacity_ = 0;
};

}  // namespace korv
