#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iterator>

#include "app/texts/program_version.h"
#include "base/translation.h"
#include "cli/argument_names.h"
#include "cli/column_values.h"
#include "cli/comparison.h"
#include "cli/help_format.h"
#include "cli/option_rows.h"
#include "cli/option_values.h"
#include "cli/shell_command.h"
#include "cli/table_output.h"
#include "engine/analysis/phrase_query.h"
#include "platform/console/visible_controls.h"
#include "report/formats.h"

namespace korv {

namespace {

/// Reads the options. CLI11 hands over texts; the rows decide what they mean.
class Parser {
 public:
  std::variant<CountOptions, int> Parse(const std::vector<std::string>& arguments, std::ostream& out,
                                        std::ostream& err, size_t columns) {
    // "/texts" is a path on every system.
    app_.allow_windows_style_options(false);
    app_.formatter(std::make_shared<HelpFormat>(columns));
    app_.option_defaults()->group(TrLater("Options"));
    app_.set_help_flag("-h,--help", Tr("Show this and exit"));
    app_.add_option("PATH", options_.Paths);
    app_.set_version_flag(
        "--version",
        "korv-count " + std::string(ProgramVersion()) + "\n" + Fill(Tr("Built with %1"), {LibraryVersions()}),
        Tr("Show the versions of the program and its libraries and exit"));
    for (const OptionRow& row : rows_) Add(row);
    try {
      CheckNames(arguments);
      std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
      app_.parse(std::move(reversed));
      CheckExclusions();
      // An empty name is a variable that was not set in some script.
      if (options_.Paths.size() == 1 && options_.Paths.front().empty()) options_.Paths.clear();
      options_.Command = ShellCommand("korv-count", arguments);
      options_.Rows.Most = options_.Top.value_or(RowChoice::kAll);
      SettleOrder();
      SettleMatch();
      Check();
      SettleComparison(options_);
      if (!options_.FromCounts.empty()) options_.Paths = {options_.FromCounts};
    } catch (const CLI::Success& success) {
      app_.exit(success, out, err);
      if (out.flush()) return kExitReport;
      err << "korv-count: " << Tr("Standard output cannot be written.") << '\n';
      return kExitRefused;
    } catch (const CLI::Error& error) {
      err << "korv-count: " << WithVisibleControls(error.what()) << '\n'
          << Tr("Try: korv-count --help") << '\n';
      return kExitUsage;
    }
    return std::move(options_);
  }

 private:
  void Add(const OptionRow& row) {
    CLI::Option* option = nullptr;
    if (row.ValueName.empty()) {
      option = app_.add_flag_callback(
          row.Name, [this, &row] { row.Take({}, options_); }, row.Help);
    } else if (row.Repeats) {
      const auto take = [this, &row](const std::vector<std::string>& values) {
        for (const std::string& value : values) row.Take(value, options_);
      };
      option = app_.add_option_function<std::vector<std::string>>(row.Name, take, row.Help)
                   ->type_name(row.ValueName)
                   ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
                   ->allow_extra_args(false);
    } else {
      const auto take = [this, &row](const std::string& value) { row.Take(value, options_); };
      option = app_.add_option_function<std::string>(row.Name, take, row.Help)->type_name(row.ValueName);
    }
    option->group(TitleOf(row.Group));
  }

  /// Before the rest: what is no option would leave its value behind, to be taken for the path.
  void CheckNames(const std::vector<std::string>& arguments) const {
    std::vector<OptionName> known;
    for (const CLI::Option* option : app_.get_options()) {
      if (option->get_lnames().empty()) continue;
      const auto& letters = option->get_snames();
      known.push_back({option->get_lnames().front(), letters.empty() ? "" : letters.front(),
                       option->get_items_expected_max() > 0 ? option->get_type_name() : "",
                       option->get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll});
    }
    const std::string fault = FaultInNames(arguments, known);
    if (!fault.empty()) throw CLI::ParseError(fault, kExitUsage);
  }

  void CheckExclusions() const {
    for (const OptionRow& row : rows_)
      for (const std::string& other : row.Excludes)
        if (app_.count(row.Name) > 0 && app_.count(other) > 0)
          throw CLI::ParseError(Fill(Tr("%1 excludes %2"), {other, row.Name}), kExitUsage);
  }

