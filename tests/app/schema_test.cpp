// The rows of the settings: what each says of its setting.

#include "app/settings/schema.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/app/changed_settings.h"

namespace korv {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> NamesOf(const SettingSet& set) {
  std::vector<std::string> names;
  for (const SettingRow& row : Schema())
    if (set[IndexOf(row)]) names.emplace_back(row.Name);
  return names;
}

TEST(Schema, HasARowForEveryField) {
  EXPECT_EQ(DifferencesOf(AllChanged(), Settings{}).count(), Schema().size());
  Settings copy;
  CopyValues(SettingSet().set(), AllChanged(), copy);
  EXPECT_THAT(NamesOf(DifferencesOf(copy, AllChanged())), IsEmpty());
  EXPECT_EQ(copy.Words, AllChanged().Words);
}

TEST(Schema, CopiesAndComparesEachValueByItself) {
  for (const SettingRow& row : Schema()) {
    Settings settings;
    CopyValue(row, AllChanged(), settings);
    EXPECT_EQ(DifferencesOf(settings, Settings{}), SetOf(row)) << row.Name;
    EXPECT_TRUE(SameValue(row, settings, AllChanged())) << row.Name;
    EXPECT_EQ(&RowOf(row.Name), &row);
  }
}

TEST(Schema, HasNoRowOfAnotherName) {
  EXPECT_THROW(RowOf("minwords"), std::logic_error);
}

TEST(Schema, KeepsDefaultsAndValuesOfAWindowsStartInTheirRange) {
  for (const SettingRow& row : Schema()) {
    if (const auto* number = std::get_if<NumberValue>(&row.Value)) {
      EXPECT_EQ((number->Most - number->Least) % number->Step, 0) << row.Name;
      for (const int value : {number->Get(Settings{}), row.AtStart.value_or(number->Least)}) {
        EXPECT_GE(value, number->Least) << row.Name;
        EXPECT_LE(value, number->Most) << row.Name;
        EXPECT_EQ(number->AtIndex(number->IndexOf(value)), value) << row.Name;
      }
    } else {
      EXPECT_FALSE(row.AtStart) << row.Name << ": only numbers may start with another value";
    }
    if (const auto* choice = std::get_if<ChoiceValue>(&row.Value)) {
      EXPECT_GE(choice->Get(Settings{}), 0) << row.Name;
      EXPECT_LT(choice->Get(Settings{}), static_cast<int>(choice->Choices.size())) << row.Name;
    }
  }
}

TEST(Schema, SetsAndGetsEveryValueOfNumbersAndChoices) {
  const auto expectKept = [](const SettingRow& row, const auto& value, int number) {
    Settings settings;
    value.Set(settings, number);
    EXPECT_EQ(value.Get(settings), number) << row.Name;
  };
  for (const SettingRow& row : Schema()) {
    if (const auto* number = std::get_if<NumberValue>(&row.Value))
      for (int index = 0; index < number->Items(); ++index) expectKept(row, *number, number->AtIndex(index));
    if (const auto* choice = std::get_if<ChoiceValue>(&row.Value))
      for (size_t index = 0; index < choice->Choices.size(); ++index)
        expectKept(row, *choice, static_cast<int>(index));
  }
}

TEST(Schema, NamesTheControlsOfItsSettings) {
  std::multiset<std::string> controls;
  for (const SettingRow& row : Schema()) {
    if (row.Control != nullptr) controls.insert(row.Control);
    const auto* choice = std::get_if<ChoiceValue>(&row.Value);
    if (choice == nullptr) continue;
    for (const Choice& one : choice->Choices) {
      if (HasControl(row)) {
        EXPECT_NE(one.Control == nullptr, row.Control == nullptr) << row.Name;
      }
      if (one.Control != nullptr) controls.insert(one.Control);
    }
  }
  for (const std::string& control : controls) EXPECT_EQ(controls.count(control), 1u) << control;
}

TEST(Schema, HasOptionsThatSuitTheirValues) {
  for (const SettingRow& row : Schema()) {
    const SettingOption& option = row.Option;
    if (option.Name == nullptr) continue;
    if (option.Word != nullptr) {
      EXPECT_TRUE(std::holds_alternative<CheckValue>(row.Value)) << row.Name;
      std::vector<std::string> lists;
      for (const ListOption& list : ListOptions()) lists.emplace_back(list.Name);
      EXPECT_THAT(lists, Contains(option.Name)) << row.Name;
    } else {
      EXPECT_NE(option.Help, nullptr) << row.Name;
    }
    if (option.Switch != nullptr) {
      EXPECT_TRUE(std::holds_alternative<CheckValue>(RowOf(option.Switch).Value)) << row.Name;
    }
    EXPECT_EQ(option.ValueName != nullptr, std::holds_alternative<TextValue>(row.Value)) << row.Name;
  }
}

TEST(SettingsAtStart, DifferFromTheDefaultsInTheSizeOfLongWords) {
  EXPECT_EQ(SettingsAtStart().Words.LongWordSize, 40);
  EXPECT_EQ(DifferencesOf(SettingsAtStart(), Settings{}), SetOf(RowOf("LongWordSize")));
}

// ---- Resetting

TEST(SetDefaultValues, ResetsRulesAndLeavesPathsListsAndReport) {
  Settings settings = AllChanged();
  SetDefaultValues(settings);
  EXPECT_EQ(settings.Words.LongWordSize, 50);
  EXPECT_EQ(settings.Words.ShortWordSize, 3);
  EXPECT_TRUE(settings.Words.AllowHyphens);
  EXPECT_TRUE(settings.Words.TerminateAtPeriod);
  EXPECT_FALSE(settings.WarnOnOverwrite);
  EXPECT_FALSE(settings.SaveStateOnQuit);
  EXPECT_FALSE(settings.ExtractTextFromDocx);
  EXPECT_FALSE(settings.PatternMatchingInWordsToIgnoreFile);
  EXPECT_EQ(settings.SourceKind, TextSource::SingleFile);
  EXPECT_EQ(settings.Folder, "/texts");
  EXPECT_EQ(settings.WordsFiles.size(), 2u);
  EXPECT_EQ(settings.MaxWords, 25);
  EXPECT_EQ(settings.Report.DisplayFormat, 12);
}

TEST(SettingsResetBy, RestoreDefaultsAreRulesBehaviourAndSource) {
  const SettingSet reset = SettingsResetBy(ResetBy::RestoreDefaults);
  for (const char* name :
       {"CaseSignificant", "LongWordSize", "AllowCommas", "TerminateAtTab", "ExtractTextFromDocx",
        "WarnOnOverwrite", "SaveStateOnQuit", "PatternMatchingInWordsToIgnoreFile", "SourceKind"})
    EXPECT_TRUE(Has(reset, name)) << name;
  for (const char* name : {"Folder", "InputFile", "OutputFile", "WordsFiles", "MinWords", "MaxWords",
                           "MinFrequency", "IgnoreOption", "DisplayFormat", "FilterText"})
    EXPECT_FALSE(Has(reset, name)) << name;
  Settings rules;
  rules.Words = AllChanged().Words;
  EXPECT_TRUE((DifferencesOf(rules, Settings{}) & ~reset).none()) << "every rule of words";
}

TEST(SettingsResetBy, ReinitializeAreTextsAndTheReportToo) {
  const SettingSet more = SettingsResetBy(ResetBy::Reinitialize) & ~SettingsResetBy(ResetBy::RestoreDefaults);
  EXPECT_THAT(NamesOf(more),
              testing::IsSupersetOf({"ExtraWordsToIgnore", "FilePatterns", "ExcludedTexts", "DisplayFormat",
                                     "WordOrder", "SortByNumberOfFiles", "FilterText"}));
  EXPECT_TRUE(SettingsResetBy(ResetBy::Nothing).none());
}

// ---- Differences

using Change = std::function<void(Settings&)>;

TEST(SettingsDiffer, WhereAUserWouldMissTheChange) {
  const std::pair<const char*, Change> cases[] = {
      {"patterns", [](Settings& s) { s.FilePatterns = "*.txt"; }},
      {"extra words", [](Settings& s) { s.ExtraWordsToIgnore = "ibid"; }},
      {"a word rule", [](Settings& s) { s.Words.AllowNumerals = true; }},
      {"a size", [](Settings& s) { s.Words.ShortWordSize = 4; }},
      {"the length of phrases", [](Settings& s) { s.MaxWords = 7; }},
      {"the ignore rule", [](Settings& s) { s.IgnoreOption = IgnoreRule::Remove; }},
      {"no ignore rule", [](Settings& s) { s.IgnoreOption.reset(); }},
      {"a word list", [](Settings& s) { s.WordsFiles = {"/list.txt"}; }},
      {"the format", [](Settings& s) { s.Report.DisplayFormat = 5; }},
      {"the mode of the filter", [](Settings& s) { s.Report.FilterModeOfWords = FilterMode::Subphrase; }},
      {"saving when quitting", [](Settings& s) { s.SaveStateOnQuit = true; }},
  };
  for (const auto& [name, change] : cases) {
    Settings changed;
    change(changed);
    EXPECT_TRUE(SettingsDiffer(Settings{}, changed)) << name;
    EXPECT_FALSE(SettingsDiffer(changed, changed)) << name;
  }
}

TEST(SettingsDiffer, NotWhereOnlyWhatIsCountedHasChanged) {
  const std::pair<const char*, Change> cases[] = {
      {"source", [](Settings& s) { s.SourceKind = TextSource::Folder; }},
      {"input file", [](Settings& s) { s.InputFile = "/a.txt"; }},
      {"folder", [](Settings& s) { s.Folder = "/texts"; }},
      {"output file", [](Settings& s) { s.OutputFile = "/out.txt"; }},
      {"filter words", [](Settings& s) { s.Report.FilterText = "whale"; }},
  };
  for (const auto& [name, change] : cases) {
    Settings changed;
    change(changed);
    EXPECT_FALSE(SettingsDiffer(Settings{}, changed)) << name;
  }
}

}  // namespace
}  // namespace korv
