#include "app/settings/schema.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "base/translation.h"
#include "report/filter.h"
#include "sources/folders/file_selection.h"

namespace korv {

namespace {

// ---- Choices

constexpr Choice kSources[] = {{nullptr, "optOnClipboard"}, {nullptr, "optInFile"}, {nullptr, "optFolder"}};
/// In the order of IgnoreRule.
constexpr Choice kIgnoreRules[] = {{"allow", "optAllowPhrasesAllWordsToIgnore"},
                                   {"exclude-all", "optExcludePhrasesAllWordsToIgnore"},
                                   {"remove", "optRemoveWordsToIgnore"},
                                   {"exclude-with", "optExcludePhrasesWithWordToIgnore"}};
constexpr Choice kReadings[] = {{"letter"}, {"reader"}};
constexpr Choice kWordRules[] = {{"letters"}, {"words"}, {"unicode"}};
constexpr Choice kSegmentations[] = {{"off"}, {"auto"}, {"words"}, {"characters"}};
/// Of a checkbox that the reading ticks or clears, so that its option must say which.
constexpr Choice kOffOn[] = {{"off"}, {"on"}};
constexpr Choice kOrders[] = {{"frequency"}, {"alphabetical"}};
constexpr Choice kFilterModes[] = {{"all", "optIncludeAllWords"},
                                   {"ordered", "optIncludeAllWordsInSameOrder"},
                                   {"subphrase", "optIncludeAllWordsAsSubphrase"}};

constexpr ChoiceValue kIgnoreOption = {
    [](const Settings& settings) {
      return settings.IgnoreOption ? static_cast<int>(*settings.IgnoreOption) - 1 : kNoChoice;
    },
    [](Settings& settings, int choice) {
      if (choice == kNoChoice)
        settings.IgnoreOption.reset();
      else
        settings.IgnoreOption = static_cast<IgnoreRule>(choice + 1);
    },
    kIgnoreRules};

// ---- How texts are written

std::string TidyPatterns(std::string_view typed) {
  return JoinPatterns(SplitPatterns(typed));
}

// ---- The rows

template <bool WordRules::*Flag>
constexpr CheckValue WordCheck() {
  return Check<&Settings::Words, Flag>();
}

constexpr SettingOption Allows(const char* word) {
  return {.Name = "--allow", .Group = OptionGroup::Words, .Word = word};
}
constexpr SettingOption EndsAt(const char* word) {
  return {.Name = "--terminate", .Group = OptionGroup::Words, .Word = word};
}

constexpr ListOption kListOptions[] = {
    {"--allow", OptionGroup::Words,
     TrLater("Characters of words besides letters, comma-separated ({default}): {words}, or none")},
    {"--terminate", OptionGroup::Words, TrLater("Where phrases end ({default}): {words}, or none")},
};

/// Options of a group stand in --help in the order of these rows.
constexpr SettingRow kRows[] = {
    // Phrases
    {.Name = "MinWords",
     .Value = Number<&Settings::MinWords>(kLeastWords, kMostWords),
     .Places = {40},
     .Control = "cboPhraseLength_0",
     .Option = {.Name = "--min-words",
                .Group = OptionGroup::Phrases,
                .Help = TrLater("Fewest words of a phrase ({default})")}},
    {.Name = "MaxWords",
     .Value = Number<&Settings::MaxWords>(kLeastWords, kMostWords),
     .Places = {41},
     .Control = "cboPhraseLength_1",
     .Option = {.Name = "--max-words",
                .Group = OptionGroup::Phrases,
                .Help = TrLater(
                    "Most words of a phrase ({default}); alone it takes a larger minimum down with it")}},
    {.Name = "MinFrequency",
     .Value = Number<&Settings::MinFrequency>(1, kMostMinFrequency),
     .Places = {42},
     .Control = "cboMinimumFrequency",
     .Option = {.Name = "--min-frequency",
                .Group = OptionGroup::Phrases,
                .Help = TrLater("Fewest occurrences ({default})")}},

    // Words to ignore
    {.Name = "IgnoreOption",
     .Value = kIgnoreOption,
     .Places = {50, 51, 52, 53},
     .Option = {.Name = "--ignore-mode",
                .Group = OptionGroup::WordLists,
                .Help = TrLater("What words to ignore do to phrases ({default})")}},
    {.Name = "WordsFiles",
     .Value = FileListValue{&Settings::WordsFiles, &Settings::SelectedWordsFile},
     .Places = {33}},
    {.Name = "CommonWordsLanguage",
     .Value = Number<&Settings::CommonWordsLanguage>(0, static_cast<int>(CommonWords::None)),
     .Places = {47},
     .Control = "cboCommonWordsLanguages"},
    {.Name = "ExtraWordsToIgnore",
     .Value = Text<&Settings::ExtraWordsToIgnore>(),
     .Reset = ResetBy::Reinitialize,
     .Places = {2},
     .Control = "txbWordsToIgnoreOrCount_0",
     .Option = {.Name = "--ignore-words",
                .ValueName = "TEXT",
                .Group = OptionGroup::WordLists,
                .Help = TrLater("More words to ignore, separated by blanks")}},
    {.Name = "PatternMatchingInWordsToIgnoreFile",
     .Value = Check<&Settings::PatternMatchingInWordsToIgnoreFile>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {44},
     .Control = "chkPatternMatchingInWordsToIgnoreFile",
     .Option = {.Name = "--pattern-matching",
                .Group = OptionGroup::WordLists,
                .Help = TrLater("Patterns in the file of words to ignore")}},

    // What a word may hold besides letters
    {.Name = "AllowHyphens",
     .Value = WordCheck<&WordRules::AllowHyphens>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {14},
     .Control = "chkAllowWordsWithHyphens",
     .Option = Allows("hyphens")},
    {.Name = "AllowApostrophes",
     .Value = WordCheck<&WordRules::AllowApostrophes>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {15},
     .Control = "chkAllowWordsWithApostrophes",
     .Option = Allows("apostrophes")},
    {.Name = "AllowUnderscores",
     .Value = WordCheck<&WordRules::AllowUnderscores>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {16},
     .Control = "chkAllowWordsWithUnderscores",
     .Option = Allows("underscores")},
    {.Name = "AllowColons",
     .Value = WordCheck<&WordRules::AllowColons>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {17},
     .Control = "chkAllowWordsWithColons",
     .Option = Allows("colons")},
    {.Name = "AllowBackslashes",
     .Value = WordCheck<&WordRules::AllowBackslashes>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {18},
     .Control = "chkAllowWordsWithBackslashes",
     .Option = Allows("backslashes")},
    {.Name = "AllowForwardslashes",
     .Value = WordCheck<&WordRules::AllowForwardslashes>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {19},
     .Control = "chkAllowWordsWithForwardslashes",
     .Option = Allows("forwardslashes")},
    {.Name = "AllowPeriods",
     .Value = WordCheck<&WordRules::AllowPeriods>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {21},
     .Control = "chkAllowWordsWithPeriods",
     .Option = Allows("periods")},
    {.Name = "AllowAtSigns",
     .Value = WordCheck<&WordRules::AllowAtSigns>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {23},
     .Control = "chkAllowWordsWithAtSigns",
     .Option = Allows("at-signs")},
    {.Name = "AllowNumerals",
     .Value = WordCheck<&WordRules::AllowNumerals>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {24},
     .Control = "chkAllowWordsWithNumerals",
     .Option = Allows("numerals")},
    {.Name = "AllowParentheses",
     .Value = WordCheck<&WordRules::AllowParentheses>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {20},
     .Control = "chkAllowWordsWithParentheses",
     .Option = Allows("parentheses")},
    {.Name = "AllowAmpersands",
     .Value = WordCheck<&WordRules::AllowAmpersands>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {25},
     .Control = "chkAllowWordsWithAmpersands",
     .Option = Allows("ampersands")},
    {.Name = "AllowCommas",
     .Value = WordCheck<&WordRules::AllowCommas>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {22},
     .Control = "chkAllowWordsWithCommas",
     .Option = Allows("commas")},

    // Where phrases end
    {.Name = "TerminateAtEndOfLine",
     .Value = WordCheck<&WordRules::TerminateAtEndOfLine>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {35},
     .Control = "chkTerminatePhraseAtEndOfLine",
     .Option = EndsAt("line")},
    {.Name = "TerminateAtPeriod",
     .Value = WordCheck<&WordRules::TerminateAtPeriod>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {36},
     .Control = "chkTerminatePhraseAtPeriod",
     .Option = EndsAt("period")},
    {.Name = "TerminateAtComma",
     .Value = WordCheck<&WordRules::TerminateAtComma>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {39},
     .Control = "chkTerminatePhraseAtComma",
     .Option = EndsAt("comma")},
    {.Name = "TerminateAtDoubleQuote",
     .Value = WordCheck<&WordRules::TerminateAtDoubleQuote>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {37},
     .Control = "chkTerminatePhraseAtDoubleQuote",
     .Option = EndsAt("double-quote")},
    // Files keep their places, so it stands there twice; the second one wins.
    {.Name = "TerminateAtTab",
     .Value = WordCheck<&WordRules::TerminateAtTab>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {38, 43},
     .Control = "chkTerminatePhraseAtTab",
     .Option = EndsAt("tab")},
    {.Name = "TerminateAtSentence",
     .Value = WordCheck<&WordRules::TerminateAtSentence>(),
     .Reset = ResetBy::RestoreDefaults,
     .Option = EndsAt("sentence")},
    {.Name = "TerminateAtBlock",
     .Value = WordCheck<&WordRules::TerminateAtBlock>(),
     .Reset = ResetBy::RestoreDefaults,
     .Option = EndsAt("block")},

    // What is a word
    {.Name = "CaseSignificant",
     .Value = WordCheck<&WordRules::CaseSignificant>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {13},
     .Control = "chkCaseSignificant",
     .Option = {.Name = "--case-significant",
                .Group = OptionGroup::Words,
                .Help = TrLater("Tell upper from lower case")}},
    {.Name = "Only7bitASCII",
     .Value = WordCheck<&WordRules::Only7bitASCII>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {32},
     .Control = "chkOnly7bitASCII",
     .Option = {.Name = "--seven-bit",
                .Group = OptionGroup::Words,
                .Help = TrLater("Drop words that are not ASCII")}},
    {.Name = "IgnoreShortWords",
     .Value = WordCheck<&WordRules::IgnoreShortWords>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {9},
     .Control = "chkIgnoreShortWords"},
    {.Name = "ShortWordSize",
     .Value = Number<&Settings::Words, &WordRules::ShortWordSize>(kLeastShortWordSize, kMostShortWordSize),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {7},
     .Control = "cboShortWordSize",
     .Option = {.Name = "--short-words",
                .Group = OptionGroup::Words,
                .Help = TrLater("Ignore words with fewer characters, {least} to {most} or off ({default})"),
                .Switch = "IgnoreShortWords"}},
    {.Name = "LongWordSize",
     .Value = Number<&Settings::Words, &WordRules::LongWordSize>(kLeastLongWordSize, kMostLongWordSize,
                                                                 kLongWordSizeStep),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {8},
     .Control = "cboLongWordSize",
     .Option = {.Name = "--long-words",
                .Group = OptionGroup::Words,
                .Help = TrLater("Ignore words with more characters, {least} to {most} in tens ({default})")},
     .AtStart = 40},
    {.Name = "IgnoreRepetitions",
     .Value = WordCheck<&WordRules::IgnoreRepetitions>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {10},
     .Control = "chkIgnoreRepetitions",
     .Option = {.Name = "--keep-repetitions",
                .Group = OptionGroup::Words,
                .Help = TrLater("Keep words with a letter four times in a row")}},
    {.Name = "IgnoreNoLetter",
     .Value = WordCheck<&WordRules::IgnoreNoLetter>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {12},
     .Control = "chkIgnoreNoLetter",
     .Option = {.Name = "--keep-letterless",
                .Group = OptionGroup::Words,
                .Help = TrLater("Keep words without a letter")}},

    // Sources
    {.Name = "SourceKind",
     .Value = ChoiceOf<&Settings::SourceKind>(kSources),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {34},
     .OfTheMoment = true},
    {.Name = "InputFile",
     .Value = TrimmedText<&Settings::InputFile>(),
     .Places = {3},
     .Control = "txbFile_0",
     .OfTheMoment = true},
    {.Name = "Folder",
     .Value = TrimmedText<&Settings::Folder>(),
     .Places = {1},
     .Control = "txbFolder",
     .OfTheMoment = true},
    {.Name = "FilePatterns",
     .Value = TrimmedText<&Settings::FilePatterns>(TidyPatterns),
     .Reset = ResetBy::Reinitialize,
     .Places = {4},
     .Control = "txbFileFilepathSpecifications_0",
     .Option = {.Name = "--patterns",
                .ValueName = "LIST",
                .Group = OptionGroup::Sources,
                .Help = TrLater("Files of a folder to count, as in \"*.txt, a*.htm*\"")}},
    {.Name = "ExcludedTexts",
     .Value = TrimmedText<&Settings::ExcludedTexts>(TidyPatterns),
     .Reset = ResetBy::Reinitialize,
     .Places = {6},
     .Control = "txbFileFilepathSpecifications_1",
     .Option = {.Name = "--exclude",
                .ValueName = "LIST",
                .Group = OptionGroup::Sources,
                .Help = TrLater("Leave out files whose names hold one of these texts")}},
    {.Name = "IncludeSubfolders",
     .Value = Check<&Settings::IncludeSubfolders>(),
     .Places = {29},
     .Control = "chkIncludeSubfolders",
     .Option = {.Name = "--subfolders",
                .Group = OptionGroup::Sources,
                .Help = TrLater("Count in subfolders too")}},
    {.Name = "ExtractTextFromDocx",
     .Value = Check<&Settings::ExtractTextFromDocx>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {11},
     .Control = "chkExtractTextFromDocx"},
    {.Name = "ReadOtherDocuments",
     .Value = Check<&Settings::Documents, &DocumentChoice::Others>(),
     .Reset = ResetBy::RestoreDefaults,
     .Control = "chkReadOtherDocuments",
     .Option = {.Name = "--documents",
                .Group = OptionGroup::Sources,
                .Help =
                    TrLater("Read other documents too: OpenDocument, EPUB, PDF, RTF, subtitles, TMX, XLIFF, "
                            "PO, TEI and other XML, files packed by gzip and the like")}},
    {.Name = "DocumentSegments",
     .Value = TrimmedText<&Settings::Documents, &DocumentChoice::Segments>(),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--segments",
                .ValueName = "WHICH",
                .Group = OptionGroup::Sources,
                .Help = TrLater(
                    "Segments of TMX, XLIFF and PO: source, target or a language, as in pt-BR (source)")}},
    {.Name = "OnlyElements",
     .Value = TrimmedText<&Settings::Documents, &DocumentChoice::OnlyElements>(TidyPatterns),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--only-elements",
                .ValueName = "LIST",
                .Group = OptionGroup::Sources,
                .Help = TrLater("Of XML count only what stands inside of these elements")}},
    {.Name = "SkippedElements",
     .Value = TrimmedText<&Settings::Documents, &DocumentChoice::SkippedElements>(TidyPatterns),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--skip-elements",
                .ValueName = "LIST",
                .Group = OptionGroup::Sources,
                .Help = TrLater(
                    "Of XML never count what stands inside of these (teiHeader, script, style), or none")}},

    // How texts are read. Reading comes first, for it sets all the others.
    {.Name = "Reading",
     .Value = ChoiceOf<&Settings::Reading>(kReadings),
     .Reset = ResetBy::RestoreDefaults,
     .Control = "cboReading",
     .Option = {.Name = "--reading",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Read texts by the letter or as a reader sees them ({default}); reader turns "
                                "on what follows, but for what is given")}},
    {.Name = "ShownMarkup",
     .Value = ChoiceOf<&Settings::ShownMarkup>(kOffOn),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--shown-markup",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Of HTML, XML and PHP only what a page shows ({default})")}},
    {.Name = "DeclaredEncodings",
     .Value = ChoiceOf<&Settings::DeclaredEncodings>(kOffOn),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--declared-encodings",
                .Group = OptionGroup::Reading,
                .Help =
                    TrLater("Texts in the encoding that they declare, ANSI as Windows-1252 ({default})")}},
    {.Name = "NotesAndBoxes",
     .Value = ChoiceOf<&Settings::NotesAndBoxes>(kOffOn),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--notes-and-boxes",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Of .docx also notes, text boxes, headers and footers ({default})")}},
    {.Name = "WordRule",
     .Value = ChoiceOf<&Settings::WordsAre>(kWordRules),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--word-rule",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Words of letters and what --allow names; words with digits, apostrophes and "
                                "hyphens too; or as Unicode has words ({default})")}},
    {.Name = "AnyWordLength",
     .Value = ChoiceOf<&Settings::AnyWordLength>(kOffOn),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--any-word-length",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Ignore no word for its length ({default})")}},
    {.Name = "FoldCaseFully",
     .Value = ChoiceOf<&Settings::Words, &WordRules::FoldCaseFully>(kOffOn),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--full-case-folding",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Fold case by Unicode's full rules ({default})")}},
    {.Name = "Segmentation",
     .Value = ChoiceOf<&Settings::Words, &WordRules::Segment>(kSegmentations),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--segment",
                .Group = OptionGroup::Reading,
                .Help =
                    TrLater("Find words in Chinese, Japanese, Thai, Lao, Khmer and Burmese ({default})")}},
    {.Name = "LongPhrases",
     .Value = ChoiceOf<&Settings::LongPhrases>(kOffOn),
     .Reset = ResetBy::RestoreDefaults,
     .Option = {.Name = "--long-phrases",
                .Group = OptionGroup::Reading,
                .Help = TrLater("Count phrases of up to 1,000 characters instead of 100 ({default})")}},
    {.Name = "Encoding", .Value = TrimmedText<&Settings::Encoding>(), .Reset = ResetBy::RestoreDefaults},

    // Report
    {.Name = "DisplayFormat",
     .Value = Number<&Settings::Report, &ReportOptions::DisplayFormat>(0, kDisplayFormats - 1),
     .Reset = ResetBy::Reinitialize,
     .Places = {31},
     .Control = "cboDisplayFormat",
     .Option = {.Name = "--format",
                .Group = OptionGroup::Report,
                .Help = TrLater("Display format, {least} to {most} ({default})")}},
    {.Name = "WordOrder",
     .Value = ChoiceOf<&Settings::Report, &ReportOptions::WordOrder>(kOrders),
     .Reset = ResetBy::Reinitialize,
     .Places = {30},
     .Control = "cboWordOrder",
     .Option = {.Name = "--order", .Group = OptionGroup::Report, .Help = TrLater("Word order ({default})")}},
    {.Name = "RelativeFrequency",
     .Value = Check<&Settings::Report, &ReportOptions::RelativeFrequency>(),
     .Places = {45},
     .Control = "chkDisplayRelativeFrequency",
     .Option = {.Name = "--relative",
                .Group = OptionGroup::Report,
                .Help = TrLater("Percentages instead of frequencies")}},
    {.Name = "SortByNumberOfFiles",
     .Value = Check<&Settings::Report, &ReportOptions::SortByNumberOfFiles>(),
     .Reset = ResetBy::Reinitialize,
     .Places = {46},
     .Control = "chkSortByNumberOfFiles",
     .Option = {.Name = "--sort-by-files",
                .Group = OptionGroup::Report,
                .Help = TrLater("Sort by number of files (format 12)")}},
    {.Name = "FilterText",
     .Value = Text<&Settings::Report, &ReportOptions::FilterText>(NormaliseFilterText),
     .Reset = ResetBy::Reinitialize,
     .Places = {48},
     .Control = "txbFilterWords",
     .Option = {.Name = "--filter",
                .ValueName = "TEXT",
                .Group = OptionGroup::Report,
                .Help = TrLater("List only phrases with these words")},
     .OfTheMoment = true},
    {.Name = "FilterModeOfWords",
     .Value = ChoiceOf<&Settings::Report, &ReportOptions::FilterModeOfWords>(kFilterModes),
     .Places = {49},
     .Option = {.Name = "--filter-mode",
                .Group = OptionGroup::Report,
                .Help = TrLater("How they are looked for ({default})")}},

    // Output
    {.Name = "OutputFile",
     .Value = TrimmedText<&Settings::OutputFile>(),
     .Places = {5},
     .Control = "txbFile_1",
     .OfTheMoment = true},
    {.Name = "DisableOutputToFile",
     .Value = Check<&Settings::DisableOutputToFile>(),
     .Places = {28},
     .Control = "chkDisableOutputToFile"},
    {.Name = "WarnOnOverwrite",
     .Value = Check<&Settings::WarnOnOverwrite>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {26},
     .Control = "chkWarnOnOverwrite"},
    {.Name = "SaveStateOnQuit",
     .Value = Check<&Settings::SaveStateOnQuit>(),
     .Reset = ResetBy::RestoreDefaults,
     .Places = {27},
     .Control = "chkSaveStateOnQuit"},
};

