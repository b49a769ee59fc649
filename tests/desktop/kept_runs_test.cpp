// Finished runs are kept as files and opened again.

#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/why_panel.h"
#include "desktop/results/open_runs.h"
#include "desktop/results/pictures/picture_canvas.h"
#include "desktop/results/pictures/pictures_pane.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const char* const kWhale = "The white whale swam. The white whale swam.\n";
const char* const kMan = "The old man wept. The old man wept. The old man wept.\n";

class KeptRunsOfAWindow : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }

  RunTabs& Tabs() const { return *Find<RunTabs>("tabRuns"); }
  std::string TabText(int index) const { return Tabs().tabText(index).toStdString(); }
  QAction& Command(const char* name) const {
    for (QAction* menu : main->menuBar()->actions())
      for (QAction* action : menu->menu()->actions())
        if (WithoutMnemonic(action->text()) == QLatin1String(name)) return *action;
    ADD_FAILURE() << name;
    return *main->menuBar()->actions().front();
  }
  void Do(const char* name) const {
    ASSERT_TRUE(Command(name).isEnabled()) << name;
    Command(name).trigger();
    UntilIdle();
  }
  void CountText(const std::string& name, const std::string& text) {
    Type("txbFile_0", WriteFile(name, text));
    Count();
  }
  std::string Keep(const char* name) {
    const std::string path = PathOf(name);
    dialogs.WillChoose(path);
    Do("Keep run...");
    return path;
  }
  void Open(const std::string& path) {
    dialogs.WillChoose(path);
    Do("Open kept run...");
  }
  std::string NameOfOpened(const char* source) const {
    return std::string(source) + ", " + WhenCounted(*main->Result().InFront()).toStdString();
  }
};

TEST_F(KeptRunsOfAWindow, CanBeKeptOnceThereIsOne) {
  EXPECT_FALSE(Command("Keep run...").isEnabled());
  EXPECT_TRUE(Command("Open kept run...").isEnabled());
  bool looked = false;
  UseLongText();
  DuringTheRun([&] {
    looked = true;
    EXPECT_FALSE(Command("Keep run...").isEnabled());
    EXPECT_FALSE(Command("Open kept run...").isEnabled());
  });
  Count();
  EXPECT_TRUE(looked);
  EXPECT_TRUE(Command("Keep run...").isEnabled());
  EXPECT_EQ(Command("Keep run...").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_K));
  EXPECT_EQ(Command("Open kept run...").shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_K));
}

TEST_F(KeptRunsOfAWindow, AskWhereAndSayWhatWasWritten) {
  CountText("whale.txt", kWhale);
  const std::string path = Keep("mine.korvrun");
  ASSERT_EQ(dialogs.Saved.size(), 1U);
  const FileChoice& asked = dialogs.Saved.front();
  EXPECT_EQ(asked.Title, "Keep run");
  EXPECT_EQ(asked.Filter, "Kept runs (*.korvrun) | *.korvrun");
  EXPECT_EQ(asked.InitialPath, "whale.txt.korvrun");
  EXPECT_EQ(asked.Extension, "korvrun");
  EXPECT_TRUE(asked.AsksBeforeReplacing);
  EXPECT_THAT(TextOf("lblStatusText"),
              AllOf(StartsWith("The run was kept in " + path + " ("), EndsWith(").")));
  EXPECT_THAT(ReadFile(path), StartsWith("KORVRUN"));
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  EXPECT_EQ(Tabs().count(), 1);
  Keep("again.korvrun");
  EXPECT_EQ(dialogs.Saved.back().InitialPath, PathOf("whale.txt.korvrun")) << "where the last one was kept";
}

TEST_F(KeptRunsOfAWindow, AreNeitherKeptNorOpenedWhereTheDialogIsCancelled) {
  CountText("whale.txt", kWhale);
  Do("Keep run...");
  Do("Open kept run...");
  EXPECT_EQ(dialogs.Saved.size(), 1U);
  ASSERT_EQ(dialogs.Opened.size(), 1U);
  EXPECT_EQ(dialogs.Opened.front().Title, "Open kept run");
  EXPECT_EQ(dialogs.Opened.front().Filter, "Kept runs (*.korvrun) | *.korvrun");
  EXPECT_EQ(Tabs().count(), 1);
  EXPECT_THAT(WindowTest::Shown(), testing::IsEmpty());
}

