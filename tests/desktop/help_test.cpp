// The help window: its text, contents and search.

#include "desktop/dialogs/frm_help.h"

#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>

#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Help : public WindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    Click("cmdHelp");
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("frmHelp")) help = dynamic_cast<frmHelp*>(widget);
    }
    ASSERT_NE(help, nullptr);
    QApplication::processEvents();
  }
  std::string Selected() const { return help->txbHelpScreen->textCursor().selectedText().toStdString(); }
  std::string FirstLineInSight() const {
    return help->txbHelpScreen->cursorForPosition({20, 4}).block().text().toStdString();
  }
  void Search(const char* text) const { help->txbSearch->setText(QString::fromUtf8(text)); }

  frmHelp* help = nullptr;
};

TEST_F(Help, ShowsItsTextsOnePerLineAndHidesAgain) {
  EXPECT_TRUE(help->isVisible());
  EXPECT_EQ(help->windowTitle().toStdString(), "Korv help");
  std::string expected;
  for (int number = 364; number <= 369; ++number) {
    expected += (number == 364 ? "" : "\n") + main->Texts().Get(number);
  }
  std::erase(expected, '\r');
  EXPECT_EQ(help->txbHelpScreen->toPlainText().toStdString(), expected);
  EXPECT_THAT(expected, StartsWith("CHOOSING THE TEXT\n"));
  EXPECT_EQ(WithoutMnemonic(help->cmdClose->text()).toStdString(), "Close");
  help->cmdClose->click();
  EXPECT_FALSE(help->isVisible());
}

TEST_F(Help, OpensOverTheMainWindow) {
  const auto expectOver = [this] {
    const QPoint apart = help->frameGeometry().center() - main->frameGeometry().center();
    EXPECT_LE(apart.manhattanLength(), 4);
  };
  main->setGeometry(60, 40, 700, 500);
  help->hide();
  help->resize(400, 300);
  Click("cmdHelp");
  expectOver();
  // One that is open already stays where the user put it.
  help->move(0, 0);
  Click("cmdHelp");
  EXPECT_EQ(help->pos(), QPoint(0, 0));
}

TEST_F(Help, IsNeverLargerThanTheScreenNorOutsideIt) {
  const QRect room = main->screen()->availableGeometry();
  help->hide();
  help->resize(room.size() + QSize(100, 100));
  main->move(room.bottomRight() - QPoint(50, 50));
  Click("cmdHelp");
  const QRect place = help->geometry();
  EXPECT_TRUE(room.contains(place)) << place.x() << "," << place.y() << " " << place.width() << "x"
                                    << place.height() << " in " << room.width() << "x" << room.height();
}

TEST_F(Help, ListsItsSectionsAndGoesToThem) {
  std::vector<std::string> entries;
  for (int row = 0; row < help->lstContents->count(); ++row) {
    entries.push_back(help->lstContents->item(row)->text().toStdString());
  }
  EXPECT_THAT(entries,
              ElementsAre("Choosing the text", "Words and phrases", "Words to ignore, words to count",
                          "Formats", "Output file and filter", "Settings and keys"));
  help->lstContents->setCurrentRow(3);
  EXPECT_EQ(FirstLineInSight(), "FORMATS");
  help->lstContents->setCurrentRow(1);
  EXPECT_EQ(FirstLineInSight(), "WORDS AND PHRASES");
  EXPECT_EQ(help->lstContents->horizontalScrollBar()->maximum(), 0);
}

TEST_F(Help, FindsWhatIsTypedWithoutRegardToCase) {
  Search("CLIPBOARD");
  EXPECT_EQ(Selected(), "Clipboard");
  EXPECT_THAT(help->lblFound->text().toStdString(), StartsWith("1 of "));
  const int first = help->txbHelpScreen->textCursor().position();
  help->cmdNext->click();
  EXPECT_EQ(Selected(), "clipboard");
  EXPECT_GT(help->txbHelpScreen->textCursor().position(), first);
  EXPECT_THAT(help->lblFound->text().toStdString(), StartsWith("2 of "));
  help->cmdPrevious->click();
  EXPECT_EQ(help->txbHelpScreen->textCursor().position(), first);
  QTest::keyClick(help->txbSearch, Qt::Key_Return);
  EXPECT_THAT(help->lblFound->text().toStdString(), StartsWith("2 of "));
}

TEST_F(Help, GoesRoundTheEndsOfTheText) {
  Search("clipboard");
  const auto count = help->txbHelpScreen->extraSelections().size();
  ASSERT_GT(count, 1);
  help->cmdPrevious->click();
  EXPECT_EQ(help->lblFound->text(), QStringLiteral("%1 of %1").arg(count));
  help->cmdNext->click();
  EXPECT_EQ(help->lblFound->text(), QStringLiteral("1 of %1").arg(count));
}

TEST_F(Help, SaysWhenNothingIsFound) {
  EXPECT_EQ(help->lblFound->text().toStdString(), "");
  Search("no such words");
  EXPECT_EQ(help->lblFound->text().toStdString(), "Not found");
  EXPECT_FALSE(help->cmdNext->isEnabled());
  EXPECT_FALSE(help->cmdPrevious->isEnabled());
  Search("  ");
  EXPECT_EQ(help->lblFound->text().toStdString(), "");
  EXPECT_EQ(help->txbHelpScreen->extraSelections().size(), 0);
}

TEST_F(Help, PutsTheFocusIntoTheSearchForCtrlF) {
  QTest::keyClick(help, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(help->focusWidget(), help->txbSearch);
  QTest::keyClick(help, Qt::Key_Escape);
  EXPECT_FALSE(help->isVisible());
}

}  // namespace
}  // namespace korv