  void Check() const {
    if (!options_.FromCounts.empty())
      CheckCounts();
    else if (!options_.NamesSource() && options_.SettingsFile.empty() && !options_.PrintSettings)
      throw CLI::ValidationError("PATH", Tr("a file, a folder or - is needed"));
    if (std::ranges::find(options_.Paths, "") != options_.Paths.end())
      throw CLI::ValidationError("PATH", Tr("an empty one names no file"));
    const auto readers =
        std::ranges::count(options_.Paths, "-") + std::ranges::count(options_.Comparison.Paths, "-");
    if (readers + (options_.FilesFrom && options_.FilesFrom->Path == "-" ? 1 : 0) > 1)
      throw CLI::ValidationError("-", Tr("standard input can be read only once"));
    if (options_.Output == "-")
      throw CLI::ValidationError("--output",
                                 Tr("- is no file; without --output the report goes to standard output"));
    if (options_.ListFiles && std::ranges::find(options_.Paths, "-") != options_.Paths.end())
      throw CLI::ValidationError("--list-files", Tr("standard input has no files to list"));
    if (!options_.ContextOf && options_.Contexts)
      throw CLI::ValidationError("--contexts", Tr("needs --context-of"));
    CheckComparison(options_);
    if (options_.ContextOf) CheckContexts();
    if (const TableForm* const form = Form()) CheckForm(*form);
    if (options_.ForSpreadsheets) CheckSpreadsheets();
    if (const char* option = options_.DescribingOption(); option != nullptr) CheckDescription(option);
    if (const char* option = options_.TableOption(); option != nullptr && AsksForText())
      throw CLI::ValidationError(option, Tr("makes a table, which --output-format text cannot be"));
  }

  /// Of counts no text, no file and no place is known.
  void CheckCounts() const {
    const auto exclude = [](bool given, const char* what) {
      if (given) throw CLI::ValidationError("--from-counts", Fill(Tr("excludes %1"), {what}));
    };
    exclude(!options_.Paths.empty(), "PATH");
    exclude(options_.FilesFrom.has_value(), "--files-from");
    exclude(options_.ContextOf.has_value(), "--context-of");
    exclude(options_.ListFiles, "--list-files");
    exclude(!options_.ReadAs.empty(), "--type");
    // Settings have no place for counts.
    exclude(!options_.SaveSettingsFile.empty(), "--save-settings");
    exclude(options_.PrintSettings, "--print-settings");
    exclude((options_.Given.Which & SetOf(RowOf("DisplayFormat"))).any() &&
                FormatOf(options_.Given.Values.Report.DisplayFormat).NeedsFolder,
            Tr("--format 10, 11 and 12"));
    for (const Limit& limit : options_.Rows.Filter.Limits) {
      exclude(limit.Of->Id == "files", "--min-files");
      exclude(limit.Of->Id == "per_million", "--min-per-million");
      exclude(limit.Of->Id == "net_frequency", "--min-net");
    }
  }

  void CheckContexts() const {
    if (!options_.Output.empty())
      throw CLI::ValidationError("--context-of", Tr("writes to standard output, not to --output"));
    if (AsksForText())
      throw CLI::ValidationError("--context-of", Tr("is a table, which --output-format text cannot be"));
    for (const char* option : {options_.TableOption(), options_.ChoosingOption()})
      if (option != nullptr) throw CLI::ValidationError("--context-of", Fill(Tr("excludes %1"), {option}));
    if (options_.ForSpreadsheets)
      throw CLI::ValidationError("--context-of", Fill(Tr("excludes %1"), {"--csv-for"}));
    if (options_.ListFiles)
      throw CLI::ValidationError("--context-of", Fill(Tr("excludes %1"), {"--list-files"}));
  }

  void CheckDescription(const char* option) const {
    if (options_.ContextOf) throw CLI::ValidationError("--context-of", Fill(Tr("excludes %1"), {option}));
    if (options_.ListFiles) throw CLI::ValidationError("--list-files", Fill(Tr("excludes %1"), {option}));
    if (options_.Describe && options_.Output.empty())
      throw CLI::ValidationError(option, Tr("needs --output; else --describe-to FILE"));
    if (options_.DescribeTo == "-") throw CLI::ValidationError(option, Tr("- is no file"));
    if (FormOf(options_, options_.Output) == nullptr)
      throw CLI::ValidationError(option, Tr("describes a table, which the report as text is not"));
  }

  /// The form of tables that is asked for, by its name or by that of the output file; null for none.
  const TableForm* Form() const {
    return options_.OutputFormat ? *options_.OutputFormat : TableFormOfFile(PathFromText(options_.Output));
  }