static_assert(std::size(kRows) <= kMostSettings);

consteval bool NamesAreUnique() {
  for (const SettingRow& row : kRows)
    if (std::ranges::count(kRows, std::string_view(row.Name), &SettingRow::Name) != 1) return false;
  return true;
}
static_assert(NamesAreUnique());

/// Files are read by place: each has one value, from the first to the last.
consteval bool PlacesAreWhole() {
  constexpr size_t kPlaces = 53;
  std::array<int, kPlaces> values{};
  for (const SettingRow& row : kRows)
    for (const uint8_t place : row.Places)
      if (place > kPlaces || (place != 0 && ++values[place - 1] != 1)) return false;
  return std::ranges::count(values, 0) == 0;
}
static_assert(PlacesAreWhole());

template <typename Value>
bool SameIn(const Value& value, const Settings& one, const Settings& other) {
  if constexpr (std::is_same_v<Value, FileListValue>)
    return one.*value.Paths == other.*value.Paths && one.*value.Selected == other.*value.Selected;
  else
    return value.Get(one) == value.Get(other);
}

template <typename Predicate>
SettingSet Where(Predicate predicate) {
  SettingSet set;
  for (const SettingRow& row : kRows) set[IndexOf(row)] = predicate(row);
  return set;
}

}  // namespace

