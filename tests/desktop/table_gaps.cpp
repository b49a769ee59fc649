// How alive the table is over millions of phrases:
//     table_gaps [WORDS]
// Makes a run over so many made-up words (26 million), shows it, and filters, orders, selects and scrolls it.
// Prints of each the time to the first rows and to all of them, and the longest time between two rounds of
// the event loop. For the eye, not for tests: the figures depend on the machine.

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "bench/made_text.h"
#include "desktop/results/table/comparison_bar.h"
#include "desktop/results/table/match_bar.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/results/table/table_bar.h"
#include "desktop/widgets/eliding_label.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "tests/desktop/fake_surroundings.h"
#include "tests/desktop/loop_gaps.h"
#include "tests/fakes/fake_files.h"

namespace {

using namespace korv;

/// `compares`: the second half of the files is side B.
std::shared_ptr<const CountedRun> LargeRun(size_t words, bool compares) {
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
    if (compares && i == words / kFiles * (kFiles / 2)) {
      run->Facts.SecondSide = SecondSide{.Words = builder.Counts()};
      builder.BeginSecondSide();
    }
    if (i % (words / kFiles) == 0) builder.BeginSource(std::to_string(i));
    builder.TakeWord(text.Words()[i]);
    if (end == text.SentenceEnds().end() || *end != i + 1) continue;
    builder.ResetPhrases();
    ++end;
  }
  run->Facts.Words = builder.Counts();
  if (compares) run->Facts.SecondSide->Words = run->Facts.Words - run->Facts.SecondSide->Words;
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
    QObject::connect(panel.tblPhrases->model(), &QAbstractItemModel::modelReset, &context_, [this] {
      if (!first_) first_ = std::chrono::steady_clock::now();
    });
  }
  void Measure(const char* what, const std::function<void()>& act) {
    first_.reset();
    gaps_.Measure(act, [this] { return panel_.Idle(); });
    const double first = first_ ? LoopGaps::Milliseconds(*first_ - gaps_.Begin()).count() : 0;
    std::printf("%-34s first rows %7.1f ms, all %7.1f ms, longest gap %6.1f ms; %s\n", what, first,
                gaps_.Took(), gaps_.Longest(), qPrintable(panel_.Bar->lblPhraseCount->text()));
    std::fflush(stdout);
  }

 private:
  const PhraseTablePanel& panel_;
  QObject context_;
  LoopGaps gaps_;
  std::optional<LoopGaps::SteadyTime> first_;
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

void MeasureSides(PhraseTablePanel& panel, const std::shared_ptr<const CountedRun>& run) {
  Gaps gaps(panel);
  gaps.Measure("show two sides", [&] { panel.Show(run); });
  gaps.Measure("typical of B", [&] { panel.Sides->tabSides->setCurrentIndex(1); });
  gaps.Measure("shared", [&] { panel.Sides->tabSides->setCurrentIndex(2); });
  gaps.Measure("no test", [&] { panel.Sides->cboTest->setCurrentIndex(2); });
  gaps.Measure("by files", [&] { panel.Sides->cboBasis->setCurrentIndex(1); });
  gaps.Measure("on their own", [&] { panel.Sides->cboBasis->setCurrentIndex(2); });
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const size_t words = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 26'000'000;
  const auto run = LargeRun(words, false);
  FakeSurroundings around;
  FakeFiles files;
  const Desktop desktop = around.On(files);
  PhraseTablePanel panel(desktop, nullptr);
  panel.resize(1200, 700);
  panel.show();
  MeasureAll(panel, run);
  MeasureSides(panel, LargeRun(words, true));
  return 0;
}
