// What a run takes from settings.

#include "app/run/run_request.h"

#include <gmock/gmock.h>

#include "tests/app/changed_settings.h"

namespace korv {
namespace {

using testing::ElementsAre;

TEST(RunRequestOf, TakesWhatSettingsSayOfTheRun) {
  const Settings settings = AllChanged();
  const RunRequest request = RunRequestOf(settings);
  EXPECT_EQ(request.Options.MinWords, 2);
  EXPECT_EQ(request.Options.MaxWords, 25);
  EXPECT_EQ(request.Options.MinFrequency, 20);
  EXPECT_EQ(request.Options.IgnoreMode, IgnoreRule::Remove);
  EXPECT_EQ(request.Options.SourceKind, TextSource::Folder);
  EXPECT_EQ(request.Rules, settings.Words);
  EXPECT_EQ(request.Chain, ChainOrder::ByFiles);
  EXPECT_THAT(request.Selection.Patterns, ElementsAre("*.txt", "a*.htm*"));
  EXPECT_THAT(request.Selection.Exclusions, ElementsAre("copy", "bak"));
  EXPECT_TRUE(request.IncludeSubfolders);
  EXPECT_TRUE(request.ExtractTextFromDocx);
}

TEST(RunRequestOf, TakesTheFolderOrTheFile) {
  Settings settings = AllChanged();
  EXPECT_EQ(RunRequestOf(settings).InputPath, "/texts");
  settings.SourceKind = TextSource::SingleFile;
  EXPECT_EQ(RunRequestOf(settings).InputPath, "/texts/a.txt");
}

TEST(RunRequestOf, TakesTheOutputFileWhereItIsNotDisabled) {
  Settings settings = AllChanged();
  EXPECT_EQ(RunRequestOf(settings).OutputPath, "");
  settings.DisableOutputToFile = false;
  EXPECT_EQ(RunRequestOf(settings).OutputPath, "/out/report.txt");
}

TEST(RunRequestOf, WithoutAnOptionAllowsPhrasesOfWordsToIgnore) {
  Settings settings;
  EXPECT_EQ(RunRequestOf(settings).Options.IgnoreMode, IgnoreRule::ExcludeAll);
  settings.IgnoreOption.reset();
  EXPECT_EQ(RunRequestOf(settings).Options.IgnoreMode, IgnoreRule::Allow);
}

}  // namespace
}  // namespace korv