const char* TitleOf(OptionGroup group) {
  switch (group) {
    case OptionGroup::Settings:
      return Tr("Settings");
    case OptionGroup::Phrases:
      return Tr("Phrases");
    case OptionGroup::WordLists:
      return Tr("Words to ignore and to count");
    case OptionGroup::Words:
      return Tr("What is a word, and where phrases end");
    case OptionGroup::Sources:
      return Tr("Sources");
    case OptionGroup::Reading:
      return Tr("How texts are read");
    case OptionGroup::Report:
      return Tr("Report");
    case OptionGroup::Contexts:
      return Tr("Contexts");
    case OptionGroup::Comparison:
      return Tr("Comparison");
    case OptionGroup::Output:
      return Tr("Output");
  }
  return "";
}

std::span<const SettingRow> Schema() {
  return kRows;
}

std::span<const ListOption> ListOptions() {
  return kListOptions;
}

const SettingRow& RowOf(std::string_view name) {
  const auto row = std::ranges::find(kRows, name, &SettingRow::Name);
  if (row == std::end(kRows)) throw std::logic_error("No setting is named " + std::string(name));
  return *row;
}

bool HasControl(const SettingRow& row) {
  const auto* choice = std::get_if<ChoiceValue>(&row.Value);
  return row.Control != nullptr || (choice != nullptr && choice->Choices.front().Control != nullptr);
}

