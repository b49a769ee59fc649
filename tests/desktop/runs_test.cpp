// A run in the window: from the click on "Count phrases" to its report, and stopping it.

#include <QProgressBar>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <set>
#include <stdexcept>

#include "app/run/questions.h"
#include "desktop/questions.h"
#include "sources/questions.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const char* const kText =
    "The white whale swam. The white whale swam away from the old man. The old man saw it, and the old man "
    "wept.\n";

class Runs : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
};

TEST_F(Runs, CountAFileAndListItsPhrases) {
  UseFile(kText);
  Choose("cboPhraseLength_0", 0);
  Choose("cboPhraseLength_1", 1);
  Count();
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_THAT(Output(),
              testing::StartsWith("There are 3 phrases with 2 to 3 words which occur at least twice."));
  EXPECT_THAT(Output(), HasSubstr("    3  the old man\n"));
  EXPECT_THAT(TextOf("lblNumberOfWords"), HasSubstr("Number of phrases in this list:"));
  EXPECT_THAT(TextOf("lblNumOccurrences"), HasSubstr("No. of instances of phrases in this list: "));
  EXPECT_THAT(TextOf("lblStatusWords"), testing::EndsWith(" words"));
  EXPECT_EQ(TextOf("cmdCountPhrases"), "Count phrases");
}

TEST_F(Runs, RefuseLengthsThatContradictEachOther) {
  UseFile(kText);
  Choose("cboPhraseLength_0", 5);
  Choose("cboPhraseLength_1", 4);
  Count();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Invalid input | The maximum number of words in each phrase\n"
                                               "must not be less than the minimum number."));
  EXPECT_FALSE(main->Result().HasResult());
  Choose("cboPhraseLength_1", 5);
  Count();
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(Runs, AdviseAHigherMinimumFrequency) {
  std::string text;
  while (text.size() < 52 * 1024) text += kText;
  UseFile(text);
  Choose("cboMinimumFrequency", 0);
  messages.WillAnswer(questions::kMinimumFrequency, Answer::No);
  Count();
  EXPECT_EQ(TextOf("cboMinimumFrequency"), "1");
  EXPECT_THAT(Output(), HasSubstr("occur at least once"));
  messages.WillAnswer(questions::kMinimumFrequency, Answer::Yes);
  Count();
  EXPECT_EQ(TextOf("cboMinimumFrequency"), "2");
  EXPECT_THAT(Output(), HasSubstr("occur at least twice"));
}

TEST_F(Runs, KeepTheFilterOrEmptyIt) {
  UseFile(kText);
  Choose("cboPhraseLength_0", 0);
  Type("txbFilterWords", "whale");
  messages.WillAnswer(questions::kKeepFilter, Answer::Yes);
  Count();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Filter results? | Do you wish to keep the filter settings?"));
  EXPECT_THAT(Output(), HasSubstr("Phrase filtering (all filter words) has been applied."));
  EXPECT_THAT(Output(), Not(HasSubstr("old man")));
  messages.WillAnswer(questions::kKeepFilter, Answer::No);
  Count();
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_THAT(Output(), HasSubstr("old man"));
}

