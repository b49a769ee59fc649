// How alive the table is over millions of phrases:
//     table_gaps [WORDS]
// Makes a run over so many made-up words (26 million), shows it, and filters, orders, selects and scrolls it.
// Prints of each the time to the first rows and to all of them, and the longest time between two rounds of
// the event loop. For the eye, not for tests: the figures depend on the machine.

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "bench/made_text.h"
#include "desktop/results/table/match_bar.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/results/table/table_bar.h"
#include "desktop/toolkit/qt_event_loop.h"
#include "desktop/widgets/eliding_label.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_desktop.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace {

using namespace korv;
using Milliseconds = std::chrono::duration<double, std::milli>;
using SteadyTime = std::chrono::steady_clock::time_point;

SteadyTime Now() {
  return std::chrono::steady_clock::now();
}

std::shared_ptr<const CountedRun> LargeRun(size_t words) {
  constexpr size_t kFiles = 200;
  const bench::MadeText text(words);
  auto run = std::make_shared<CountedRun>();
  run->Facts.Options.MinWords = 2;
  run->Facts.Options.SourceKind = TextSource::Folder;
  run->Facts.Options.KeepPlaces = true;
  WordRules rules;
  rules.IgnoreRepetitions = false;
  CorpusBuilder builder(rules, run->Facts.Options, *run->Lists);
  auto end = text.SentenceEnds().begin();
  for (size_t i = 0; i < words; ++i) {
    if (i % (words / kFiles) == 0) builder.BeginSource(std::to_string(i));
    builder.TakeWord(text.Words()[i]);
    if (end == text.SentenceEnds().end() || *end != i + 1) continue;
    builder.ResetPhrases();
    ++end;
  }
  run->Facts.Words = builder.Counts();
  TakeText(std::move(builder), run->Table);
  NoYielder yielder;
  CountPhrases(run->Table, yielder);
  SortPhrases(run->Table, yielder);
  ListByFrequency(run->Table, 2);
  ExcludeRedundantSubphrases(run->Table, yielder);
  SetUpFrequencyChain(run->Table, ChainOrder::ByCount, yielder);
  return run;
}

/// Acts on the table and looks how long the rounds of the event loop take until it is done.
class Gaps {
 public:
  explicit Gaps(const PhraseTablePanel& panel) : panel_(panel) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Beat(); });
    QObject::connect(panel.tblPhrases->model(), &QAbstractItemModel::modelReset, &timer_, [this] {
      if (first_ == SteadyTime()) first_ = Now();
    });
    timer_.start(1);
  }
  void Measure(const char* what, const std::function<void()>& act) {
    begin_ = last_ = Now();
    first_ = {};
    longest_ = {};
    act();
    Beat();
    do {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } while (!panel_.Idle());
    QApplication::processEvents();
    Beat();
    const double first = first_ == SteadyTime() ? 0 : Milliseconds(first_ - begin_).count();
    std::printf("%-34s first rows %7.1f ms, all %7.1f ms, longest gap %6.1f ms; %s\n", what, first,
                Milliseconds(Now() - begin_).count(), longest_.count(),
                qPrintable(panel_.Bar->lblPhraseCount->text()));
    std::fflush(stdout);
  }

 private:
  void Beat() {
    const SteadyTime now = Now();
    longest_ = std::max(longest_, Milliseconds(now - last_));
    last_ = now;
  }

  const PhraseTablePanel& panel_;
  QTimer timer_;
  SteadyTime begin_{};
  SteadyTime last_{};
  SteadyTime first_{};
  Milliseconds longest_{};
};

void MeasureAll(PhraseTablePanel& panel, const std::shared_ptr<const CountedRun>& run) {
  Gaps gaps(panel);
  const auto type = [&](const char* text) {
    panel.Bar->Match->txbMatch->setText(QLatin1String(text));
    panel.Bar->Match->Entered();
  };
  const auto section = [&](const char* heading) {
    const QAbstractItemModel& model = *panel.tblPhrases->model();
    for (int s = 0; s < model.columnCount(); ++s)
      if (model.headerData(s, Qt::Horizontal).toString() == QLatin1String(heading)) return s;
    return -1;
  };
  QHeaderView& header = *panel.tblPhrases->horizontalHeader();
  gaps.Measure("show", [&] { panel.Show(run); });
  for (const char* text : {"a", "an", "ban", "no such text"}) gaps.Measure(text, [&] { type(text); });
  gaps.Measure("no filter", [&] { type(""); });
  for (const char* heading : {"Phrase", "Freq", "Words", "Files", "Dispersion", "Alone"}) {
    gaps.Measure(heading, [&] { header.setSortIndicator(section(heading), Qt::DescendingOrder); });
    gaps.Measure("the other way", [&] { header.setSortIndicator(section(heading), Qt::AscendingOrder); });
  }
  gaps.Measure("select all", [&] { panel.tblPhrases->selectAll(); });
  gaps.Measure("to the end", [&] { panel.tblPhrases->scrollToBottom(); });
  gaps.Measure("jump", [&] { panel.tblPhrases->keyboardSearch(QStringLiteral("zu")); });
  gaps.Measure("again", [&] { panel.Show(run); });
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const auto run = LargeRun(argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 26'000'000);
  QTemporaryDir folder;
  QSettings store(folder.filePath(QStringLiteral("store.ini")), QSettings::IniFormat);
  FakeMessages messages;
  FakeDialogs dialogs;
  FakeClipboard clipboard;
  FakeLauncher launcher;
  FakeFiles files;
  FakeClock clock;
  TurnYielder yielder;
  QtEventLoop loop{[](const std::exception_ptr& thrown) { std::rethrow_exception(thrown); }};
  const Desktop desktop{.Messages = messages,
                        .Dialogs = dialogs,
                        .Clipboard = clipboard,
                        .Launcher = launcher,
                        .Files = files,
                        .Loop = loop,
                        .Yielder = yielder,
                        .Clock = clock,
                        .Numbers = {},
                        .ProgramText = {},
                        .ProgramFolder = {},
                        .StateFile = {},
                        .Store = store};
  PhraseTablePanel panel(desktop, nullptr);
  panel.resize(1200, 700);
  panel.show();
  MeasureAll(panel, run);
  return 0;
}
