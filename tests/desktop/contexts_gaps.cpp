// How alive the contexts are of a phrase that occurs millions of times:
//     contexts_gaps [OCCURRENCES]
// Counts a made-up folder in which one phrase occurs so often (1,000,000 times), shows its contexts, orders,
// groups, samples, selects and scrolls them, and shows the text behind them. Prints of each how long it took
// and the longest time between two rounds of the event loop. For the eye, not for tests: the figures depend
// on the machine.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "bench/made_text.h"
#include "desktop/results/contexts/contexts_of_side.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/text_view.h"
#include "tests/app/run_world.h"
#include "tests/desktop/fake_surroundings.h"
#include "tests/desktop/loop_gaps.h"

namespace {

using namespace korv;

constexpr size_t kFiles = 200;
constexpr size_t kWordsBetween = 6;

std::shared_ptr<const CountedRun> LargeRun(RunWorld& world, size_t occurrences) {
  const bench::MadeText text(occurrences * kWordsBetween);
  const size_t inFile = occurrences / kFiles;
  for (size_t file = 0; file < kFiles; ++file) {
    std::string lines;
    for (size_t line = file * inFile; line < (file + 1) * inFile; ++line) {
      for (size_t k = 0; k < kWordsBetween; ++k) {
        if (k == kWordsBetween / 2) lines += "whale oil ";
        lines += text.Words()[line * kWordsBetween + k] + ' ';
      }
      lines += line % 3 == 0 ? ".\n" : "\n";
    }
    world.Files.Add("/t/" + std::to_string(file) + ".txt", std::move(lines));
  }
  world.Request.Options.KeepPlaces = true;
  world.UseLengths(2, 3, 2);
  world.UseFolder("/t");
  if (world.Count() != RunEnd::Counted) return nullptr;
  return std::make_shared<CountedRun>(std::move(world.Run));
}

/// Each thing that a user does, measured.
class Session {
 public:
  explicit Session(ContextsPane& pane) : pane_(pane) {}

  void Do(const char* what, const std::function<void()>& act) {
    gaps_.Measure(act, [&] { return pane_.Idle(); });
    std::printf("%-28s %8.1f ms, longest gap %6.1f ms; %s\n", what, gaps_.Took(), gaps_.Longest(),
                qPrintable(pane_.findChild<QLabel*>(QStringLiteral("lblContextCount"))->text()));
    std::fflush(stdout);
  }

 private:
  ContextsPane& pane_;
  LoopGaps gaps_;
};

void MeasureAll(ContextsPane& pane, const std::shared_ptr<const CountedRun>& run) {
  Session session(pane);
  auto& phrase = *pane.findChild<QLineEdit*>(QStringLiteral("txbContextPhrase"));
  auto& order = *pane.findChild<QComboBox*>(QStringLiteral("cboContextOrder"));
  auto& files = *pane.findChild<QCheckBox*>(QStringLiteral("chkContextFiles"));
  auto& sample = *pane.findChild<QCheckBox*>(QStringLiteral("chkContextSample"));
  auto& width = *pane.findChild<QSpinBox*>(QStringLiteral("spbContextWidth"));
  session.Do("show the run", [&] { pane.Show(run); });
  session.Do("a phrase", [&] {
    phrase.setText(QStringLiteral("whale oil"));
    emit phrase.returnPressed();
  });
  for (int k = 1; k <= order.count(); ++k)
    session.Do(qPrintable(order.itemText(k % order.count())),
               [&] { order.setCurrentIndex(k % order.count()); });
  session.Do("file by file", [&] { files.click(); });
  session.Do("to the end, file by file", [&] { pane.tblContexts->scrollToBottom(); });
  session.Do("not file by file", [&] { files.click(); });
  session.Do("a sample", [&] { sample.click(); });
  session.Do("all again", [&] { sample.click(); });
  session.Do("to the end", [&] { pane.tblContexts->scrollToBottom(); });
  session.Do("wider", [&] { width.setValue(400); });
  session.Do("select all", [&] { pane.tblContexts->selectAll(); });
  session.Do("scroll with all selected", [&] { pane.tblContexts->scrollToTop(); });
  session.Do("copy what is selected",
             [&] { pane.tblContexts->findChild<QAction*>(QStringLiteral("mnuContextCopy"))->trigger(); });
  session.Do("select one", [&] { pane.tblContexts->GoTo(5); });
  session.Do("the last one, by going back", [&] {
    pane.OfA->GoBy(-1);
    for (int k = 0; k < 6; ++k) pane.OfA->GoBy(-1);
  });
  session.Do("the text", [&] { pane.OfA->ShowText(); });
  session.Do("the next occurrence in it", [&] { pane.OfA->GoBy(1); });
  session.Do("no run", [&] { pane.Show(nullptr); });
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  RunWorld world;
  const auto run = LargeRun(world, argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1'000'000);
  if (run == nullptr) return 1;
  FakeSurroundings around;
  const Desktop desktop = around.On(world.Files);
  ContextsPane pane(desktop, nullptr);
  pane.resize(1200, 700);
  pane.show();
  MeasureAll(pane, run);
  return 0;
}
