// Runs in another language than the one in which they are shown.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/run/result_notes.h"
#include "app/settings/schema.h"
#include "base/translation.h"
#include "report/summary.h"
#include "tests/app/kept_world.h"

namespace korv {
namespace {

using testing::HasSubstr;

KeptChoice Choice(const Settings& settings) {
  Workspace work(settings);
  return {.Chosen = work.Keep()};
}

TEST(Translated, RunsThatWereKeptBeforeAreShownInTheLanguageOfNow) {
  KeptWorld world;
  world.World.Files.Add("/t/a.txt", "The big cat ran away from the big cat.");
  world.World.Files.Add("/t/empty.txt", "");
  Settings settings;
  settings.SourceKind = TextSource::Folder;
  settings.Folder = "/t";
  ASSERT_TRUE(world.Count(Choice(settings)));
  ASSERT_TRUE(world.Keep());
  UseTranslations(KORV_PSEUDO_LOCALE);
  ASSERT_FALSE(world.Open());
  const RunSummary& facts = world.Opened.Run.Facts;
  EXPECT_EQ(facts.SkippedFiles.at(0).Reason, "is zero-length");
  EXPECT_EQ(SkippedFilesText(facts), "⟦1 file was skipped:⟧\n{Folder}/empty.txt: ⟦is zero-length⟧\n");
}

TEST(Translated, RunsAreKeptWithoutALanguage) {
  UseTranslations(KORV_PSEUDO_LOCALE);
  KeptWorld world;
  world.World.Files.Add("/t/a.txt", "The big café ran away from the big café.");
  Settings settings;
  settings.InputFile = "/t/a.txt";
  ASSERT_TRUE(world.Count(Choice(settings)));
  ASSERT_TRUE(world.Keep());
  EXPECT_EQ(world.Kept().find("⟦"), std::string::npos);
  ASSERT_FALSE(world.Open());
  EXPECT_EQ(world.Opened.Run.FileKind, "This is a UTF-8 text file.");
  EXPECT_EQ(LabelsOf(world.Opened, {}).TotalNumOccurrences, "⟦This is a UTF-8 text file.⟧");
}

TEST(Translated, NotesAreWholeSentences) {
  UseTranslations(KORV_PSEUDO_LOCALE);
  KeptWorld world;
  world.World.Files.Add("/t/a.txt", "%1 cats and %2 cats and %1 cats and dogs.");
  Settings settings;
  settings.InputFile = "/t/a.txt";
  ASSERT_TRUE(world.Count(Choice(settings)));
  world.Result.InSight = true;
  world.Result.Listing.Options.FilterActive = true;
  world.Result.Listing.Options.FilterText = "%2";
  world.Result.Listing.List.Phrases = 1;
  world.Result.Listing.List.Unfiltered = 2;
  const std::vector<ResultNote> notes = NotesOf(world.Result, {}, {});
  EXPECT_EQ(notes.at(0).Text, "⟦Phrases of a.txt⟧");
  EXPECT_THAT(notes,
              testing::Contains(testing::Field(
                  &ResultNote::Text, "⟦Still filtered by \"%2\" (⟦all words⟧): ⟦1 of 2 phrases matches.⟧⟧")));
  EXPECT_STREQ(CaptionOf(NoteAction::CountAgain), "⟦Count again⟧");
}

TEST(Translated, HelpOfSettingsIsInTheirRows) {
  UseTranslations(KORV_PSEUDO_LOCALE);
  for (const SettingRow& row : Schema()) {
    if (row.Option.Help == nullptr) continue;
    EXPECT_EQ(Tr(row.Option.Help), "⟦" + std::string(row.Option.Help) + "⟧");
  }
  EXPECT_STREQ(TitleOf(OptionGroup::Sources), "⟦Sources⟧");
}

}  // namespace
}  // namespace korv
