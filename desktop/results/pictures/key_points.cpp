#include "desktop/results/pictures/key_points.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "engine/analysis/phrase_analysis.h"
#include "report/columns/column_keys.h"
#include "report/columns/registry.h"

namespace korv {

std::optional<KeyPoints> FindKeyPoints(const CountedRun& run, ComparisonBasis basis, Yielder& yielder,
                                       size_t most) {
  PhraseAnalysis analysis(run.Table, {}, basis);
  if (!analysis.Prepare({.Sides = true}, yielder)) return std::nullopt;
  ColumnSource source{run.Table, run.Facts};
  source.Analysis = &analysis;
  const std::vector<double> ratios = KeysOfColumn(*FindColumn("log_ratio"), source, yielder);
  const std::vector<double> tests = KeysOfColumn(*FindColumn("g2"), source, yielder);
  if (ratios.empty() || tests.empty()) return std::nullopt;

  std::vector<PhraseIndex> phrases;
  for (const PhraseIndex i : run.Table.All())
    if (!std::isnan(ratios[ValueOf(i)]) && !std::isnan(tests[ValueOf(i)])) phrases.push_back(i);
  KeyPoints found;
  found.Listed = phrases.size();
  if (phrases.size() > most) {
    std::ranges::nth_element(phrases, phrases.begin() + static_cast<ptrdiff_t>(most), {}, [&](PhraseIndex i) {
      return std::tuple(-std::abs(tests[ValueOf(i)]), ValueOf(i));
    });
    phrases.resize(most);
  }
  std::ranges::sort(phrases, {}, [&](PhraseIndex i) {
    return std::tuple(ratios[ValueOf(i)], std::abs(tests[ValueOf(i)]), ValueOf(i));
  });
  if (yielder.Stopped()) return std::nullopt;
  for (const PhraseIndex i : phrases)
    found.Points.push_back({i, std::string(run.Table.Text(i)), analysis.FrequencyOn(i, Side::A).value_or(0),
                            analysis.FrequencyOn(i, Side::B).value_or(0), ratios[ValueOf(i)],
                            tests[ValueOf(i)]});
  return found;
}

}  // namespace korv
