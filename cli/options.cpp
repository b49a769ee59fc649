#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/argument_names.h"
#include "cli/help_format.h"
#include "cli/option_rows.h"

namespace korv {

namespace {

constexpr const char* kVersion = "korv-count " KORV_VERSION;

/// Reads the options. CLI11 hands over texts; the rows decide what they mean.
class Parser {
 public:
  std::variant<CountOptions, int> Parse(const std::vector<std::string>& arguments, std::ostream& out,
                                        std::ostream& err) {
    // "/texts" is a path on every system.
    app_.allow_windows_style_options(false);
    app_.formatter(std::make_shared<HelpFormat>());
    app_.set_help_flag("-h,--help", "Show this and exit");
    app_.add_option("PATH", options_.Path, "A file, a folder, or - for standard input");
    app_.set_version_flag("--version", kVersion, "Show the version and exit");
    for (const OptionRow& row : rows_) Add(row);
    try {
      CheckNames(arguments);
      std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
      app_.parse(std::move(reversed));
      Check();
    } catch (const CLI::Success& success) {
      app_.exit(success, out, err);
      if (out.flush()) return kExitReport;
      err << "korv-count: Standard output cannot be written.\n";
      return kExitRefused;
    } catch (const CLI::Error& error) {
      err << "korv-count: " << error.what() << "\nTry: korv-count --help\n";
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
    } else {
      const auto take = [this, &row](const std::string& value) { row.Take(value, options_); };
      option = app_.add_option_function<std::string>(row.Name, take, row.Help)->type_name(row.ValueName);
    }
    option->group(TitleOf(row.Group));
    if (!row.Excludes.empty()) option->excludes(app_.get_option(row.Excludes));
  }

  /// Before the rest: what is no option would leave its value behind, to be taken for the path.
  void CheckNames(const std::vector<std::string>& arguments) const {
    std::vector<OptionName> known;
    for (const CLI::Option* option : app_.get_options()) {
      if (option->get_lnames().empty()) continue;
      const auto& letters = option->get_snames();
      known.push_back({option->get_lnames().front(), letters.empty() ? "" : letters.front(),
                       option->get_items_expected_max() > 0 ? option->get_type_name() : ""});
    }
    const std::string fault = FaultInNames(arguments, known);
    if (!fault.empty()) throw CLI::ParseError(fault, kExitUsage);
  }

  void Check() const {
    if (options_.Path.empty() && options_.SettingsFile.empty())
      throw CLI::ValidationError("PATH", "a file, a folder or - is needed");
    if (options_.Output == "-")
      throw CLI::ValidationError("--output",
                                 "- is no file; without --output the report goes to standard output");
    if (options_.ListFiles && options_.FromStandardInput())
      throw CLI::ValidationError("--list-files", "standard input has no files to list");
    if (!options_.ContextOf && (options_.Contexts || options_.Sort))
      throw CLI::ValidationError(options_.Contexts ? "--contexts" : "--sort", "needs --context-of");
    if (options_.ContextOf && !options_.Output.empty())
      throw CLI::ValidationError("--context-of", "writes to standard output, not to --output");
    if (options_.ContextOf && options_.OutputFormat && *options_.OutputFormat == nullptr)
      throw CLI::ValidationError("--context-of", "is a table, which --output-format text cannot be");
    if (options_.ContextOf && options_.AsksForTable())
      throw CLI::ValidationError("--context-of", "excludes --columns");
    if (options_.AsksForTable() && options_.OutputFormat && *options_.OutputFormat == nullptr)
      throw CLI::ValidationError("--columns", "are those of a table, which --output-format text cannot be");
    if (options_.ContextOf && options_.ListFiles)
      throw CLI::ValidationError("--context-of", "excludes --list-files");
  }

  CLI::App app_{"Counts the phrases of natural-language text.", "korv-count"};
  const std::vector<OptionRow> rows_ = OptionRows();
  CountOptions options_;
};

}  // namespace

std::variant<CountOptions, int> ParseCountOptions(const std::vector<std::string>& arguments,
                                                  std::ostream& out, std::ostream& err) {
  return Parser().Parse(arguments, out, err);
}

void ApplyOptions(const CountOptions& options, Settings& settings) {
  CopyValues(options.Given.Which, options.Given.Values, settings);
  const auto given = [&](const char* name) { return (options.Given.Which & SetOf(RowOf(name))).any(); };
  // Who asks for shorter phrases alone does not mean to ask for none.
  if (given("MaxWords") && !given("MinWords"))
    settings.MinWords = std::min(settings.MinWords, settings.MaxWords);
  if (!options.Output.empty()) {
    settings.OutputFile = options.Output;
    settings.DisableOutputToFile = false;
  }
}

}  // namespace korv
