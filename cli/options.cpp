#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iterator>
#include <map>

#include "cli/argument_names.h"
#include "cli/help_format.h"
#include "platform/locale_numbers.h"
#include "report/filter.h"
#include "sources/folders/file_selection.h"

namespace korv {

namespace {

constexpr const char* kVersion = "korv-count 1.0.0";
constexpr const char* kNone = "none";

struct NamedFlag {
  const char* Name;
  bool WordRules::*Flag;
};

constexpr NamedFlag kAllowed[] = {
    {"hyphens", &WordRules::AllowHyphens},         {"apostrophes", &WordRules::AllowApostrophes},
    {"underscores", &WordRules::AllowUnderscores}, {"colons", &WordRules::AllowColons},
    {"backslashes", &WordRules::AllowBackslashes}, {"forwardslashes", &WordRules::AllowForwardslashes},
    {"periods", &WordRules::AllowPeriods},         {"at-signs", &WordRules::AllowAtSigns},
    {"numerals", &WordRules::AllowNumerals},       {"parentheses", &WordRules::AllowParentheses},
    {"ampersands", &WordRules::AllowAmpersands},   {"commas", &WordRules::AllowCommas},
};

constexpr NamedFlag kTerminators[] = {
    {"line", &WordRules::TerminateAtEndOfLine}, {"period", &WordRules::TerminateAtPeriod},
    {"comma", &WordRules::TerminateAtComma},    {"double-quote", &WordRules::TerminateAtDoubleQuote},
    {"tab", &WordRules::TerminateAtTab},
};

template <typename Rows>
std::string NamesOf(const Rows& rows) {
  std::string names;
  for (const NamedFlag& row : rows) names += std::string(names.empty() ? "" : " ") + row.Name;
  return names;
}

std::string WithoutBlanksAround(const std::string& text) {
  const size_t first = text.find_first_not_of(' ');
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A comma-separated list of the rows' names, with or without blanks, or "none".
template <typename Rows>
std::vector<std::string> ParseNames(const std::string& text, const char* option, const Rows& rows) {
  if (WithoutBlanksAround(text) == kNone) return {};
  std::vector<std::string> names;
  for (size_t at = 0; at <= text.size();) {
    const size_t end = std::min(text.find(',', at), text.size());
    const std::string name = WithoutBlanksAround(text.substr(at, end - at));
    if (std::ranges::none_of(rows, [&](const NamedFlag& row) { return name == row.Name; }))
      throw CLI::ValidationError(option, "'" + name + "' is none of: " + NamesOf(rows));
    names.push_back(name);
    at = end + 1;
  }
  return names;
}

template <typename Rows>
void ApplyNames(const std::vector<std::string>& names, const Rows& rows, WordRules& rules) {
  for (const NamedFlag& row : rows) rules.*row.Flag = std::ranges::find(names, row.Name) != names.end();
}

int ParseNumber(const std::string& text, const char* option) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size())
    throw CLI::ValidationError(option, "'" + text + "' is no number");
  return number;
}

int ParseInRange(const std::string& text, const char* option, int least, int most, int step = 1) {
  const int number = ParseNumber(text, option);
  if (number < least || number > most || (number - least) % step != 0)
    throw CLI::ValidationError(option, text + " is not between " + std::to_string(least) + " and " +
                                           std::to_string(most) +
                                           (step > 1 ? " in steps of " + std::to_string(step) : ""));
  return number;
}

/// The options as they are being read. CLI11 hands over texts; what they mean is decided in one place.
class Parser {
 public:
  std::variant<CountOptions, int> Parse(const std::vector<std::string>& arguments, std::ostream& out,
                                        std::ostream& err) {
    // "/texts" is a path on every system.
    app_.allow_windows_style_options(false);
    app_.formatter(std::make_shared<HelpFormat>());
    app_.set_help_flag("-h,--help", "Show this and exit");
    AddSettings();
    AddPhrases();
    AddWords();
    AddSources();
    AddReport();
    AddContexts();
    AddOutput();
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
  void AddSettings() {
    app_.add_option("PATH", options_.Path, "A file, a folder, or - for standard input");
    app_.set_version_flag("--version", kVersion, "Show the version and exit");
    File("--settings", options_.SettingsFile, "A settings file, applied before the other options");
    File("--save-settings", options_.SaveSettingsFile, "Write the resulting settings to a file");
  }

  void AddPhrases() {
    const char* group = "Phrases";
    Number("--min-words", options_.MinWords, kLeastWords, kMostWords, "Fewest words of a phrase (4)", group);
    Number("--max-words", options_.MaxWords, kLeastWords, kMostWords,
           "Most words of a phrase (6); alone it takes a larger minimum down with it", group);
    Number("--min-frequency", options_.MinFrequency, 1, kMostMinFrequency, "Fewest occurrences (2)", group);
  }

  void AddWords() {
    const char* ignore = "Words to ignore and to count";
    Choice<std::optional<IgnoreRule>>("--ignore-mode", options_.IgnoreMode,
                                      {{"allow", IgnoreRule::Allow},
                                       {"exclude-all", IgnoreRule::ExcludeAll},
                                       {"remove", IgnoreRule::Remove},
                                       {"exclude-with", IgnoreRule::ExcludeWith}},
                                      "What words to ignore do to phrases (exclude-all)", ignore);
    auto* file = File("--ignore-file", options_.IgnoreFile, "A file of words to ignore")->group(ignore);
    Parsed(
        "--common-words",
        [this](const std::string& text) {
          options_.CommonWordsOf = FindCommonWordsLanguage(text);
          if (!options_.CommonWordsOf)
            throw CLI::ValidationError("--common-words", "'" + text + "' is none of: en de es pt it fr all");
        },
        "Ignore the common words of a language, en de es pt it fr or all; not together with --ignore-file",
        ignore)
        ->type_name("LANGUAGE")
        ->excludes(file);
    app_.add_option("--ignore-words", options_.IgnoreWords, "More words to ignore, separated by blanks")
        ->group(ignore);
    app_.add_flag("--pattern-matching", options_.PatternMatching, "Patterns in the file of words to ignore")
        ->group(ignore);
    app_.add_option("--count-only", options_.CountOnly,
                    "Words and phrases to count, separated by comma and blank")
        ->group(ignore);
    File("--count-only-file", options_.CountOnlyFile, "A file of them, one a line")->group(ignore);

    const char* words = "What is a word, and where phrases end";
    Parsed(
        "--allow",
        [this](const std::string& text) { options_.Allow = ParseNames(text, "--allow", kAllowed); },
        "Characters of words besides letters, comma-separated (hyphens): " + NamesOf(kAllowed) + ", or none",
        words)
        ->type_name("LIST");
    Parsed(
        "--terminate",
        [this](const std::string& text) {
          options_.Terminate = ParseNames(text, "--terminate", kTerminators);
        },
        "Where phrases end (period,double-quote,tab): " + NamesOf(kTerminators) + ", or none", words)
        ->type_name("LIST");
    app_.add_flag("--case-significant", options_.CaseSignificant, "Tell upper from lower case")->group(words);
    app_.add_flag("--seven-bit", options_.SevenBit, "Drop words that are not ASCII")->group(words);
    Parsed(
        "--short-words",
        [this](const std::string& text) {
          options_.ShortWordSize = ShortWords{};
          if (text != "off")
            options_.ShortWordSize->Size =
                ParseInRange(text, "--short-words", kLeastShortWordSize, kMostShortWordSize);
        },
        "Ignore words with fewer characters, 2 to 20 or off (3)", words)
        ->type_name("N");
    Parsed(
        "--long-words",
        [this](const std::string& text) {
          options_.LongWordSize =
              ParseInRange(text, "--long-words", kLeastLongWordSize, kMostLongWordSize, kLongWordSizeStep);
        },
        "Ignore words with more characters, 20 to 80 in tens (50)", words)
        ->type_name("N");
    app_.add_flag("--keep-repetitions", options_.KeepRepetitions,
                  "Keep words with a letter four times in a row")
        ->group(words);
    app_.add_flag("--keep-letterless", options_.KeepLetterless, "Keep words without a letter")->group(words);
  }

  void AddSources() {
    const char* group = "Sources";
    app_.add_option("--patterns", options_.Patterns, "Files of a folder to count, as in \"*.txt, a*.htm*\"")
        ->type_name("LIST")
        ->group(group);
    app_.add_option("--exclude", options_.Exclude, "Leave out files whose names hold one of these texts")
        ->type_name("LIST")
        ->group(group);
    app_.add_flag("--subfolders", options_.Subfolders, "Count in subfolders too")->group(group);
    Choice<EncodingChoice>(
        "--encoding", options_.Encoding,
        {{"auto", EncodingChoice::Auto}, {"utf-8", EncodingChoice::Utf8}, {"ansi", EncodingChoice::Ansi}},
        "How text is encoded (auto)", group);
  }

  void AddReport() {
    const char* group = "Report";
    Number("--format", options_.Format, 0, kDisplayFormats - 1, "Display format, 0 to 12 (0)", group);
    Choice<std::optional<int>>("--order", options_.Order, {{"frequency", 0}, {"alphabetical", 1}},
                               "Word order (frequency)", group);
    app_.add_flag("--relative", options_.Relative, "Percentages instead of frequencies")->group(group);
    app_.add_flag("--sort-by-files", options_.SortByFiles, "Sort by number of files (format 12)")
        ->group(group);
    app_.add_option("--filter", options_.Filter, "List only phrases with these words")->group(group);
    Choice<std::optional<FilterMode>>("--filter-mode", options_.FilterModeOfWords,
                                      {{"all", FilterMode::AllWords},
                                       {"ordered", FilterMode::AllWordsInSameOrder},
                                       {"subphrase", FilterMode::Subphrase}},
                                      "How they are looked for (all)", group);
    Parsed(
        "--locale",
        [this](const std::string& text) {
          bool known = false;
          options_.Numbers = NumberFormatOfLocale(text, known);
          if (!known) throw CLI::ValidationError("--locale", "there is no locale '" + text + "'");
        },
        "How numbers are written, as in de_DE.UTF-8", group)
        ->type_name("NAME");
  }

  void AddContexts() {
    const char* group = "Contexts";
    app_.add_option("--context-of", options_.ContextOf,
                    "List where a phrase stands, with the text around, instead of a report")
        ->type_name("PHRASE")
        ->group(group);
    Number("--contexts", options_.Contexts, 0, kMostContexts, "Characters on each side (80)", group);
    Choice<std::optional<PlaceOrder>>("--sort", options_.Sort,
                                      {{"place", PlaceOrder::Place},
                                       {"left", PlaceOrder::Left},
                                       {"right", PlaceOrder::Right},
                                       {"file", PlaceOrder::File}},
                                      "Order of the contexts (place)", group);
  }

  void AddOutput() {
    const char* group = "Output";
    File("--output,-o", options_.Output, "Write the report to a file")->group(group);
    std::vector<std::pair<std::string, std::optional<const TableForm*>>> forms = {{"text", nullptr}};
    for (const TableForm& form : TableForms()) forms.emplace_back(form.Name, &form);
    Choice<std::optional<const TableForm*>>(
        "--output-format", options_.OutputFormat, forms,
        "The report, or a table with a heading (by FILE's extension; text)", group);
    app_.add_flag("--force", options_.Force, "Replace an existing output file, or what is no settings file")
        ->group(group);
    Choice<Layout>("--layout", options_.LineLayout, {{"columns", Layout::Columns}, {"tabs", Layout::Tabs}},
                   "What standard output gets (columns)", group);
    app_.add_flag("--list-files", options_.ListFiles, "List the files instead of counting")->group(group);
    app_.add_flag("--quiet", options_.Quiet, "Nothing but errors on standard error")->group(group);
    app_.add_flag("--progress", options_.Progress, "Show progress on standard error")->group(group);
    app_.add_flag("--stages", options_.Stages, "Tell how long each stage took")->group(group);
  }

  /// An empty name is a variable that was not set in some script, not a wish for no file.
  CLI::Option* File(const char* names, std::string& field, const char* help) {
    return Parsed(
               names,
               [names, &field](const std::string& text) {
                 if (text.empty()) throw CLI::ValidationError(names, "a file is needed");
                 field = text;
               },
               help, "Settings")
        ->type_name("FILE");
  }
  /// `parse` throws where the text cannot be meant.
  template <typename Parse>
  CLI::Option* Parsed(const char* name, Parse parse, const std::string& help, const char* group) {
    return app_.add_option_function<std::string>(name, parse, help)->group(group);
  }
  void Number(const char* name, std::optional<int>& field, int least, int most, const char* help,
              const char* group) {
    Parsed(
        name,
        [name, &field, least, most](const std::string& text) {
          field = ParseInRange(text, name, least, most);
        },
        help, group)
        ->type_name("N");
  }
  template <typename Field, typename Value = Field>
  void Choice(const char* name, Field& field, std::vector<std::pair<std::string, Field>> choices,
              const char* help, const char* group) {
    std::string names;
    for (const auto& choice : choices) names += (names.empty() ? "" : "|") + choice.first;
    Parsed(
        name,
        [name, &field, choices, names](const std::string& text) {
          const auto found =
              std::ranges::find(choices, text, [](const auto& choice) { return choice.first; });
          if (found == choices.end()) throw CLI::ValidationError(name, "'" + text + "' is none of: " + names);
          field = found->second;
        },
        help, group)
        ->type_name(names);
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
    if (options_.ContextOf && options_.ListFiles)
      throw CLI::ValidationError("--context-of", "excludes --list-files");
  }

  CLI::App app_{"Counts the phrases of natural-language text.", "korv-count"};
  CountOptions options_;
};

}  // namespace

std::variant<CountOptions, int> ParseCountOptions(const std::vector<std::string>& arguments,
                                                  std::ostream& out, std::ostream& err) {
  return Parser().Parse(arguments, out, err);
}

void ApplyOptions(const CountOptions& options, Settings& settings) {
  const auto set = [](const auto& option, auto& field) {
    if (option) field = *option;
  };
  WordRules& words = settings.Words;
  ReportOptions& report = settings.Report;
  set(options.MinWords, settings.MinWords);
  set(options.MaxWords, settings.MaxWords);
  // Who asks for shorter phrases alone does not mean to ask for none.
  if (options.MaxWords && !options.MinWords)
    settings.MinWords = std::min(settings.MinWords, *options.MaxWords);
  set(options.MinFrequency, settings.MinFrequency);
  if (options.IgnoreMode) settings.IgnoreOption = options.IgnoreMode;
  set(options.IgnoreWords, settings.ExtraWordsToIgnore);
  if (options.PatternMatching) settings.PatternMatchingInWordsToIgnoreFile = true;
  if (options.Allow) ApplyNames(*options.Allow, kAllowed, words);
  if (options.Terminate) ApplyNames(*options.Terminate, kTerminators, words);
  if (options.CaseSignificant) words.CaseSignificant = true;
  if (options.SevenBit) words.Only7bitASCII = true;
  if (options.ShortWordSize) {
    words.IgnoreShortWords = options.ShortWordSize->Size.has_value();
    set(options.ShortWordSize->Size, words.ShortWordSize);
  }
  set(options.LongWordSize, words.LongWordSize);
  if (options.KeepRepetitions) words.IgnoreRepetitions = false;
  if (options.KeepLetterless) words.IgnoreNoLetter = false;
  if (options.Patterns) settings.FilePatterns = JoinPatterns(SplitPatterns(*options.Patterns));
  if (options.Exclude) settings.ExcludedTexts = JoinPatterns(SplitPatterns(*options.Exclude));
  if (options.Subfolders) settings.IncludeSubfolders = true;
  set(options.Format, report.DisplayFormat);
  set(options.Order, report.WordOrder);
  if (options.Relative) report.RelativeFrequency = true;
  if (options.SortByFiles) report.SortByNumberOfFiles = true;
  if (options.Filter) report.FilterText = NormaliseFilterText(*options.Filter);
  set(options.FilterModeOfWords, report.FilterModeOfWords);
  if (!options.Output.empty()) {
    settings.OutputFile = options.Output;
    settings.DisableOutputToFile = false;
  }
}

}  // namespace korv
