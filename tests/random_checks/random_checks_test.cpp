#include "tests/random_checks/random_checks.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace korv::random_checks {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;

/// What `draw` gives in case after case.
template <typename Draw>
auto Drawn(Draw draw, const Settings& settings) {
  std::vector<decltype(draw())> values;
  const Outcome outcome = Check([&] { values.push_back(draw()); }, settings);
  EXPECT_TRUE(outcome.Held) << outcome.Report;
  return values;
}

template <typename T>
std::set<T> Different(const rc::Gen<T>& values) {
  const std::vector<T> drawn = Drawn([&] { return *values; }, {.Cases = 1000, .Seed = 1});
  return {drawn.begin(), drawn.end()};
}

void NeverAbove20() {
  const int size = CurrentCase().Size;
  RC_LOG() << "the size is " << size << '\n';
  RC_ASSERT(size <= 20);
}

TEST(RandomChecks, AFalsePropertyFailsItsTest) {
  EXPECT_NONFATAL_FAILURE(CheckInTest(&NeverAbove20), "RC_ASSERT(size <= 20)");
}

TEST(RandomChecks, AFailureTellsWhereAndHowToRepeatIt) {
  const Outcome outcome = Check(&NeverAbove20, {.Cases = 101, .Seed = 42});
  EXPECT_FALSE(outcome.Held);
  EXPECT_THAT(outcome.Report, HasSubstr("Case 22, of size 21,"));
  EXPECT_THAT(outcome.Report, HasSubstr("random_checks_test.cpp:"));
  EXPECT_THAT(outcome.Report, HasSubstr("the size is 21\n"));
  EXPECT_THAT(outcome.Report, testing::Not(HasSubstr("the size is 20\n")));
  EXPECT_THAT(outcome.Report, HasSubstr("RC_PARAMS=\"max_success=101 seed=42\""));
}

TEST(RandomChecks, APropertyThatThrowsFails) {
  const Outcome known = Check([] { throw std::runtime_error("no memory left"); }, {});
  EXPECT_FALSE(known.Held);
  EXPECT_THAT(known.Report, HasSubstr("no memory left"));
  EXPECT_FALSE(Check([] { throw 7; }, {}).Held);
}

TEST(RandomChecks, DiscardedCasesDoNotCount) {
  int runs = 0;
  int judged = 0;
  const Outcome outcome = Check(
      [&] {
        RC_PRE(++runs % 3 == 0);
        ++judged;
      },
      {.Cases = 50, .Seed = 1});
  EXPECT_TRUE(outcome.Held) << outcome.Report;
  EXPECT_EQ(judged, 50);
  EXPECT_EQ(runs, 150);
  EXPECT_THAT(outcome.Report, HasSubstr("50 cases of seed 1 held, 100 were discarded"));
}

TEST(RandomChecks, TooManyDiscardedCasesFail) {
  int runs = 0;
  const Outcome outcome = Check([&] { RC_PRE(++runs == 0); }, {.Cases = 20, .Seed = 1});
  EXPECT_FALSE(outcome.Held);
  EXPECT_EQ(runs, 201);
  EXPECT_THAT(outcome.Report, HasSubstr("RC_PRE(++runs == 0)"));
}

TEST(RandomChecks, CasesGrowUntilOneIsNotDiscarded) {
  const Outcome outcome = Check([] { RC_PRE(CurrentCase().Size >= 5); }, {.Cases = 1000, .Seed = 1});
  EXPECT_TRUE(outcome.Held) << outcome.Report;
}

TEST(RandomChecks, DiscardedCasesLeaveTheSizesOfLaterOnesAlone) {
  int runs = 0;
  std::vector<int> sizes;
  Check(
      [&] {
        RC_PRE(++runs % 3 == 0);
        sizes.push_back(CurrentCase().Size);
      },
      {.Cases = 101, .Seed = 1});
  std::vector<int> everySize(101);
  std::iota(everySize.begin(), everySize.end(), 0);
  EXPECT_EQ(sizes, everySize);
}

TEST(RandomChecks, TagsAreCounted) {
  const Outcome outcome =
      Check([] { RC_TAG(CurrentCase().Size < 10 ? "small" : "large"); }, {.Cases = 101, .Seed = 1});
  EXPECT_THAT(outcome.Report, HasSubstr("large: 91; small: 10\n"));
}

TEST(RandomChecks, TheSameSeedGivesTheSameCases) {
  const auto text = [] { return *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 1000)); };
  const auto first = Drawn(text, {.Cases = 100, .Seed = 3});
  EXPECT_EQ(Drawn(text, {.Cases = 100, .Seed = 3}), first);
  EXPECT_NE(Drawn(text, {.Cases = 100, .Seed = 4}), first);
}

TEST(RandomChecks, CasesAreTheSameOnEverySystem) {
  // The generator's published first numbers from its usual seed end in these digits.
  const auto digits = [] { return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 100)); };
  EXPECT_THAT(Drawn(digits, {.Cases = 5, .Seed = 5489}), ElementsAre(30, 8, 20, 22, 96));
}

TEST(RandomChecks, SizesGrowFromNothingToTheNominalSize) {
  const auto size = [] { return CurrentCase().Size; };
  EXPECT_THAT(Drawn(size, {.Cases = 5, .Seed = 1}), ElementsAre(0, 25, 50, 75, 100));
  const std::vector<int> many = Drawn(size, {.Cases = 10000, .Seed = 1});
  EXPECT_EQ(many.front(), 0);
  EXPECT_EQ(many.back(), rc::kNominalSize);
  EXPECT_TRUE(std::is_sorted(many.begin(), many.end()));
  EXPECT_EQ(std::set<int>(many.begin(), many.end()).size(), 101u);
}

