// Where the controls of the table stand, and what they tell those who cannot see them.

#include <QStyle>
#include <QToolButton>

#include "desktop/results/table/limits_bar.h"
#include "tests/desktop/geometry.h"
#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::IsEmpty;

/// With a font of so many percent of the usual size.
class TableGeometry : public TableTest, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    QFont font = plain_;
    font.setPointSizeF(font.pointSizeF() * GetParam() / 100);
    QApplication::setFont(font);
    Open();
  }
  void TearDown() override {
    panel.reset();
    QApplication::setFont(plain_);
  }
  void ExpectAllIsWell(const char* state) const {
    EXPECT_THAT(GeometryFaultsInEverySize(*panel), IsEmpty()) << state;
  }

 private:
  const QFont plain_ = QApplication::font();
};
INSTANTIATE_TEST_SUITE_P(AtFontsOfPercent, TableGeometry, testing::Values(100, 200),
                         testing::PrintToStringParamName());

TEST_P(TableGeometry, IsWellInEveryState) {
  ExpectAllIsWell("nothing");
  Show(RunOf({{"the white whale", 5}, {"whale oil", 3}, {"white sail", 2}}));
  ExpectAllIsWell("rows");
  Click("cmdLimits");
  ExpectAllIsWell("limits");
  Click("cmdRowDetails");
  Grid().GoTo(1);
  UntilIdle();
  ExpectAllIsWell("details");
  ChooseFrom("cmdPresets", "mnuPreset_bundles2004");
  ExpectAllIsWell("preset");
  Type("txbMatch", "harpoon");
  ExpectAllIsWell("nothing passes");
}

TEST_P(TableGeometry, HasRoomForTheMarksOfMenus) {
  const auto besidesTheCaption = [this](const char* name) {
    const auto* button = Find<QToolButton>(name);
    return button->width() - button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
  };
  const int mark = panel->style()->pixelMetric(QStyle::PM_MenuButtonIndicator);
  ASSERT_GT(mark, 0);
  for (const char* name : {"cmdPresets", "cmdColumns"})
    EXPECT_EQ(besidesTheCaption(name), besidesTheCaption("cmdLimits") + mark) << name;
}

class TableAccess : public TableTest {};

TEST_F(TableAccess, HasANameForEveryControl) {
  Show(RunOf({{"old ship", 3}}));
  for (const QWidget* control : panel->TabOrder()) {
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    const bool named =
        !control->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
    EXPECT_TRUE(named) << control->objectName().toStdString();
    EXPECT_NE(control->focusPolicy() & Qt::TabFocus, 0) << control->objectName().toStdString();
  }
}

}  // namespace
}  // namespace korv