TEST_F(Runs, LockWhatMustNotBeUsedAndOfferToStop) {
  UseLongText();
  Type("txbFolder", FolderPath());
  bool looked = false;
  DuringTheRun([&] {
    looked = true;
    EXPECT_EQ(TextOf("cmdCountPhrases"), "stop");
    EXPECT_TRUE(Enabled("cmdCountPhrases"));
    main->Timer1_Timer();
    for (const char* name :
         {"cmdClipboardViewer", "cmdHelp", "cmdSetParameters", "cmdClearOutput", "cmdClearFile_0",
          "cmdClearFolder", "txbFileFilepathSpecifications_0", "txbFileFilepathSpecifications_1",
          "cmdListFiles", "cmdSaveState", "fraIgnoreTheseWords", "fraAllowWords", "fraIgnoreWords",
          "fraStateFile", "fraOptions", "cmdSetOrClearCheckboxes_0", "cmdSetOrClearCheckboxes_1",
          "cmdRestoreDefaults"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    EXPECT_TRUE(main->Panels().Run->Timer2->isActive());
    EXPECT_EQ(TextOf("lblTimeElapsed"), "Time elapsed: 0s");
    EXPECT_TRUE(WindowTest::Shown("lblTimeElapsed"));
    clock.Step = std::chrono::hours(1);
    main->Run().Timer2_Timer();
    clock.Step = std::chrono::seconds(0);
    EXPECT_EQ(TextOf("lblTimeElapsed"), "Time elapsed: 1h 0m 0s");
    EXPECT_EQ(TipOf("lblTimeElapsed"), "1 hour, 0 minutes and 0 seconds");
    EXPECT_THAT(TextOf("lblNumberOfWords"),
                testing::StartsWith("Number of different phrases found so far: "));
    EXPECT_THAT(Output(), testing::EndsWith(". "));
  });
  Count();
  EXPECT_TRUE(looked);
  EXPECT_EQ(TextOf("cmdCountPhrases"), "Count phrases");
  EXPECT_FALSE(main->Panels().Run->Timer2->isActive());
  for (const char* name : {"cmdHelp", "cmdSetParameters", "cmdSaveState", "fraOptions", "optFolder"}) {
    EXPECT_TRUE(Enabled(name)) << name;
  }
}

TEST_F(Runs, LetTheKeysOfTheSettingsWindowRest) {
  UseLongText();
  const auto keysAtWork = [this] {
    std::set<std::string> keys;
    for (const QShortcut* shortcut : main->Params().findChildren<QShortcut*>()) {
      if (shortcut->isEnabled())
        keys.insert(shortcut->key().toString(QKeySequence::PortableText).toStdString());
    }
    return keys;
  };
  std::set<std::string> during;
  DuringTheRun([&] { during = keysAtWork(); });
  Count();
  EXPECT_THAT(during, ElementsAre("Esc"));
  EXPECT_THAT(keysAtWork(), ElementsAre("Ctrl+S", "Esc", "F1"));
}

TEST_F(Runs, TellHowManyPhrasesTheyHaveFoundAtEveryTick) {
  OpenWithEveryTurn();
  std::string text;
  for (int i = 0; i < 1235; ++i) {
    std::string word;
    for (int rest = i + 1; rest > 0; rest /= 26) word += static_cast<char>('a' + rest % 26);
    text += "the word" + word + ".\n";
  }
  UseFile(text);
  Choose("cboPhraseLength_0", 0);
  Choose("cboPhraseLength_1", 0);
  Choose("cboMinimumFrequency", 0);
  std::string last;
  AtEveryTurn([&] {
    if (everyTurn.Calls % 50 != 0 || !Output().starts_with("Now ")) return;
    main->Run().Timer2_Timer();
    last = TextOf("lblNumberOfWords");
  });
  Count();
  EXPECT_EQ(last, "Number of different phrases found so far: 1,235");
}

TEST_F(Runs, ShowASignOfLifeAtEveryTickWhileTheBoxIsShort) {
  OpenWithEveryTurn();
  UseFile(kText);
  bool looked = false;
  AtTheNextTurn([&] {
    looked = true;
    const std::string before = Output();
    main->Run().Timer2_Timer();
    main->Run().Timer2_Timer();
    EXPECT_EQ(Output(), before + ". . ");
    Find<QCheckBox>("chkSuppressWords")->setChecked(false);
    main->Run().Timer2_Timer();
    EXPECT_EQ(Output(), before + ". . ");
    Find<QCheckBox>("chkSuppressWords")->setChecked(true);
    // A line break counts twice.
    const auto length = [this] {
      return Output().size() + static_cast<size_t>(std::ranges::count(Output(), '\n'));
    };
    main->Panels().Result->Output().OutputToTxb(std::string(2999 - length(), 'x'));
    main->Run().Timer2_Timer();
    EXPECT_EQ(length(), 3001U);
    main->Run().Timer2_Timer();
    EXPECT_EQ(length(), 3001U);
    main->Panels().Run->Timer2->setInterval(0);
    main->Panels().Result->Output().Clear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Output().starts_with(". "); })) << "the timer itself";
  });
  Count();
  EXPECT_TRUE(looked);
}

