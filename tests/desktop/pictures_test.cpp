#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <cmath>

#include "desktop/results/pictures/file_picture.h"
#include "desktop/results/pictures/length_picture.h"
#include "desktop/results/pictures/make_picture.h"
#include "desktop/results/pictures/picture_canvas.h"
#include "desktop/results/pictures/picture_file.h"
#include "desktop/results/pictures/pictures_pane.h"
#include "desktop/results/pictures/place_picture.h"
#include "desktop/results/pictures/rank_picture.h"
#include "desktop/results/pictures/ticks.h"
#include "desktop/toolkit/color_scheme.h"
#include "desktop/widgets/contrast.h"
#include "tests/desktop/view_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::shared_ptr<const CountedRun> CountedRunOf(RunWorld& world) {
  world.Request.Options.KeepPlaces = true;
  world.Request.Rules.IgnoreShortWords = false;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  return std::make_shared<CountedRun>(std::move(world.Run));
}

/// "big cat" 3 times at the beginning, "red dog" 2 times at the end.
std::shared_ptr<const CountedRun> CountedFile() {
  RunWorld world;
  world.UseFile("/a.txt", "big cat. big cat. big cat. red dog. red dog.\n");
  world.UseLengths(2, 3);
  return CountedRunOf(world);
}

std::shared_ptr<const CountedRun> CountedFolder() {
  RunWorld world;
  world.Files.Add("/f/a.txt", "big cat. big cat. red dog.\n");
  world.Files.Add("/f/b.txt", "red dog. red dog. big cat. red dog.\n");
  world.Files.Add("/f/c.txt", "nothing of that\n");
  world.UseFolder("/f");
  world.UseLengths(2, 3);
  return CountedRunOf(world);
}

PhraseIndex Entry(const CountedRun& run, const std::string& text) {
  for (const PhraseIndex i : run.Table.All())
    if (run.Table.Text(i) == text) return i;
  ADD_FAILURE() << text;
  return kNoPhrase;
}

PictureStyle Style(const QPalette& palette) {
  return StyleOf(palette, QApplication::font());
}

/// The pane alone, on faked surroundings.
class PicturesTest : public ViewTest {
 protected:
  PicturesTest() { pane.resize(700, 500); }

  void ShowRun(const std::shared_ptr<const CountedRun>& run) {
    pane.Show(run);
    pane.show();
    UntilMade();
  }
  void UntilMade() { UntilIdle(pane); }
  void ChooseKind(const char* caption) {
    pane.cboPicture->setCurrentText(QString::fromUtf8(caption));
    pane.cboPicture_Click();
    UntilMade();
  }
  std::vector<std::string> Kinds() const {
    std::vector<std::string> kinds;
    for (int i = 0; i < pane.cboPicture->count(); ++i)
      kinds.push_back(pane.cboPicture->itemText(i).toStdString());
    return kinds;
  }
  std::string Description() const { return pane.picCanvas->accessibleDescription().toStdString(); }

  Desktop surroundings = Surroundings();
  PicturesPane pane{surroundings, nullptr};
};

// ---- Colours and ticks

class Colours : public testing::TestWithParam<bool> {};

TEST_P(Colours, StandOutFromTheGround) {
  const PictureStyle style = Style(GetParam() ? DarkPalette() : QPalette(Qt::lightGray));
  for (const QColor& colour : style.Colours)
    EXPECT_GE(ContrastBetween(colour, style.Ground), 3) << colour.name().toStdString();
  EXPECT_GE(ContrastBetween(style.Text, style.Ground), 4.5);
}

/// What is left of a colour for those who do not see red (Vienot, Brettel and Mollon 1999), roughly: the mean
/// of red and green, and blue.
std::array<double, 2> WithoutRedAndGreen(const QColor& colour) {
  return {0.3 * colour.redF() + 0.7 * colour.greenF(), colour.blueF()};
}

