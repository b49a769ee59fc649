#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/loop_calls.h"
#include "desktop/desktop.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/result_controller.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/result_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/qt_event_loop.h"
#include "desktop/widgets/control_factory.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_yielder.h"

namespace korv {

/// The real windows with everything around them faked but the disk, which is a temporary folder. Controls
/// are found by their names, as a user finds them by their captions.
///
///   Start();
///   Type("txbFile_0", WriteFile("a.txt", "..."));
///   Click("cmdCountPhrases");
///   EXPECT_THAT(Output(), HasSubstr("There is one phrase"));
class WindowTest : public testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;

  /// Opens the main window, or opens it anew as after a restart. The question about common words gets No.
  bool Start();
  /// Only makes the window; its Form_Load() is still to be called.
  void MakeWindow();
  /// What the next window stands on.
  virtual Desktop Surroundings();
  void End();
  /// Opens the window anew, on a disk in memory that holds the program's texts.
  FakeFiles& OpenOnFakeFiles();

  // ---- What goes on beside the window

  /// Handles events until nothing goes on. All that looks at controls or uses them does so by itself.
  void UntilIdle() const;
  /// Opens the window anew, with a worker that has its turn at every step of what goes on.
  void OpenWithEveryTurn();
  /// Does `act` in the window at each of those turns, while the worker waits.
  void AtEveryTurn(std::function<void()> act);
  /// Does `act` in the window once, when the next of those turns comes.
  void AtTheNextTurn(std::function<void()> act);
  /// Does `act` in the window and waits for it. Called by fakes on the worker.
  void InTheWindow(const std::function<void()>& act);
  /// Does `act` in the window as soon as a count goes on that has read some words.
  void DuringTheRun(std::function<void()> act);
  /// For as long as this lives, controls are looked at and used while something goes on.
  class Looking {
   public:
    explicit Looking(WindowTest& test) : test_(test) { ++test_.looking_; }
    ~Looking() { --test_.looking_; }
    Looking(const Looking&) = delete;
    Looking& operator=(const Looking&) = delete;

   private:
    WindowTest& test_;
  };

  // ---- Files

  /// Writes `bytes` into a file of the temporary folder and returns its path, as the system writes paths.
  std::string WriteFile(const std::string& name, const std::string& bytes) const;
  std::string PathOf(const std::string& name) const;
  std::string FolderPath() const;
  static std::string ReadFile(const std::string& path);
  std::string StatePath() const { return PathOf("config/korv.usr"); }

  // ---- Controls, by name

  template <typename Control>
  Control* Find(const char* name) const {
    UntilIdle();
    Control* control = main->findChild<Control*>(QLatin1String(name));
    if (control == nullptr) control = main->Params().template findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  /// In the Settings window, for names that both windows have.
  template <typename Control>
  Control* InParams(const char* name) const {
    UntilIdle();
    Control* control = main->Params().template findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  void Click(const char* name) const;
  void ClickInParams(const char* name) const;
  void Check(const char* name, bool checked = true) const;
  void Type(const char* name, const std::string& text) const;
  /// Picks an item as a user does who opens the list.
  void Choose(const char* name, int item) const;
  std::string TextOf(const char* name) const;
  bool Checked(const char* name) const { return Find<QAbstractButton>(name)->isChecked(); }
  bool Enabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
  bool Shown(const char* name) const { return Find<QWidget>(name)->isVisible(); }
  int ItemOf(const char* name) const { return Find<QComboBox>(name)->currentIndex(); }
  std::string TipOf(const char* name) const { return Find<QWidget>(name)->toolTip().toStdString(); }
  /// The result box, with plain line breaks.
  std::string Output() const;

  /// Sources that are counted again and again.
  void UseFile(const std::string& bytes) { Type("txbFile_0", WriteFile("text.txt", bytes)); }
  /// A text on which the program counts for long enough to be looked at.
  void UseLongText();
  void Count() const { Click("cmdCountPhrases"); }
  /// Counts `a` as side A, and `b` compared with it: files of these bytes.
  void CountCompared(const std::string& a, const std::string& b, const ComparisonChoice& how = {});

  /// Messages shown since the last call, as "title | text".
  std::vector<std::string> Shown();

  QTemporaryDir folder;
  /// The view that runs of the next window are shown in.
  RunView View = RunView::Report;
  FakeMessages messages;
  FakeDialogs dialogs;
  FakeClipboard clipboard;
  FakeLauncher launcher;
  FakeClock clock;
  QtEventLoop loop{[](const std::exception_ptr& thrown) { std::rethrow_exception(thrown); }};
  TurnYielder yielder;
  FakeYielder everyTurn;
  TurnYielder* usedYielder = &yielder;  ///< The one of the two that the window has.
  std::unique_ptr<FileSystem> files;
  std::unique_ptr<QSettings> store;
  std::filesystem::path programText;
  std::filesystem::path programFolder;
  std::unique_ptr<frmMain> main;

 private:
  std::unique_ptr<LoopCalls> calls_ = std::make_unique<LoopCalls>(loop);
  std::thread::id windowThread_ = std::this_thread::get_id();
  int looking_ = 0;
};

}  // namespace korv
