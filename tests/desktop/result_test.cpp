// What stands above a result: its source, what restricts it, what it does not agree with, and the ways out.

#include <QProgressBar>
#include <QScrollBar>
#include <QToolButton>
#include <filesystem>
#include <utility>

#include "app/run/questions.h"
#include "desktop/questions.h"
#include "desktop/results/result_notes_panel.h"
#include "sources/questions.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/matches.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const char* const kText = "The white whale swam. The white whale swam. The old man wept, the old man wept.\n";

class Result : public WindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    PhrasesOf(3, 3);
  }
  void PhrasesOf(int least, int most) {
    Choose("cboPhraseLength_0", least - 2);
    Choose("cboPhraseLength_1", most - 2);
  }
  void CountText(const std::string& text = kText) {
    UseFile(text);
    Count();
    ASSERT_TRUE(main->Result().HasResult());
  }
  void UseFolder() {
    WriteFile("texts/a.txt", kText);
    WriteFile("texts/b.txt", kText);
    Click("optFolder");
    Type("txbFolder", PathOf("texts"));
  }
  void CountFolder() {
    UseFolder();
    messages.WillAnswer(questions::kSeveralFiles, Answer::Extra);
    Count();
    ASSERT_TRUE(main->Result().HasResult());
    messages.Forget();
  }
  /// More phrases than the box has room for.
  static std::string ManyPhrases() {
    std::string text;
    for (int i = 1; i <= 6000; ++i) {
      std::string word = "w";
      for (int rest = i; rest > 0; rest /= 26) word += static_cast<char>('a' + rest % 26);
      // No phrase may stand within another one.
      text += word + "x tail" + word + "x. ";
    }
    return text + "\n" + text;
  }
  void CountManyPhrases() {
    messages.WillAnswer(questions::kLargeInput, Answer::No);
    PhrasesOf(2, 2);
    CountText(ManyPhrases());
  }

  /// Kinds of the notes that stand there, in order.
  std::vector<std::string> Kinds() const {
    std::vector<std::string> kinds;
    for (const QLabel* label : Find<QWidget>("notes")->findChildren<QLabel*>()) {
      if (label->objectName().startsWith(QLatin1String("lblNote_")))
        kinds.push_back(label->objectName().mid(8).toStdString());
    }
    return kinds;
  }
  bool Noted(const std::string& kind) const {
    const auto kinds = Kinds();
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
  }
  std::string Note(const std::string& kind) const { return TextOf(("lblNote_" + kind).c_str()); }
  void Take(const std::string& kind, const std::string& action) const {
    Click(("cmdNote_" + kind + "_" + action).c_str());
  }
};

TEST_F(Result, HasNoNotesBeforeThereIsOne) {
  EXPECT_THAT(Kinds(), IsEmpty());
  EXPECT_FALSE(WindowTest::Shown("notes"));
  EXPECT_FALSE(WindowTest::Shown("prgProgress"));
}

TEST_F(Result, SaysWhichSourceItIsOf) {
  CountText();
  EXPECT_THAT(Kinds(), ElementsAre("Source"));
  EXPECT_TRUE(WindowTest::Shown("notes"));
  EXPECT_EQ(Note("Source"), "Phrases of text.txt");
  EXPECT_EQ(TipOf("lblNote_Source"), PathOf("text.txt"));
  Click("optOnClipboard");
  clipboard.Content = kText;
  Count();
  EXPECT_EQ(Note("Source"), "Phrases of the text on the clipboard");
  CountFolder();
  EXPECT_EQ(Note("Source"), "Phrases of the folder texts: 2 files in 1 folder");
}

TEST_F(Result, IsNamedInTheTitleBeforeItIsCounted) {
  EXPECT_EQ(main->windowTitle().toStdString(), "Korv");
  Type("txbFile_0", PathOf("text.txt"));
  EXPECT_EQ(main->windowTitle().toStdString(), "text.txt - Korv");
  Click("optOnClipboard");
  EXPECT_EQ(main->windowTitle().toStdString(), "Clipboard - Korv");
  UseFolder();
  EXPECT_EQ(main->windowTitle().toStdString(), "texts - Korv");
  Type("txbFolder", "");
  EXPECT_EQ(main->windowTitle().toStdString(), "Korv");
}

// ---- What is chosen and what is shown