/// Fills the box to its end.
void Fill(OutputBox& box) {
  std::string lines;
  for (int i = 0; i < 20; ++i) lines += std::string(98, 'x') + "\r\n";
  while (box.OutputToTxb(lines)) {
  }
}

TEST_F(Runs, TellHowFarAFolderWasReadWhenTheBoxIsFull) {
  OpenWithEveryTurn();
  for (const char* name : {"texts/a.txt", "texts/b.txt", "texts/sub/c.txt", "texts/sub/d.txt"}) {
    WriteFile(name, kText);
  }
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Check("chkIncludeSubfolders");
  Type("txbFile_1", PathOf("out.txt"));
  std::string full;
  AtEveryTurn([&] {
    if (!full.empty() || !TextOf("txbFile_0").ends_with("d.txt")) return;
    Fill(main->Panels().Result->Output());
    full = Output();
    main->Run().tmrProgress_Timer();
    EXPECT_EQ(TextOf("lblStatusFiles"), "3 files in 2 folders");
  });
  Count();
  EXPECT_THAT(full, testing::EndsWith("\n\nTextbox is full.\n\nTo this point: 3 files in 2 folders"));

  Click("optInFile");
  UseFile(kText);
  AtTheNextTurn([&] {
    Fill(main->Panels().Result->Output());
    full = Output();
  });
  Count();
  EXPECT_THAT(full, testing::EndsWith("\n\nTextbox is full."));
}

TEST_F(Runs, ShowTheFilesOfAFolderInTheBoxWithoutSettingIt) {
  OpenWithEveryTurn();
  for (const char* name : {"texts/a.txt", "texts/b.txt"}) WriteFile(name, kText);
  Type("txbFile_0", "/before.txt");
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Type("txbFile_1", PathOf("out.txt"));
  bool passed = false;
  AtEveryTurn([&] {
    if (!TextOf("txbFile_0").ends_with("b.txt")) return;
    passed = true;
    EXPECT_EQ(main->Work().Current().InputFile, "/before.txt");
  });
  Count();
  EXPECT_TRUE(passed);
  EXPECT_EQ(TextOf("txbFile_0"), "/before.txt");
}

TEST_F(Runs, AreToldOfInABoxThatWasFull) {
  OpenWithEveryTurn();
  UseFile(kText);
  Count();
  Fill(main->Panels().Result->Output());
  std::string during;
  AtTheNextTurn([&] { during = Output(); });
  Count();
  EXPECT_EQ(during, "Now counting phrases in\n\n" + PathOf("text.txt") + "\n");
}

TEST_F(Runs, LeaveTheUnreadableFoldersInTheBox) {
  FakeFiles& disk = OpenOnFakeFiles();
  disk.Add("/texts/a.txt", kText);
  disk.Add("/texts/locked/b.txt", kText);
  disk.Refuse("/texts/locked", FileFault::PermissionDenied);
  Click("optFolder");
  Type("txbFolder", "/texts");
  Check("chkIncludeSubfolders");
  Choose("cboPhraseLength_0", 1);
  Count();
  EXPECT_THAT(Output(),
              testing::StartsWith("1 file (in 1 folder) was scanned.\nFolder " + Below("/texts", "locked") +
                                  " cannot be read (Permission denied).\nThere are "));
}

