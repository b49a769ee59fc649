#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "report/columns/registry.h"
#include "report/list_words.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_analysis.h"

// The columns that are made of an analysis against the naive model, over whole runs.

namespace korv {
namespace {

using reference::Measures;

/// Keeps the numbers of each phrase, which stands in the first column.
class NumberKeeper final : public ListWriter {
 public:
  void Begin(std::span<const Column* const> columns, const ColumnSource&) override {
    columns_.assign(columns.begin(), columns.end());
  }
  bool Row(const RowCells& cells) override {
    Measures& measures = Rows[std::string(std::get<std::string_view>(cells.OfPhrase[0]))];
    for (size_t k = 1; k < cells.OfPhrase.size(); ++k)
      measures[std::string(columns_[k]->Id)] = Number(cells.OfPhrase[k]);
    return true;
  }
  bool End(bool) override { return true; }

  std::map<std::string, Measures> Rows;

 private:
  static std::optional<double> Number(const Cell& cell) {
    if (const auto* whole = std::get_if<int64_t>(&cell)) return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&cell)) return *real;
    return std::nullopt;
  }

  std::vector<const Column*> columns_;
};

/// Sums in another order differ in their last digits.
bool Equal(const std::optional<double>& a, const std::optional<double>& b) {
  if (!a || !b) return !a && !b;
  return std::abs(*a - *b) <= 1e-9 * (1 + std::abs(*b));
}

/// Every phrase has the values of the model, whose columns are those that are looked at.
void CompareWithModel(CountingWorld world, reference::Parts parts = {}) {
  world.Options.KeepPlaces = true;
  RC_LOG() << world << "\nparts " << parts.Equal << (parts.OfEachFile ? " of each file" : "");
  const reference::CountingRun model = ModelRun(world);
  const auto expected = reference::MeasuresOfPhrases(model, parts, world.Options.MinFrequency);
  const EngineRun run = CountedByEngine(world);
  RC_ASSERT_FALSE(expected.empty() && AnythingListed(run.Table));
  if (expected.empty()) return;
  std::vector<const Column*> columns{FindColumn("phrase")};
  for (const auto& [id, value] : expected.begin()->second) columns.push_back(FindColumn(id));
  RunSummary facts;
  facts.Options = world.Options;
  facts.Words = run.Words;
  const ReportOptions options;
  const NumberFormat numbers;
  NumberKeeper found;
  NoYielder yielder;
  const ListResult result = WriteList({run.Table, facts, options, numbers, {parts.Equal, parts.OfEachFile}},
                                      columns, {}, found, yielder);
  RC_ASSERT(Equal(result.Coverage, reference::Coverage(model, world.Options.MinFrequency)));

  RC_ASSERT(found.Rows.size() == expected.size());
  bool defined = false;
  for (const auto& [phrase, measures] : expected)
    for (const auto& [id, value] : measures) {
      RC_LOG() << phrase << ": " << id << " is " << value.value_or(NAN) << '\n';
      RC_ASSERT(Equal(found.Rows[phrase][id], value));
      defined = defined || (id == "dispersion" && value);
    }
  RC_TAG(defined ? "with dispersion" : "without dispersion");
}

/// Of a text long enough to be divided into equal parts.
CountingWorld LongWorld(const WorldKind& kind) {
  return *rc::gen::resize(280, rc::gen::exec([kind] { return DrawWorld(kind); }));
}

RC_GTEST_PROP(AnalysisColumnsProperties, OfAFileAreThoseOfTheModel, ()) {
  CompareWithModel(DrawWorld({.Lists = true, .Rules = true}));
}

RC_GTEST_PROP(AnalysisColumnsProperties, OfAFolderAreThoseOfTheModel, ()) {
  CompareWithModel(DrawWorld({.Lists = true, .Rules = true, .Folder = true}));
}

RC_GTEST_PROP(AnalysisColumnsProperties, OfPhrasesOfAllLengthsAreThoseOfTheModel, ()) {
  CompareWithModel(DrawWorld({}));
}

RC_GTEST_PROP(AnalysisColumnsProperties, OfSingleWordsAreThoseOfTheModel, ()) {
  CompareWithModel(DrawWorld({.Lists = true, .Folder = true, .SingleWords = true}));
}

RC_GTEST_PROP(AnalysisColumnsProperties, OfEqualPartsAreThoseOfTheModel, ()) {
  const bool folder = *rc::gen::arbitrary<bool>();
  const int parts = folder ? *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(2, 101)) : 0;
  CompareWithModel(LongWorld({.Folder = folder, .MostWords = 3}), {parts});
}

RC_GTEST_PROP(AnalysisColumnsProperties, OfPartsOfEachFileAreThoseOfTheModel, ()) {
  const int parts = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(2, 101));
  CompareWithModel(LongWorld({.Folder = true, .MostWords = 3}), {parts, true});
}

}  // namespace
}  // namespace korv
