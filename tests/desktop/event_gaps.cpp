// How long the main window keeps its events waiting, and how soon it stops:
//     event_gaps SOURCE OUTPUT
// Counts the file or folder SOURCE, lists it in another format, filters it, writes it into the file OUTPUT,
// counts again and stops at several moments, and quits during a last count. Prints of each the longest time
// between two rounds of the event loop, and of a stop or the end the time until it was obeyed. For the eye,
// not for tests: the figures depend on the machine.

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "app/run/questions.h"
#include "base/clock.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/result_controller.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/questions.h"
#include "desktop/toolkit/text.h"
#include "sources/questions.h"
#include "tests/desktop/fake_surroundings.h"

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using SteadyTime = std::chrono::steady_clock::time_point;

constexpr double kNotable = 50;  // milliseconds
constexpr int kStops = 4;

SteadyTime Now() {
  return std::chrono::steady_clock::now();
}

/// Looks how long the rounds of the event loop take.
class Heartbeat {
 public:
  explicit Heartbeat(const korv::frmMain& window) : status_(*window.findChild<QLabel*>("lblStatusText")) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Beat(); });
    timer_.start(1);
  }
  void Begin() {
    begin_ = last_ = Now();
    longest_ = {};
    notable_ = 0;
    where_.clear();
  }
  Milliseconds Longest() const { return longest_; }
  void Print(const std::string& what, const std::string& more = {}) const {
    std::printf("%-30s %8.2f s, longest gap %6.1f ms, %d above %.0f ms%s%s\n", what.c_str(),
                Milliseconds(last_ - begin_).count() / 1000, longest_.count(), notable_, kNotable,
                where_.empty() ? "" : (": " + where_).c_str(), more.c_str());
    std::fflush(stdout);
  }

 private:
  void Beat() {
    const SteadyTime now = Now();
    const Milliseconds gap = now - last_;
    last_ = now;
    if (gap.count() > kNotable) ++notable_;
    if (gap <= longest_) return;
    longest_ = gap;
    if (gap.count() > kNotable) where_ = status_.text().left(40).toStdString();
  }

  const QLabel& status_;
  QTimer timer_;
  SteadyTime begin_;
  SteadyTime last_;
  Milliseconds longest_{};
  int notable_ = 0;
  std::string where_;
};

/// The window in front of an answering user.
class Session {
 public:
  Session() {
    using korv::Answer;
    namespace questions = korv::questions;
    korv::FakeMessages& messages = around_.Messages;
    messages.WillAnswer(questions::kFirstCommonWords, Answer::No);
    messages.WillAnswer(questions::kLargeInput, Answer::No);
    messages.WillAnswer(questions::kSeveralFiles, Answer::Extra);
    messages.WillAnswer(questions::kKeepFilter, Answer::No);
    messages.WillAnswer(questions::kMinimumFrequency, Answer::No);
    messages.WillAnswer(questions::kReallyStop, Answer::Yes);
    messages.WillAnswer(questions::kCountingInterrupted, Answer::No);
    messages.WillAnswer(questions::kReallyQuit, Answer::Yes);
    window_.show();
  }
  bool Start() { return window_.Form_Load(); }

  template <typename Control>
  Control& Find(const char* name) {
    return *window_.findChild<Control*>(QLatin1String(name));
  }
  korv::frmMain& Window() { return window_; }