size_t IndexOf(const SettingRow& row) {
  return static_cast<size_t>(&row - kRows);
}

SettingSet SetOf(const SettingRow& row) {
  return SettingSet().set(IndexOf(row));
}

bool Has(const SettingSet& set, std::string_view name) {
  return set[IndexOf(RowOf(name))];
}

SettingSet SettingsResetBy(ResetBy button) {
  // In the order of the enumeration each resets what the ones behind it do.
  return Where([button](const SettingRow& row) { return button != ResetBy::Nothing && row.Reset >= button; });
}

SettingSet SettingsOfTheMoment() {
  return Where([](const SettingRow& row) { return row.OfTheMoment; });
}

bool SameValue(const SettingRow& row, const Settings& one, const Settings& other) {
  return std::visit([&](const auto& value) { return SameIn(value, one, other); }, row.Value);
}

SettingSet DifferencesOf(const Settings& one, const Settings& other) {
  return Where([&](const SettingRow& row) { return !SameValue(row, one, other); });
}

void CopyValue(const SettingRow& row, const Settings& from, Settings& to) {
  std::visit(
      [&](const auto& value) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, FileListValue>) {
          to.*value.Paths = from.*value.Paths;
          to.*value.Selected = from.*value.Selected;
        } else {
          value.Set(to, value.Get(from));
        }
      },
      row.Value);
}