TEST_P(Colours, AreToldApartWithoutRedAndGreen) {
  const PictureStyle style = Style(GetParam() ? DarkPalette() : QPalette(Qt::lightGray));
  for (size_t a = 0; a < style.Colours.size(); ++a) {
    for (size_t b = 0; b < a; ++b) {
      const auto one = WithoutRedAndGreen(style.Colours[a]);
      const auto other = WithoutRedAndGreen(style.Colours[b]);
      EXPECT_GT(std::hypot(one[0] - other[0], one[1] - other[1]), 0.1) << a << " and " << b;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Pictures, Colours, testing::Bool());

TEST(PictureTicks, AreRoundAndReachTheMost) {
  EXPECT_THAT(RoundTicks(0, 5), ElementsAre(0, 1));
  EXPECT_THAT(RoundTicks(3, 5), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(RoundTicks(62.5, 5), ElementsAre(0, 20, 40, 60, 80));
  EXPECT_THAT(RoundTicks(100, 5), ElementsAre(0, 20, 40, 60, 80, 100));
  EXPECT_THAT(RoundTicks(101, 2), ElementsAre(0, 100, 200));
  EXPECT_THAT(PowersOfTen(1), ElementsAre(1, 10));
  EXPECT_THAT(PowersOfTen(10), ElementsAre(1, 10));
  EXPECT_THAT(PowersOfTen(11), ElementsAre(1, 10, 100));
}

// ---- What the pane offers and shows

TEST_F(PicturesTest, SayThatNothingWasCounted) {
  ShowRun(nullptr);
  EXPECT_EQ(Description(), "Nothing has been counted yet.");
  EXPECT_FALSE(pane.cmdSavePicture->isEnabled());
}

TEST_F(PicturesTest, SayThatNothingIsListed) {
  world.UseFile("/a.txt", "only these words once\n");
  world.UseLengths(2, 3);
  ShowRun(Counted());
  EXPECT_EQ(Description(), "No phrase is listed.");
  EXPECT_FALSE(pane.cmdSavePicture->isEnabled());
}

TEST_F(PicturesTest, OfOneFileAreThree) {
  ShowRun(CountedFile());
  EXPECT_THAT(Kinds(), ElementsAre("Where phrases stand", "Frequency by rank", "Lengths of phrases"));
}

TEST_F(PicturesTest, OfAFolderAreFour) {
  ShowRun(CountedFolder());
  EXPECT_THAT(Kinds(), ElementsAre("Where phrases stand", "Phrases by file", "Frequency by rank",
                                   "Lengths of phrases"));
}

TEST_F(PicturesTest, AreNamedWithoutACut) {
  ShowRun(CountedFolder());
  for (int i = 0; i < pane.cboPicture->count(); ++i)
    EXPECT_GT(pane.cboPicture->width(), pane.fontMetrics().horizontalAdvance(pane.cboPicture->itemText(i)));
}

TEST_F(PicturesTest, KeepTheKindOfPictureFromRunToRun) {
  ShowRun(CountedFolder());
  ChooseKind("Lengths of phrases");
  ShowRun(CountedFile());
  EXPECT_EQ(pane.cboPicture->currentText(), "Lengths of phrases");
  EXPECT_EQ(pane.picCanvas->accessibleName(), "Lengths of phrases");
}

TEST_F(PicturesTest, ShowWhereTheMostFrequentPhrasesStand) {
  ShowRun(CountedFile());
  EXPECT_EQ(Description(),
            "Bars from the first word to the last. \u201cbig cat\u201d, 3 times, stands in 3 of 100 parts. "
            "\u201cred dog\u201d, 2 times, stands in 2 of 100 parts.");
}

TEST_F(PicturesTest, ShowWhereTheSelectedPhrasesStand) {
  const auto run = CountedFile();
  ShowRun(run);
  pane.ShowPhrases({Entry(*run, "red dog")}, 1);
  UntilMade();
  EXPECT_EQ(Description(),
            "Bars from the first word to the last. \u201cred dog\u201d, 2 times, stands in 2 of 100 parts.");
}

TEST_F(PicturesTest, ShowFilesByTheOccurrencesThatTheyHold) {
  ShowRun(CountedFolder());
  ChooseKind("Phrases by file");
  EXPECT_EQ(Description(), "Bars, by file: b.txt 4; a.txt 3.");
}

TEST_F(PicturesTest, ShowFrequencyByRank) {
  ShowRun(CountedFile());
  ChooseKind("Frequency by rank");
  EXPECT_EQ(Description(),
            "A falling line: the most frequent of 2 phrases occurs 3 times, the least frequent 2 times.");
}

TEST_F(PicturesTest, ShowLengths) {
  world.UseFile("/a.txt", "a big cat. a big cat. big cat.\n");
  world.UseLengths(2, 3);
  ShowRun(Counted());
  ChooseKind("Lengths of phrases");
  EXPECT_EQ(Description(),
            "Bars, in percent of phrases and of occurrences: 2 words 50.0 and 60.0; 3 words 50.0 and 40.0.");
}

TEST_F(PicturesTest, SayHowManyOfTheSelectedPhrasesAreShown) {
  std::string text;
  for (const char* word : {"a", "b", "c", "d", "e", "f", "g"}) text += std::string(word) + " word. ";
  world.UseFile("/a.txt", text + text);
  world.UseLengths(2, 2);
  const auto run = Counted();
  ShowRun(run);
  EXPECT_TRUE(pane.lblPictureNotice->isHidden());
  std::vector<PhraseIndex> all;
  for (const PhraseIndex i : run->Table.All())
    if (all.size() < kMostPicturedPhrases) all.push_back(i);
  pane.ShowPhrases(all, 7);
  UntilMade();
  EXPECT_EQ(pane.lblPictureNotice->text(), "The first 6 of 7 selected phrases are shown.");
  EXPECT_FALSE(pane.lblPictureNotice->isHidden());
  ChooseKind("Lengths of phrases");
  EXPECT_TRUE(pane.lblPictureNotice->isHidden());
}

TEST_F(PicturesTest, AreNotMadeOutOfSight) {
  pane.Show(CountedFile());
  EXPECT_TRUE(pane.Idle());
  EXPECT_EQ(pane.picCanvas->Shown(), nullptr);
  pane.show();
  UntilMade();
  EXPECT_NE(pane.picCanvas->Shown(), nullptr);
}

// ---- Drawing: what is to be seen where

QImage Drawn(const Picture& picture, const PictureStyle& style, int width = 600) {
  QImage image(width, static_cast<int>(WholeHeight(picture, width, style)), QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setFont(style.Font);
  PaintWhole(picture, painter, image.rect(), style);
  return image;
}

/// The columns of dots in which a colour occurs: the first and the last one; -1 for none.
std::array<int, 2> SpanOf(const QImage& image, const QColor& colour) {
  std::array<int, 2> span = {-1, -1};
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixelColor(x, y) != colour) continue;
      if (span[0] < 0) span[0] = x;
      span[1] = x;
      break;
    }
  }
  return span;
}

int DotsOf(const QImage& image, const QColor& colour) {
  int dots = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) dots += image.pixelColor(x, y) == colour ? 1 : 0;
  return dots;
}

