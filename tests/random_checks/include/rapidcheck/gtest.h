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

/// Has a fixture made anew for every case, as it is for every test.
template <typename Property>
void CheckOnFixture() {
  CheckInTest([] {
    struct Fixture : Property {
      Fixture() { this->SetUp(); }
      ~Fixture() override { this->TearDown(); }
    };
    Fixture().Holds();
  });
}

}  // namespace korv::random_checks

/// A property as a test. It draws its values itself: `arguments` is ().
#define RC_GTEST_PROP(suite, name, arguments)                       \
  void suite##_##name##_Property arguments;                         \
  TEST(suite, name) {                                               \
    ::korv::random_checks::CheckInTest(&suite##_##name##_Property); \
  }                                                                 \
  void suite##_##name##_Property arguments

/// The same on a fixture, whose members the property uses.
#define RC_GTEST_FIXTURE_PROP(fixture, name, arguments)                   \
  class fixture##_##name##_Property : public fixture {                    \
   public:                                                                \
    void TestBody() override {}                                           \
    void Holds arguments;                                                 \
  };                                                                      \
  TEST(fixture##_Property, name) {                                        \
    ::korv::random_checks::CheckOnFixture<fixture##_##name##_Property>(); \
  }                                                                       \
  void fixture##_##name##_Property::Holds arguments