TEST_F(KeptRunsOfAWindow, GetATabThatTellsWhenTheyWereCounted) {
  CountText("whale.txt", kWhale);
  const std::string path = Keep("mine.korvrun");
  const std::string listed = Output();
  CountText("man.txt", kMan);
  Open(path);
  EXPECT_EQ(Tabs().count(), 3);
  EXPECT_EQ(Tabs().currentIndex(), 2);
  EXPECT_EQ(TabText(2), NameOfOpened("whale.txt"));
  EXPECT_THAT(Tabs().tabToolTip(2).toStdString(),
              AllOf(StartsWith(PathOf("whale.txt") + "\nPhrases of 4 to 6"),
                    HasSubstr("Counted at " + WhenCounted(*main->Result().InFront()).toStdString()),
                    HasSubstr("Kept in " + path + ".")));
  EXPECT_THAT(TextOf("lblHeadLine"), StartsWith("whale.txt: 8 words, 1 different phrase"));
  EXPECT_EQ(Output(), listed);
  EXPECT_EQ(TextOf("lblNote_Source"), "Phrases of whale.txt");
  Tabs().setCurrentIndex(1);
  UntilIdle();
  EXPECT_THAT(Output(), HasSubstr("the old man wept"));
}

TEST_F(KeptRunsOfAWindow, ComeBackAfterARestartWithoutTheirText) {
  Type("txbWordsToIgnoreOrCount_0", "old");
  Choose("cboPhraseLength_0", 0);
  CountText("whale.txt", kWhale);
  const std::string path = Keep("mine.korvrun");
  const std::string listed = Output();
  std::filesystem::remove(PathFromText(PathOf("whale.txt")));
  ASSERT_TRUE(Start());
  Type("txbWordsToIgnoreOrCount_0", "");
  Choose("cboPhraseLength_0", 2);
  Open(path);
  EXPECT_EQ(Output(), listed);
  EXPECT_EQ(TabText(0), NameOfOpened("whale.txt") + " *") << "counted under other rules";
  Do("Take settings of the run back");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "old");
  EXPECT_EQ(ItemOf("cboPhraseLength_0"), 0);
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("whale.txt"));
  EXPECT_EQ(TabText(0), NameOfOpened("whale.txt"));
  EXPECT_EQ(Command("Keep run...").isEnabled(), true) << "it can be kept again";
}

TEST_F(KeptRunsOfAWindow, LeadToTheirFilesAgain) {
  View = RunView::Table;
  ASSERT_TRUE(Start());
  CountText("whale.txt", kWhale);
  Open(Keep("mine.korvrun"));
  const ResultFrame& frame = *main->Panels().Frame;
  const auto untilShown = [&] {
    UntilIdle();
    while (!frame.Table->Idle() || !frame.Contexts->Idle())
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  };
  untilShown();
  ASSERT_EQ(frame.Table->tblPhrases->model()->rowCount(), 1);
  frame.Table->tblPhrases->GoTo(0);
  QTest::keyClick(frame.Table->tblPhrases, Qt::Key_Return);
  untilShown();
  EXPECT_EQ(TextOf("txbContextPhrase"), "the white whale swam");
  EXPECT_THAT(TextOf("lblContextCount"), HasSubstr("2 occurrences"));
}

