#include "cli/option_rows.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string_view>
#include <utility>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "cli/column_values.h"
#include "cli/comparison.h"
#include "cli/option_values.h"
#include "cli/setting_options.h"
#include "platform/locale_numbers.h"
#include "sources/detect/declared_encoding.h"
#include "sources/read/whole_text.h"

namespace korv {

namespace {

// ---- Kinds of options that are no settings

/// An empty name is a variable that was not set in some script, not a wish for no file.
OptionRow File(const char* name, std::string CountOptions::*field, OptionGroup group, const char* help) {
  return {.Name = name,
          .ValueName = "FILE",
          .Group = group,
          .Help = help,
          .Take = [name, field](const std::string& text, CountOptions& options) {
            if (text.empty()) RefuseValue(name, Tr("a file is needed"));
            options.*field = text;
          }};
}

OptionRow Flag(const char* name, bool CountOptions::*field, OptionGroup group, const char* help) {
  return {.Name = name,
          .ValueName = {},
          .Group = group,
          .Help = help,
          .Take = [field](const std::string&, CountOptions& options) { options.*field = true; }};
}

template <typename Field>
OptionRow Choices(const char* name, Field CountOptions::*field,
                  const std::vector<std::pair<std::string, Field>>& choices, OptionGroup group,
                  const char* help) {
  std::vector<std::string> words;
  std::vector<Field> values;
  for (const auto& [word, value] : choices) {
    words.push_back(word);
    values.push_back(value);
  }
  return {.Name = name,
          .ValueName = Joined(words, "|"),
          .Group = group,
          .Help = help,
          .Take = [name, field, words, values](const std::string& text, CountOptions& options) {
            options.*field = values[static_cast<size_t>(ParseChoice(text, name, words))];
          }};
}

OptionRow Text(const char* name, const char* valueName, OptionGroup group, std::string help,
               std::function<void(const std::string&, CountOptions&)> take) {
  return {
      .Name = name, .ValueName = valueName, .Group = group, .Help = std::move(help), .Take = std::move(take)};
}

// ---- Options that are no settings, by groups

std::vector<OptionRow> OwnSettings() {
  return {File("--settings", &CountOptions::SettingsFile, OptionGroup::Settings,
               Tr("A settings file, applied before the other options")),
          File("--save-settings", &CountOptions::SaveSettingsFile, OptionGroup::Settings,
               Tr("Write the resulting settings to a file")),
          Flag("--print-settings", &CountOptions::PrintSettings, OptionGroup::Settings,
               Tr("Print the resulting settings, NAME=VALUE a line, and exit"))};
}

/// Beside the options of both lengths.
std::vector<OptionRow> OwnLengths() {
  OptionRow both = Text("--words", "N|N-M", OptionGroup::Phrases,
                        Tr("Fewest and most words of a phrase in one; not together with these"),
                        [](const std::string& text, CountOptions& options) {
                          const size_t dash = text.find('-');
                          const std::string most = dash == text.npos ? text : text.substr(dash + 1);
                          Settings& settings = options.Given.Values;
                          settings.MinWords =
                              ParseInRange(text.substr(0, dash), "--words", kLeastWords, kMostWords);
                          settings.MaxWords = ParseInRange(most, "--words", settings.MinWords, kMostWords);
                          options.Given.Which |= SetOf(RowOf("MinWords")) | SetOf(RowOf("MaxWords"));
                        });
  both.Excludes = {"--min-words", "--max-words"};
  return {std::move(both), Flag("--keep-redundant", &CountOptions::KeepRedundant, OptionGroup::Phrases,
                                Tr("List phrases too that occur only within a longer one"))};
}

std::vector<OptionRow> OwnWordFiles() {
  OptionRow common = Text(
      "--common-words", "LANGUAGE", OptionGroup::WordLists,
      Tr("Ignore the common words of a language, en de es pt it fr or all; not together with --ignore-file"),
      [](const std::string& text, CountOptions& options) {
        options.CommonWordsOf = FindCommonWordsLanguage(text);
        if (!options.CommonWordsOf)
          RefuseValue("--common-words", Fill(Tr("'%1' is none of: %2"), {text, "en de es pt it fr all"}));
      });
  common.Excludes = {"--ignore-file"};
  return {File("--ignore-file", &CountOptions::IgnoreFile, OptionGroup::WordLists,
               Tr("A file of words to ignore")),
          std::move(common)};
}

std::vector<OptionRow> OwnCountOnly() {
  return {Text("--count-only", "TEXT", OptionGroup::WordLists,
               Tr("Words and phrases to count, separated by comma and blank"),
               [](const std::string& text, CountOptions& options) { options.CountOnly = text; }),
          File("--count-only-file", &CountOptions::CountOnlyFile, OptionGroup::WordLists,
               Tr("A file of them, one a line"))};
}

OptionRow PathList(const char* name, char separator, const char* help) {
  return {.Name = name,
          .ValueName = "FILE",
          .Group = OptionGroup::Sources,
          .Help = help,
          .Take = [name, separator](const std::string& text, CountOptions& options) {
            if (text.empty()) RefuseValue(name, Tr("a file is needed"));
            options.FilesFrom = PathListFile{text, separator};
          }};
}

/// One of three words, or the name of any encoding.
void TakeEncoding(const std::string& text, CountOptions& options) {
  const SettingRow& row = RowOf("Encoding");
  options.Given.Which |= SetOf(row);
  options.Given.Values.Encoding.clear();
  options.Encoding = text == "utf-8"  ? EncodingChoice::Utf8
                     : text == "ansi" ? EncodingChoice::Ansi
                                      : EncodingChoice::Auto;
  if (text == "auto" || options.Encoding != EncodingChoice::Auto) return;
  if (text.empty() || !TextInUtf8("", EncodingAsBrowsersHaveIt(text)))
    RefuseValue("--encoding", Fill(Tr("'%1' is none of: %2"),
                                   {text, std::string("auto|utf-8|ansi, ") + Tr("nor a known encoding")}));
  options.Given.Values.Encoding = text;
}

std::vector<OptionRow> OwnSources() {
  OptionRow withNul = PathList("--files0-from", '\0', Tr("The same of paths that end in NUL"));
  withNul.Excludes = {"--files-from"};
  return {
      File("--from-counts", &CountOptions::FromCounts, OptionGroup::Sources,
           Tr("Read phrases and frequencies, separated by a tab, in place of PATH; - for standard input")),
      Text("--encoding", "auto|utf-8|ansi|NAME", OptionGroup::Sources, Tr("How text is encoded (auto)"),
           TakeEncoding),
      Choices<std::string>(
          "--type", &CountOptions::ReadAs,
          {{"text", "txt"}, {"html", "html"}, {"xml", "xml"}, {"php", "php"}}, OptionGroup::Sources,
          Tr("Read texts as this, whatever their names say (standard input: text, files: by name)")),
      PathList("--files-from", '\n',
               Tr("Count the files and folders together that a file names, one a line; - reads them from "
                  "standard input")),
      std::move(withNul)};
}

std::vector<OptionRow> OwnReport() {
  return {Text("--locale", "NAME", OptionGroup::Report, Tr("How numbers are written, as in de_DE.UTF-8"),
               [](const std::string& text, CountOptions& options) {
                 bool known = false;
                 options.Numbers = NumberFormatOfLocale(text, known);
                 if (!known) RefuseValue("--locale", Fill(Tr("there is no locale '%1'"), {text}));
               })};
}

std::vector<OptionRow> OwnContexts() {
  return {
      Text("--context-of", "PHRASE", OptionGroup::Contexts,
           Tr("List where a phrase stands, with the text around, instead of a report"),
           [](const std::string& text, CountOptions& options) { options.ContextOf = text; }),
      Text("--contexts", "N", OptionGroup::Contexts,
           Fill(Tr("Characters on each side (%1)"), {std::to_string(kContexts)}),
           [](const std::string& text, CountOptions& options) {
             options.Contexts = ParseInRange(text, "--contexts", 0, kMostContexts);
           }),
      Text(
          "--sort", "ORDER", OptionGroup::Contexts,
          Tr("Order of the contexts, place, left, right or file (place); else a table's, COLUMN[:asc|:desc]"),
          [](const std::string& text, CountOptions& options) { options.SortText = text; })};
}

OptionRow AtLeastOf(const char* name, const char* column, const char* help) {
  return Text(name, "K", OptionGroup::Report, help, [=](const std::string& text, CountOptions& options) {
    options.Rows.Filter.Limits.push_back(
        AtLeast(column, ParseInRange(text, name, 0, std::numeric_limits<int>::max())));
  });
}

/// Which phrases are listed.
std::vector<OptionRow> OwnChoice() {
  const OptionGroup group = OptionGroup::Report;
  return {Text("--match", "TEXT", group, Tr("List only phrases that match a text; -TEXT those that do not"),
               [](const std::string& text, CountOptions& options) { options.Match = text; }),
          Choices<std::optional<MatchMode>>("--match-mode", &CountOptions::HowToMatch,
                                            {{"contains", MatchMode::Contains},
                                             {"words", MatchMode::WholeWords},
                                             {"starts", MatchMode::StartsWith},
                                             {"ends", MatchMode::EndsWith},
                                             {"wildcard", MatchMode::Wildcards},
                                             {"regex", MatchMode::Expression}},
                                            group, Tr("How they match it (contains)")),
          AtLeastOf("--min-files", "files", Tr("List only phrases that stand in K files or more")),
          Text("--min-per-million", "X", group,
               Tr("List only phrases with X or more occurrences a million words"),
               [](const std::string& text, CountOptions& options) {
                 options.Rows.Filter.Limits.push_back(
                     AtLeast("per_million", ParseReal(text, "--min-per-million")));
               }),
          AtLeastOf("--min-net", "net_frequency",
                    Tr("Write a table of phrases that stand K times or more in no longer one")),
          Text("--top", "K|all", group, Tr("List only the first K phrases (all)"),
               [](const std::string& text, CountOptions& options) {
                 options.Top = text == "all" ? RowChoice::kAll
                                             : static_cast<uint32_t>(ParseInRange(
                                                   text, "--top", 1, std::numeric_limits<int>::max()));
               })};
}

/// Of a table, for other programs.
std::vector<OptionRow> OwnDescription() {
  const OptionGroup group = OptionGroup::Output;
  OptionRow describe =
      Flag("--describe", &CountOptions::Describe, group,
           Tr("Describe the table in datapackage.json beside FILE: columns, settings, source"));
  describe.Excludes = {"--describe-to"};
  return {File("--describe-to", &CountOptions::DescribeTo, group, Tr("Describe the table in another file")),
          std::move(describe)};
}

std::vector<OptionRow> OwnOutput() {
  const OptionGroup group = OptionGroup::Output;
  std::vector<std::pair<std::string, std::optional<const TableForm*>>> forms = {{"text", nullptr}};
  for (const TableForm& form : TableForms()) forms.emplace_back(form.Name, &form);
  return {File("--output,-o", &CountOptions::Output, group, Tr("Write the report to a file")),
          Choices<std::optional<const TableForm*>>(
              "--output-format", &CountOptions::OutputFormat, forms, group,
              Tr("The report, or a table with a heading (by FILE's extension; text)")),
          Choices<bool>("--csv-for", &CountOptions::ForSpreadsheets, {{"excel", true}}, group,
                        Tr("Write csv as spreadsheets want it: with a signature, formulas as text, the "
                           "locale's decimal sign")),
          Text("--columns", "LIST", group, Tr("Write a table with these columns, separated by commas"),
               [](const std::string& text, CountOptions& options) {
                 options.Columns = ParseColumns(text, "--columns");
               }),
          Text("--parts", "files|N|each:N", group,
               Tr("Parts over which dispersion is measured: files, N equal ones, N of each file (files)"),
               [](const std::string& text, CountOptions& options) { options.Parts = ParseParts(text); }),
          Flag("--fail-if-empty", &CountOptions::FailIfEmpty, group,
               Tr("Exit status 3 where there is nothing to list")),
          Flag("--force", &CountOptions::Force, group,
               Tr("Replace an existing output file, or what is no settings file")),
          Choices<Layout>("--layout", &CountOptions::LineLayout,
                          {{"columns", Layout::Columns}, {"tabs", Layout::Tabs}}, group,
                          Tr("What standard output gets (columns)")),
          Flag("--list-files", &CountOptions::ListFiles, group, Tr("List the files instead of counting")),
          Flag("--quiet", &CountOptions::Quiet, group, Tr("Nothing but errors on standard error")),
          Flag("--progress", &CountOptions::Progress, group, Tr("Show progress on standard error")),
          Flag("--stages", &CountOptions::Stages, group, Tr("Tell how long each stage took"))};
}

/// Puts `own` behind the option named `after`.
void InsertAfter(std::vector<OptionRow>& options, std::string_view after, std::vector<OptionRow> own) {
  const auto place = std::ranges::find(options, after, &OptionRow::Name);
  options.insert(std::next(place), std::move_iterator(own.begin()), std::move_iterator(own.end()));
}

}  // namespace

std::vector<OptionRow> OptionRows() {
  std::vector<OptionRow> options = SettingOptions();
  InsertAfter(options, "--ignore-mode", OwnWordFiles());
  InsertAfter(options, "--max-words", OwnLengths());
  for (std::vector<OptionRow> own : {OwnSettings(), OwnCountOnly(), OwnSources(), OwnReport(), OwnChoice(),
                                     OwnContexts(), ComparisonRows(), OwnOutput(), OwnDescription()})
    options.insert(options.end(), std::move_iterator(own.begin()), std::move_iterator(own.end()));
  std::ranges::stable_sort(options, {}, &OptionRow::Group);
  return options;
}

}  // namespace korv