TEST_F(Runs, TakeTheFilterWordsAsTheyStandThere) {
  UseFile(kText);
  Choose("cboPhraseLength_0", 0);
  messages.WillAnswer(questions::kKeepFilter, Answer::Yes);
  // A key starts the run while the box has the focus.
  Find<QLineEdit>("txbFilterWords")->setText(QStringLiteral("WHALE,"));
  Count();
  EXPECT_EQ(TextOf("txbFilterWords"), "whale");
  EXPECT_THAT(Output(), HasSubstr("Filter words: whale\n"));
  EXPECT_EQ(WindowTest::Shown().size(), 1U);
  Find<QLineEdit>("txbFilterWords")->setText(QStringLiteral(","));
  Count();
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_THAT(Output(), Not(HasSubstr("Filter words")));
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(Runs, GiveTheFocusToTheButtonThatStopsThemUnlessItIsWhereItMayStay) {
  const auto focused = [&] { return main->focusWidget()->objectName().toStdString(); };
  for (const auto& [before, during] : {std::pair("cmdCountPhrases", "cmdCountPhrases"),
                                       {"txbFile_0", "cmdCountPhrases"},
                                       {"cboDisplayFormat", "cboDisplayFormat"}}) {
    UseLongText();
    Find<QWidget>(before)->setFocus();
    DuringTheRun([&] { EXPECT_EQ(focused(), during); });
    Count();
    EXPECT_EQ(focused(), during);
  }
}

TEST_F(Runs, MoveTheProgressBarAndTheTwirler) {
  UseLongText();
  auto* bar = Find<QProgressBar>("prgProgress");
  std::set<std::string> frames;
  int furthest = 0;
  QTimer tick;
  QObject::connect(&tick, &QTimer::timeout, main.get(), [&] {
    const Looking looking(*this);
    if (!main->Running()) return;
    main->Run().tmrProgress_Timer();
    frames.insert(TextOf("lblTwirler"));
    EXPECT_GE(bar->value(), furthest);
    furthest = bar->value();
  });
  tick.start(0);
  Count();
  EXPECT_GT(furthest, 0);
  EXPECT_GT(frames.size(), 1U);
  EXPECT_FALSE(frames.contains(""));
  EXPECT_EQ(TextOf("lblTwirler"), "");
}

TEST_F(Runs, GoOnWhenTheStopIsTakenBack) {
  UseLongText();
  messages.WillAnswer(questions::kReallyStop, Answer::No);
  DuringTheRun([&] { Count(); });
  Count();
  const auto shown = WindowTest::Shown();
  ASSERT_FALSE(shown.empty());
  EXPECT_THAT(shown.back(), HasSubstr("Really stop?"));
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(Runs, ListWhatWasFoundBeforeAStop) {
  UseLongText();
  messages.WillAnswer(questions::kReallyStop, Answer::Yes);
  messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
  bool stopped = false;
  DuringTheRun([&] {
    stopped = true;
    Count();
  });
  Count();
  EXPECT_TRUE(stopped);
  EXPECT_THAT(
      WindowTest::Shown(),
      testing::Contains("Counting interrupted | The operation was stopped before all phrases were counted."
                        "\nDo you wish to list those which were were found?"));
  EXPECT_TRUE(main->Result().HasResult());
  EXPECT_THAT(Output(), testing::StartsWith("There "));
}

TEST_F(Runs, SayStoppedWhenWhatWasFoundIsNotWanted) {
  UseLongText();
  messages.WillAnswer(questions::kReallyStop, Answer::Yes);
  messages.WillAnswer(questions::kCountingInterrupted, Answer::No);
  DuringTheRun([&] { Count(); });
  Count();
  EXPECT_FALSE(main->Result().HasResult());
  EXPECT_THAT(Output(), HasSubstr("Counting of all phrases was stopped."));
  EXPECT_THAT(Output(), HasSubstr("Stopped"));
  EXPECT_EQ(TextOf("cmdCountPhrases"), "Count phrases");
}

TEST_F(Runs, WriteNoSignOfLifeWhileTheirSourceIsChecked) {
  FakeFiles& disk = OpenOnFakeFiles();
  disk.AddFolder("/empty");
  Click("optFolder");
  Type("txbFolder", "/empty");
  int ticks = 0;
  disk.BeforeListing = [&](const std::filesystem::path&) {
    InTheWindow([&] {
      ++ticks;
      main->Run().Timer2_Timer();
    });
  };
  Count();
  EXPECT_GT(ticks, 0);
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Nothing to do | Folder contains no files."));
  EXPECT_EQ(Output(), "");
  EXPECT_THAT(TextOf("lblNumberOfWords"), Not(HasSubstr("so far")));
}

TEST_F(Runs, EndWithoutFurtherQuestionsWhenTheWindowIsClosed) {
  UseLongText();
  messages.WillAnswer(questions::kReallyQuit, Answer::Yes);
  DuringTheRun([&] { main->close(); });
  Count();
  const auto shown = WindowTest::Shown();
  EXPECT_EQ(shown.back(), "Quit | Really quit?");
  EXPECT_TRUE(QTest::qWaitFor([this] { return !main->isVisible(); }));
}

TEST_F(Runs, TellOfAStateThatCannotBeSavedBeforeTheyEndTheWindow) {
  UseLongText();
  Check("chkSaveStateOnQuit");
  Type("txbFolder", "a \"quoted\" name");
  messages.WillAnswer(questions::kReallyQuit, Answer::Yes);
  DuringTheRun([&] { Click("cmdQuit"); });
  Count();
  messages.Forget();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !main->isVisible(); }));
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(testing::StartsWith("Save state | Error when attempting to save state: ")));
}