TEST(RandomChecks, ContainersGrowWithTheSize) {
  const auto drawn = Drawn(
      [] {
        const auto bits = rc::gen::container<std::vector<bool>>(rc::gen::arbitrary<bool>());
        const size_t length = (*bits).size();
        RC_ASSERT(length <= static_cast<size_t>(CurrentCase().Size));
        return length;
      },
      {.Cases = 1000, .Seed = 1});
  EXPECT_EQ(drawn.front(), 0u);
  EXPECT_GT(*std::max_element(drawn.begin(), drawn.end()), 90u);
  const std::set<size_t> scaled =
      Different(rc::gen::map(rc::gen::scale(3.0, rc::gen::container<std::string>(rc::gen::element('a', 'b'))),
                             [](const std::string& text) { return text.size(); }));
  EXPECT_GT(*scaled.rbegin(), 200u);
  EXPECT_LE(*scaled.rbegin(), 300u);
}

TEST(RandomChecks, FunctionsDrawForTheSizeThatIsAskedFor) {
  const auto drawn = Drawn(
      [] {
        const int inside = *rc::gen::resize(280, rc::gen::exec([] { return CurrentCase().Size; }));
        return std::pair(inside, CurrentCase().Size);
      },
      {.Cases = 3, .Seed = 1});
  EXPECT_THAT(drawn, ElementsAre(std::pair(280, 0), std::pair(280, 50), std::pair(280, 100)));
}

TEST(RandomChecks, ContainersOfGivenLengthKeepIt) {
  const auto three = rc::gen::container<std::string>(3, rc::gen::element('x', 'y'));
  EXPECT_EQ(Different(three),
            (std::set<std::string>{"xxx", "xxy", "xyx", "xyy", "yxx", "yxy", "yyx", "yyy"}));
}

TEST(RandomChecks, RangesAreKeptAndReachedWhole) {
  EXPECT_EQ(Different(rc::gen::inRange(-3, 4)), (std::set<int>{-3, -2, -1, 0, 1, 2, 3}));
  EXPECT_EQ(Different(rc::gen::inRange<size_t>(1, 4)), (std::set<size_t>{1, 2, 3}));
  EXPECT_EQ(Different(rc::gen::resize(0, rc::gen::inRange(5, 1000))), std::set<int>{5});
  EXPECT_THAT(Different(rc::gen::resize(10, rc::gen::inRange(0, 1001))), Each(AllOf(Ge(0), Le(100))));
  EXPECT_GT(Different(rc::gen::inRange(INT64_MIN, INT64_MAX)).size(), 900u);
}

TEST(RandomChecks, ChoicesAreAmongWhatIsGiven) {
  EXPECT_EQ(Different(rc::gen::elementOf(std::vector<std::string>{"a", "b"})),
            (std::set<std::string>{"a", "b"}));
  EXPECT_EQ(Different(rc::gen::element(2, 4, 8)), (std::set<int>{2, 4, 8}));
  EXPECT_EQ(Different(rc::gen::arbitrary<bool>()).size(), 2u);
}

TEST(RandomChecks, NothingIsDrawnFromNothing) {
  EXPECT_THROW(rc::gen::inRange(4, 4), std::invalid_argument);
  EXPECT_THROW(rc::gen::elementOf(std::vector<int>{}), std::invalid_argument);
  EXPECT_THROW(*rc::gen::inRange(0, 2), std::logic_error) << "outside of a property";
}

TEST(RandomChecks, SettingsAreReadOrRefused) {
  const Settings settings = ReadSettings("max_success=12 seed=18446744073709551615");
  EXPECT_EQ(settings.Cases, 12);
  EXPECT_EQ(settings.Seed, UINT64_MAX);
  EXPECT_EQ(ReadSettings("").Cases, 100);
  EXPECT_NE(ReadSettings("").Seed, ReadSettings("").Seed);
  for (const char* wrong :
       {"max_success=0", "max_success=", "max_success=-5", "seed=7x", "seed", "max_sucess=5"}) {
    EXPECT_THROW(ReadSettings(wrong), std::invalid_argument) << wrong;
  }
}

int propertyRuns = 0;

RC_GTEST_PROP(RandomChecksProperty, Runs, ()) {
  ++propertyRuns;
}

TEST(RandomChecksProperty, RunsAsOftenAsTheEnvironmentSays) {
  propertyRuns = 0;
  CheckInTest(&RandomChecksProperty_Runs_Property);
  const char* const params = std::getenv("RC_PARAMS");
  EXPECT_EQ(propertyRuns, ReadSettings(params == nullptr ? "" : params).Cases);
}

int fixturesMade = 0;
int fixturesInUse = 0;

class FreshFixture : public testing::Test {
 protected:
  FreshFixture() { ++fixturesMade; }
  void SetUp() override { ++fixturesInUse; }
  void TearDown() override { --fixturesInUse; }

  int cases = 0;
};

RC_GTEST_FIXTURE_PROP(FreshFixture, IsMadeForEveryCase, ()) {
  RC_ASSERT(++cases == 1);
  RC_ASSERT(fixturesInUse == 1);
}

TEST(RandomChecks, MakeAFixtureForEveryCase) {
  fixturesMade = 0;
  CheckOnFixture<FreshFixture_IsMadeForEveryCase_Property>();
  EXPECT_GT(fixturesMade, 1);
  EXPECT_EQ(fixturesInUse, 0);
}

}  // namespace
}  // namespace korv::random_checks
