#pragma once

#include <atomic>

namespace korv {

/// A value that one thread sets and any thread may look at. A look sees some recent value; it orders nothing
/// else. Costs as much as a plain variable.
template <typename Value>
class Gauge {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor,hicpp-explicit-conversions): it stands for its value.
  Gauge(Value value = {}) : value_(value) {}
  Gauge(const Gauge& other) : Gauge(static_cast<Value>(other)) {}

  // NOLINTNEXTLINE(google-explicit-constructor,hicpp-explicit-conversions)
  operator Value() const { return value_.load(std::memory_order_relaxed); }
  Gauge& operator=(Value value) {
    value_.store(value, std::memory_order_relaxed);
    return *this;
  }
  Gauge& operator=(const Gauge& other) { return *this = static_cast<Value>(other); }
  /// On the setting thread only.
  Gauge& operator++() { return *this = static_cast<Value>(*this) + 1; }

 private:
  static_assert(std::atomic<Value>::is_always_lock_free);
  std::atomic<Value> value_;
};

}  // namespace korv