TEST_F(Runs, StayInTheirWindowWhenClosingItIsTakenBack) {
  UseLongText();
  messages.WillAnswer(questions::kReallyQuit, Answer::No);
  DuringTheRun([&] { main->close(); });
  Count();
  EXPECT_TRUE(main->isVisible());
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(Runs, LetTheEventsOfTheWindowPassWhileTheyCount) {
  UseLongText();
  int turns = 0;
  QTimer heartbeat;
  QObject::connect(&heartbeat, &QTimer::timeout, main.get(), [&] {
    const Looking looking(*this);
    if (main->Running()) ++turns;
  });
  heartbeat.start(0);
  Count();
  EXPECT_GT(turns, 3);
}

TEST_F(Runs, TakeTheWordRulesOfTheSettingsWindow) {
  UseFile("one x2 two, one x2 two");
  Choose("cboPhraseLength_0", 0);
  Choose("cboPhraseLength_1", 0);
  Count();
  EXPECT_THAT(Output(), HasSubstr("one two"));
  Check("chkAllowWordsWithNumerals");
  Check("chkIgnoreShortWords", false);
  Count();
  EXPECT_THAT(Output(), HasSubstr("x2 two"));
}

TEST_F(Runs, LeaveTheWindowUsableAfterAnErrorThatNobodyForesaw) {
  const auto handler =
      Guarded(messages, "cmdFile_Click", [] { throw std::runtime_error("the disk is on fire"); });
  handler();
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(HasSubstr("At cmdFile_Click error # 5.\nDescription: the disk is on fire")));
  const auto hungry = Guarded(messages, "cmdFile_Click", [] { throw std::bad_alloc(); });
  hungry();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("Insufficient memory")));
  UseFile(kText);
  Count();
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(Runs, TellHowManyWordsWereExcluded) {
  UseFile("we saw it and we saw it again");
  Count();
  EXPECT_EQ(TextOf("lblNumWordsExcluded"), "Number of words excluded: 4");
  UseFile("they saw the whale and they saw the whale again");
  Count();
  EXPECT_EQ(TextOf("lblNumWordsExcluded"), "");
}

TEST_F(Runs, TellWhatTheyCounted) {
  UseFile("the old man. the old man.\n");
  Choose("cboPhraseLength_0", 0);
  Choose("cboPhraseLength_1", 0);
  Count();
  EXPECT_EQ(TextOf("lblTotalNumOccurrences"), "This is a Unix-type file.");
  EXPECT_EQ(TextOf("lblStatusWords"), "6 words");
  EXPECT_EQ(TextOf("lblStatusPhrases"), "2 different phrases");
  EXPECT_FALSE(WindowTest::Shown("lblStatusFiles"));
  Click("optOnClipboard");
  clipboard.Content = "the man. the man.";
  Count();
  EXPECT_EQ(TextOf("lblTotalNumOccurrences"), "Total number of phrase occurrences: 2");
  EXPECT_EQ(TextOf("lblStatusPhrases"), "1 different phrase");
}

}  // namespace
}  // namespace korv