TEST_F(Result, FollowsWhatIsChosenWhileItIsListed) {
  OpenWithEveryTurn();
  PhrasesOf(3, 3);
  CountText();
  AtTheNextTurn([this] { Choose("cboDisplayFormat", 8); });
  Choose("cboDisplayFormat", 5);
  QApplication::processEvents();
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe old man\n"));
  AtTheNextTurn([this] {
    Find<QLineEdit>("txbFilterWords")->setText(QStringLiteral("whale"));
    Click("cmdFilterResults");
  });
  Choose("cboWordOrder", 1);
  QApplication::processEvents();
  EXPECT_THAT(Output(), HasSubstr("Filter words: whale\n"));
  EXPECT_THAT(Output(), Not(HasSubstr("old man")));
  EXPECT_THAT(Kinds(), ElementsAre("Source", "Filter"));
}

TEST_F(Result, FollowsTheFormatThatAnotherSourceBrings) {
  CountFolder();
  Choose("cboDisplayFormat", 10);
  EXPECT_THAT(Output(), HasSubstr(" Files"));
  Click("optInFile");
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_THAT(Output(), HasSubstr(" Rank  Freq  Phrase"));
  EXPECT_THAT(Output(), Not(HasSubstr(" Files")));
  EXPECT_EQ(Note("OtherSource"), "Another source is chosen now.");
  EXPECT_FALSE(Noted("OtherReport"));
  Click("optFolder");
  EXPECT_FALSE(Noted("OtherSource"));
}

TEST_F(Result, OfAFileThatWasWrittenIsMarkedAndNotWrittenAgainUnasked) {
  UseFolder();
  Type("txbFile_1", PathOf("out.txt"));
  Choose("cboDisplayFormat", 10);
  Count();
  const std::string written = ReadFile(PathOf("out.txt"));
  EXPECT_THAT(written, HasSubstr(" Files"));
  Click("optInFile");
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_EQ(ReadFile(PathOf("out.txt")), written);
  EXPECT_EQ(Note("OtherReport"), "This list has another order or format than the one chosen now.");
  Take("OtherReport", "ListAnew");
  EXPECT_THAT(ReadFile(PathOf("out.txt")), Not(HasSubstr(" Files")));
  EXPECT_FALSE(Noted("OtherReport"));
}

TEST_F(Result, FollowsReinitialize) {
  CountFolder();
  Choose("cboDisplayFormat", 12);
  Check("chkSortByNumberOfFiles");
  Choose("cboWordOrder", 1);
  Type("txbFilterWords", "whale");
  Click("cmdFilterResults");
  Click("cmdInitialize");
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_THAT(Output(), HasSubstr(" Rank  Freq  Phrase"));
  EXPECT_THAT(Output(), HasSubstr("old man"));
  EXPECT_FALSE(Noted("OtherReport"));
  EXPECT_FALSE(Noted("Filter"));
}

TEST_F(Result, FollowsLoadedSettings) {
  CountText();
  Choose("cboDisplayFormat", 8);
  dialogs.WillChoose(PathOf("a.korv"));
  main->Params().cmdSaveLoadState_Click(1);
  Choose("cboDisplayFormat", 0);
  EXPECT_THAT(Output(), HasSubstr(" Rank  Freq  Phrase"));
  dialogs.WillChoose(PathOf("a.korv"));
  main->Params().cmdSaveLoadState_Click(0);
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 8);
  EXPECT_THAT(Output(), Not(HasSubstr("Rank")));
  EXPECT_FALSE(Noted("OtherReport"));
}

TEST_F(Result, FollowsSettingsThatAreOpenedLikeADroppedFile) {
  CountText();
  Choose("cboDisplayFormat", 8);
  dialogs.WillChoose(PathOf("a.korv"));
  main->Params().cmdSaveLoadState_Click(1);
  Choose("cboDisplayFormat", 0);
  main->OpenPaths({QString::fromStdString(PathOf("a.korv"))});
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 8);
  EXPECT_THAT(Output(), Not(HasSubstr("Rank")));
  EXPECT_FALSE(Noted("OtherReport"));
}

