// What the windows stand on: message boxes, pop-ups, the text box, opening with other programs.

#include <QCheckBox>
#include <QClipboard>
#include <QInputDialog>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <cmath>

#include "app/run/questions.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/main_window/clocked_messages.h"
#include "desktop/main_window/open_associated.h"
#include "desktop/results/output_text_box.h"
#include "desktop/silence_rules.h"
#include "desktop/toolkit/color_scheme.h"
#include "desktop/toolkit/qt_clipboard.h"
#include "desktop/toolkit/qt_messages.h"
#include "desktop/toolkit/silenced_questions.h"
#include "desktop/toolkit/standard_places.h"
#include "desktop/widgets/accent.h"
#include "sources/questions.h"
#include "tests/desktop/fake_surroundings.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;

// ---- Message boxes

constexpr SilenceRule kRules[] = {{questions::kKeepFilter}, {questions::kLargeInput, Answer::No}};

class QtMessageBoxes : public testing::Test {
 protected:
  /// Does `act` with the box that is shown next.
  void WithTheBox(std::function<void(QMessageBox&)> act) {
    QTimer::singleShot(0, [this, act = std::move(act)] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      ++boxes;
      act(*box);
    });
  }

  QTemporaryDir folder;
  QSettings store{folder.filePath(QStringLiteral("windows.conf")), QSettings::IniFormat};
  QtMessages messages{store, kRules};
  int boxes = 0;  ///< Shown through WithTheBox().
};

struct BoxCase {
  korv::Buttons Buttons;
  korv::Answer Preferred;
  QMessageBox::StandardButton Pressed;
  korv::Answer Answer;
};

TEST_F(QtMessageBoxes, ShowTextTitleAndIconAndReturnTheAnswer) {
  const BoxCase cases[] = {
      {Buttons::Ok, Answer::Ok, QMessageBox::Ok, Answer::Ok},
      {Buttons::YesNo, Answer::No, QMessageBox::Yes, Answer::Yes},
      {Buttons::YesNo, Answer::No, QMessageBox::No, Answer::No},
      {Buttons::YesNoCancel, Answer::Yes, QMessageBox::Cancel, Answer::Cancel},
  };
  for (const BoxCase& c : cases) {
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->text().toStdString(), "Two\nlines & <b>no mark-up</b>");
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->windowTitle().toStdString(), "The title");
      EXPECT_EQ(box->icon(), QMessageBox::Warning);
      box->button(c.Pressed)->click();
    });
    EXPECT_EQ(messages.Show({.Text = "Two\nlines & <b>no mark-up</b>",
                             .Title = "The title",
                             .Icon = Icon::Exclamation,
                             .Buttons = c.Buttons,
                             .DefaultAnswer = c.Preferred}),
              c.Answer);
  }
}

TEST_F(QtMessageBoxes, TakeTheAnswerThatChangesLeastForEscape) {
  const std::pair<Buttons, Answer> cases[] = {
      {Buttons::Ok, Answer::Ok}, {Buttons::YesNo, Answer::No}, {Buttons::YesNoCancel, Answer::Cancel}};
  for (const auto& [buttons, answer] : cases) {
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_EQ(messages.Show({.Text = "?", .Title = "?", .Buttons = buttons, .DefaultAnswer = Answer::Yes}),
              answer);
  }
}

TEST_F(QtMessageBoxes, OfferATextForEditing) {
  for (const bool accepted : {true, false}) {
    QTimer::singleShot(0, [accepted] {
      auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->windowTitle().toStdString(), "The title");
      EXPECT_EQ(box->labelText().toStdString(), "Two\nlines");
      EXPECT_EQ(box->textValue().toStdString(), "/before");
      box->setTextValue(QStringLiteral("/after"));
      accepted ? box->accept() : box->reject();
    });
    const auto answer = messages.AskText("Two\nlines", "The title", "/before");
    EXPECT_EQ(answer, accepted ? std::optional<std::string>("/after") : std::nullopt);
  }
}

TEST_F(QtMessageBoxes, ShowAnAdditionBelowTheText) {
  WithTheBox([](QMessageBox& box) {
    EXPECT_EQ(box.text().toStdString(), "The text\n\nOne more line");
    box.accept();
  });
  messages.Show({.Text = "The text", .Title = "?", .Addition = "One more line"});
  EXPECT_EQ(boxes, 1);
}