TEST_F(PicturesTest, DrawAPhraseWhereItStands) {
  std::vector<uint32_t> early(100);
  std::vector<uint32_t> late(100);
  early[0] = early[10] = 1;
  late[99] = 3;
  const PictureStyle style = Style(QPalette(Qt::lightGray));
  const QImage image = Drawn(
      PlacePicture({{QStringLiteral("early"), 2, early}, {QStringLiteral("late"), 3, late}}, {0.5}, 1000, {}),
      style);
  const auto first = SpanOf(image, style.ColourOf(0));
  const auto second = SpanOf(image, style.ColourOf(1));
  ASSERT_GE(first[0], 0);
  EXPECT_LT(first[1] - first[0], 100);
  EXPECT_GT(second[0], first[0] + 400);
}

TEST_F(PicturesTest, DrawBarsOfFilesByTheirOccurrences) {
  const PictureStyle style = Style(QPalette(Qt::lightGray));
  const QImage image =
      Drawn(FilePicture({QStringLiteral("one"), QStringLiteral("other")},
                        {{QStringLiteral("a.txt"), {30, 10}}, {QStringLiteral("b.txt"), {0, 10}}}, 2, {}),
            style);
  const int one = DotsOf(image, style.ColourOf(0));
  const int other = DotsOf(image, style.ColourOf(1));
  EXPECT_NEAR(static_cast<double>(one) / other, 1.5, 0.1);
}

