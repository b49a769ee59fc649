#include "cli/comparison.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "base/translation.h"
#include "cli/option_values.h"
#include "report/columns/registry.h"
#include "report/key_phrases.h"

namespace korv {

namespace {

OptionRow Row(const char* name, const char* valueName, std::string help,
              std::function<void(const std::string&, ComparisonOptions&)> take) {
  return {.Name = name,
          .ValueName = valueName,
          .Group = OptionGroup::Comparison,
          .Help = std::move(help),
          .Take = [take = std::move(take)](const std::string& text, CountOptions& options) {
            take(text, options.Comparison);
          }};
}

bool IsOfComparison(const Column* column) {
  const auto columns = ComparisonColumns();
  return std::any_of(columns.begin(), columns.end(), [&](const Column& one) { return &one == column; });
}

/// The first option that has no meaning without sides to compare; null for none.
const char* OptionForComparison(const CountOptions& options) {
  const ComparisonOptions& comparison = options.Comparison;
  if (comparison.NoTest) return "--no-test";
  if (comparison.Drafts) return "--drafts";
  if (comparison.By) return "--compare-by";
  if (comparison.SimpleMathsK) return "--simple-maths";
  if (std::ranges::any_of(options.Columns, IsOfComparison)) return "--columns";
  return options.Rows.OrderBy != nullptr && IsOfComparison(options.Rows.OrderBy) ? "--sort" : nullptr;
}

}  // namespace

std::vector<OptionRow> ComparisonRows() {
  OptionRow compare =
      Row("--compare", "PATH",
          Tr("Compare with a file or folder: a table of the phrases that are typical of one side; "
             "may be given again"),
          [](const std::string& text, ComparisonOptions& comparison) {
            if (text.empty()) RefuseValue("--compare", Tr("a file or a folder is needed"));
            comparison.Paths.push_back(text);
          });
  compare.Repeats = true;
  const std::vector<std::string> bases = {"words", "files", "net"};
  return {
      std::move(compare),
      Row("--compare-by", "words|files|net",
          Tr("Compare occurrences against words, files with the phrase against files, or occurrences in no "
             "longer phrase (words)"),
          [bases](const std::string& text, ComparisonOptions& comparison) {
            comparison.By = static_cast<ComparisonBasis>(ParseChoice(text, "--compare-by", bases));
          }),
      Row("--no-test", "", Tr("List phrases whatever their BIC, which otherwise is 2 or more"),
          [](const std::string&, ComparisonOptions& comparison) { comparison.NoTest = true; }),
      Row("--drafts", "", Tr("PATH is a new version of the other side: what is new, gone, more, less"),
          [](const std::string&, ComparisonOptions& comparison) { comparison.Drafts = true; }),
      Row("--simple-maths", "K", Tr("The constant of simple maths, 0.1 to 1000 (1)"),
          [](const std::string& text, ComparisonOptions& comparison) {
            const double k = ParseReal(text, "--simple-maths");
            if (k < kLeastSimpleMathsK || k > kMostSimpleMathsK)
              RefuseValue("--simple-maths", Fill(Tr("'%1' is not from 0.1 to 1000"), {text}));
            comparison.SimpleMathsK = k;
          })};
}

void CheckComparison(const CountOptions& options) {
  if (options.Comparison.Paths.empty()) {
    if (const char* const option = OptionForComparison(options); option != nullptr)
      throw CLI::ValidationError(option, Tr("needs --compare"));
    return;
  }
  const auto exclude = [](bool given, const char* option) {
    if (given) throw CLI::ValidationError("--compare", Fill(Tr("excludes %1"), {option}));
  };
  exclude(!options.FromCounts.empty(), "--from-counts");
  exclude(options.ListFiles, "--list-files");
  exclude(!options.SaveSettingsFile.empty(), "--save-settings");
  exclude(options.PrintSettings, "--print-settings");
}

void SettleComparison(CountOptions& options) {
  const ComparisonOptions& comparison = options.Comparison;
  if (comparison.Paths.empty()) return;
  const KeyPhrases which = comparison.Drafts ? KeyPhrases::Changes : KeyPhrases::Typical;
  const KeyRows rows = RowsOf(which, comparison.NoTest ? std::nullopt : std::optional(kKeyBic));
  std::vector<Limit>& limits = options.Rows.Filter.Limits;
  limits.insert(limits.end(), rows.Limits.begin(), rows.Limits.end());
  if (options.Rows.OrderBy == nullptr) {
    options.Rows.OrderBy = rows.OrderBy;
    options.Rows.Direction = rows.Direction;
  }
  if (options.Columns.empty()) options.Columns = UsualColumnsOf(which);
}

std::string SidesLine(const RunSummary& facts, const NumberFormat& numbers) {
  const auto sizeOf = [&](Side side) {
    const SideSize size = SizeOf(facts, side);
    const std::string words = numbers.Grouped(static_cast<int64_t>(size.Words.Read()));
    const std::string files = numbers.Grouped(static_cast<int64_t>(size.Files));
    const std::string inFiles = Fill(TrCount("%1 file", "%1 files", size.Files), {files});
    return Fill(TrCount("%1 word in %2", "%1 words in %2", size.Words.Read()), {words, inFiles});
  };
  return Fill(Tr("A: %1; B: %2"), {sizeOf(Side::A), sizeOf(Side::B)});
}

}  // namespace korv