TEST_F(Result, IsMarkedWhileTheRulesDifferAndNoLongerOnceThatIsUndone) {
  CountText();
  EXPECT_FALSE(Noted("OtherRules"));
  for (const char* button : {"cmdSetOrClearCheckboxes_0", "cmdSetOrClearCheckboxes_1"}) {
    Click(button);
    EXPECT_EQ(Note("OtherRules"), "Counted under other rules than those chosen now: word rules.") << button;
    Click("cmdUndo");
    EXPECT_FALSE(Noted("OtherRules")) << button;
  }
}

TEST_F(Result, FollowsTheUntickedFileListBox) {
  CountFolder();
  Check("chkFileList");
  EXPECT_THAT(Output(), HasSubstr(" Files"));
  Check("chkFileList", false);
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_THAT(Output(), Not(HasSubstr(" Files")));
}

TEST_F(Result, IsMarkedWhenItWasCountedUnderOtherRules) {
  CountText();
  messages.WillAnswer(questions::kRereadSource, Answer::Yes);
  Click("chkAllowWordsWithNumerals");
  EXPECT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(Note("OtherRules"), "Counted under other rules than those chosen now: word rules.");
  // What is in full view still obeys.
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe old man\n"));
  Type("txbFilterWords", "whale");
  Click("cmdFilterResults");
  EXPECT_THAT(Output(), Not(HasSubstr("old man")));
  EXPECT_TRUE(Noted("OtherRules"));
  // It is asked about once.
  messages.Forget();
  Click("chkAllowWordsWithColons");
  EXPECT_THAT(messages.Shown, IsEmpty());
  PhrasesOf(2, 4);
  Choose("cboMinimumFrequency", 0);
  EXPECT_EQ(
      Note("OtherRules"),
      "Counted under other rules than those chosen now: phrase lengths, minimum frequency, word rules.");
  messages.WillAnswer(questions::kKeepFilter, Answer::No);
  Take("OtherRules", "CountAgain");
  EXPECT_THAT(Kinds(), ElementsAre("Source"));
  EXPECT_THAT(Output(), StartsWith("There are"));
  // And what is taken back differs no more.
  Choose("cboMinimumFrequency", 1);
  EXPECT_TRUE(Noted("OtherRules"));
  Choose("cboMinimumFrequency", 0);
  EXPECT_FALSE(Noted("OtherRules"));
}

TEST_F(Result, IsMarkedWhenOtherWordsAreToBeIgnored) {
  CountText();
  Click("optRemoveWordsToIgnore");
  EXPECT_FALSE(Noted("OtherRules")) << "no words to ignore, no difference";
  Type("txbWordsToIgnoreOrCount_0", "the");
  EXPECT_EQ(Note("OtherRules"), "Counted under other rules than those chosen now: words to ignore.");
  Count();
  EXPECT_FALSE(Noted("OtherRules"));
  Click("optAllowPhrasesAllWordsToIgnore");
  EXPECT_TRUE(Noted("OtherRules"));
}

// ---- The filter

TEST_F(Result, TellsHowManyPhrasesMatchAndShowsAllAgain) {
  CountText();
  Type("txbFilterWords", "whale");
  EXPECT_EQ(Note("OtherFilter"), "The filter words below are not applied to this list.");
  Take("OtherFilter", "FilterResults");
  EXPECT_EQ(Note("Filter"), "Filtered by \"whale\" (all words): 2 of 4 phrases match.");
  EXPECT_FALSE(Noted("OtherFilter"));
  Take("Filter", "ShowAll");
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_THAT(Output(), HasSubstr("old man wept"));
  EXPECT_THAT(Kinds(), ElementsAre("Source"));
}

TEST_F(Result, FiltersAgainInAnotherMode) {
  CountText();
  Choose("cboDisplayFormat", 8);
  Type("txbFilterWords", "whale white");
  Click("cmdFilterResults");
  EXPECT_THAT(Output(), HasSubstr("\nwhite whale swam"));
  Click("optIncludeAllWordsInSameOrder");
  EXPECT_THAT(Output(), Not(HasSubstr("\nwhite whale swam")));
  EXPECT_EQ(Note("Filter"), "Filtered by \"whale white\" (all words in same order): 0 of 4 phrases match.");
  Click("optIncludeAllWordsAsSubphrase");
  EXPECT_EQ(Note("Filter"), "Filtered by \"whale white\" (as subphrase): 0 of 4 phrases match.");
  Click("optIncludeAllWords");
  EXPECT_THAT(Output(), HasSubstr("\nwhite whale swam"));
}

