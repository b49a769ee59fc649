#include "desktop/results/contexts/contexts_of_side.h"
#include "desktop/results/contexts/contexts_pane.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTextBlock>
#include <QToolButton>

#include "desktop/results/contexts/context_options.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/text_view.h"
#include "desktop/results/contexts/why_panel.h"
#include "tests/desktop/view_test.h"
#include "tests/fakes/matches.h"
#include "tests/fakes/native_paths.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

using testing::ElementsAre;

class ContextsTest : public ViewTest {
 protected:
  ContextsTest() {
    world.Files.Add("/t/b.txt", "One big cat, two.\nThe Big Cat!\n");
    world.Files.Add("/t/sub/a.txt", "a big cat sat\n");
    Open();
  }
  void Open() {
    surroundings = std::make_unique<Desktop>(Surroundings());
    pane = std::make_unique<ContextsPane>(*surroundings, nullptr);
    pane->resize(1200, 400);
    pane->show();
  }
  void Type(const char* text) {
    pane->txbContextPhrase->setFocus();
    pane->txbContextPhrase->selectAll();
    QTest::keyClicks(pane->txbContextPhrase, QString::fromUtf8(text));
    QTest::keyClick(pane->txbContextPhrase, Qt::Key_Return);
    UntilIdle(*pane);
  }
  /// "left|phrase|right|place" of every row.
  std::vector<std::string> Rows() const {
    const QAbstractItemModel& model = *pane->tblContexts->model();
    std::vector<std::string> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      std::string cells;
      for (int column = 0; column < model.columnCount(); ++column)
        cells += (column == 0 ? "" : "|") + FromQt(model.index(row, column).data().toString());
      rows.push_back(cells);
    }
    return rows;
  }
  std::string CountText() const { return FromQt(pane->lblContextCount->text()); }
  int CurrentRow() const { return pane->tblContexts->currentIndex().row(); }

  std::unique_ptr<Desktop> surroundings;
  std::unique_ptr<ContextsPane> pane;
};

TEST_F(ContextsTest, ShowsTheOccurrencesOfAPhraseThatIsTyped) {
  pane->Show(CountFolder());
  EXPECT_THAT(Rows(), testing::IsEmpty());
  Type("Big cat");
  EXPECT_EQ(CountText(), "3 occurrences in 2 files");
  EXPECT_THAT(Rows(),
              ElementsAre("One|big cat|, two. The Big Cat!|b.txt:1",
                          "One big cat, two. The|Big Cat|!|b.txt:2", Native("a|big cat|sat|sub/a.txt:1")));
  EXPECT_EQ(CurrentRow(), 0);
}

TEST_F(ContextsTest, ShowsThoseOfAListedPhrase) {
  const auto run = CountFolder();
  pane->Show(run);
  for (const PhraseIndex i : run->Table.All())
    if (run->Table.Text(i) == "big cat sat") pane->ShowPhrase(i);
  UntilIdle(*pane);
  EXPECT_THAT(Rows(), ElementsAre(Native("a|big cat sat||sub/a.txt:1")));
  EXPECT_EQ(FromQt(pane->txbContextPhrase->text()), "big cat sat");
  Type("one");
  EXPECT_EQ(CountText(), "1 occurrence in 1 file");
}

TEST_F(ContextsTest, SaysWhatIsWrongWithAPhrase) {
  pane->Show(CountFolder());
  struct Case {
    const char* Typed;
    const char* Says;
  };
  std::string many;
  for (int i = 0; i < 26; ++i) many += "cat ";
  const Case cases[] = {{"big dog", "No occurrence"},
                        {"12", "The rules in force leave no word of it."},
                        {many.c_str(), "That is more than 25 words."}};
  for (const Case& c : cases) {
    Type(c.Typed);
    EXPECT_EQ(CountText(), c.Says) << c.Typed;
    EXPECT_THAT(Rows(), testing::IsEmpty()) << c.Typed;
  }
}

TEST_F(ContextsTest, OrdersThemAndGroupsThemByFile) {
  pane->Show(CountFolder());
  Type("big cat");
  pane->Options->cboContextOrder->setCurrentIndex(2);
  UntilIdle(*pane);
  EXPECT_THAT(Rows(),
              ElementsAre("One big cat, two. The|Big Cat|!|b.txt:2", Native("a|big cat|sat|sub/a.txt:1"),
                          "One|big cat|, two. The Big Cat!|b.txt:1"));
  QTest::mouseClick(pane->Options->chkContextFiles, Qt::LeftButton, {},
                    {8, pane->Options->chkContextFiles->height() / 2});
  UntilIdle(*pane);
  EXPECT_THAT(Rows(), ElementsAre("b.txt  (2)|||", "One big cat, two. The|Big Cat|!|b.txt:2",
                                  "One|big cat|, two. The Big Cat!|b.txt:1", Native("sub/a.txt  (1)|||"),
                                  Native("a|big cat|sat|sub/a.txt:1")));
  // They are remembered.
  Open();
  EXPECT_EQ(pane->Options->cboContextOrder->currentIndex(), 2);
  EXPECT_TRUE(pane->Options->chkContextFiles->isChecked());
}

