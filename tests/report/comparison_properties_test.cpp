#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "report/list_source.h"
#include "tests/reference/naive_comparison.h"
#include "tests/report/two_sides.h"

// The columns of a comparison against the naive model, over whole runs of two sides.

namespace korv {
namespace {

using reference::Measures;
using Step = CountingWorld::Step;

/// Sums in another order differ in their last digits.
bool Equal(const std::optional<double>& a, const std::optional<double>& b) {
  if (!a || !b) return !a && !b;
  return std::abs(*a - *b) <= 1e-9 * (1 + std::abs(*b));
}

std::optional<double> Defined(double key) {
  return std::isnan(key) ? std::nullopt : std::optional(key);
}

struct Asked {
  ComparisonBasis Basis = ComparisonBasis::Words;
  reference::Parts Parts = {};
  double K = 1;
};

void CompareWithModel(const TwoSides& sides, const Asked& asked) {
  RC_LOG() << sides.Both << "\nby " << NameOfBasis(asked.Basis) << ", B begins with file b";
  const reference::CountingRun both = ModelRun(sides.Both);
  const reference::CountingRun a = ModelRun(sides.A);
  const reference::CountingRun b = ModelRun(sides.B);
  const RunOptions& options = sides.Both.Options;
  const auto expected =
      reference::ComparePhrases({both, a, b}, std::string(NameOfBasis(asked.Basis)), asked.Parts, asked.K,
                                options.MinFrequency, options.KeepRedundant);
  const ComparedByEngine run(sides);
  std::vector<const Column*> columns;
  for (const Column& column : ComparisonColumns()) columns.push_back(&column);
  const ReportOptions report;
  const NumberFormat numbers;
  ListSource source({.Table = run.Table,
                     .Facts = run.Facts,
                     .Options = report,
                     .Numbers = numbers,
                     .Parts = {asked.Parts.Equal, asked.Parts.OfEachFile},
                     .ComparedBy = asked.Basis,
                     .SimpleMathsK = asked.K},
                    columns, {});
  NoYielder yielder;
  RC_ASSERT(source.Prepare(yielder));
  size_t listed = 0;
  for (const PhraseIndex i : run.Table.All()) {
    if (!run.Table.Listed(i)) continue;
    ++listed;
    const auto phrase = expected.find(run.Table.Text(i));
    RC_ASSERT(phrase != expected.end());
    for (const Column* column : columns) {
      const auto value = phrase->second.find(std::string(column->Id));
      RC_ASSERT(value != phrase->second.end());
      const auto found = Defined(ColumnKeys(*column, source.View()).Of(i));
      RC_LOG() << phrase->first << ": " << column->Id << " is " << value->second.value_or(NAN) << ", not "
               << found.value_or(NAN) << '\n';
      RC_ASSERT(Equal(found, value->second));
    }
  }
  RC_ASSERT(listed == expected.size());
  RC_TAG(listed == 0 ? "nothing listed" : "phrases");
}

RC_GTEST_PROP(ComparisonProperties, ByWordsAreThoseOfTheModel, ()) {
  const double k = *rc::gen::element(0.1, 1.0, 100.0);
  CompareWithModel(DrawSides({.Lists = true, .Rules = true, .Folder = true}), {.K = k});
}

RC_GTEST_PROP(ComparisonProperties, ByFilesAreThoseOfTheModel, ()) {
  CompareWithModel(DrawSides({.Lists = true, .Folder = true}), {.Basis = ComparisonBasis::Files});
}

RC_GTEST_PROP(ComparisonProperties, ByOccurrencesOnTheirOwnAreThoseOfTheModel, ()) {
  CompareWithModel(DrawSides({.Lists = true, .Folder = true}), {.Basis = ComparisonBasis::Net});
}

RC_GTEST_PROP(ComparisonProperties, OfEqualPartsAreThoseOfTheModel, ()) {
  const int parts = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(2, 101));
  const bool ofEachFile = *rc::gen::arbitrary<bool>();
  const TwoSides sides =
      *rc::gen::resize(280, rc::gen::exec([] { return DrawSides({.Folder = true, .MostWords = 3}); }));
  CompareWithModel(sides, {.Parts = {parts, ofEachFile}});
}

RC_GTEST_PROP(ComparisonProperties, OfSingleWordsAreThoseOfTheModel, ()) {
  CompareWithModel(DrawSides({.Lists = true, .Folder = true, .SingleWords = true}), {});
}

RC_GTEST_PROP(ComparisonProperties, OfEqualTextsTellNothingApart, ()) {
  TwoSides sides = DrawSides({.Folder = true});
  sides.B.Steps = sides.A.Steps;
  sides.Both.Steps = sides.A.Steps;
  sides.Both.Steps.push_back({Step::Kind::NextFile, "b"});
  sides.Both.Steps.insert(sides.Both.Steps.end(), sides.A.Steps.begin(), sides.A.Steps.end());
  CompareWithModel(sides, {});
  const ComparedByEngine run(sides);
  const ReportOptions report;
  const NumberFormat numbers;
  const Column* const columns[] = {FindColumn("log_ratio"), FindColumn("bic")};
  ListSource source({.Table = run.Table, .Facts = run.Facts, .Options = report, .Numbers = numbers}, columns,
                    {});
  NoYielder yielder;
  RC_ASSERT(source.Prepare(yielder));
  for (const PhraseIndex i : run.Table.All()) {
    RC_ASSERT(ColumnKeys(*columns[0], source.View()).Of(i) == 0);
    RC_ASSERT(ColumnKeys(*columns[1], source.View()).Of(i) < 0);
  }
}

}  // namespace
}  // namespace korv
