// The picture of a run that compares: each phrase a point by log ratio and G2.

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <array>
#include <cmath>

#include "desktop/results/pictures/key_points.h"
#include "desktop/results/pictures/picture_canvas.h"
#include "desktop/results/pictures/pictures_pane.h"
#include "desktop/results/pictures/sides_picture.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/toolkit/color_scheme.h"
#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "tests/desktop/compared_run.h"
#include "tests/desktop/view_test.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kCaption = "Log ratio and G2";
constexpr const char* kHowToPick = "Click a point, or press Left or Right in the picture, to see its phrase.";

class PicturesOfSides : public ViewTest {
 protected:
  PicturesOfSides() {
    world.UseLengths(2, 2, 1);
    run = CompareIn(world, {Lines({{"old cheese", 8}, {"red wine", 2}}), Lines({{"old cheese", 1}})},
                    {Lines({{"white wine", 6}, {"red wine", 4}, {"old cheese", 1}})});
    pane.resize(700, 600);
  }

  void ShowRun(const std::shared_ptr<const CountedRun>& shown) {
    pane.Show(shown);
    pane.show();
    pane.cboPicture->setCurrentText(QString::fromUtf8(kCaption));
    pane.cboPicture_Click();
    UntilIdle(pane);
  }
  std::vector<std::string> Kinds() const {
    std::vector<std::string> kinds;
    for (int i = 0; i < pane.cboPicture->count(); ++i)
      kinds.push_back(pane.cboPicture->itemText(i).toStdString());
    return kinds;
  }
  void Press(Qt::Key key) const { QTest::keyClick(pane.picCanvas, key); }
  std::string Said() const { return pane.lblPictureNotice->text().toStdString(); }
  /// The middle of the ring: the dots that changed since `before`.
  QPoint ChangedSince(const QImage& before) const {
    const QImage after = pane.picCanvas->grab().toImage();
    QRect changed;
    for (int y = 0; y < after.height(); ++y)
      for (int x = 0; x < after.width(); ++x)
        if (after.pixel(x, y) != before.pixel(x, y)) changed |= QRect(x, y, 1, 1);
    return changed.center();
  }

  Desktop surroundings = Surroundings();
  PicturesPane pane{surroundings, nullptr};
  std::shared_ptr<const CountedRun> run;
  NoYielder yielder;
};

TEST_F(PicturesOfSides, AreOfferedForRunsThatCompareOnly) {
  ShowRun(run);
  EXPECT_THAT(Kinds(), Contains(kCaption));
  EXPECT_EQ(pane.picCanvas->accessibleName(), kCaption);
  world.Request.Compared.clear();
  world.Request.Paths.clear();
  world.UseFolder("/a");
  ShowRun(Counted());
  EXPECT_THAT(Kinds(), Not(Contains(kCaption)));
}

TEST_F(PicturesOfSides, HaveTheValuesOfTheColumns) {
  for (const auto basis : {ComparisonBasis::Words, ComparisonBasis::Files, ComparisonBasis::Net}) {
    PhraseAnalysis analysis(run->Table, {}, basis);
    ASSERT_TRUE(analysis.Prepare({.Sides = true}, yielder));
    ColumnSource source{run->Table, run->Facts};
    source.Analysis = &analysis;
    const auto value = [&](const char* column, PhraseIndex i) {
      return ColumnKeys(*FindColumn(column), source).Of(i);
    };
    const auto found = FindKeyPoints(*run, basis, yielder);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Listed, 3u);
    ASSERT_EQ(found->Points.size(), 3u);
    double before = -INFINITY;
    for (const KeyPoint& point : found->Points) {
      EXPECT_EQ(point.Text, run->Table.Text(point.Phrase));
      EXPECT_EQ(point.LogRatio, value("log_ratio", point.Phrase));
      EXPECT_EQ(point.G2, value("g2", point.Phrase));
      EXPECT_EQ(point.A, value("frequency_a", point.Phrase));
      EXPECT_EQ(point.B, value("frequency_b", point.Phrase));
      EXPECT_LE(before, point.LogRatio);
      before = point.LogRatio;
    }
  }
}

TEST_F(PicturesOfSides, AreOfThePhrasesWithTheLargestG2) {
  const auto all = FindKeyPoints(*run, ComparisonBasis::Words, yielder);
  ASSERT_TRUE(all);
  for (size_t most = 0; most <= 4; ++most) {
    const auto some = FindKeyPoints(*run, ComparisonBasis::Words, yielder, most);
    ASSERT_TRUE(some);
    EXPECT_EQ(some->Listed, 3u);
    ASSERT_EQ(some->Points.size(), std::min<size_t>(most, 3));
    double least = INFINITY;
    for (const KeyPoint& point : some->Points) least = std::min(least, std::abs(point.G2));
    size_t larger = 0;
    for (const KeyPoint& point : all->Points) larger += std::abs(point.G2) >= least ? 1 : 0;
    EXPECT_EQ(larger, some->Points.size());
  }
}