void CopyValues(const SettingSet& which, const Settings& from, Settings& to) {
  for (const SettingRow& row : kRows)
    if (which[IndexOf(row)]) CopyValue(row, from, to);
}

Settings SettingsAtStart() {
  Settings settings;
  for (const SettingRow& row : kRows)
    if (row.AtStart) std::get<NumberValue>(row.Value).Set(settings, *row.AtStart);
  return settings;
}

void ApplyReading(Reading reading, Settings& settings) {
  const bool on = reading == Reading::Reader;
  settings.Reading = reading;
  settings.ShownMarkup = on;
  settings.DeclaredEncodings = on;
  settings.NotesAndBoxes = on;
  settings.WordsAre = on ? WordRule::Words : WordRule::Allowed;
  settings.AnyWordLength = on;
  settings.LongPhrases = on;
  settings.Words.FoldCaseFully = on;
  settings.Words.Segment = on ? Segmentation::Auto : Segmentation::Off;
  settings.Words.TerminateAtSentence = on;
  settings.Words.TerminateAtBlock = on;
}

Settings DefaultsUnder(Reading reading) {
  Settings defaults;
  ApplyReading(reading, defaults);
  return defaults;
}

void SetDefaultValues(Settings& settings) {
  CopyValues(SettingsResetBy(ResetBy::RestoreDefaults), Settings{}, settings);
}

bool SettingsDiffer(const Settings& one, const Settings& other) {
  return (DifferencesOf(one, other) & ~SettingsOfTheMoment()).any();
}

std::vector<SavedPlace> SavedPlaces(std::span<const SettingRow> rows) {
  std::vector<std::pair<int, SavedPlace>> places;
  for (const SettingRow& row : rows) {
    const auto* choice = std::get_if<ChoiceValue>(&row.Value);
    const auto filled = row.Places.size() - static_cast<size_t>(std::ranges::count(row.Places, 0));
    const bool each = choice && choice->Choices.size() == filled;
    for (size_t i = 0; i < row.Places.size(); ++i)
      if (row.Places[i] != 0)
        places.push_back({row.Places[i], {&row, each ? static_cast<int>(i) : kNoChoice}});
  }
  std::ranges::sort(places, {}, &std::pair<int, SavedPlace>::first);
  std::vector<SavedPlace> inOrder;
  inOrder.reserve(places.size());
  for (const auto& [place, value] : places) inOrder.push_back(value);
  return inOrder;
}

}  // namespace korv
