// Which changes of the settings a user would miss.

#include "app/settings/settings_difference.h"

#include <gtest/gtest.h>

#include <functional>

namespace korv {
namespace {

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