TEST_F(PicturesOfSides, SayHowManyPhrasesTheyShow) {
  ShowRun(run);
  EXPECT_EQ(pane.picCanvas->accessibleDescription().toStdString(),
            "Points, the log ratio across and |G2| up: 3 of 3 phrases, those with the largest |G2|. More "
            "frequent in A: 1, in B: 2.");
}

TEST_F(PicturesOfSides, GoThroughTheirPointsByLogRatio) {
  ShowRun(run);
  std::vector<std::string> picked;
  pane.PhrasePicked = [&](PhraseIndex phrase) {
    picked.push_back(run->Table.Text(phrase));
    return true;
  };
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left,
                            Qt::Key_Home, Qt::Key_Left, Qt::Key_End})
    Press(key);
  EXPECT_THAT(picked, ElementsAre("white wine", "red wine", "old cheese", "old cheese", "red wine",
                                  "white wine", "white wine", "old cheese"));
}

TEST_F(PicturesOfSides, SayTheNumbersOfThePointThatIsPicked) {
  ShowRun(run);
  EXPECT_EQ(Said(), kHowToPick);
  const QRect before = pane.picCanvas->geometry();
  Press(Qt::Key_End);
  // A has 22 words, B as many: log2(9 / 1), and 2 * (9 ln(9 / 5) + ln(1 / 5) + 13 ln(13 / 17) + 21 ln(21 /
  // 17)).
  EXPECT_EQ(Said(), "\u201cold cheese\u201d: a 9, b 1, log ratio 3.17, G2 9.26");
  EXPECT_EQ(pane.picCanvas->accessibleDescription().toStdString(), Said());
  EXPECT_EQ(pane.picCanvas->geometry(), before) << "nothing moves under the mouse";
}

TEST_F(PicturesOfSides, PickNothingInOthers) {
  ShowRun(run);
  EXPECT_EQ(pane.picCanvas->focusPolicy(), Qt::StrongFocus);
  Press(Qt::Key_Home);
  pane.cboPicture->setCurrentIndex(0);
  pane.cboPicture_Click();
  UntilIdle(pane);
  EXPECT_EQ(Said(), "");
  EXPECT_EQ(pane.picCanvas->focusPolicy(), Qt::NoFocus);
  Press(Qt::Key_Home);
  QTest::mouseClick(pane.picCanvas, Qt::LeftButton);
  EXPECT_EQ(Said(), "");
}

TEST_F(PicturesOfSides, ArePickedByAClickNearAPoint) {
  ShowRun(run);
  const QImage before = pane.picCanvas->grab().toImage();
  Press(Qt::Key_End);
  const QPoint point = ChangedSince(before);
  const std::string said = Said();
  EXPECT_GT(point.x(), pane.picCanvas->width() / 2);
  Press(Qt::Key_Home);
  EXPECT_NE(Said(), said);
  QTest::mouseClick(pane.picCanvas, Qt::LeftButton, {}, point + QPoint(0, 10));
  EXPECT_NE(Said(), said) << "more than 8 pixels away";
  QTest::mouseClick(pane.picCanvas, Qt::RightButton, {}, point);
  EXPECT_NE(Said(), said);
  QTest::mouseClick(pane.picCanvas, Qt::LeftButton, {}, point + QPoint(0, 6));
  EXPECT_EQ(Said(), said);
}

TEST_F(PicturesOfSides, FollowWhatIsCompared) {
  ShowRun(run);
  Press(Qt::Key_End);
  EXPECT_THAT(Said(), HasSubstr("log ratio 3.17"));
  pane.CompareBy(ComparisonBasis::Files);
  UntilIdle(pane);
  EXPECT_EQ(Said(), kHowToPick);
  Press(Qt::Key_End);
  // Both files of A, and that of B.
  EXPECT_THAT(Said(), HasSubstr("a 9, b 1, log ratio 0.00"));
}

KeyPoint Point(double logRatio, double g2) {
  return {PhraseIndex{1}, "a b", 1, 1, logRatio, g2};
}

