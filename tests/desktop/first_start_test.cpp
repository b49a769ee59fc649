// What a newcomer sees, and the icons.

#include <QFile>
#include <QImage>
#include <QMenu>
#include <QPushButton>

#include "desktop/toolkit/scheme_switch.h"
#include "desktop/widgets/icons.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class FirstStart : public WindowTest {
 protected:
  void StartWithSample() {
    WriteFile("program/sample.txt", "The white whale swam away. The white whale swam away.\n");
    programFolder = PathFromText(PathOf("program"));
    ASSERT_TRUE(Start());
  }
};

TEST_F(FirstStart, ShowsThreeStepsAndASample) {
  StartWithSample();
  const std::string steps = Find<QPlainTextEdit>("txbOutput")->placeholderText().toStdString();
  for (const char* step : {"1.  ", "2.  ", "3.  "}) EXPECT_THAT(steps, HasSubstr(step));
  const auto* box = Find<QPlainTextEdit>("txbOutput");
  const auto* button = Find<QPushButton>("cmdTrySample");
  EXPECT_TRUE(button->isVisible());
  EXPECT_GE(button->y(), (steps.empty() ? 0 : 8) * box->fontMetrics().lineSpacing());
}

TEST_F(FirstStart, CountsTheSampleWithOneClickAndNoQuestion) {
  StartWithSample();
  Click("cmdTrySample");
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("program/sample.txt"));
  EXPECT_THAT(Shown(), IsEmpty());
  // Who has counted once knows how.
  EXPECT_FALSE(Shown("cmdTrySample"));
  Click("cmdClearOutput");
  EXPECT_FALSE(Shown("cmdTrySample"));
}

TEST_F(FirstStart, HidesTheSampleBehindAnythingElseInTheBox) {
  StartWithSample();
  Click("optFolder");
  Type("txbFolder", PathOf("program"));
  Click("cmdListFiles");
  EXPECT_FALSE(Output().empty());
  EXPECT_FALSE(Shown("cmdTrySample"));
  Click("cmdClearOutput");
  EXPECT_TRUE(Shown("cmdTrySample"));
}

TEST_F(FirstStart, LeavesNoRoomForFiguresThatAreNotThereYet) {
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Shown("lblNumberOfWords"));
  UseFile("The white whale swam away. The white whale swam away.\n");
  Count();
  EXPECT_TRUE(Shown("lblNumberOfWords"));
  Click("cmdClearOutput");
  EXPECT_FALSE(Shown("lblNumberOfWords"));
}

TEST_F(FirstStart, OffersNoSampleWhereThereIsNone) {
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Shown("cmdTrySample"));
}

// ---- Icons

QColor MeanOf(const QIcon& icon) {
  const QImage image = icon.pixmap(32, 32).toImage();
  int seen = 0;
  int lightness = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor colour = image.pixelColor(x, y);
      if (colour.alpha() < 200) continue;
      ++seen;
      lightness += colour.lightness();
    }
  }
  EXPECT_GT(seen, 20);
  const int mean = seen == 0 ? 0 : lightness / seen;
  return {mean, mean, mean};
}

TEST_F(FirstStart, HasIconsThatAreSeenInLightAndDarkPalettes) {
  const QIcon icon = DrawnIcon("document-open");
  SchemeSwitch scheme;
  const int light = MeanOf(icon).lightness();
  scheme.Turn(true);
  const int dark = MeanOf(icon).lightness();
  scheme.Turn(false);
  EXPECT_LT(light, 80);
  EXPECT_GT(dark, 150);
}

/// How much of the icon is covered, from 0 to 1.
double InkOf(const QIcon& icon, int size) {
  const QImage image = icon.pixmap(size, size).toImage();
  EXPECT_EQ(image.size(), QSize(size, size));
  double ink = 0;
  for (int y = 0; y < size; ++y)
    for (int x = 0; x < size; ++x) ink += image.pixelColor(x, y).alphaF();
  return ink / (size * size);
}

TEST_F(FirstStart, HasIconsThatAreAsStrongInEverySize) {
  for (const char* name : {"document-open", "media-playback-start", "preferences-system", "window-close"}) {
    const QIcon icon = DrawnIcon(name);
    const double strength = InkOf(icon, 64);
    EXPECT_GT(strength, 0.05) << name;
    for (const int size : {16, 20, 24, 32, 48})
      EXPECT_NEAR(InkOf(icon, size), strength, 0.01) << name << " of " << size;
  }
}

TEST_F(FirstStart, HasAnIconForEveryNameThatItUses) {
  ASSERT_TRUE(Start());
  int icons = 0;
  for (const QMenu* menu : main->findChildren<QMenu*>()) {
    for (const QAction* action : menu->actions()) {
      if (!action->icon().isNull()) ++icons;
    }
  }
  EXPECT_GE(icons, 19);
  for (const char* button : {"cmdCountPhrases", "cmdFile_0", "cmdFolder", "cmdFile_1"})
    EXPECT_FALSE(Find<QPushButton>(button)->icon().isNull()) << button;
  EXPECT_TRUE(DrawnIcon("no-such-icon").isNull());
}

}  // namespace
}  // namespace korv