TEST_F(Result, StaysFilteredWhenTheWordsAreClearedAndSaysSo) {
  CountText();
  for (const bool byKey : {false, true}) {
    Type("txbFilterWords", "whale");
    Click("cmdFilterResults");
    const std::string filtered = Output();
    if (byKey) {
      auto* box = Find<QLineEdit>("txbFilterWords");
      box->setFocus();
      box->clear();
      QTest::keyClick(box, Qt::Key_Return);
    } else {
      Click("cmdClear");
    }
    EXPECT_EQ(Output(), filtered);
    EXPECT_EQ(Note("Filter"), "Still filtered by \"whale\" (all words): 2 of 4 phrases match.");
    Click("optIncludeAllWordsAsSubphrase");
    Click("optIncludeAllWords");
    EXPECT_EQ(Output(), filtered) << "no words, nothing to filter by";
    Take("Filter", "ShowAll");
    EXPECT_THAT(Output(), HasSubstr("old man wept"));
    EXPECT_FALSE(Noted("Filter"));
  }
}

TEST_F(Result, HasItsFilterClearedOnlyWhereThereIsSomethingToClear) {
  auto* box = Find<QLineEdit>("txbFilterWords");
  box->setFocus();
  for (const int key : {Qt::Key_Left, Qt::Key_Shift, Qt::Key_Backspace}) {
    QTest::keyClick(box, static_cast<Qt::Key>(key));
    EXPECT_FALSE(Enabled("cmdClear"));
  }
  QTest::keyClicks(box, "a");
  EXPECT_TRUE(Enabled("cmdClear"));
  QTest::keyClick(box, Qt::Key_Backspace);
  EXPECT_FALSE(Enabled("cmdClear"));
}

// ---- Its numbers

TEST_F(Result, HasTheNumbersOfTheWholeListWhenTheBoxIsFull) {
  CountManyPhrases();
  EXPECT_THAT(Output(), testing::EndsWith("Textbox is full."));
  EXPECT_EQ(TextOf("lblNumberOfWords"), "Number of phrases in this list:  6,000");
  EXPECT_EQ(TextOf("lblNumOccurrences"), "No. of instances of phrases in this list: 12,000");
  const std::string list = Output();
  const auto lines = [&list](size_t from, size_t to) {
    return std::count(list.begin() + static_cast<std::ptrdiff_t>(from),
                      list.begin() + static_cast<std::ptrdiff_t>(to), '\n');
  };
  const auto shown = lines(list.find('\n', list.find("Phrase [")) + 1, list.find("\n\nTextbox is full."));
  EXPECT_GT(shown, 1000);
  EXPECT_EQ(Note("Full"), NumberFormat().Grouped(shown) + " of 6,000 phrases shown: the text box is full.");
}

TEST_F(Result, OfAFullBoxIsWrittenToAFile) {
  CountManyPhrases();
  dialogs.WillChoose(PathOf("all.txt"));
  Take("Full", "WriteToFile");
  EXPECT_THAT(ReadFile(PathOf("all.txt")), HasSubstr("There are 6000 phrases"));
  EXPECT_FALSE(Noted("Full"));
  EXPECT_THAT(Note("Written"), StartsWith("6,000 phrases written to all.txt ("));
}

TEST_F(Result, StaysAsItIsWhenARunIsRefused) {
  CountText();
  const auto state = [this] {
    std::vector<std::string> texts{Output()};
    for (const char* name :
         {"lblNumberOfWords", "lblNumOccurrences", "lblTotalNumOccurrences", "lblNumWordsExcluded",
          "lblNote_Source", "lblStatusWords", "lblStatusPhrases", "lblTimeElapsed"})
      texts.push_back(TextOf(name));
    return texts;
  };
  const auto before = state();
  // Refused before anything is read, after a look at the file, and cancelled.
  Type("txbFile_0", PathOf("nowhere.txt"));
  clock.Step = std::chrono::seconds(100);
  Count();
  EXPECT_EQ(state(), before);
  Type("txbFile_0", WriteFile("zeros.txt", std::string(3000, '\0')));
  Count();
  EXPECT_EQ(state(), before);
  Type("txbFile_0", WriteFile("large.txt", std::string(210000, 'a')));
  messages.WillAnswer(questions::kLargeInput, Answer::Cancel);
  // Nor does the question stand beside numbers of a run that has not begun.
  messages.OnShow = [&](const Message&) {
    const Looking looking(*this);
    main->Run().tmrProgress_Timer();
    main->Run().Timer2_Timer();
    EXPECT_EQ(TextOf("lblStatusWords"), before[before.size() - 3]);
    EXPECT_EQ(TextOf("lblStatusPhrases"), before[before.size() - 2]);
  };
  Count();
  messages.OnShow = nullptr;
  EXPECT_EQ(messages.Shown.back().Question, questions::kLargeInput);
  EXPECT_EQ(state(), before);
  EXPECT_EQ(TextOf("lblFilesize"), "Filesize: 205.08 Kb");
  UseFolder();
  messages.WillAnswer(questions::kSeveralFiles, Answer::Ok);
  Count();
  EXPECT_EQ(state(), before);
  EXPECT_EQ(TextOf("lblFilesize"), " ");
  EXPECT_TRUE(Noted("OtherSource"));
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe old man\n"));
}