TEST_F(PicturesOfSides, TellSidesApartByColourAndShape) {
  for (const bool dark : {false, true}) {
    const PictureStyle style = StyleOf(dark ? DarkPalette() : QPalette(Qt::lightGray), QApplication::font());
    const SidesPicture picture({{Point(-2, -50), Point(0, 0), Point(1, 0.5), Point(2, 50)}, 4}, {});
    QImage image(600, static_cast<int>(WholeHeight(picture, 600, style)), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(style.Font);
    PaintWhole(picture, painter, image.rect(), style);
    painter.end();
    const QRectF area = AreaBelowTitle(image.rect(), style);
    // Where each is: the middle of the dots where it can be picked.
    std::array<QPointF, 4> places;
    std::array<int, 4> dots = {};
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (const auto point = picture.PointAt(QPointF(x + 0.5, y + 0.5), 2, area, style)) {
          places[*point] += QPointF(x, y);
          ++dots[*point];
        }
    for (size_t k = 0; k < 4; ++k) places[k] /= dots[k];
    const auto colour = [&](size_t point, int dx, int dy) {
      return image.pixelColor(places[point].toPoint() + QPoint(dx, dy));
    };
    EXPECT_EQ(colour(0, 0, 0), style.ColourOf(1));
    EXPECT_NE(colour(0, -2, -2), style.ColourOf(1)) << "a triangle is narrow above";
    EXPECT_EQ(colour(0, -2, 2), style.ColourOf(1));
    EXPECT_EQ(colour(3, 0, 0), style.ColourOf(0));
    EXPECT_EQ(colour(3, -1, -2), colour(3, 1, -2)) << "a dot is not";
    EXPECT_EQ(colour(3, 0, -2), style.ColourOf(0));
    EXPECT_EQ(colour(3, -2, 0), style.ColourOf(0));
    EXPECT_NEAR(places[0].x() + places[3].x(), 2 * places[1].x(), 3) << "0 is in the middle";
    EXPECT_NEAR(places[1].y(), places[2].y(), 2) << "below 1 all stand at the bottom";
    EXPECT_NEAR(places[0].y(), places[3].y(), 2);
    EXPECT_LT(places[0].y(), places[1].y() - 50);
  }
}

#ifdef KORV_SVG
TEST_F(PicturesOfSides, AreSavedAsSvgWithTheirPoints) {
  ShowRun(run);
  around.Dialogs.WillChoose("/p.svg");
  pane.cmdSavePicture_Click();
  const std::string svg = world.Files.Content("/p.svg").value_or("");
  EXPECT_THAT(svg, HasSubstr("<title>Log ratio and G2</title>"));
  EXPECT_THAT(svg, HasSubstr("3 of 3 phrases"));
  // One of A and two of B, and the marks of their names.
  EXPECT_EQ(QString::fromStdString(svg).count(QLatin1String("<circle")), 2);
  EXPECT_EQ(QString::fromStdString(svg).count(QLatin1String("<path")), 3);
}
#endif

TEST_F(PicturesOfSides, AreSavedAsPng) {
  ShowRun(run);
  around.Dialogs.WillChoose("/p.png");
  pane.cmdSavePicture_Click();
  QImage image;
  ASSERT_TRUE(
      image.loadFromData(QByteArray::fromStdString(world.Files.Content("/p.png").value_or("")), "PNG"));
  EXPECT_EQ(image.text(QStringLiteral("Title")), kCaption);
}

class PicturesOfSidesInTheWindow : public WindowTest {};

TEST_F(PicturesOfSidesInTheWindow, SelectThePickedPhraseInTheTable) {
  View = RunView::Table;
  ASSERT_TRUE(Start());
  CountCompared(Lines({{"The white whale swam", 30}}), Lines({{"The old man wept", 30}}));
  ResultFrame& frame = *main->Panels().Frame;
  const auto untilShown = [&] {
    UntilIdle();
    while (!frame.Table->Idle() || !frame.Pictures->Idle())
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  };
  untilShown();
  frame.ShowView(RunView::Pictures);
  Find<QComboBox>("cboPicture")->setCurrentText(QString::fromUtf8(kCaption));
  frame.Pictures->cboPicture_Click();
  untilShown();
  const auto* picture = frame.Pictures->picCanvas->Shown()->WithPoints();
  ASSERT_NE(picture, nullptr);
  QTest::keyClick(frame.Pictures->picCanvas, Qt::Key_End);
  EXPECT_EQ(frame.Table->CurrentPhrase(), picture->PhraseOf(picture->PointCount() - 1));
  EXPECT_EQ(frame.Pictures->lblPictureNotice->text(), picture->TextOf(picture->PointCount() - 1));
  // The table shows what is typical of A.
  QTest::keyClick(frame.Pictures->picCanvas, Qt::Key_Home);
  EXPECT_EQ(frame.Pictures->lblPictureNotice->text().toStdString(),
            picture->TextOf(0).toStdString() + " \u2013 not in the table as it is");
}

}  // namespace
}  // namespace korv