TEST_F(PicturesTest, DrawTheLineOfRanksFromLeftToRight) {
  const PictureStyle style = Style(QPalette(Qt::lightGray));
  const QImage image = Drawn(RankPicture({{1000, 1}, {10, 9}, {2, 990}}, {}), style);
  const auto span = SpanOf(image, style.ColourOf(0));
  ASSERT_GE(span[0], 0);
  EXPECT_GT(span[1] - span[0], 400);
}

TEST_F(PicturesTest, DrawBarsOfLengthsByTheirShares) {
  ListProfile profile;
  profile.Lengths[2] = {3, 10};
  profile.Lengths[4] = {1, 10};
  const PictureStyle style = Style(QPalette(Qt::lightGray));
  const QImage image = Drawn(LengthPicture(profile, {}), style);
  // Both colours fill 100 percent.
  EXPECT_NEAR(static_cast<double>(DotsOf(image, style.ColourOf(0))) / DotsOf(image, style.ColourOf(1)), 1,
              0.06);
}

// ---- Saving

#ifdef KORV_SVG
constexpr const char* kUsualForm = ".svg";
constexpr const char* kPatterns = "*.svg *.png";

TEST_F(PicturesTest, AreSavedAsSvgWithTitleAndDescription) {
  ShowRun(CountedFile());
  around.Dialogs.WillChoose("/p.svg");
  pane.cmdSavePicture_Click();
  const std::string svg = world.Files.Content("/p.svg").value_or("");
  EXPECT_THAT(svg, StartsWith("<?xml"));
  EXPECT_THAT(svg, HasSubstr("<title>Where phrases stand</title>"));
  EXPECT_THAT(svg, HasSubstr("stands in 3 of 100 parts"));
  EXPECT_THAT(svg, HasSubstr("big cat"));
  EXPECT_THAT(world.Messages.Shown, testing::IsEmpty());
}

#else
constexpr const char* kUsualForm = ".png";
constexpr const char* kPatterns = "*.png";

TEST_F(PicturesTest, AreNotSavedAsSvgByABuildWithoutIt) {
  ShowRun(CountedFile());
  around.Dialogs.WillChoose("/p.SVG");
  pane.cmdSavePicture_Click();
  EXPECT_EQ(world.Files.Content("/p.SVG"), std::nullopt);
  EXPECT_EQ(world.Messages.Only().Title, "Save picture");
  EXPECT_THAT(world.Messages.Only().Text, StartsWith("The picture cannot be saved as "));
  EXPECT_THAT(world.Messages.Only().Text, HasSubstr("This copy of Korv saves pictures as PNG only."));
}
#endif

TEST_F(PicturesTest, AreSavedAsPngWithTwiceTheDots) {
  ShowRun(CountedFile());
  around.Dialogs.WillChoose("/p.PNG");
  pane.cmdSavePicture_Click();
  QImage image;
  ASSERT_TRUE(
      image.loadFromData(QByteArray::fromStdString(world.Files.Content("/p.PNG").value_or("")), "PNG"));
  EXPECT_EQ(image.size(), pane.picCanvas->size() * 2);
  EXPECT_EQ(image.text(QStringLiteral("Title")), "Where phrases stand");
}

TEST_F(PicturesTest, AreOfferedUnderTheirTitle) {
  ShowRun(CountedFile());
  pane.cmdSavePicture_Click();
  ASSERT_EQ(around.Dialogs.Saved.size(), 1u);
  EXPECT_EQ(around.Dialogs.Saved[0].Title, "Save picture");
  EXPECT_EQ(around.Dialogs.Saved[0].InitialPath, std::string("Where phrases stand") + kUsualForm);
  EXPECT_EQ(around.Dialogs.Saved[0].Filter, std::string("Pictures (") + kPatterns + ") | " + kPatterns);
  EXPECT_TRUE(around.Dialogs.Saved[0].AsksBeforeReplacing);
}

TEST_F(PicturesTest, TellWhenTheyCannotBeSaved) {
  ShowRun(CountedFile());
  around.Dialogs.WillChoose("/no such folder/p.png");
  pane.cmdSavePicture_Click();
  EXPECT_EQ(world.Messages.Only().Title, "Save picture");
  EXPECT_THAT(world.Messages.Only().Text, StartsWith("The picture cannot be saved as "));
}

}  // namespace
}  // namespace korv