  void CheckForm(const TableForm& form) const {
    const char* const option = options_.OutputFormat ? "--output-format" : "--output";
    if (form.Make == nullptr)
      throw CLI::ValidationError(
          option, Fill(Tr("this korv-count does not write %1: it was built without the library for it"),
                       {form.Name}));
    if (form.Binary && options_.Output.empty())
      throw CLI::ValidationError(option, Fill(Tr("%1 is no text and needs --output FILE"), {form.Name}));
  }

  void CheckSpreadsheets() const {
    const TableForm* const form = Form();
    if ((options_.OutputFormat || form != nullptr) && form != &TableFormOf("csv"))
      throw CLI::ValidationError("--csv-for", Tr("is for the output format csv"));
  }

  bool AsksForText() const { return options_.OutputFormat && *options_.OutputFormat == nullptr; }

  /// What --sort means shows when all options are known.
  void SettleOrder() {
    if (!options_.SortText) return;
    const std::string orders[] = {"place", "left", "right", "file"};
    if (options_.ContextOf) {
      options_.Sort = std::array{
          PlaceOrder::Place, PlaceOrder::Left, PlaceOrder::Right,
          PlaceOrder::File}[static_cast<size_t>(ParseChoice(*options_.SortText, "--sort", orders))];
      return;
    }
    if (std::ranges::find(orders, *options_.SortText) != std::end(orders))
      throw CLI::ValidationError("--sort", Fill(Tr("'%1' needs --context-of"), {*options_.SortText}));
    const SortColumn sort = ParseSortColumn(*options_.SortText, "--sort");
    options_.Rows.OrderBy = sort.Of;
    options_.Rows.Direction = sort.Direction;
  }

  void SettleMatch() {
    if (!options_.Match && options_.HowToMatch)
      throw CLI::ValidationError("--match-mode", Tr("needs --match"));
    PhraseQuery& query = options_.Rows.Filter.Query;
    query.Text = options_.Match.value_or("");
    query.Mode = options_.HowToMatch.value_or(MatchMode::Contains);
    const std::string fault = FaultOf(query);
    if (!fault.empty())
      throw CLI::ValidationError("--match",
                                 Fill(Tr("'%1' is no regular expression: %2"), {query.Text, fault}));
  }

  CLI::App app_{Tr("Counts the phrases of natural-language text."), "korv-count"};
  const std::vector<OptionRow> rows_ = OptionRows();
  CountOptions options_;
};

}  // namespace

const char* CountOptions::TableOption() const {
  if (!Comparison.Paths.empty()) return "--compare";
  if (!Columns.empty()) return "--columns";
  if (Rows.OrderBy != nullptr) return "--sort";
  const bool net = std::ranges::any_of(Rows.Filter.Limits,
                                       [](const Limit& limit) { return limit.Of->Id == "net_frequency"; });
  return net ? "--min-net" : nullptr;
}

const char* CountOptions::ChoosingOption() const {
  if (Match) return "--match";
  if (Rows.Most != RowChoice::kAll) return "--top";
  for (const Limit& limit : Rows.Filter.Limits) {
    if (limit.Of->Id == "files") return "--min-files";
    if (limit.Of->Id == "per_million") return "--min-per-million";
  }
  return nullptr;
}

const char* CountOptions::DescribingOption() const {
  if (Describe) return "--describe";
  return DescribeTo.empty() ? nullptr : "--describe-to";
}

std::variant<CountOptions, int> ParseCountOptions(const std::vector<std::string>& arguments,
                                                  std::ostream& out, std::ostream& err, size_t columns) {
  return Parser().Parse(arguments, out, err, columns);
}

void ApplyOptions(const CountOptions& options, Settings& settings) {
  const auto given = [&](const char* name) { return (options.Given.Which & SetOf(RowOf(name))).any(); };
  if (given("Reading")) ApplyReading(options.Given.Values.Reading, settings);
  // Who names characters or lengths wants these, whatever the reading says.
  if (given("AllowHyphens")) settings.WordsAre = WordRule::Allowed;
  if (given("ShortWordSize") || given("LongWordSize")) settings.AnyWordLength = false;
  CopyValues(options.Given.Which, options.Given.Values, settings);
  // Who asks for shorter phrases alone does not mean to ask for none.
  if (given("MaxWords") && !given("MinWords"))
    settings.MinWords = std::min(settings.MinWords, settings.MaxWords);
  if (!options.Output.empty()) {
    settings.OutputFile = options.Output;
    settings.DisableOutputToFile = false;
  }
}

}  // namespace korv
