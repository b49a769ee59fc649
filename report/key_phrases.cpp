#include "report/key_phrases.h"

#include <array>
#include <cmath>
#include <limits>

#include "engine/analysis/keyness.h"
#include "report/columns/registry.h"

namespace korv {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kSharedLogRatio = 0.5;
constexpr double kSharedBic = -2;
constexpr double kSidakLevel = 0.0001;

double JustAbove(double limit) {
  return std::nextafter(limit, kInfinity);
}

double JustBelow(double limit) {
  return std::nextafter(limit, -kInfinity);
}

// Keys of the column "change".
constexpr double kGone = 0;
constexpr double kLess = 1;
constexpr double kMore = 3;
constexpr double kNew = 4;

KeyRows Changed(double key, SortDirection direction) {
  return {{{FindColumn("change"), key, key}}, FindColumn("log_ratio"), direction};
}

KeyRows Typical(std::vector<Limit> limits, std::optional<double> leastBic, SortDirection direction) {
  if (leastBic) limits.push_back({FindColumn("bic"), *leastBic, {}});
  return {std::move(limits), FindColumn("log_ratio"), direction};
}

}  // namespace

KeyRows RowsOf(KeyPhrases which, std::optional<double> leastBic) {
  const Column* const logRatio = FindColumn("log_ratio");
  switch (which) {
    case KeyPhrases::Typical:
      break;
    case KeyPhrases::TypicalA:
      return Typical({{logRatio, JustAbove(0), {}}}, leastBic, SortDirection::Descending);
    case KeyPhrases::TypicalB:
      return Typical({{logRatio, {}, JustBelow(0)}}, leastBic, SortDirection::Ascending);
    case KeyPhrases::Shared:
      return {{{FindColumn("frequency_a"), 1, {}},
               {FindColumn("frequency_b"), 1, {}},
               {logRatio, JustAbove(-kSharedLogRatio), JustBelow(kSharedLogRatio)},
               {FindColumn("bic"), {}, JustBelow(kSharedBic)}},
              FindColumn("frequency"),
              SortDirection::Descending};
    case KeyPhrases::Changes:
      return Typical({}, std::nullopt, SortDirection::Descending);
    case KeyPhrases::New:
      return Changed(kNew, SortDirection::Descending);
    case KeyPhrases::Gone:
      return Changed(kGone, SortDirection::Ascending);
    case KeyPhrases::More:
      return Changed(kMore, SortDirection::Descending);
    case KeyPhrases::Less:
      return Changed(kLess, SortDirection::Ascending);
  }
  return Typical({}, leastBic, SortDirection::Descending);
}

std::optional<double> LeastBicOf(KeyTest test, uint64_t units, uint64_t tests) {
  if (test == KeyTest::None) return std::nullopt;
  if (test == KeyTest::Bic) return kKeyBic;
  // BIC is |G2| - ln(c + d).
  return SignificantG2(kSidakLevel, tests) - std::log(static_cast<double>(units));
}

std::span<const KeyPhrases> KeyTablesOf(bool drafts) {
  static constexpr std::array kOfSides = {KeyPhrases::TypicalA, KeyPhrases::TypicalB, KeyPhrases::Shared};
  static constexpr std::array kOfDrafts = {KeyPhrases::New, KeyPhrases::Gone, KeyPhrases::More,
                                           KeyPhrases::Less};
  if (drafts) return kOfDrafts;
  return kOfSides;
}

std::vector<const Column*> UsualColumnsOf(KeyPhrases which) {
  std::vector<const Column*> columns = {FindColumn("phrase")};
  const auto add = [&](std::initializer_list<const char*> ids) {
    for (const char* id : ids) columns.push_back(FindColumn(id));
  };
  if (which >= KeyPhrases::Changes) add({"change"});
  add({"frequency_a", "frequency_b", "per_million_a", "per_million_b", "log_ratio"});
  if (which < KeyPhrases::Changes) add({"g2", "bic", "files_a", "files_b", "dispersion_a"});
  return columns;
}

}  // namespace korv
