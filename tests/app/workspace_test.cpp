// What a window works on, and who hears of its changes.

#include "app/workspace.h"

#include <gmock/gmock.h>

#include <utility>
#include <vector>

#include "tests/app/changed_settings.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WorkspaceTest : public testing::Test {
 protected:
  WorkspaceTest() {
    workspace.OnChange([this](const SettingSet& changed, ChangedBy by) { heard.emplace_back(changed, by); });
  }

  static SettingSet Named(const std::vector<const char*>& names) {
    SettingSet set;
    for (const char* name : names) set |= SetOf(RowOf(name));
    return set;
  }

  static WordList ListOf(std::vector<std::string> words) {
    WordList list;
    list.Words = std::move(words);
    return list;
  }

  Workspace workspace;
  FakeMessages messages;
  std::vector<std::pair<SettingSet, ChangedBy>> heard;
};

TEST_F(WorkspaceTest, StartsAsAWindowDoes) {
  EXPECT_TRUE(DifferencesOf(workspace.Current(), SettingsAtStart()).none());
  EXPECT_FALSE(workspace.HasWordsToIgnore());
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(WorkspaceTest, TellsOfAllChangesAtOnceAndWhoMadeThem) {
  workspace.Change(ChangedBy::User, [](Settings& s) { s.MinWords = 3; });
  EXPECT_EQ(workspace.Current().MinWords, 3);
  EXPECT_THAT(heard, ElementsAre(std::pair(Named({"MinWords"}), ChangedBy::User)));
  heard.clear();
  workspace.Change(ChangedBy::Program, AllChanged());
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_EQ(heard[0].first.count(), Schema().size());
  EXPECT_EQ(heard[0].second, ChangedBy::Program);
}

TEST_F(WorkspaceTest, TellsNothingWhereNothingChanged) {
  workspace.Change(ChangedBy::User, workspace.Current());
  workspace.Change(ChangedBy::Program, [](Settings& s) { s.MinWords = 4; });
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(WorkspaceTest, TellsOfWhatAListenerChanges) {
  std::vector<int> seen;
  workspace.OnChange([&](const SettingSet&, ChangedBy by) {
    seen.push_back(workspace.Current().MaxWords);
    if (workspace.Current().MaxWords < workspace.Current().MinWords)
      workspace.Change(ChangedBy::Program, [](Settings& s) { s.MaxWords = s.MinWords; });
    EXPECT_TRUE(by == ChangedBy::User || workspace.Current().MaxWords == 7);
  });
  workspace.Change(ChangedBy::User, [](Settings& s) { s.MinWords = 7; });
  EXPECT_THAT(seen, ElementsAre(6, 7));
  EXPECT_THAT(heard, ElementsAre(std::pair(Named({"MinWords"}), ChangedBy::User),
                                 std::pair(Named({"MaxWords"}), ChangedBy::Program)));
}

TEST_F(WorkspaceTest, KeepsTheFilesOfWordsToIgnoreAsASetting) {
  workspace.ChangeFiles(ChangedBy::User, ListKind::WordsToIgnore,
                        [this](WordFileList& files) { EXPECT_TRUE(files.Add("/one.txt", messages)); });
  EXPECT_THAT(workspace.Current().WordsFiles, ElementsAre("/one.txt"));
  EXPECT_EQ(workspace.Current().SelectedWordsFile, 0);
  EXPECT_THAT(heard, ElementsAre(std::pair(Named({"WordsFiles"}), ChangedBy::User)));
  workspace.Change(ChangedBy::Program, AllChanged());
  EXPECT_THAT(workspace.FilesOf(ListKind::WordsToIgnore).Paths(),
              ElementsAre("/lists/one.txt", "/lists/two.txt"));
  EXPECT_EQ(workspace.FilesOf(ListKind::WordsToIgnore).SelectedPath(), "/lists/two.txt");
}

TEST_F(WorkspaceTest, DropsFilesThatAListDoesNotTake) {
  Settings settings = AllChanged();
  settings.WordsFiles = {"/one.txt"};
  settings.SelectedWordsFile = 7;
  workspace.Change(ChangedBy::Program, settings);
  EXPECT_EQ(workspace.Current().SelectedWordsFile, -1);
}

TEST_F(WorkspaceTest, KeepsTheFilesOfCountOnlyEntriesToItself) {
  workspace.ChangeFiles(ChangedBy::User, ListKind::CountOnly,
                        [this](WordFileList& files) { EXPECT_TRUE(files.Add("/one.txt", messages)); });
  EXPECT_THAT(workspace.FilesOf(ListKind::CountOnly).Paths(), ElementsAre("/one.txt"));
  EXPECT_THAT(workspace.FilesOf(ListKind::WordsToIgnore).Paths(), IsEmpty());
  EXPECT_THAT(workspace.Current().WordsFiles, IsEmpty());
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(WorkspaceTest, HasWordsToIgnoreOfAFileOrTyped) {
  workspace.Load(ListKind::WordsToIgnore, {});
  EXPECT_FALSE(workspace.HasWordsToIgnore()) << "an empty file";
  workspace.Load(ListKind::WordsToIgnore, ListOf({"the"}));
  EXPECT_TRUE(workspace.HasWordsToIgnore());
  workspace.Forget(ListKind::WordsToIgnore);
  EXPECT_FALSE(workspace.HasWordsToIgnore());
  EXPECT_EQ(workspace.LoadedOf(ListKind::WordsToIgnore), nullptr);
  workspace.Change(ChangedBy::User, [](Settings& s) { s.ExtraWordsToIgnore = " ibid "; });
  EXPECT_TRUE(workspace.HasWordsToIgnore());
}

TEST_F(WorkspaceTest, AsksARunForWhatIsChosen) {
  Settings settings = AllChanged();
  settings.ExtraWordsToIgnore = "ibid viz";
  workspace.Change(ChangedBy::Program, settings);
  workspace.Load(ListKind::WordsToIgnore, ListOf({"the", "of"}));
  workspace.Load(ListKind::CountOnly, ListOf({"whale"}));
  workspace.TypeCountOnly("white whale, sea");
  const RunRequest request = workspace.RequestOfNow();
  EXPECT_EQ(request.Options.MaxWords, 25);
  EXPECT_EQ(request.InputPath, "/texts");
  EXPECT_THAT(request.Lists.FileWordsToIgnore, ElementsAre("the", "of"));
  EXPECT_THAT(request.Lists.TypedWordsToIgnore, ElementsAre("ibid", "viz"));
  EXPECT_THAT(request.Lists.CountOnly, ElementsAre("whale", "white whale", "sea"));
  EXPECT_TRUE(request.Lists.PatternMatchingInWordsToIgnoreFile);
  EXPECT_TRUE(request.Lists.CaseSignificant);
}

TEST(Workspace, CountsSeveralSourcesInPlaceOfTheFolder) {
  const std::vector<SourcePath> paths = {{"/a.txt", SourcePath::Kind::File},
                                         {"/t", SourcePath::Kind::Folder}};
  Workspace workspace;
  int told = 0;
  workspace.OnChange([&told](const SettingSet&, ChangedBy) { ++told; });
  workspace.CountTogether(ChangedBy::User, paths);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(workspace.Current().SourceKind, TextSource::Folder);
  EXPECT_EQ(workspace.RequestOfNow().Paths, paths);
  workspace.CountTogether(ChangedBy::User, paths);
  EXPECT_EQ(told, 1) << "nothing has changed";
  workspace.Change(ChangedBy::User, [](Settings& settings) { settings.SourceKind = TextSource::SingleFile; });
  EXPECT_TRUE(workspace.RequestOfNow().Paths.empty());
  EXPECT_EQ(workspace.Together(), paths) << "for when folders are chosen again";
  workspace.Change(ChangedBy::User, [](Settings& settings) { settings.MinWords = 2; });
  EXPECT_EQ(workspace.Together(), paths);
  workspace.CountTogether(ChangedBy::User, {});
  EXPECT_EQ(told, 4);
  EXPECT_TRUE(workspace.Together().empty());
}

TEST(Workspace, ComparesOnceThereIsAPathToCompareWith) {
  Workspace workspace;
  workspace.Change(ChangedBy::User, [](Settings& settings) { settings.InputFile = "/a.txt"; });
  int told = 0;
  workspace.OnChange([&told](const SettingSet& changed, ChangedBy by) {
    EXPECT_TRUE(changed.none());
    EXPECT_EQ(by, ChangedBy::User);
    ++told;
  });
  workspace.CompareWith(ChangedBy::User, ComparedWith{});
  EXPECT_TRUE(workspace.RequestOfNow().Compared.empty());
  const ComparedWith compared{" /b.txt ", {.Basis = ComparisonBasis::Files}};
  workspace.CompareWith(ChangedBy::User, compared);
  workspace.CompareWith(ChangedBy::User, compared);
  EXPECT_EQ(told, 2) << "the second time nothing changes";
  const RunRequest request = workspace.RequestOfNow();
  EXPECT_EQ(request.Paths, (std::vector<SourcePath>{{"/a.txt", SourcePath::Kind::File}}));
  EXPECT_EQ(request.Compared, (std::vector<SourcePath>{{"/b.txt", SourcePath::Kind::File}}));
  EXPECT_EQ(request.Comparison, compared.How);
  const Workspace::State kept = workspace.Keep();
  workspace.CompareWith(ChangedBy::User, std::nullopt);
  EXPECT_TRUE(workspace.RequestOfNow().Compared.empty());
  workspace.PutBack(ChangedBy::User, kept);
  EXPECT_EQ(workspace.Compared(), compared);
}

TEST(Workspace, AnotherFolderMakesAnEndOfSeveralSources) {
  Workspace workspace;
  workspace.CountTogether(ChangedBy::User, {{"/a.txt", SourcePath::Kind::File}});
  const Workspace::State kept = workspace.Keep();
  workspace.Change(ChangedBy::Program, [](Settings& settings) { settings.Folder = "/u"; });
  EXPECT_TRUE(workspace.Together().empty());
  int told = 0;
  workspace.OnChange([&told](const SettingSet&, ChangedBy) { ++told; });
  workspace.PutBack(ChangedBy::Program, kept);
  EXPECT_EQ(workspace.Together(), kept.Together);
  EXPECT_GE(told, 1);
}

}  // namespace
}  // namespace korv