TEST_F(Result, StaysReachableWhenTheBoxIsCleared) {
  CountText();
  const std::string list = Output();
  Click("cmdClearOutput");
  EXPECT_THAT(Kinds(), ElementsAre("Source", "NotInSight"));
  EXPECT_EQ(Note("NotInSight"), "The last list is not shown.");
  for (const char* label : {"lblNumberOfWords", "lblNumOccurrences", "lblTotalNumOccurrences"})
    EXPECT_EQ(TextOf(label), " ") << label;
  EXPECT_FALSE(WindowTest::Shown("lblStatusWords"));
  Take("NotInSight", "ShowLastList");
  EXPECT_EQ(Output(), list);
  EXPECT_THAT(TextOf("lblNumberOfWords"), HasSubstr("Number of phrases in this list:"));
  EXPECT_THAT(Kinds(), ElementsAre("Source"));
}

TEST_F(Result, StaysReachableWhenANewRunIsStopped) {
  OpenWithEveryTurn();
  PhrasesOf(3, 3);
  CountText();
  const std::string list = Output();
  messages.WillAnswer(questions::kReallyStop, Answer::Yes);
  messages.WillAnswer(questions::kCountingInterrupted, Answer::No);
  AtTheNextTurn([this] { Count(); });
  Count();
  EXPECT_THAT(Output(), HasSubstr("Counting of all phrases was stopped."));
  EXPECT_THAT(TextOf("lblNumberOfWords"), Not(HasSubstr("so far")));
  EXPECT_THAT(Kinds(), ElementsAre("Source", "NotInSight"));
  Take("NotInSight", "ShowLastList");
  EXPECT_EQ(Output(), list);
}

TEST_F(Result, StaysInSightWhileAWordListIsRead) {
  OpenWithEveryTurn();
  CountManyPhrases();
  auto* bar = Find<QPlainTextEdit>("txbOutput")->verticalScrollBar();
  bar->setValue(40);
  const std::string list = Output();
  const std::string numbers = TextOf("lblNumberOfWords");
  dialogs.WillChoose(WriteFile("ignore.txt", "the\nold\n"));
  bool looked = false;
  AtTheNextTurn([&] {
    looked = true;
    EXPECT_THAT(Output(), StartsWith(list.substr(0, 1000)));
    EXPECT_EQ(TextOf("lblNumberOfWords"), numbers);
    EXPECT_EQ(bar->value(), 40);
  });
  Click("cmdSelectWordsFile");
  EXPECT_EQ(Output(), list);
  EXPECT_EQ(TextOf("lblNumberOfWords"), numbers);
  EXPECT_EQ(bar->value(), 40);
  EXPECT_TRUE(Noted("OtherRules"));
  EXPECT_TRUE(looked);
}

TEST_F(Result, OfAFolderHasNoSizeOfOneFile) {
  CountFolder();
  EXPECT_EQ(TextOf("lblFilesize"), " ");
  EXPECT_EQ(TextOf("lblXMLsize"), " ");
}

TEST_F(Result, TellsHowItsTextWasRead) {
  CountText();
  EXPECT_TRUE(WindowTest::Shown("lblStatusEncoding"));
  EXPECT_EQ(TextOf("lblStatusEncoding"), "ASCII");
  CountText("\xEF\xBB\xBFla caf\xC3\xA9 noir et la caf\xC3\xA9 noir\n");
  EXPECT_EQ(TextOf("lblStatusEncoding"), "UTF-8");
  CountText("le caf\xE9 noir et le caf\xE9 noir\n");
  EXPECT_EQ(TextOf("lblStatusEncoding"), "ANSI");
  Click("cmdClearOutput");
  EXPECT_FALSE(WindowTest::Shown("lblStatusEncoding"));
}