TEST_F(ContextsTest, ShowsAsManyCharactersAsIsWished) {
  pane->Show(CountFolder());
  Type("cat sat");
  pane->Options->spbContextWidth->setValue(20);
  UntilIdle(*pane);
  EXPECT_EQ(pane->Options->spbContextWidth->minimum(), 20);
  EXPECT_EQ(pane->Options->spbContextWidth->maximum(), 500);
  EXPECT_THAT(Rows(), ElementsAre(Native("a big|cat sat||sub/a.txt:1")));
  Type("two");
  EXPECT_THAT(Rows(), ElementsAre("One big cat,|two|. The Big Cat!|b.txt:1"));
}

TEST_F(ContextsTest, GoesFromOneOccurrenceToTheNextAndAround) {
  pane->Show(CountFolder());
  pane->Options->chkContextFiles->setChecked(true);
  Type("big cat");
  EXPECT_EQ(CurrentRow(), 1);  // Below the heading.
  pane->OfA->GoBy(1);
  EXPECT_EQ(CurrentRow(), 2);
  pane->OfA->GoBy(1);
  EXPECT_EQ(CurrentRow(), 4);
  pane->OfA->GoBy(1);
  EXPECT_EQ(CurrentRow(), 1);
  pane->OfA->GoBy(-1);
  EXPECT_EQ(CurrentRow(), 4);
}

TEST_F(ContextsTest, TellsThatAFileHasChanged) {
  pane->Show(CountFolder());
  world.Files.Add("/t/sub/a.txt", "something else\n");
  Type("big cat");
  EXPECT_THAT(Rows(),
              ElementsAre("One|big cat|, two. The Big Cat!|b.txt:1",
                          "One big cat, two. The|Big Cat|!|b.txt:2", Native("a|big cat|sat|sub/a.txt")));
  EXPECT_EQ(
      FromQt(pane->lblContextNote->text()),
      Native("sub/a.txt has changed since it was counted: the words that were counted stand for its lines."));
  EXPECT_TRUE(pane->lblContextNote->isVisible());
  Type("one");
  pane->Show(nullptr);
  UntilIdle(*pane);
  EXPECT_FALSE(pane->lblContextNote->isVisible());
  EXPECT_THAT(Rows(), testing::IsEmpty());
}

TEST_F(ContextsTest, CopiesTheSelectedRows) {
  pane->Show(CountFolder());
  Type("big cat");
  pane->tblContexts->setFocus();
  pane->tblContexts->selectAll();
  QTest::keySequence(pane->tblContexts, QKeySequence::Copy);
  UntilIdle(*pane);
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(FromQt(copied->text()), Native("file\tline\tleft\tphrase\tright\n"
                                           "b.txt\t1\tOne\tbig cat\t, two. The Big Cat!\n"
                                           "b.txt\t2\tOne big cat, two. The\tBig Cat\t!\n"
                                           "sub/a.txt\t1\ta\tbig cat\tsat\n"));
  EXPECT_THAT(FromQt(copied->html()), testing::HasSubstr("<td>big cat</td>"));
}

TEST_F(ContextsTest, ASampleOfManyIsSmallAndSaysItsSeed) {
  std::string text;
  for (int i = 0; i < 2500; ++i) text += "The big cat.\n";
  world.UseFile("/one.txt", text);
  pane->Show(Counted());
  Type("big cat");
  EXPECT_EQ(CountText(), "2,500 occurrences");
  EXPECT_EQ(pane->tblContexts->model()->rowCount(), 2500);
  pane->Options->chkContextSample->click();
  UntilIdle(*pane);
  EXPECT_EQ(pane->tblContexts->model()->rowCount(), 1000);
  EXPECT_TRUE(Matches(CountText(), "1,000 of 2,500 occurrences, drawn at random \\(seed [0-9]+\\)"));
  pane->tblContexts->scrollToBottom();
  UntilIdle(*pane);
  const int last = pane->tblContexts->model()->rowCount() - 1;
  EXPECT_TRUE(
      Matches(FromQt(pane->tblContexts->model()->index(last, 3).data().toString()), "one.txt:[0-9]+"));
}