TEST_F(KeptRunsOfAWindow, ShowTheSamePictures) {
  View = RunView::Pictures;
  ASSERT_TRUE(Start());
  CountText("whale.txt", kWhale);
  const PicturesPane& pictures = *main->Panels().Frame->Pictures;
  const auto described = [&] {
    UntilIdle();
    while (!pictures.Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return pictures.picCanvas->accessibleDescription().toStdString();
  };
  const std::string before = described();
  EXPECT_THAT(before, HasSubstr("the white whale swam"));
  const std::string path = Keep("mine.korvrun");
  std::filesystem::remove(PathFromText(PathOf("whale.txt")));
  CountText("man.txt", kMan);
  EXPECT_THAT(described(), HasSubstr("the old man wept"));
  Open(path);
  EXPECT_EQ(described(), before);
}

TEST_F(KeptRunsOfAWindow, AnswerWhyAPhraseIsNotListed) {
  CountText("whale.txt", kWhale);
  Open(Keep("mine.korvrun"));
  const ContextsPane& contexts = *main->Panels().Frame->Contexts;
  const auto answer = [&](const char* phrase) {
    Type("txbContextPhrase", phrase);
    UntilIdle();
    Click("cmdWhy");
    while (!contexts.Why->Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return TextOf("lblNote_Why");
  };
  EXPECT_THAT(answer("white whale"), HasSubstr("2 words"));
  EXPECT_THAT(answer("white shark swam away"), HasSubstr("shark"));
}

TEST_F(KeptRunsOfAWindow, KeepWhatWasLeftOut) {
  CountText("whale.txt", kWhale);
  main->Result().InFront()->LeftOut = {PhraseIndex{1}};
  const std::string path = Keep("mine.korvrun");
  Open(path);
  EXPECT_EQ(main->Result().InFront()->LeftOut, (std::vector<PhraseIndex>{PhraseIndex{1}}));
  bool chip = false;
  for (const QAbstractButton* button : main->findChildren<QAbstractButton*>())
    chip = chip || button->text().startsWith(QLatin1String("1 phrase left out"));
  EXPECT_TRUE(chip);
}

TEST_F(KeptRunsOfAWindow, AreOpenedByNameAndWriteNoOutputFile) {
  CountText("whale.txt", kWhale);
  const std::string path = Keep("Mine.KORVRUN");
  Type("txbFile_1", PathOf("out.txt"));
  const std::string source = TextOf("txbFile_0");
  main->OpenPaths({ToQt(path)});
  UntilIdle();
  EXPECT_EQ(Tabs().count(), 2);
  EXPECT_EQ(TextOf("txbFile_0"), source) << "it is no text to be counted";
  EXPECT_FALSE(files->FileExists(PathFromText(PathOf("out.txt"))));
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
}

TEST_F(KeptRunsOfAWindow, ThatCannotBeOpenedAreToldAndChangeNothing) {
  CountText("whale.txt", kWhale);
  std::string bytes = ReadFile(Keep("mine.korvrun"));
  const std::string listed = Output();
  bytes[bytes.size() / 2] ^= 1;
  struct Case {
    const char* Name;
    std::string Bytes;
    const char* Text;
  };
  const Case cases[] = {
      {"text.korvrun", kWhale, "This is no kept run."},
      {"damaged.korvrun", bytes, "This kept run is damaged: what it holds is not what was written."},
      {"short.korvrun", bytes.substr(0, 100),
       "The end of this kept run is missing: it was not copied or written wholly."},
  };
  for (const Case& c : cases) {
    messages.Forget();
    const std::string path = WriteFile(c.Name, c.Bytes);
    Open(path);
    EXPECT_EQ(messages.Only().Text, c.Text);
    EXPECT_EQ(messages.Only().Title, "Open kept run");
    EXPECT_EQ(messages.Only().Icon, Icon::Exclamation);
    EXPECT_EQ(messages.Only().Addition, path);
    EXPECT_EQ(Tabs().count(), 1);
    EXPECT_EQ(Output(), listed);
    EXPECT_EQ(TextOf("lblStatusText"), "");
  }
}

TEST_F(KeptRunsOfAWindow, AreNotKeptOverTheirText) {
  CountText("whale.txt", kWhale);
  messages.Forget();
  Keep("whale.txt");
  EXPECT_EQ(messages.Only().Title, "Keep run");
  EXPECT_EQ(messages.Only().Text, "This file is one of those that were counted. Please choose another one.");
  EXPECT_EQ(ReadFile(PathOf("whale.txt")), kWhale);
}

TEST_F(KeptRunsOfAWindow, AreStoppedWithoutAQuestionAndLoseNothing) {
  OpenWithEveryTurn();
  CountText("whale.txt", kWhale);
  const std::string path = Keep("mine.korvrun");
  const std::string bytes = ReadFile(path);
  messages.Forget();
  for (const char* command : {"Keep run...", "Open kept run..."}) {
    bool asked = false;
    AtTheNextTurn([&] {
      asked = true;
      EXPECT_EQ(TextOf("cmdCountPhrases"), "stop");
      EXPECT_THAT(TextOf("lblStatusText"), HasSubstr("kept run . . ."));
      Click("cmdCountPhrases");
    });
    dialogs.WillChoose(path);
    Command(command).trigger();
    UntilIdle();
    EXPECT_TRUE(asked);
    EXPECT_EQ(TextOf("lblStatusText"), "Stopped") << command;
    EXPECT_EQ(Tabs().count(), 1);
    EXPECT_EQ(ReadFile(path), bytes);
  }
  EXPECT_THAT(WindowTest::Shown(), testing::IsEmpty());
}

}  // namespace
}  // namespace korv