TEST_F(Result, ShowsProgressOnlyWhileThereIsSome) {
  OpenWithEveryTurn();
  bool shown = false;
  AtTheNextTurn([&] { shown = WindowTest::Shown("prgProgress"); });
  CountText();
  EXPECT_TRUE(shown);
  EXPECT_FALSE(WindowTest::Shown("prgProgress"));
}

/// A clock that goes on while the user thinks.
class SlowUser final : public Messages {
 public:
  SlowUser(FakeMessages& messages, FakeClock& clock) : messages_(messages), clock_(clock) {}
  Answer Show(const Message& message) override {
    clock_.Step = std::chrono::hours(1);
    clock_.Now();
    clock_.Step = std::chrono::seconds(0);
    return messages_.Show(message);
  }
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    return messages_.AskText(prompt, title, initial);
  }

 private:
  FakeMessages& messages_;
  FakeClock& clock_;
};

class ResultOfASlowUser : public Result {
 protected:
  Desktop Surroundings() override {
    const Desktop usual = WindowTest::Surroundings();
    return {.Messages = slow,
            .Dialogs = usual.Dialogs,
            .Clipboard = usual.Clipboard,
            .Launcher = usual.Launcher,
            .Files = usual.Files,
            .Loop = usual.Loop,
            .Yielder = usual.Yielder,
            .Clock = usual.Clock,
            .Numbers = {},
            .ProgramText = usual.ProgramText,
            .ProgramFolder = usual.ProgramFolder,
            .StateFile = usual.StateFile,
            .Store = usual.Store};
  }

  SlowUser slow{messages, clock};
};

TEST_F(ResultOfASlowUser, TookNoTimeForQuestions) {
  messages.WillAnswer(questions::kLargeInput, Answer::No);
  PhrasesOf(2, 2);
  CountText(ManyPhrases());
  ASSERT_THAT(messages.Shown, testing::Not(IsEmpty()));
  EXPECT_EQ(TextOf("lblTimeElapsed"), "Time elapsed: 0s");
}

// ---- Its file

TEST_F(Result, OfAFileHasLinksToTheFileAndItsFolder) {
  Type("txbFile_1", PathOf("out.txt"));
  CountText();
  EXPECT_THAT(Kinds(), ElementsAre("Source", "Written"));
  const std::string written = ReadFile(PathOf("out.txt"));
  EXPECT_EQ(Note("Written"), "4 phrases written to out.txt (" + std::to_string(written.size()) + " bytes).");
  EXPECT_EQ(TipOf("lblNote_Written"), PathOf("out.txt"));
  EXPECT_EQ(Output(),
            "Now writing to output file . . .\n4 phrases were written to " + PathOf("out.txt") + ".\n");
  Take("Written", "OpenFile");
  Take("Written", "OpenFolder");
  EXPECT_THAT(launcher.Opened, ElementsAre(PathOf("out.txt"), FolderPath()));
  launcher.Result.Fault = LaunchFault::NoAssociation;
  messages.Forget();
  Take("Written", "OpenFile");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Error | Error when opening file " + PathOf("out.txt") +
                          ".\nPerhaps the file extension has no association.\nFile extension 'txt' is not "
                          "associated with any application program."));
}

TEST_F(Result, IsMarkedUntilTheOutputFileHoldsIt) {
  CountText();
  Type("txbFile_1", PathOf("out.txt"));
  EXPECT_EQ(Note("NotWritten"), "This list has not been written to the output file out.txt.");
  Check("chkDisableOutputToFile");
  EXPECT_FALSE(Noted("NotWritten"));
  messages.WillAnswer(questions::kRelist, Answer::No);
  Check("chkDisableOutputToFile", false);
  EXPECT_TRUE(Noted("NotWritten"));
  Take("NotWritten", "ListAnew");
  EXPECT_THAT(Kinds(), ElementsAre("Source", "Written"));
  EXPECT_TRUE(std::filesystem::exists(PathFromText(PathOf("out.txt"))));
  Check("chkDisableOutputToFile");
  EXPECT_EQ(Note("OnlyInFile"), "This list stands in the file only.");
  Take("OnlyInFile", "ListAnew");
  EXPECT_THAT(Output(), HasSubstr("the old man"));
  EXPECT_THAT(Kinds(), ElementsAre("Source"));
}