TEST_F(ContextsTest, ManyAreSelectedAllAtOnceButNotCopied) {
  std::string text;
  for (int i = 0; i < 100'001; ++i) text += "big cat\n";
  world.UseFile("/one.txt", text);
  pane->Show(Counted());
  Type("big cat");
  QGuiApplication::clipboard()->setText(QStringLiteral("as before"));
  pane->tblContexts->selectAll();
  EXPECT_TRUE(pane->tblContexts->IsAllSelected());
  EXPECT_THAT(pane->tblContexts->SelectedRows(), ElementsAre(RowRange{0, 100'000}));
  pane->findChild<QAction*>(QStringLiteral("mnuContextCopy"))->trigger();
  UntilIdle(*pane);
  EXPECT_EQ(FromQt(pane->lblContextNote->text()), "Select at most 20,000 contexts to copy them.");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "as before");
  pane->OfA->GoBy(1);
  EXPECT_FALSE(pane->tblContexts->IsAllSelected());
}

TEST_F(ContextsTest, AnotherRunTakesThePlaceOfTheFirst) {
  pane->Show(CountFolder());
  Type("big cat");
  world.UseClipboard("My big cat");
  pane->Show(Counted());
  UntilIdle(*pane);
  EXPECT_EQ(CountText(), "1 occurrence");
  EXPECT_THAT(Rows(), ElementsAre("My|big cat||Clipboard:1"));
}

// ---- The text behind it

/// The text of the view, the phrase in brackets.
std::string TextWithMark(const TextView& view) {
  QString text = view.txbText->toPlainText();
  const auto marks = view.txbText->extraSelections();
  if (!marks.isEmpty()) {
    text.insert(marks[0].cursor.selectionEnd(), u']');
    text.insert(marks[0].cursor.selectionStart(), u'[');
  }
  return FromQt(text);
}

TEST_F(ContextsTest, EnterShowsTheTextAndF3GoesOnAcrossFiles) {
  pane->Show(CountFolder());
  Type("big cat");
  pane->tblContexts->setFocus();
  QTest::keyClick(pane->tblContexts, Qt::Key_Return);
  UntilIdle(*pane);
  ASSERT_NE(pane->OfA->frmText, nullptr);
  TextView& view = *pane->OfA->frmText;
  EXPECT_TRUE(view.isVisible());
  EXPECT_EQ(TextWithMark(view), "One [big cat], two.\nThe Big Cat!\n");
  EXPECT_EQ(FromQt(view.lblTextPlace->text()), "b.txt, line 1, column 5 \u2013 occurrence 1 of 3");
  EXPECT_FALSE(view.cmdTextBefore->isEnabled());
  EXPECT_FALSE(view.cmdTextBehind->isEnabled());
  view.cmdNextOccurrence->click();
  UntilIdle(*pane);
  EXPECT_EQ(TextWithMark(view), "One big cat, two.\nThe [Big Cat]!\n");
  EXPECT_EQ(CurrentRow(), 1);
  QTest::keyClick(view.txbText, Qt::Key_F3);
  UntilIdle(*pane);
  EXPECT_EQ(TextWithMark(view), "a [big cat] sat\n");
  EXPECT_EQ(FromQt(view.lblTextPlace->text()),
            Native("sub/a.txt, line 1, column 3 \u2013 occurrence 3 of 3"));
  view.cmdPreviousOccurrence->click();
  UntilIdle(*pane);
  EXPECT_EQ(CurrentRow(), 1);
  view.cmdCloseText->click();
  UntilIdle(*pane);
  EXPECT_FALSE(view.isVisible());
  pane->OfA->GoBy(1);
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(CurrentRow(), 2);
}

TEST_F(ContextsTest, TheTextOfADocumentIsWhatWasExtractedFromIt) {
  world.UseFile("/letter.docx",
                BuildDocx(Paragraphs({"Dear cat,", "the big cat &amp; you", "and a big cat"})));
  pane->Show(Counted());
  Type("big cat");
  EXPECT_THAT(Rows(), ElementsAre("Dear cat, the|big cat|& you and a big cat|letter.docx:2",
                                  "Dear cat, the big cat & you and a|big cat||letter.docx:3"));
  pane->tblContexts->setFocus();
  QTest::keyClick(pane->tblContexts, Qt::Key_Return);
  UntilIdle(*pane);
  ASSERT_NE(pane->OfA->frmText, nullptr);
  TextView& view = *pane->OfA->frmText;
  EXPECT_TRUE(view.isVisible());
  EXPECT_EQ(TextWithMark(view), "Dear cat,\nthe [big cat] & you\nand a big cat\n");
  EXPECT_EQ(FromQt(view.lblTextPlace->text()), "letter.docx, line 2, column 5 \u2013 occurrence 1 of 2");
  EXPECT_FALSE(view.lblTextNote->isVisible());
  EXPECT_TRUE(view.cmdOpenSource->isEnabled());
  view.cmdNextOccurrence->click();
  UntilIdle(*pane);
  EXPECT_EQ(TextWithMark(view), "Dear cat,\nthe big cat & you\nand a [big cat]\n");
  EXPECT_EQ(FromQt(view.lblTextPlace->text()), "letter.docx, line 3, column 7 \u2013 occurrence 2 of 2");
}

TEST_F(ContextsTest, TheTextOfAFileThatIsGoneIsTheWordsOfTheRun) {
  pane->Show(CountFolder());
  Type("big cat");
  world.Files.Erase("/t/b.txt");
  pane->OfA->ShowText();
  UntilIdle(*pane);
  EXPECT_EQ(TextWithMark(*pane->OfA->frmText), "one [big cat] two | the big cat |");
  EXPECT_EQ(FromQt(pane->OfA->frmText->lblTextNote->text()),
            "b.txt cannot be read any more: the words that were counted stand for its lines.");
  EXPECT_EQ(FromQt(pane->OfA->frmText->lblTextPlace->text()), "b.txt \u2013 occurrence 1 of 3");
}

TEST_F(ContextsTest, OfALongTextAPartIsShownAndTheRestIsAClickAway) {
  std::string text;
  for (int i = 1; i <= 60'000; ++i) text += i == 30'000 ? "The big cat.\n" : "some line\n";
  world.UseFile("/one.txt", text);
  pane->Show(Counted());
  Type("big cat");
  pane->OfA->ShowText();
  UntilIdle(*pane);
  TextView& view = *pane->OfA->frmText;
  EXPECT_EQ(FromQt(view.lblTextPlace->text()), "one.txt, line 30,000, column 5 \u2013 occurrence 1 of 1");
  EXPECT_NEAR(view.txbText->blockCount(), 20'000, 10);
  EXPECT_EQ(FromQt(view.txbText->textCursor().block().text()), "The big cat.");
  for (int k = 0; k < 10 && view.cmdTextBehind->isEnabled(); ++k) {
    view.cmdTextBehind->click();
    UntilIdle(*pane);
    EXPECT_LT(view.txbText->blockCount(), 20'020);
  }
  EXPECT_FALSE(view.cmdTextBehind->isEnabled());
  EXPECT_TRUE(view.txbText->toPlainText().endsWith(QStringLiteral("some line\n")));
  for (int k = 0; k < 10 && view.cmdTextBefore->isEnabled(); ++k) {
    view.cmdTextBefore->click();
    UntilIdle(*pane);
  }
  EXPECT_FALSE(view.cmdTextBefore->isEnabled());
}

TEST_F(ContextsTest, OpensTheFileInItsOwnProgram) {
  pane->Show(CountFolder());
  Type("cat sat");
  pane->findChild<QAction*>(QStringLiteral("mnuContextOpen"))->trigger();
  EXPECT_THAT(launcher.Opened, ElementsAre(Below("/t", "sub/a.txt")));
  pane->OfA->ShowText();
  UntilIdle(*pane);
  pane->OfA->frmText->cmdOpenSource->click();
  EXPECT_EQ(launcher.Opened.size(), 2U);
  world.UseClipboard("My big cat");
  pane->Show(Counted());
  Type("big cat");
  pane->OfA->ShowText();
  UntilIdle(*pane);
  EXPECT_FALSE(pane->OfA->frmText->cmdOpenSource->isEnabled());
  EXPECT_EQ(TextWithMark(*pane->OfA->frmText), "My [big cat]");
}

// ---- Why a phrase is not listed

TEST_F(ContextsTest, SaysWhyAPhraseIsNotListedAndLeadsToAWayOut) {
  std::vector<NoteAction> taken;
  pane->Why->WayOut = [&](NoteAction action) { taken.push_back(action); };
  EXPECT_FALSE(pane->cmdWhy->isEnabled());
  pane->Show(CountFolder());
  EXPECT_FALSE(pane->cmdWhy->isEnabled());
  Type("cat");
  pane->cmdWhy->click();
  UntilIdle(*pane);
  EXPECT_EQ(FromQt(pane->findChild<QLabel*>(QStringLiteral("lblNote_Why"))->text()),
            "It has 1 word; phrases of 2 words and more were counted.");
  pane->findChild<QToolButton*>(QStringLiteral("cmdNote_Why_Lengths"))->click();
  EXPECT_THAT(taken, ElementsAre(NoteAction::Lengths));
  // Another phrase, another question.
  Type("big cat");
  EXPECT_EQ(pane->findChild<QLabel*>(QStringLiteral("lblNote_Why")), nullptr);
  pane->cmdWhy->click();
  UntilIdle(*pane);
  EXPECT_THAT(FromQt(pane->findChild<QLabel*>(QStringLiteral("lblNote_Why"))->text()),
              testing::StartsWith("It is listed: rank 1,"));
}

}  // namespace
}  // namespace korv
