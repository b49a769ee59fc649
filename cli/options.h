#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "app/settings/schema.h"
#include "base/number_format.h"
#include "engine/analysis/keyness.h"
#include "engine/analysis/text_parts.h"
#include "engine/corpus/place_order.h"
#include "report/columns/column.h"
#include "report/report_form.h"
#include "report/row_choice.h"
#include "report/writers/table_forms.h"
#include "sources/detect/encoding_choice.h"
#include "wordlists/common_words.h"

namespace korv {

inline constexpr int kExitReport = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitEmpty =
    3;  ///< There is a report, without a phrase, and that was to count as a failure.
inline constexpr int kExitInterrupted = 130;

/// Characters on each side of a phrase in its contexts.
inline constexpr int kContexts = 80;
inline constexpr int kMostContexts = 10000;

/// A file that holds paths, "-" for standard input, and what ends each of them.
struct PathListFile {
  std::string Path;
  char Separator = '\n';
};

/// Of a comparison. Without Paths nothing is compared.
struct ComparisonOptions {
  std::vector<std::string> Paths;  ///< Side B, as typed.
  std::optional<ComparisonBasis> By;
  std::optional<double> SimpleMathsK;
  bool NoTest = false;
  bool Drafts = false;
};

/// What the command line asks for. Empty where it says nothing.
struct CountOptions {
  std::string Command;  ///< All of it, as a shell takes it.
  /// As typed; "-" is standard input. That of FromCounts where there are counts.
  std::vector<std::string> Paths;
  std::optional<PathListFile> FilesFrom;  ///< More of them.
  std::string FromCounts;  ///< A file of counts in place of a text; "-" is standard input. Empty for none.
  std::string SettingsFile;
  std::string SaveSettingsFile;
  bool PrintSettings = false;

  /// The settings that options name, with their values.
  struct {
    Settings Values;
    SettingSet Which;
  } Given;

  std::string IgnoreFile;
  const CommonWordsLanguage* CommonWordsOf = nullptr;
  std::string CountOnly;
  std::string CountOnlyFile;
  NumberFormat Numbers;

  ComparisonOptions Comparison;
  std::optional<std::string> ContextOf;  ///< A phrase whose contexts are listed instead of a report.
  std::optional<int> Contexts;
  std::optional<PlaceOrder> Sort;

  EncodingChoice Encoding = EncodingChoice::Auto;
  std::string ReadAs;  ///< The extension that texts are read by; empty for their own.
  std::string Output;
  // As typed. What they ask for is in Sort and in Rows.
  std::optional<std::string> SortText;  ///< An order of contexts; else a column and its direction.
  std::optional<std::string> Match;
  std::optional<MatchMode> HowToMatch;
  std::optional<uint32_t> Top;  ///< RowChoice::kAll for all.

  std::optional<const TableForm*> OutputFormat;  ///< Null for the report as text.
  bool ForSpreadsheets = false;                  ///< Comma-separated values as spreadsheets want them.
  std::vector<const Column*> Columns;  ///< Of a table instead of the report; empty for the usual ones.
  RowChoice Rows;                      ///< Which phrases are listed, and in which order.
  PartChoice Parts;                    ///< Over which tables tell how evenly phrases are spread.
  bool Describe = false;               ///< The table, in a file beside the output file.
  std::string DescribeTo;              ///< In this file.
  bool KeepRedundant = false;
  bool FailIfEmpty = false;
  bool Force = false;
  Layout LineLayout = Layout::Columns;
  bool ListFiles = false;
  bool Quiet = false;
  bool Progress = false;
  bool Stages = false;

  /// The option that asks for a description; null for none.
  const char* DescribingOption() const;
  bool FromStandardInput() const { return !FilesFrom && Paths.size() == 1 && Paths.front() == "-"; }
  /// Whether the source stands on the command line, and in no settings file.
  bool NamesSource() const { return FilesFrom || !Paths.empty(); }
  /// Whether an option asks for what only a table can show.
  bool AsksForTable() const { return TableOption() != nullptr; }
  /// The name of that option; null for none.
  const char* TableOption() const;
  /// The name of an option that chooses phrases of the report; null for none.
  const char* ChoosingOption() const;
};

/// The options, or the status to exit with at once: 0 after help or version on `out`, kExitUsage after
/// saying on `err` what is wrong. `columns`: of the terminal that `out` is; 0 where it is none.
std::variant<CountOptions, int> ParseCountOptions(const std::vector<std::string>& arguments,
                                                  std::ostream& out, std::ostream& err, size_t columns = 0);

/// Puts what the options name into `settings`; the rest stays. PATH is the caller's to place.
void ApplyOptions(const CountOptions& options, Settings& settings);

}  // namespace korv