TEST_F(Result, StaysInSightWhenItsFileCannotBeWritten) {
  FakeFiles& disk = OpenOnFakeFiles();
  PhrasesOf(3, 3);
  disk.Add("/text.txt", kText);
  disk.AddFolder("/out");
  Type("txbFile_0", "/text.txt");
  Count();
  const std::string list = Output();
  Type("txbFile_1", "/out/report.txt");
  disk.Refuse("/out/report.txt", FileFault::PermissionDenied);
  messages.Forget();
  Take("NotWritten", "ListAnew");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("Permission denied | ")));
  EXPECT_EQ(Output(), list);
  EXPECT_TRUE(Noted("NotWritten"));
  EXPECT_TRUE(Enabled("cmdCountPhrases"));
}

// ---- What restricts it

TEST_F(Result, NamesWhatTheRunLeftOut) {
  Click("optCountOnlyWordsAndPhrases");
  Type("txbWordsToIgnoreOrCount_1", "whale, ship");
  PhrasesOf(2, 3);
  CountText("so we saw the white whale. so we saw the white whale.\n");
  EXPECT_THAT(Kinds(), ElementsAre("Source", "CountOnly", "WordsLeftOut"));
  EXPECT_EQ(Note("CountOnly"), "Only phrases that match one of the 2 count-only entries were counted.");
  EXPECT_EQ(Note("WordsLeftOut"), "4 of 12 words left out: shorter than 3 letters.");
  EXPECT_FALSE(main->Params().isVisible());
  Take("WordsLeftOut", "WordRules");
  EXPECT_TRUE(main->Params().isVisible());
  main->Params().hide();
  Click("optWordsToIgnore");
  Take("CountOnly", "CountOnly");
  EXPECT_TRUE(main->Params().isVisible());
  EXPECT_TRUE(Checked("optCountOnlyWordsAndPhrases"));
}

TEST_F(Result, ThatWasStoppedSaysSo) {
  OpenWithEveryTurn();
  PhrasesOf(3, 3);
  messages.WillAnswer(questions::kReallyStop, Answer::Yes);
  messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
  std::string text;
  for (int i = 0; i < 500; ++i) text += kText;
  UseFile(text);
  AtEveryTurn([&, turns = 0]() mutable {
    if (++turns == 50) Count();
  });
  Count();
  ASSERT_TRUE(main->Result().HasResult());
  EXPECT_EQ(Note("Incomplete"), "Counting was stopped: what came after that is not in this list.");
}

/// A text whose report is longer than what is handed to a file in one piece.
std::string TextOfManyPhrases() {
  constexpr int kPhrases = 30'000;
  std::string text;
  for (int i = 0; i < kPhrases; ++i) {
    std::string word = "word";
    for (int rest = i; rest > 0; rest /= 26) word += static_cast<char>('a' + rest % 26);
    text += (word + " follows. ") + word + " follows.\n";
  }
  return text;
}

TEST_F(Result, ThatIsBeingWrittenGivesSignsOfLife) {
  OpenWithEveryTurn();
  PhrasesOf(2, 2);
  UseFile(TextOfManyPhrases());
  Type("txbFile_1", PathOf("out.txt"));
  std::string counted;
  bool busy = false;
  AtEveryTurn([&] {
    const std::string said = TextOf("lblStatusText");
    if (!said.starts_with("Now writing to output file . . .")) return;
    busy = busy || Find<QProgressBar>("prgProgress")->maximum() == 0;
    if (said.ends_with(" phrases")) counted = said;
  });
  Count();
  EXPECT_TRUE(busy);
  EXPECT_TRUE(Matches(counted, "Now writing to output file \\. \\. \\. [0-9]+.[0-9][0-9][0-9] phrases"));
  EXPECT_THAT(TextOf("lblStatusText"), testing::Not(HasSubstr("Now writing")));
}

