#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korv::random_checks {

/// One case of a property while it runs.
struct Case {
  std::mt19937_64& Numbers;       ///< The same numbers from the same seed on every system.
  int Size;                       ///< From 0, for the simplest values, to kNominalSize.
  std::ostringstream Log;         ///< Shown if the case fails.
  std::vector<std::string> Tags;  ///< Counted over all cases that hold.
};

/// The case that runs now. Throws std::logic_error outside of a property.
Case& CurrentCase();

/// What the macros throw: the property does not hold, or the case is none to judge it by.
struct Falsified : std::runtime_error {
  using runtime_error::runtime_error;
};
struct Discarded : std::runtime_error {
  using runtime_error::runtime_error;
};

/// Throws Falsified, which tells where and what, unless `holds`.
void Require(bool holds, const char* expression, const char* file, int line);

struct Settings {
  int Cases = 100;  ///< To hold, each of them.
  uint64_t Seed = 0;
};

/// Reads what stands in RC_PARAMS, "max_success=100 seed=7" or a part of it; without a seed, one that nobody
/// can foresee. Throws std::invalid_argument for anything else: a mistyped setting must not pass unnoticed.
Settings ReadSettings(std::string_view text);

struct Outcome {
  bool Held;
  std::string Report;  ///< With what repeats the run.
};

/// Runs the property on case after case, from small to large, until so many held as are asked for, or one
/// does not hold or throws, or more than ten times as many were discarded.
Outcome Check(const std::function<void()>& property, const Settings& settings);

}  // namespace korv::random_checks