  void Choose(const QString& source) {
    const bool folder = QFileInfo(source).isDir();
    Find<QAbstractButton>(folder ? "optFolder" : "optInFile").click();
    Find<QLineEdit>(folder ? "txbFolder" : "txbFile_0").setText(source);
    Find<QComboBox>("cboPhraseLength_0").setCurrentIndex(0);
    if (folder) Find<QAbstractButton>("chkIncludeSubfolders").click();
  }
  void Count() { Find<QAbstractButton>("cmdCountPhrases").click(); }
  /// Whether there is a result; says what was shown where there is none.
  bool HasResult() {
    if (window_.Result().HasResult()) return true;
    for (const korv::Message& message : around_.Messages.Shown)
      std::fprintf(stderr, "%s\n", message.Text.c_str());
    return false;
  }
  /// Handles events until nothing goes on.
  void UntilIdle() {
    while (!window_.Run().Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  void For(Milliseconds time) {
    for (const SteadyTime end = Now() + std::chrono::duration_cast<SteadyTime::duration>(time);
         Now() < end && !window_.Run().Idle();)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

 private:
  korv::Desktop Surroundings() {
    korv::Desktop desktop = around_.On(*files_, around_.Messages, clock_);
    desktop.ProgramText = KORV_PROGRAM_TEXT;
    desktop.ProgramFolder = KORV_WORD_LISTS;
    desktop.StateFile = korv::PathFromText(korv::FromQt(around_.Folder.filePath(QStringLiteral("korv.usr"))));
    return desktop;
  }

  korv::FakeSurroundings around_;
  korv::SystemClock clock_;
  std::unique_ptr<korv::FileSystem> files_ = korv::MakeSystemFiles();
  korv::frmMain window_{Surroundings()};
};

/// How long a whole count and its list take.
Milliseconds CountAndList(Session& session, Heartbeat& heartbeat, const QString& output) {
  const auto measure = [&](const char* what, const std::function<void()>& act) {
    heartbeat.Begin();
    act();
    session.UntilIdle();
    heartbeat.Print(what);
  };
  const SteadyTime begin = Now();
  measure("count and list", [&] { session.Count(); });
  const Milliseconds whole = Now() - begin;
  measure("list in another format", [&] { session.Find<QComboBox>("cboDisplayFormat").setCurrentIndex(5); });
  measure("list in another order", [&] { session.Find<QComboBox>("cboWordOrder").setCurrentIndex(1); });
  measure("filter", [&] {
    session.Find<QLineEdit>("txbFilterWords").setText(QStringLiteral("the"));
    session.Find<QAbstractButton>("cmdFilterResults").click();
  });
  measure("write", [&] {
    session.Find<QLineEdit>("txbFilterWords").clear();
    session.Find<QLineEdit>("txbFile_1").setText(output);
    session.Find<QComboBox>("cboDisplayFormat").setCurrentIndex(6);
  });
  session.Find<QLineEdit>("txbFile_1").clear();
  return whole;
}

void StopAtSeveralMoments(Session& session, Heartbeat& heartbeat, Milliseconds whole) {
  for (int i = 1; i <= kStops; ++i) {
    heartbeat.Begin();
    session.Count();
    session.For(whole * i / (kStops + 1.0));
    if (session.Window().Run().Idle()) continue;  // It was quicker this time.
    const std::string during = session.Find<QLabel>("lblStatusText").text().left(30).toStdString();
    const SteadyTime stop = Now();
    session.Count();
    session.UntilIdle();
    char obeyed[64];
    std::snprintf(obeyed, sizeof obeyed, "; stopped within %.1f ms", Milliseconds(Now() - stop).count());
    heartbeat.Print("stop during \"" + during + "\"", obeyed);
  }
}

void QuitDuringACount(Session& session, Heartbeat& heartbeat, Milliseconds whole) {
  heartbeat.Begin();
  session.Count();
  session.For(whole / 2);
  const SteadyTime quit = Now();
  session.Window().close();
  while (session.Window().isVisible()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  char gone[64];
  std::snprintf(gone, sizeof gone, "; gone within %.1f ms", Milliseconds(Now() - quit).count());
  heartbeat.Print("quit", gone);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "event_gaps SOURCE OUTPUT\n");
    return 2;
  }
  Session session;
  if (!session.Start()) return 1;
  session.UntilIdle();
  session.Choose(QString::fromLocal8Bit(argv[1]));
  Heartbeat heartbeat(session.Window());
  const Milliseconds whole = CountAndList(session, heartbeat, QString::fromLocal8Bit(argv[2]));
  if (!session.HasResult()) return 1;
  StopAtSeveralMoments(session, heartbeat, whole);
  QuitDuringACount(session, heartbeat, whole);
  return 0;
}