TEST_F(Result, ThatIsEmptyNamesItsCauses) {
  CountText("the white whale. the old man\n");
  EXPECT_THAT(Output(), StartsWith("There are no phrases of 3 words which occur at least twice."));
  EXPECT_THAT(Kinds(), ElementsAre("Source", "Empty"));
  EXPECT_EQ(Note("Empty"), "All 2 different phrases occur less often than 2 times.");
  Take("Empty", "MinFrequency");
  EXPECT_EQ(main->focusWidget()->objectName().toStdString(), "cboMinimumFrequency");
  PhrasesOf(4, 5);
  Count();
  EXPECT_EQ(Output(),
            "No phrases with at least 3 characters\nsatisfying the specified conditions were found.");
  EXPECT_EQ(Note("Empty"), "Nowhere do 4 words stand in a row: the longest row has 3.");
  Take("Empty", "Lengths");
  EXPECT_EQ(main->focusWidget()->objectName().toStdString(), "cboPhraseLength_0");
}

// ---- Several files, and folders of folders

TEST_F(Result, OfSeveralFilesMayBeShownInTheWindowOnly) {
  UseFolder();
  messages.WillAnswer(questions::kSeveralFiles, Answer::Ok);
  Count();
  EXPECT_FALSE(main->Result().HasResult());
  ASSERT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(messages.Shown[0].Text,
            "When scanning multiple files or folders\nyou must specify an output file in case\nthe text "
            "window will not hold the result.");
  EXPECT_EQ(messages.Shown[0].Title, "Multiple files/folders");
  EXPECT_EQ(messages.Shown[0].Buttons, Buttons::Ok);
  EXPECT_EQ(messages.Shown[0].ExtraButton, "Show in the window only");
  EXPECT_EQ(Output(), "") << "nothing is left of a run that came to nothing";
  messages.WillAnswer(questions::kSeveralFiles, Answer::Extra);
  Count();
  EXPECT_THAT(Output(), StartsWith("2 files (in 1 folder) were scanned.\n"));
  EXPECT_THAT(Output(), HasSubstr("the old man"));
}

TEST_F(Result, OfAFolderOfFoldersIsOfferedWithTheirNames) {
  WriteFile("texts/letters/a.txt", kText);
  WriteFile("texts/notes/b.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Type("txbFile_1", PathOf("out.txt"));
  for (const char* button : {"cmdCountPhrases", "cmdListFiles"}) {
    for (const bool include : {false, true}) {
      messages.Forget();
      Check("chkIncludeSubfolders", include);
      messages.WillAnswer(questions::kOnlySubfolders, Answer::Ok);
      Click(button);
      ASSERT_EQ(messages.Shown.size(), 1U);
      const Message refusal = messages.Shown[0];
      EXPECT_EQ(refusal.Text, "Folder contains no files.");
      EXPECT_EQ(refusal.Title, "Nothing to do");
      EXPECT_EQ(refusal.Addition, "It holds 2 subfolders: letters, notes.");
      EXPECT_EQ(refusal.ExtraButton, include ? "Count the subfolders" : "");
      EXPECT_FALSE(main->Result().HasResult());
    }
  }
  messages.WillAnswer(questions::kOnlySubfolders, Answer::Extra);
  Click("cmdListFiles");
  EXPECT_EQ(Output(), WithNativePaths("{Folder} = ") + PathOf("texts") +
                          WithNativePaths("\n{Folder}/letters/a.txt\n{Folder}/notes/b.txt\n"));
  Count();
  EXPECT_THAT(ReadFile(PathOf("out.txt")), HasSubstr("2 files (in 3 folders) were scanned."));
}

TEST_F(Result, FilesToBeScannedAreListedWhateverTheOutputFile) {
  UseFolder();
  Type("txbFile_1", PathOf("texts/out.txt"));
  Click("cmdListFiles");
  EXPECT_THAT(messages.Shown, IsEmpty());
  EXPECT_EQ(TextOf("lblStatusText"), "2 files will be scanned.");
}

TEST_F(Result, FilesToBeScannedHaveNoTotalWhenTheListingWasStopped) {
  OpenWithEveryTurn();
  UseFolder();
  AtTheNextTurn([this] { everyTurn.RequestStop(); });
  Click("cmdListFiles");
  EXPECT_THAT(TextOf("lblStatusText"), StartsWith("Stopped while counting files (so far: "));
  EXPECT_THAT(Output(), HasSubstr("Stopped while counting files (so far: "));
}

}  // namespace
}  // namespace korv
