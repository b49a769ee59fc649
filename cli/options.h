#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "app/settings/settings.h"
#include "base/number_format.h"
#include "engine/corpus/place_order.h"
#include "report/report_form.h"
#include "report/writers/table_forms.h"
#include "sources/detect/encoding_choice.h"
#include "wordlists/common_words.h"

namespace korv {

inline constexpr int kExitReport = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitInterrupted = 130;

/// Characters on each side of a phrase in its contexts.
inline constexpr int kContexts = 80;
inline constexpr int kMostContexts = 10000;

/// Words ignored by their length: a size, or switched off.
struct ShortWords {
  std::optional<int> Size;
};

/// What the command line asks for. Empty where it says nothing.
struct CountOptions {
  std::string Path;  ///< "-" is standard input.
  std::string SettingsFile;
  std::string SaveSettingsFile;

  std::optional<int> MinWords;
  std::optional<int> MaxWords;
  std::optional<int> MinFrequency;
  std::optional<IgnoreRule> IgnoreMode;
  std::string IgnoreFile;
  const CommonWordsLanguage* CommonWordsOf = nullptr;
  std::optional<std::string> IgnoreWords;
  bool PatternMatching = false;
  std::string CountOnly;
  std::string CountOnlyFile;
  NumberFormat Numbers;

  std::optional<std::vector<std::string>> Allow;
  std::optional<std::vector<std::string>> Terminate;
  bool CaseSignificant = false;
  bool SevenBit = false;
  std::optional<ShortWords> ShortWordSize;
  std::optional<int> LongWordSize;
  bool KeepRepetitions = false;
  bool KeepLetterless = false;

  std::optional<std::string> Patterns;
  std::optional<std::string> Exclude;
  bool Subfolders = false;

  std::optional<int> Format;
  std::optional<int> Order;
  bool Relative = false;
  bool SortByFiles = false;
  std::optional<std::string> Filter;
  std::optional<FilterMode> FilterModeOfWords;

  std::optional<std::string> ContextOf;  ///< A phrase whose contexts are listed instead of a report.
  std::optional<int> Contexts;
  std::optional<PlaceOrder> Sort;

  EncodingChoice Encoding = EncodingChoice::Auto;
  std::string Output;
  std::optional<const TableForm*> OutputFormat;  ///< Null for the report as text.
  bool Force = false;
  Layout LineLayout = Layout::Columns;
  bool ListFiles = false;
  bool Quiet = false;
  bool Progress = false;
  bool Stages = false;

  bool FromStandardInput() const { return Path == "-"; }
};

/// The options, or the status to exit with at once: 0 after help or version on `out`, kExitUsage after
/// saying on `err` what is wrong.
std::variant<CountOptions, int> ParseCountOptions(const std::vector<std::string>& arguments,
                                                  std::ostream& out, std::ostream& err);

/// Puts what the options name into `settings`; the rest stays. PATH is the caller's to place.
void ApplyOptions(const CountOptions& options, Settings& settings);

}  // namespace korv
