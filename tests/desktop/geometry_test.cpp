// Where the controls stand: the checker that looks at it, and the Settings window in every state. Run once
// more on a screen of twice as many dots.

#include "tests/desktop/geometry.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/dialogs/frm_load_remove.h"
#include "tests/desktop/scaled_window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// ---- The checker

class TheGeometry : public testing::Test {
 protected:
  TheGeometry() { window.resize(400, 300); }
  template <typename Control>
  Control* Add(const char* name, const QString& text, const QRect& place) {
    auto* control = new Control(text, &window);
    control->setObjectName(QLatin1String(name));
    control->setGeometry(place);
    return control;
  }
  std::vector<std::string> Faults() {
    window.show();
    return GeometryFaults(window);
  }
  QWidget window;
};

TEST_F(TheGeometry, IsWellWhereLayoutsMadeIt) {
  auto* layout = new QVBoxLayout(&window);
  layout->addWidget(new QPushButton(QStringLiteral("One")));
  layout->addWidget(new QCheckBox(QStringLiteral("Two")));
  layout->addWidget(new QLabel(QStringLiteral("Three")));
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(TheGeometry, IsWrongWhereControlsOverlap) {
  Add<QPushButton>("one", QStringLiteral("One"), {10, 10, 100, 40});
  Add<QPushButton>("other", QStringLiteral("Other"), {100, 40, 100, 40});
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("other (100 x 40 at 100, 40) overlaps one")));
  window.findChild<QWidget*>(QStringLiteral("other"))->hide();
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(TheGeometry, IsWrongWhereAControlLeavesItsFrame) {
  Add<QPushButton>("outside", QStringLiteral("One"), {350, 10, 100, 40});
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("outside (100 x 40 at 350, 10) lies outside QWidget")));
}

TEST_F(TheGeometry, IsWrongWhereACaptionIsCut) {
  Add<QCheckBox>("box", QStringLiteral("A caption that is far too long"), {10, 10, 80, 40});
  auto* label = Add<QLabel>("label", QStringLiteral("A text that is far too long"), {10, 60, 50, 40});
  EXPECT_THAT(Faults(), testing::Contains(HasSubstr("box cuts its caption")));
  EXPECT_THAT(Faults(), testing::Contains(HasSubstr("label (50 x 40 at 10, 60) cuts")));
  label->setToolTip(label->text());
  EXPECT_THAT(Faults(), testing::Not(testing::Contains(HasSubstr("label"))));
}

TEST_F(TheGeometry, IsWrongWhereAListOrAPlaceholderIsCut) {
  auto* combo = new QComboBox(&window);
  combo->addItem(QStringLiteral("A selection that is far too long to be read here"));
  combo->setGeometry(10, 10, 120, 40);
  combo->setObjectName(QStringLiteral("list"));
  auto* line = Add<QLineEdit>("line", {}, {10, 60, 90, 40});
  line->setPlaceholderText(QStringLiteral("An example that is far too long"));
  EXPECT_THAT(Faults(), testing::IsSupersetOf({HasSubstr("list (120 x 40 at 10, 10) cuts 'A selection"),
                                               HasSubstr("line (90 x 40 at 10, 60) cuts 'An example")}));
}

// ---- The Settings window

class SettingsGeometry : public ScaledWindowTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(ScaledWindowTest::SetUp());
    main->Params().show();
  }
  void ExpectAllIsWell(const char* state) {
    EXPECT_THAT(GeometryFaultsInEverySize(main->Params()), IsEmpty()) << state;
  }
  void AddFile(const std::string& name, const std::string& bytes) {
    dialogs.WillChoose(WriteFile(name, bytes));
    Click("cmdSelectWordsFile");
  }
};

INSTANTIATE_TEST_SUITE_P(AtFontsOfPercent, SettingsGeometry, testing::Values(100, 200),
                         testing::PrintToStringParamName());

TEST_P(SettingsGeometry, IsWellWithEitherListEmptyAndFull) {
  const std::string manyWords(5000, 'w');
  for (const char* kind : {"optWordsToIgnore", "optCountOnlyWordsAndPhrases", "optWordsToIgnore"}) {
    Click(kind);
    ExpectAllIsWell(kind);
    AddFile(std::string(kind) + std::string(120, 'n') + ".txt", "whale\nharpoon");
    Find<QPlainTextEdit>(std::string(kind) == "optWordsToIgnore" ? "txbWordsToIgnoreOrCount_0"
                                                                 : "txbWordsToIgnoreOrCount_1")
        ->setPlainText(QString::fromStdString(manyWords));
    ExpectAllIsWell(kind);
  }
}

