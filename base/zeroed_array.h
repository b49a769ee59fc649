#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace korv {

/// A fixed number of elements that start as zero bytes.
///
/// The system zeroes the pages of a large array when each is first touched. Making one therefore takes no
/// time worth speaking of, where a vector would write all of it in one go.
template <typename T>
class ZeroedArray {
  static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= alignof(std::max_align_t));

 public:
  ZeroedArray() = default;
  /// Throws std::bad_alloc.
  explicit ZeroedArray(size_t size)
      : elements_(static_cast<T*>(std::calloc(size == 0 ? 1 : size, sizeof(T)))), size_(size) {
    if (!elements_) throw std::bad_alloc();
  }

  size_t Size() const { return size_; }
  bool Empty() const { return size_ == 0; }
  T& operator[](size_t i) { return elements_.get()[i]; }
  const T& operator[](size_t i) const { return elements_.get()[i]; }
  T* Data() { return elements_.get(); }
  const T* Data() const { return elements_.get(); }

 private:
  struct Freer {
    void operator()(T* elements) const { std::free(elements); }
  };

  std::unique_ptr<T, Freer> elements_;
  size_t size_ = 0;
};

}  // namespace korv
