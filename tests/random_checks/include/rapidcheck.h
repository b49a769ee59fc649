#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/random_checks/random_checks.h"

// The part of RapidCheck's interface that our properties use, with the same meaning: see RapidCheck's own
// documentation. Failing cases are not shrunk.

namespace rc {

constexpr int kNominalSize = 100;

/// How to draw a value of one kind.
template <typename T>
class Gen {
 public:
  using Draw = std::function<T(std::mt19937_64& numbers, int size)>;

  explicit Gen(Draw draw) : draw_(std::move(draw)) {}

  T operator()(std::mt19937_64& numbers, int size) const { return draw_(numbers, size); }

  /// A value for the case that runs.
  T operator*() const {
    korv::random_checks::Case& now = korv::random_checks::CurrentCase();
    return draw_(now.Numbers, now.Size);
  }

 private:
  Draw draw_;
};

namespace gen {

// The standard library's distributions draw differently from system to system; remainders are the same
// everywhere, and of 64 bits they are even enough.

/// At least `least` and below `end`; the smaller the size, the nearer to `least`.
template <std::integral T>
Gen<T> inRange(T least, T end) {
  if (end <= least) throw std::invalid_argument("an empty range");
  const uint64_t steps = static_cast<uint64_t>(end) - static_cast<uint64_t>(least) - 1;
  return Gen<T>([least, steps](std::mt19937_64& numbers, int size) {
    const auto percent = static_cast<uint64_t>(std::clamp(size, 0, kNominalSize));
    const uint64_t most = steps / 100 * percent + (steps % 100 * percent + 50) / 100;
    return static_cast<T>(static_cast<uint64_t>(least) + numbers() % (most + 1));
  });
}

template <std::same_as<bool> T>
Gen<T> arbitrary() {
  return Gen<T>([](std::mt19937_64& numbers, int) { return numbers() % 2 == 1; });
}

/// Any element, whatever the size.
template <typename Container>
Gen<typename Container::value_type> elementOf(Container values) {
  if (values.empty()) throw std::invalid_argument("no element to choose");
  return Gen<typename Container::value_type>([values = std::move(values)](std::mt19937_64& numbers, int) {
    return values[static_cast<size_t>(numbers() % values.size())];
  });
}

template <typename T, std::convertible_to<T>... Ts>
Gen<T> element(T first, Ts... others) {
  return elementOf(std::vector<T>{std::move(first), static_cast<T>(std::move(others))...});
}

/// `count` elements.
template <typename Container, typename T>
Gen<Container> container(size_t count, Gen<T> element) {
  return Gen<Container>([count, element = std::move(element)](std::mt19937_64& numbers, int size) {
    Container drawn;
    while (drawn.size() < count) drawn.push_back(element(numbers, size));
    return drawn;
  });
}

/// At most so many elements as the size says.
template <typename Container, typename T>
Gen<Container> container(Gen<T> element) {
  return Gen<Container>([element = std::move(element)](std::mt19937_64& numbers, int size) {
    const auto most = static_cast<uint64_t>(size);
    return container<Container>(static_cast<size_t>(numbers() % (most + 1)), element)(numbers, size);
  });
}

template <typename T, typename Function>
auto map(Gen<T> values, Function function) -> Gen<std::invoke_result_t<Function, T>> {
  return Gen<std::invoke_result_t<Function, T>>(
      [values = std::move(values), function = std::move(function)](std::mt19937_64& numbers, int size) {
        return function(values(numbers, size));
      });
}

template <typename T>
Gen<T> resize(int size, Gen<T> values) {
  return Gen<T>(
      [size, values = std::move(values)](std::mt19937_64& numbers, int) { return values(numbers, size); });
}

template <typename T>
Gen<T> scale(double factor, Gen<T> values) {
  return Gen<T>([factor, values = std::move(values)](std::mt19937_64& numbers, int size) {
    return values(numbers, static_cast<int>(size * factor));
  });
}

/// What a function draws that uses generators itself, for the size that is asked for.
template <typename Function>
Gen<std::invoke_result_t<Function>> exec(Function function) {
  return Gen<std::invoke_result_t<Function>>([function = std::move(function)](std::mt19937_64&, int size) {
    struct Resized {
      explicit Resized(int size) : Usual(std::exchange(korv::random_checks::CurrentCase().Size, size)) {}
      ~Resized() { korv::random_checks::CurrentCase().Size = Usual; }
      Resized(const Resized&) = delete;
      Resized& operator=(const Resized&) = delete;
      int Usual;
    };
    const Resized resized(size);
    return function();
  });
}

}  // namespace gen
}  // namespace rc

#define RC_ASSERT(expression) \
  ::korv::random_checks::Require(static_cast<bool>(expression), #expression, __FILE__, __LINE__)
#define RC_ASSERT_FALSE(expression) \
  ::korv::random_checks::Require(!static_cast<bool>(expression), "!(" #expression ")", __FILE__, __LINE__)
#define RC_PRE(expression) \
  ((expression) ? void() : throw ::korv::random_checks::Discarded("RC_PRE(" #expression ")"))
#define RC_TAG(tag) ::korv::random_checks::CurrentCase().Tags.push_back(tag)
#define RC_LOG() static_cast<std::ostream&>(::korv::random_checks::CurrentCase().Log)