TEST_P(SettingsGeometry, ScrollsTheGroupsOnALowScreenAndKeepsTheButtons) {
  QWidget& window = main->Params();
  const auto* scroll = Find<QScrollArea>("scrSettings");
  window.resize(window.width(), 5000);
  QApplication::processEvents();
  EXPECT_FALSE(scroll->verticalScrollBar()->isVisible());
  window.resize(window.width(), 1);
  QApplication::processEvents();
  EXPECT_LT(window.height(), 25 * window.fontMetrics().lineSpacing());
  EXPECT_TRUE(scroll->verticalScrollBar()->isVisible());
  EXPECT_GE(scroll->viewport()->width(), scroll->widget()->minimumSizeHint().width());
  for (const char* button : {"cmdSetOrClearCheckboxes_0", "cmdClose", "cmdInitialize"})
    EXPECT_FALSE(InParams<QWidget>(button)->visibleRegion().isEmpty()) << button;
}

TEST_P(SettingsGeometry, LeavesRoomForTheTitleOnTheScreen) {
  const QWidget& window = main->Params();
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const QRect room = window.screen()->availableGeometry();
  EXPECT_GE(window.geometry().top(), room.top() + title);
  EXPECT_LE(window.geometry().bottom(), room.bottom());
}

TEST_P(SettingsGeometry, IsWellWithNinetyNineFiles) {
  Settings settings = main->Work().Current();
  for (int i = 0; i < 99; ++i) settings.WordsFiles.push_back("/list" + std::to_string(i));
  main->ApplySettings(settings);
  ExpectAllIsWell("99 files");
}

TEST_P(SettingsGeometry, ShowsTheTypedWordsOfTheChosenListInTheSamePlace) {
  QApplication::processEvents();
  const auto placeOf = [this](const char* box) {
    QApplication::processEvents();
    const auto* control = Find<QWidget>(box);
    return QRect(control->mapTo(&main->Params(), QPoint(0, 0)), control->size());
  };
  const QRect place = placeOf("txbWordsToIgnoreOrCount_0");
  Click("optCountOnlyWordsAndPhrases");
  EXPECT_FALSE(Shown("txbWordsToIgnoreOrCount_0"));
  EXPECT_TRUE(Shown("txbWordsToIgnoreOrCount_1"));
  EXPECT_EQ(placeOf("txbWordsToIgnoreOrCount_1"), place);
  Click("optWordsToIgnore");
  EXPECT_FALSE(Shown("txbWordsToIgnoreOrCount_1"));
  EXPECT_EQ(placeOf("txbWordsToIgnoreOrCount_0"), place);
}

TEST_P(SettingsGeometry, IsWellWithAnyMessageInIt) {
  dialogs.WillChoose(PathOf(std::string(150, 'n') + ".korv"));
  Click("cmdSaveLoadState_1");
  ExpectAllIsWell("saved under a long name");
  dialogs.WillChoose(PathOf("no/such/" + std::string(150, 'f') + ".korv"));
  Click("cmdSaveLoadState_0");
  ExpectAllIsWell("not loaded");
  for (const char* button :
       {"cmdSetOrClearCheckboxes_0", "cmdSetOrClearCheckboxes_1", "cmdRestoreDefaults"}) {
    Click(button);
    ExpectAllIsWell(button);
  }
}

TEST_P(SettingsGeometry, OfTheDialogAboutAFileIsWellForAnyPath) {
  for (const int length : {10, 80, 300}) {
    frmLoadRemove dialog(u'/' + QString(length, u'n'), &main->Params());
    dialog.show();
    EXPECT_THAT(GeometryFaultsInEverySize(dialog), IsEmpty()) << length;
  }
}

TEST_P(SettingsGeometry, IsWellDuringARun) {
  OpenWithEveryTurn();
  main->Params().show();
  UseFile("The white whale swam. The white whale swam.");
  bool looked = false;
  AtTheNextTurn([&] {
    looked = true;
    ExpectAllIsWell("running");
  });
  Count();
  EXPECT_TRUE(looked);
}

}  // namespace
}  // namespace korv
