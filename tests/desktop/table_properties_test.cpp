// The table of random runs: every cell is what its column says of the phrase, in any order and with any
// filter.

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <map>

#include "desktop/results/table/shown_cell.h"
#include "engine/corpus/corpus.h"
#include "report/columns/registry.h"
#include "report/list_words.h"
#include "tests/desktop/table_test.h"
#include "tests/engine/counting_world.h"

namespace korv {
namespace {

/// By phrase: the text of each column, by its name.
using Cells = std::map<std::string, std::map<std::string, std::string>>;

/// Keeps what a list of the run says, which is made without the table.
class CellKeeper final : public ListWriter {
 public:
  explicit CellKeeper(const NumberFormat& numbers) : numbers_(numbers) {}

  void Begin(std::span<const Column* const> columns, const ColumnSource&) override {
    columns_.assign(columns.begin(), columns.end());
  }
  bool Row(const RowCells& cells) override {
    std::map<std::string, std::string>& row =
        Rows[std::string(std::get<std::string_view>(cells.OfPhrase[0]))];
    for (size_t k = 0; k < cells.OfPhrase.size(); ++k)
      row[std::string(columns_[k]->Id)] = ShownCell(*columns_[k], cells.OfPhrase[k], numbers_).toStdString();
    return true;
  }
  bool End(bool) override { return true; }

  Cells Rows;

 private:
  const NumberFormat& numbers_;
  std::vector<const Column*> columns_;
};

class TableProperties : public TableTest {
 protected:
  std::shared_ptr<CountedRun> Count(const CountingWorld& world) {
    EngineRun counted = CountedByEngine(world);
    auto run = std::make_shared<CountedRun>();
    run->Lists = std::move(counted.Lists);
    run->Table = std::move(counted.Table);
    run->Facts.Options = world.Options;
    run->Facts.Words = counted.Words;
    return run;
  }
  /// The phrase first, for the keeper.
  static std::vector<const korv::Column*> PhraseFirst() {
    std::vector<const korv::Column*> columns = TableColumns();
    std::ranges::stable_partition(columns, [](const korv::Column* column) { return column->Id == "phrase"; });
    return columns;
  }
  Cells Listed(const CountedRun& run) const {
    // Ranks go by frequency whatever the chain of the run goes by.
    ReportOptions options;
    options.SortByNumberOfFiles = true;
    CellKeeper keeper(numbers);
    NoYielder none;
    WriteList({run.Table, run.Facts, options, numbers}, PhraseFirst(), {}, keeper, none);
    return keeper.Rows;
  }
  void ShowAllColumns() const {
    QMenu* const menu = Find<QToolButton>("cmdColumns")->menu();
    emit menu->aboutToShow();
    for (const korv::Column* column : TableColumns()) {
      auto* action = menu->findChild<QAction*>(QStringLiteral("mnuColumn_") +
                                               QString::fromStdString(std::string(column->Id)));
      if (!action->isChecked() && action->isEnabled()) action->trigger();
    }
    UntilIdle();
  }
  Cells InTheTable() const {
    Cells cells;
    const std::vector<const korv::Column*> columns = TableColumns();
    const std::vector<std::string> phrases = Phrases();
    for (int row = 0; row < Model().rowCount(); ++row)
      for (int section = 0; section < Model().columnCount(); ++section)
        cells[phrases[static_cast<size_t>(row)]][std::string(columns[static_cast<size_t>(section)]->Id)] =
            Model().index(row, section).data().toString().toStdString();
    return cells;
  }
};

RC_GTEST_FIXTURE_PROP(TableProperties, ShowsWhatTheColumnsSay, ()) {
  const bool ofFolder = *rc::gen::arbitrary<bool>();
  CountingWorld world = DrawWorld({.Lists = true, .Rules = true, .Folder = ofFolder});
  world.Options.KeepPlaces = true;
  world.Options.MinFrequency = std::min(world.Options.MinFrequency, 2);
  RC_LOG() << world;
  const std::shared_ptr<CountedRun> run = Count(world);
  const bool anything = AnythingListed(run->Table);
  const Cells expected = anything ? Listed(*run) : Cells();
  Show(run);
  ShowAllColumns();
  const Cells shownAtFirst = InTheTable();
  RC_ASSERT(shownAtFirst == expected);

  const std::vector<const korv::Column*> columns = TableColumns();
  const auto section = *rc::gen::inRange<size_t>(0, columns.size());
  Grid().horizontalHeader()->setSortIndicator(
      static_cast<int>(section), *rc::gen::arbitrary<bool>() ? Qt::AscendingOrder : Qt::DescendingOrder);
  UntilIdle();
  RC_ASSERT(InTheTable() == expected);
  RC_TAG(anything ? "with phrases" : "without");
}

RC_GTEST_FIXTURE_PROP(TableProperties, FiltersByWhatThePhrasesHold, ()) {
  CountingWorld world = DrawWorld({});
  world.Options.MinFrequency = 1;
  world.Rules.CaseSignificant = false;
  const std::shared_ptr<CountedRun> run = Count(world);
  RC_LOG() << world;
  Show(run);
  const std::vector<std::string> all = Phrases();
  RC_PRE(!all.empty());
  const std::string& some = *rc::gen::elementOf(all);
  const auto begin = *rc::gen::inRange<size_t>(0, some.size());
  const std::string part = some.substr(begin, *rc::gen::inRange<size_t>(1, 6));
  const QString typed = QString::fromStdString(part).simplified();
  Find<QLineEdit>("txbMatch")->setText(QString::fromStdString(part));
  panel->Bar->Match->Entered();
  UntilIdle();
  std::vector<std::string> expected;
  for (const std::string& phrase : all)
    if (QString::fromStdString(phrase).contains(typed, Qt::CaseInsensitive)) expected.push_back(phrase);
  RC_ASSERT(Phrases() == expected);
  RC_TAG(expected.empty() ? "none" : expected == all ? "all" : "some");
}

}  // namespace
}  // namespace korv
