// What presets make of the table.

#include "desktop/results/table/presets.h"

#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

TEST(LeastFrequency, IsARateRoundedUpButAtLeastTwo) {
  EXPECT_EQ(LeastFrequency(10, 1'000'000), 10);
  EXPECT_EQ(LeastFrequency(10, 1'000'001), 11);
  EXPECT_EQ(LeastFrequency(40, 250'000), 10);
  EXPECT_EQ(LeastFrequency(10, 100'000), 2);
  EXPECT_EQ(LeastFrequency(5, 0), 2);
}

class TablePresets : public TableTest {
 protected:
  /// `files` files with so many words each, of which phrases are but a few.
  static std::shared_ptr<const CountedRun> Folder(int files, uint64_t words) {
    ReportWorld world;
    world.Facts.Options.SourceKind = TextSource::Folder;
    world.Facts.Options.KeepPlaces = true;
    world.Facts.Options.MinWords = 4;
    world.Facts.Options.MaxWords = 4;
    for (int file = 0; file < files; ++file) {
      world.BeginFile(std::to_string(file) + ".txt");
      world.Say("on the other hand", 3);
      if (file < 4) world.Say("a b c d", 9);
    }
    world.Facts.Words.Taken = words;
    return RunOf(std::move(world));
  }
};

TEST_F(TablePresets, OfBundlesAskForRatesAndFiles) {
  Show(Folder(6, 400'000));
  ChooseFrom("cmdPresets", "mnuPreset_bundles2004");
  EXPECT_THAT(Phrases(), ElementsAre("on the other hand"));
  EXPECT_EQ(Find<QLineEdit>("txbLeast_frequency")->text(), "16");
  EXPECT_EQ(Find<QLineEdit>("txbLeast_words")->text(), "4");
  EXPECT_EQ(Find<QLineEdit>("txbMost_words")->text(), "4");
  EXPECT_EQ(Find<QLineEdit>("txbLeast_files")->text(), "5");
  EXPECT_TRUE(Find<QWidget>("fraLimits")->isVisible());
  EXPECT_FALSE(Find<QLabel>("lblPresetNote")->isVisible());
}

TEST_F(TablePresets, OfHylandAskForATenthOfTheFiles) {
  Show(Folder(30, 400'000));
  ChooseFrom("cmdPresets", "mnuPreset_bundlesHyland");
  EXPECT_EQ(Find<QLineEdit>("txbLeast_files")->text(), "3");
  EXPECT_EQ(Find<QLineEdit>("txbLeast_frequency")->text(), "8");
  EXPECT_THAT(Phrases(), SizeIs(2));
}

TEST_F(TablePresets, OfBundlesWarnInShortTexts) {
  Show(Folder(6, 150'000));
  ChooseFrom("cmdPresets", "mnuPreset_bundles1999");
  EXPECT_THAT(TextOf("lblPresetNote"), HasSubstr("fewer than 200,000 words"));
}

TEST_F(TablePresets, OfBundlesInOneFileAskForNoFiles) {
  Show(RunOf({{"on the other hand", 3}}));
  ChooseFrom("cmdPresets", "mnuPreset_bundles2004");
  EXPECT_THAT(TextOf("lblPresetNote"), HasSubstr("The text is one file"));
  EXPECT_EQ(Find<QLineEdit>("txbLeast_files")->text(), "");
}

TEST_F(TablePresets, OfBundlesOfferToCountShortWords) {
  ReportWorld world;
  world.Say("on the other hand", 3);
  world.Facts.MinCharacters = 3;
  world.Facts.Words.DroppedBy[static_cast<size_t>(DropReason::Short)] = 5;
  Open();
  int counted = 0;
  panel->CountWithShortWords = [&] { ++counted; };
  Show(RunOf(std::move(world)));
  ChooseFrom("cmdPresets", "mnuPreset_bundles2004");
  EXPECT_THAT(TextOf("lblPresetNote"), HasSubstr("Words of fewer than 3 letters were left out"));
  ASSERT_TRUE(Find<QWidget>("cmdCountShortWords")->isVisible());
  Click("cmdCountShortWords");
  EXPECT_EQ(counted, 1);
}

TEST_F(TablePresets, OfPetPhrasesShowThoseThatStandAlone) {
  Show(RunOf({{"the white whale", 5}, {"white whale", 2}, {"whale oil", 4}}));
  ChooseFrom("cmdPresets", "mnuPreset_petPhrases");
  EXPECT_THAT(Phrases(), ElementsAre("the white whale", "whale oil"));
  EXPECT_EQ(Grid().horizontalHeader()->sortIndicatorSection(), Section("Alone"));
}

TEST_F(TablePresets, AreTakenBackByAllPhrases) {
  Show(Folder(6, 150'000));
  Type("txbMatch", "hand");
  ChooseFrom("cmdPresets", "mnuPreset_petPhrases");
  ChooseFrom("cmdPresets", "mnuPreset_allPhrases");
  EXPECT_THAT(Phrases(), SizeIs(2));
  EXPECT_FALSE(Find<QLabel>("lblPresetNote")->isVisible());
  EXPECT_FALSE(Find<QWidget>("fraLimits")->isVisible());
  EXPECT_EQ(Grid().horizontalHeader()->sortIndicatorSection(), Section("Rank"));
}

TEST_F(TablePresets, KeepTheColumnsOfTheUser) {
  Show(Folder(6, 150'000));
  ChooseFrom("cmdColumns", "mnuColumn_net_frequency");
  ASSERT_THAT(Headings(), Not(Contains("Alone")));
  ChooseFrom("cmdPresets", "mnuPreset_petPhrases");
  EXPECT_THAT(Headings(), Contains("Alone"));
  ChooseFrom("cmdPresets", "mnuPreset_allPhrases");
  EXPECT_THAT(Headings(), Not(Contains("Alone")));
}

}  // namespace
}  // namespace korv
