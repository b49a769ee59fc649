// How long the main window keeps its events waiting while it counts: event_gaps TEXT [OUTPUT].
// Prints the longest times between two rounds of the event loop, and where they fell. For the eye, not for
// tests: the figures depend on the machine.

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "desktop/main_window/file_page.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/toolkit/qt_yielder.h"
#include "desktop/toolkit/text.h"
#include "sources/questions.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_messages.h"

namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

class SteadyClock final : public korv::Clock {
 public:
  SteadyTime Now() const override { return std::chrono::steady_clock::now(); }
};

struct Gap {
  double Milliseconds;
  std::string During;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "event_gaps TEXT [OUTPUT]\n");
    return 2;
  }
  korv::FakeMessages messages;
  korv::FakeDialogs dialogs;
  korv::FakeClipboard clipboard;
  korv::FakeLauncher launcher;
  korv::QtYielder yielder;
  const SteadyClock clock;
  const auto files = korv::MakeSystemFiles();
  const QTemporaryDir scratch;
  QSettings store(scratch.filePath(QStringLiteral("store.ini")), QSettings::IniFormat);
  messages.WillAnswer(korv::questions::kLargeInput, korv::Answer::No);
  const korv::NumberFormat numbers;
  korv::frmMain window(korv::Desktop{
      .Messages = messages,
      .Dialogs = dialogs,
      .Clipboard = clipboard,
      .Launcher = launcher,
      .Files = *files,
      .Yielder = yielder,
      .Clock = clock,
      .Numbers = numbers,
      .ProgramText = KORV_PROGRAM_TEXT,
      .ProgramFolder = KORV_WORD_LISTS,
      .StateFile = korv::PathFromText(korv::FromQt(scratch.filePath(QStringLiteral("korv.usr")))),
      .Store = store});
  window.show();
  if (!window.Form_Load()) return 1;
  const korv::MainPanels& panels = window.Panels();
  panels.Source->File->txbFile->setText(QString::fromLocal8Bit(argv[1]));
  if (argc > 2) panels.OutputFile->txbFile->setText(QString::fromLocal8Bit(argv[2]));
  panels.Phrases->cboPhraseLength[0]->setCurrentIndex(0);

  std::vector<Gap> gaps;
  SteadyTime last = clock.Now();
  size_t rounds = 0;
  QTimer heartbeat;
  QObject::connect(&heartbeat, &QTimer::timeout, &window, [&] {
    const SteadyTime now = clock.Now();
    const std::chrono::duration<double, std::milli> gap = now - last;
    last = now;
    ++rounds;
    if (gap.count() > 20) {
      gaps.push_back({gap.count(), panels.Status->lblStatusText->text().toStdString() + " at " +
                                       std::to_string(panels.Run->prgProgress->value())});
    }
  });
  heartbeat.start(1);
  QApplication::processEvents();
  const SteadyTime begin = clock.Now();
  window.Run().cmdCountPhrases_Click();
  QApplication::processEvents();
  const std::chrono::duration<double> whole = clock.Now() - begin;

  std::sort(gaps.begin(), gaps.end(),
            [](const Gap& a, const Gap& b) { return a.Milliseconds > b.Milliseconds; });
  std::printf("%.1f s, %zu rounds of the event loop, %zu gaps above 20 ms\n", whole.count(), rounds,
              gaps.size());
  for (size_t i = 0; i < std::min<size_t>(gaps.size(), 12); ++i) {
    std::printf("%8.1f ms  %s\n", gaps[i].Milliseconds, gaps[i].During.c_str());
  }
  return 0;
}
