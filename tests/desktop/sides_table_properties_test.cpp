// The tabs of a comparison against the naive model, over whole runs of two sides.

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <QTabBar>
#include <cmath>
#include <set>

#include "desktop/results/table/comparison_bar.h"
#include "tests/desktop/table_test.h"
#include "tests/reference/naive_comparison.h"
#include "tests/report/two_sides.h"

namespace korv {
namespace {

using reference::Measures;

/// What a tab is said to list.
bool BelongsTo(KeyPhrases tab, std::optional<double> leastBic, const Measures& phrase) {
  const auto value = [&](const char* id) { return phrase.at(id).value_or(NAN); };
  const double ratio = value("log_ratio");
  const bool passes = !leastBic || value("bic") >= *leastBic;
  switch (tab) {
    case KeyPhrases::TypicalA:
      return ratio > 0 && passes;
    case KeyPhrases::TypicalB:
      return ratio < 0 && passes;
    case KeyPhrases::Shared:
      return value("frequency_a") > 0 && value("frequency_b") > 0 && std::abs(ratio) < 0.5 &&
             value("bic") < -2;
    case KeyPhrases::New:
      return value("frequency_b") == 0;
    case KeyPhrases::Gone:
      return value("frequency_a") == 0;
    case KeyPhrases::More:
    case KeyPhrases::Less: {
      const double inA = value("per_million_a");
      const double inB = value("per_million_b");
      if (value("frequency_a") == 0 || value("frequency_b") == 0) return false;
      return tab == KeyPhrases::More ? inA > inB * (1 + 1e-12) : inA < inB * (1 - 1e-12);
    }
    default:
      return false;
  }
}

/// Halves of the interval in which the least G2 lies whose p is small enough.
double NaiveSidakG2(double tests) {
  double least = 0;
  double most = 1000;
  for (int step = 0; step < 200; ++step) {
    const double middle = (least + most) / 2;
    (std::erfc(std::sqrt(middle / 2)) > -std::expm1(std::log1p(-0.0001) / tests) ? least : most) = middle;
  }
  return most;
}

class SidesTableProperties : public TableTest {
 protected:
  std::shared_ptr<const CountedRun> RunOfSides(const TwoSides& sides, bool drafts) {
    ComparedByEngine counted(sides);
    auto run = std::make_shared<CountedRun>();
    run->Lists = std::move(counted.Lists);
    run->Table = std::move(counted.Table);
    run->Facts = std::move(counted.Facts);
    run->Comparison.Drafts = drafts;
    return run;
  }
  std::set<std::string> InTab(int index) const {
    Find<QTabBar>("tabSides")->setCurrentIndex(index);
    UntilIdle();
    const std::vector<std::string> phrases = Phrases();
    return {phrases.begin(), phrases.end()};
  }
  int NumberIn(int index) const {
    const QString text = Find<QTabBar>("tabSides")->tabText(index);
    return text.mid(text.indexOf(u'(') + 1).chopped(1).toInt();
  }
};

RC_GTEST_FIXTURE_PROP(SidesTableProperties, TabsHoldThePhrasesOfTheModel, ()) {
  TwoSides sides = DrawSides({.Lists = true, .Rules = true, .Folder = true});
  for (CountingWorld* world : {&sides.Both, &sides.A, &sides.B}) world->Options.MinFrequency = 1;
  const bool drafts = *rc::gen::arbitrary<bool>();
  const reference::CountingRun both = ModelRun(sides.Both);
  const reference::CountingRun a = ModelRun(sides.A);
  const reference::CountingRun b = ModelRun(sides.B);
  const std::shared_ptr<const CountedRun> run = RunOfSides(sides, drafts);
  Open();
  panel->Show(run);
  for (int change = 0; change < 4; ++change) {
    // Those before are of use again.
    const auto basis = static_cast<ComparisonBasis>(*rc::gen::inRange(0, 3));
    const auto test = static_cast<KeyTest>(*rc::gen::inRange(0, 3));
    Find<QComboBox>("cboBasis")->setCurrentIndex(static_cast<int>(basis));
    Find<QComboBox>("cboTest")->setCurrentIndex(static_cast<int>(test));
    UntilIdle();
    const auto model = reference::ComparePhrases({both, a, b}, std::string(NameOfBasis(basis)), {}, 1, 1,
                                                 sides.Both.Options.KeepRedundant);
    RC_LOG() << sides.Both << "\nby " << NameOfBasis(basis) << ", test " << static_cast<int>(test) << '\n';
    const auto tabs = KeyTablesOf(drafts);
    for (size_t k = 0; k < tabs.size(); ++k) {
      std::set<std::string> expected;
      for (const auto& [phrase, measures] : model) {
        std::optional<double> least;
        if (test == KeyTest::Bic) least = 2;
        // BIC and G2 differ by ln N.
        if (test == KeyTest::Sidak)
          least = NaiveSidakG2(static_cast<double>(model.size())) -
                  (std::abs(measures.at("g2").value_or(0)) - measures.at("bic").value_or(0));
        if (BelongsTo(tabs[k], least, measures)) expected.insert(phrase);
      }
      RC_ASSERT(InTab(static_cast<int>(k)) == expected);
      RC_ASSERT(NumberIn(static_cast<int>(k)) == static_cast<int>(expected.size()));
    }
  }
  RC_TAG(drafts ? "drafts" : "sides");
}

}  // namespace
}  // namespace korv