TEST_F(QtMessageBoxes, HaveAFurtherButtonThatIsNeitherDefaultNorEscape) {
  for (const Buttons buttons : {Buttons::Ok, Buttons::YesNo, Buttons::YesNoCancel}) {
    const Message message{.Text = "?",
                          .Title = "?",
                          .Buttons = buttons,
                          .DefaultAnswer = buttons == Buttons::Ok ? Answer::Ok : Answer::No,
                          .ExtraButton = "Something else"};
    WithTheBox([](QMessageBox& box) {
      auto* extra = box.findChild<QPushButton*>(QStringLiteral("cmdExtra"));
      ASSERT_NE(extra, nullptr);
      EXPECT_EQ(extra->text().toStdString(), "Something else");
      EXPECT_FALSE(extra->isDefault());
      extra->click();
    });
    EXPECT_EQ(messages.Show(message), Answer::Extra);
    WithTheBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(messages.Show(message), message.DefaultAnswer);
    WithTheBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_NE(messages.Show(message), Answer::Extra);
  }
  EXPECT_EQ(boxes, 9);
}

TEST_F(QtMessageBoxes, NameTheButtonsYesAndNoAsAsked) {
  WithTheBox([](QMessageBox& box) {
    EXPECT_EQ(box.button(QMessageBox::Yes)->text().toStdString(), "This time");
    EXPECT_EQ(box.button(QMessageBox::No)->text().toStdString(), "Not now");
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(messages.Show({.Text = "?",
                           .Title = "?",
                           .Buttons = Buttons::YesNo,
                           .YesButton = "This time",
                           .NoButton = "Not now"}),
            Answer::Yes);
  EXPECT_EQ(boxes, 1);
}

// ---- Questions that are not asked again

Message SilencableQuestion() {
  return {.Text = "?",
          .Title = "?",
          .Buttons = Buttons::YesNoCancel,
          .DefaultAnswer = Answer::No,
          .Question = questions::kKeepFilter,
          .ExtraButton = "Else"};
}

void TickAndClick(QMessageBox& box, QAbstractButton* button) {
  auto* tick = box.findChild<QCheckBox*>(QStringLiteral("chkDoNotAskAgain"));
  ASSERT_NE(tick, nullptr);
  EXPECT_EQ(tick->text().toStdString(), "Do not ask again");
  EXPECT_FALSE(tick->isChecked());
  tick->click();
  button->click();
}

TEST_F(QtMessageBoxes, KeepTheAnswerThatWasGivenWithTheTick) {
  const std::pair<const char*, Answer> cases[] = {
      {"&Yes", Answer::Yes}, {"&No", Answer::No}, {"Else", Answer::Extra}};
  for (const auto& [caption, answer] : cases) {
    AskEverythingAgain(store);
    boxes = 0;
    WithTheBox([caption = QLatin1String(caption)](QMessageBox& box) {
      for (QAbstractButton* button : box.buttons()) {
        if (button->text() == caption) TickAndClick(box, button);
      }
    });
    EXPECT_EQ(messages.Show(SilencableQuestion()), answer) << caption;
    EXPECT_TRUE(AnySilenced(store));
    // Without a box: another program's start reads the same store.
    QtMessages later(store, kRules);
    EXPECT_EQ(later.Show(SilencableQuestion()), answer) << caption;
    EXPECT_EQ(boxes, 1);
  }
}

TEST_F(QtMessageBoxes, AskAgainWithoutATickAndAfterAnAnswerThatDecidesNothing) {
  WithTheBox([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
  EXPECT_EQ(messages.Show(SilencableQuestion()), Answer::Yes);
  WithTheBox([](QMessageBox& box) { TickAndClick(box, box.button(QMessageBox::Cancel)); });
  EXPECT_EQ(messages.Show(SilencableQuestion()), Answer::Cancel);
  EXPECT_FALSE(AnySilenced(store));
  WithTheBox([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  EXPECT_EQ(messages.Show(SilencableQuestion()), Answer::No);
  EXPECT_EQ(boxes, 3);
}

TEST_F(QtMessageBoxes, GiveASilencedQuestionItsOwnAnswerWhereItHasOne) {
  Message message = SilencableQuestion();
  message.Question = questions::kLargeInput;
  WithTheBox([](QMessageBox& box) { TickAndClick(box, box.button(QMessageBox::Yes)); });
  EXPECT_EQ(messages.Show(message), Answer::Yes);
  EXPECT_EQ(messages.Show(message), Answer::No);
  EXPECT_EQ(boxes, 1);
}

TEST_F(QtMessageBoxes, AskEverythingAgainWhenTold) {
  EXPECT_FALSE(AnySilenced(store));
  Silence(store, questions::kKeepFilter, Answer::Yes);
  Silence(store, questions::kLargeInput, Answer::No);
  EXPECT_EQ(store.value(QStringLiteral("silencedQuestions/KeepFilter")).toString().toStdString(), "Yes");
  EXPECT_EQ(store.value(QStringLiteral("silencedQuestions/LargeInput")).toString().toStdString(), "No");
  store.setValue(QStringLiteral("frmMain"), 1);
  EXPECT_TRUE(AnySilenced(store));
  AskEverythingAgain(store);
  EXPECT_FALSE(AnySilenced(store));
  EXPECT_TRUE(store.contains(QStringLiteral("frmMain")));
  WithTheBox([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
  EXPECT_EQ(messages.Show(SilencableQuestion()), Answer::No);
  EXPECT_EQ(boxes, 1);
}

TEST_F(QtMessageBoxes, OfferNoSilenceForOtherMessages) {
  Message question = SilencableQuestion();
  question.Question = questions::kReallyStop;
  Silence(store, question.Question, Answer::Extra);
  for (const Message& message : {question, Message{.Text = "told", .Title = "?"}}) {
    WithTheBox([](QMessageBox& box) {
      EXPECT_EQ(box.findChild<QCheckBox*>(QStringLiteral("chkDoNotAskAgain")), nullptr);
      QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_NE(messages.Show(message), Answer::Extra);
  }
  EXPECT_EQ(boxes, 2);
}

TEST(SilenceRules, AreForTheQuestionsThatComeBack) {
  std::vector<std::string_view> names;
  for (const SilenceRule& rule : SilenceRules()) names.push_back(rule.Question.Name());
  // Answers are kept under these names.
  EXPECT_THAT(names, testing::UnorderedElementsAre("FirstCommonWords", "KeepFilter", "KeepSettings",
                                                   "LargeDocx", "LargeInput", "LargeWordList", "LoadWordFile",
                                                   "MinimumFrequency", "Reinitialize", "TextEncoding"));
  EXPECT_EQ(RuleFor(SilenceRules(), questions::kReallyStop), nullptr);
  EXPECT_EQ(RuleFor(SilenceRules(), Question()), nullptr);
}

// ---- Titles

TEST(TheToolkit, AddsNothingToTheTitlesOfWindows) {
  // It appends the display name, where one was set; one that was not follows the application's name.
  const QString name = QApplication::applicationName();
  EXPECT_EQ(name.toStdString(), "Korv");
  QApplication::setApplicationName(QStringLiteral("Other"));
  EXPECT_EQ(QApplication::applicationDisplayName().toStdString(), "Other");
  QApplication::setApplicationName(name);
}

TEST_F(QtMessageBoxes, AreTitledWithTheProgramsNameWhereNothingElseIs) {
  WithTheBox([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle().toStdString(), "Korv");
    box.accept();
  });
  messages.Show({.Text = "!", .Title = {}});
  EXPECT_EQ(boxes, 1);
}

// ---- Pop-ups

class PopUps : public testing::Test {
 protected:
  PopUps() {
    owner.setGeometry(100, 50, 600, 600);
    owner.show();
  }
  QWidget owner;
};

TEST_F(PopUps, StayTwoSecondsOrFourForALongNotice) {
  frmPopUp popUp(&owner);
  EXPECT_EQ(popUp.Timer1->interval(), 2000);
  popUp.PopUp(QString(60, u'w'));
  EXPECT_EQ(popUp.Timer1->interval(), 2000);
  EXPECT_TRUE(popUp.isVisible());
  popUp.Timer1_Timer();
  EXPECT_FALSE(popUp.isVisible());
  popUp.PopUp(QString(61, u'w'));
  EXPECT_EQ(popUp.Timer1->interval(), 4000);
}

TEST_F(PopUps, HaveNoBorderAndAFontOfTheirOwn) {
  const frmPopUp popUp(&owner);
  EXPECT_TRUE(popUp.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(popUp.isWindow());
  EXPECT_EQ(popUp.lblMessage->font().families().value(0).toStdString(), "Tahoma");
}

TEST_F(PopUps, AreHiddenByAClickOnTheirMessage) {
  frmPopUp popUp(&owner);
  popUp.PopUp(QStringLiteral("Program reinitialized"));
  EXPECT_EQ(popUp.lblMessage->text().toStdString(), "Program reinitialized");
  QTest::mouseClick(popUp.lblMessage, Qt::LeftButton);
  EXPECT_FALSE(popUp.isVisible());
  EXPECT_FALSE(popUp.Timer1->isActive());
}

TEST_F(PopUps, AppearOverTheLowerThirdOfTheirPlace) {
  frmPopUp popUp(&owner);
  const auto expectOver = [&](const QRect& area) {
    EXPECT_NEAR(popUp.geometry().center().x(), area.center().x(), 2);
    EXPECT_GT(popUp.geometry().center().y(), area.top() + area.height() * 2 / 3);
    EXPECT_LT(popUp.geometry().bottom(), area.bottom());
  };
  popUp.PopUp(QStringLiteral("notice"));
  expectOver(owner.frameGeometry());
  popUp.PopUpCenterScreen(QStringLiteral("notice"));
  expectOver(owner.screen()->availableGeometry());
  QWidget other;
  other.setGeometry(10, 20, 300, 300);
  other.show();
  popUp.PopUpInForm(QStringLiteral("notice"), &other);
  expectOver(other.frameGeometry());
}

TEST_F(PopUps, AreNeverWiderThanTheScreen) {
  frmPopUp popUp(&owner);
  const QString told = QStringLiteral("Settings saved to\n");
  popUp.PopUp(told + u'/' + QString(2000, u'n') + QStringLiteral("/mine.korv"));
  EXPECT_LE(popUp.width(), owner.screen()->availableGeometry().width());
  EXPECT_TRUE(popUp.lblMessage->text().startsWith(told + QStringLiteral("/nnn")));
  EXPECT_TRUE(popUp.lblMessage->text().endsWith(QStringLiteral("/mine.korv")));
}

TEST_F(PopUps, WithYesAndNoWaitForAButton) {
  frmPopUp popUp(&owner);
  QTimer::singleShot(0, [&] {
    EXPECT_EQ(popUp.Timer1->interval(), 15000);
    QTest::mouseClick(popUp.lblMessage, Qt::LeftButton);
    EXPECT_TRUE(popUp.isVisible());
    popUp.cmdYes->click();
  });
  EXPECT_TRUE(popUp.PopUpYesNo(QStringLiteral("Now?")));
  EXPECT_FALSE(popUp.isVisible());
  QTimer::singleShot(0, [&] { popUp.cmdNo->click(); });
  EXPECT_FALSE(popUp.PopUpYesNoCenterScreen(QStringLiteral("Now?")));
  QTimer::singleShot(0, [&] { popUp.Timer1->start(0); });
  EXPECT_FALSE(popUp.PopUpYesNo(QStringLiteral("Now?"))) << "No, once the time is up";
}

// ---- The result box

TEST(TheOutputTextBox, CountsALineBreakAsTwoCharacters) {
  QPlainTextEdit widget;
  OutputTextBox box(widget);
  box.Append("a\r\nB\xC3\xA4r\r\n");
  EXPECT_EQ(box.Length(), 8U);
  EXPECT_EQ(widget.toPlainText().toStdString(), "a\nB\xC3\xA4r\n");
  box.Truncate(4);
  EXPECT_EQ(box.Length(), 4U);
  EXPECT_EQ(widget.toPlainText().toStdString(), "a\nB");
  box.Append("\xF0\x9F\x90\x8B!");
  EXPECT_EQ(box.Length(), 6U);
  box.Truncate(5);
  EXPECT_EQ(widget.toPlainText().toStdString(), "a\nB\xF0\x9F\x90\x8B");
  box.Clear();
  EXPECT_EQ(box.Length(), 0U);
}

// ---- Opening with other programs

TEST(OpenWithAssociatedProgram, SaysNothingWhenItWorks) {
  FakeLauncher launcher;
  FakeMessages messages;
  EXPECT_TRUE(OpenWithAssociatedProgram(launcher, messages, "/a.txt"));
  EXPECT_THAT(launcher.Opened, ElementsAre("/a.txt"));
  EXPECT_TRUE(messages.Shown.empty());
}

TEST(OpenWithAssociatedProgram, ExplainsEachFailure) {
  struct Case {
    const char* Target;
    LaunchResult Result;
    const char* Title;
    const char* Text;
  };
  const Case cases[] = {
      {"/a.xyz",
       {LaunchFault::Other, 0},
       "Error",
       "Error when opening file /a.xyz.\nPerhaps the file extension has no association."},
      {"/a.xyz",
       {LaunchFault::NoAssociation, 31},
       "Error",
       "Error when opening file /a.xyz.\nPerhaps the file extension has no association.\nFile extension "
       "'xyz' is not associated with any application program."},
      {"https://example.org",
       {LaunchFault::OutOfMemory, 8},
       "Cannot launch web browser",
       "Error launching web browser, error code = 8.\nOut of memory.\nPlease try once more."},
      {"http://example.org",
       {LaunchFault::Other, 5},
       "Cannot launch web browser",
       "Error launching web browser, error code = 5."},
  };
  for (const Case& c : cases) {
    FakeLauncher launcher;
    launcher.Result = c.Result;
    FakeMessages messages;
    EXPECT_FALSE(OpenWithAssociatedProgram(launcher, messages, c.Target));
    EXPECT_EQ(messages.Only().Title, c.Title);
    EXPECT_EQ(messages.Only().Text, c.Text);
  }
}

// ---- Standard places

TEST(TheStateFile, IsNamedAfterTheProgram) {
  const QString folder = QStringLiteral("/data/Korv");
  const std::filesystem::path place(Below("", "data/Korv"));
  EXPECT_EQ(StateFilePathFor(QStringLiteral("/usr/bin/korv"), folder), place / "korv.usr");
  EXPECT_EQ(StateFilePathFor(QStringLiteral("/opt/korv-1.2"), folder), place / "korv-1.2.usr");
  EXPECT_EQ(StateFilePathFor(QStringLiteral("C:/Programs/korv.exe"), folder), place / "korv.usr");
  EXPECT_EQ(StateFilePathFor(QStringLiteral("C:/Programs/KORV120.EXE"), folder), place / "KORV120.usr");
}

TEST(TheStateFile, LiesInTheFolderOfTheApplication) {
  const std::filesystem::path path = StateFilePath();
  EXPECT_EQ(path.parent_path().filename(), "Korv");
  EXPECT_EQ(path.stem(), std::filesystem::path(QApplication::applicationFilePath().toStdString()).stem());
  EXPECT_EQ(path.extension(), ".usr");
  EXPECT_EQ(path, std::filesystem::path(path).make_preferred());
}

TEST(TheStateFile, LiesAtTheRootOfTheDriveWithoutAFolder) {
  const std::filesystem::path path = StateFilePathFor(QStringLiteral("korv.exe"), {});
  EXPECT_EQ(path, path.root_path() / "Korv" / "korv.usr");
  EXPECT_TRUE(path.is_absolute());
}

// ---- Colours

double Luminance(const QColor& color) {
  const auto channel = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) + 0.0722 * channel(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a);
  const double second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

TEST(TheDarkPalette, CanBeRead) {
  const QPalette palette = DarkPalette();
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
      {QPalette::WindowText, QPalette::Window},         {QPalette::Text, QPalette::Base},
      {QPalette::ButtonText, QPalette::Button},         {QPalette::ToolTipText, QPalette::ToolTipBase},
      {QPalette::HighlightedText, QPalette::Highlight}, {QPalette::PlaceholderText, QPalette::Base}};
  for (const auto& [text, ground] : pairs) {
    EXPECT_GE(Contrast(palette.color(text), palette.color(ground)), 4.5) << text;
  }
}

TEST(TheAccent, CanBeReadInEveryPalette) {
  QPalette yellow(Qt::black);
  yellow.setColor(QPalette::Highlight, QColor(90, 90, 0));
  yellow.setColor(QPalette::HighlightedText, Qt::black);
  QPalette pale(Qt::lightGray);
  pale.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
  pale.setColor(QPalette::HighlightedText, Qt::white);
  for (const QPalette& palette : {pale, DarkPalette(), yellow, QPalette(Qt::lightGray)}) {
    const QPalette accent = AccentPalette(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
      EXPECT_GE(Contrast(accent.color(group, QPalette::ButtonText), accent.color(group, QPalette::Button)),
                4.5);
    EXPECT_EQ(accent.color(QPalette::Disabled, QPalette::Button),
              palette.color(QPalette::Disabled, QPalette::Button));
    EXPECT_EQ(accent.color(QPalette::Active, QPalette::Window),
              palette.color(QPalette::Active, QPalette::Window));
  }
}

TEST(TheAccent, CanBeReadAsItIsDrawn) {
  QPalette light(Qt::lightGray);
  light.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
  light.setColor(QPalette::HighlightedText, Qt::white);
  for (const QPalette& palette : {light, DarkPalette()}) {
    QPushButton button;
    QProxyStyle style(QStringLiteral("Fusion"));
    button.setStyle(&style);
    button.setPalette(AccentPalette(palette));
    button.resize(200, 40);
    const QImage drawn = button.grab().toImage();
    const QColor text = button.palette().color(QPalette::ButtonText);
    for (const int y : {4, 20, 35}) EXPECT_GE(Contrast(drawn.pixelColor(20, y), text), 4.5) << y;
  }
}

TEST(TheAccent, IsLeftToStylesThatDrawButtonsThemselves) {
  class OwnColours final : public QProxyStyle {
   public:
    OwnColours() : QProxyStyle(QStringLiteral("Fusion")) { setObjectName(QStringLiteral("windowsvista")); }
  };
  QPushButton button;
  OwnColours own;
  button.setStyle(&own);
  EXPECT_EQ(Accentuate(button), QPalette::ButtonText);
  EXPECT_EQ(button.palette(), QApplication::palette(&button));
  QProxyStyle drawn(QStringLiteral("Fusion"));
  button.setStyle(&drawn);
  EXPECT_EQ(Accentuate(button), QPalette::HighlightedText);
  EXPECT_EQ(button.palette().color(QPalette::ButtonText),
            QApplication::palette().color(QPalette::HighlightedText));
}

TEST(TheCountButton, HasItsSignFromTheBeginning) {
  FakeSurroundings around;
  FakeFiles files;
  const Desktop surroundings = around.On(files);
  const RunPanel panel(surroundings, nullptr);
  EXPECT_FALSE(panel.cmdCountPhrases->icon().isNull());
  EXPECT_EQ(panel.cmdCountPhrases->text(), QStringLiteral("&Count phrases"));
}

TEST(TheClipboard, GivesItsText) {
  QApplication::clipboard()->setText(QStringLiteral("süß"));
  EXPECT_EQ(QtClipboard().Text(), "s\xC3\xBC\xC3\x9F");
  QApplication::clipboard()->clear();
  EXPECT_EQ(QtClipboard().Text(), "");
}

/// A clock on which a minute passes while a message is shown.
TEST(ClockedMessages, LetTheClockOfTheRunStandWhileTheyAreShown) {
  FakeMessages shown;
  FakeClock clock;
  RunClock runClock(clock);
  ClockedMessages messages(shown, runClock);
  runClock.Start();
  shown.OnShow = [&clock](const Message&) { clock.Step = std::chrono::minutes(1); };
  messages.Show({.Text = "!", .Title = {}});
  clock.Step = std::chrono::seconds(0);
  EXPECT_EQ(runClock.Elapsed(), std::chrono::seconds(0));
  EXPECT_EQ(shown.Only().Text, "!");
}

}  // namespace
}  // namespace korv
