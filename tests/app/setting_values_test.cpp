#include "app/settings/setting_values.h"

#include <gtest/gtest.h>

#include "app/settings/schema.h"

namespace korv {
namespace {

TableDescription::Value ValueOf(const Settings& settings, std::string_view name) {
  for (const auto& [known, value] : SettingValues(settings))
    if (known == name) return value;
  ADD_FAILURE() << name;
  return false;
}

TEST(SettingValues, AreThoseOfAllSettingsInTheirOrder) {
  const auto values = SettingValues(SettingsAtStart());
  ASSERT_EQ(values.size(), Schema().size());
  for (size_t k = 0; k < values.size(); ++k) EXPECT_EQ(values[k].first, Schema()[k].Name);
}

TEST(SettingValues, AreWrittenAsTheirKindIs) {
  using Value = TableDescription::Value;
  Settings settings = SettingsAtStart();
  settings.MaxWords = 7;
  settings.Words.CaseSignificant = true;
  settings.ExtraWordsToIgnore = "one, two";
  settings.IgnoreOption = IgnoreRule::Remove;
  settings.SourceKind = TextSource::Folder;
  EXPECT_EQ(ValueOf(settings, "MaxWords"), Value(int64_t{7}));
  EXPECT_EQ(ValueOf(settings, "CaseSignificant"), Value(true));
  EXPECT_EQ(ValueOf(settings, "ExtraWordsToIgnore"), Value(std::string("one, two")));
  EXPECT_EQ(ValueOf(settings, "IgnoreOption"), Value(std::string("remove")));
  EXPECT_EQ(ValueOf(settings, "SourceKind"), Value(int64_t{2})) << "no option has a word for it";
  settings.IgnoreOption.reset();
  EXPECT_EQ(ValueOf(settings, "IgnoreOption"), Value(std::string()));
}

TEST(SettingValues, OfAListOfFilesAreTheSelectedOne) {
  using Value = TableDescription::Value;
  Settings settings = SettingsAtStart();
  settings.WordsFiles = {"/a", "/b"};
  settings.SelectedWordsFile = 1;
  EXPECT_EQ(ValueOf(settings, "WordsFiles"), Value(std::string("/b")));
  settings.SelectedWordsFile = -1;
  EXPECT_EQ(ValueOf(settings, "WordsFiles"), Value(std::string()));
}

}  // namespace
}  // namespace korv
