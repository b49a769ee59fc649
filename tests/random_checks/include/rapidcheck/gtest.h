#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "tests/random_checks/random_checks.h"

namespace korv::random_checks {

/// Checks the property with the settings of RC_PARAMS, as part of the test that runs.
inline void CheckInTest(void (*property)()) {
  const char* const params = std::getenv("RC_PARAMS");
  const Outcome outcome = Check(property, ReadSettings(params == nullptr ? "" : params));
  if (outcome.Held) {
    std::cout << outcome.Report;
  } else {
    ADD_FAILURE() << outcome.Report;
  }
}

}  // namespace korv::random_checks

/// A property as a test. It draws its values itself: `arguments` is ().
#define RC_GTEST_PROP(suite, name, arguments)                       \
  void suite##_##name##_Property arguments;                         \
  TEST(suite, name) {                                               \
    ::korv::random_checks::CheckInTest(&suite##_##name##_Property); \
  }                                                                 \
  void suite##_##name##_Property arguments
