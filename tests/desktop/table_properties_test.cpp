// The table of random runs: every cell is what its column says of the phrase, in any order and with any
// filter.

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <map>

#include "desktop/results/table/limits_bar.h"
#include "desktop/results/table/parts_menu.h"
#include "desktop/results/table/shown_cell.h"
#include "desktop/results/table/table_columns.h"
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

/// The phrases of which every value is within its limit; the columns are the phrase and those of the limits.
class LimitedPhrases final : public ListWriter {
 public:
  explicit LimitedPhrases(const std::vector<Limit>& limits) : limits_(limits) {}
  void Begin(std::span<const Column* const>, const ColumnSource&) override {}
  bool Row(const RowCells& cells) override {
    bool within = true;
    for (size_t k = 0; k < limits_.size(); ++k) {
      const Cell& cell = cells.OfPhrase[k + 1];
      const auto* whole = std::get_if<int64_t>(&cell);
      const auto* real = std::get_if<double>(&cell);
      if (whole == nullptr && real == nullptr) within = false;
      const double value = whole != nullptr ? static_cast<double>(*whole) : real != nullptr ? *real : 0.0;
      if (limits_[k].Least && value < *limits_[k].Least) within = false;
      if (limits_[k].Most && value > *limits_[k].Most) within = false;
    }
    if (within) Passing.emplace_back(std::get<std::string_view>(cells.OfPhrase[0]));
    return true;
  }
  bool End(bool) override { return true; }

  std::vector<std::string> Passing;

 private:
  const std::vector<Limit>& limits_;
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
    std::stable_partition(columns.begin(), columns.end(),
                          [](const korv::Column* column) { return column->Id == "phrase"; });
    return columns;
  }
  /// The window has one column where lists have two. The files of these worlds stand in no folder.
  static void JoinFirstPlace(std::map<std::string, std::string>& cells) {
    const std::string file = cells.extract("first_file").mapped();
    const std::string line = cells.extract("first_line").mapped();
    cells["first"] = (file == "-" ? "Clipboard" : file) + (line.empty() ? "" : ":" + line);
  }
  Cells Listed(const CountedRun& run, PartChoice parts = {}) const {
    // Ranks go by frequency whatever the chain of the run goes by.
    ReportOptions options;
    options.SortByNumberOfFiles = true;
    CellKeeper keeper(numbers);
    NoYielder none;
    WriteList({run.Table, run.Facts, options, numbers, parts}, PhraseFirst(), {}, keeper, none);
    for (auto& [phrase, cells] : keeper.Rows) JoinFirstPlace(cells);
    return keeper.Rows;
  }
  void ShowAllColumns() const {
    QMenu* const menu = Find<QToolButton>("cmdColumns")->menu();
    emit menu->aboutToShow();
    for (const korv::Column* column : WindowColumns()) {
      auto* action = menu->findChild<QAction*>(QStringLiteral("mnuColumn_") +
                                               QString::fromStdString(std::string(column->Id)));
      if (!action->isChecked() && action->isEnabled()) action->trigger();
    }
    UntilIdle();
  }
  void ChooseParts(PartChoice parts) {
    if (parts.Equal == PartChoice::kFiles) return ChooseFrom("cmdColumns", "mnuParts_files");
    messages.WillType(std::to_string(parts.Equal));
    ChooseFrom("cmdColumns", parts.OfEachFile ? "mnuParts_other_of_each_file" : "mnuParts_other");
  }
  int SectionOfId(std::string_view id) const {
    const std::vector<const korv::Column*> columns = WindowColumns();
    return static_cast<int>(
        std::ranges::find(columns, id, [](const korv::Column* column) { return column->Id; }) -
        columns.begin());
  }
  /// Found with the value of every phrase, one by one; in alphabetical order.
  std::vector<std::string> WithinLimits(const CountedRun& run) const {
    const std::vector<Limit> limits = panel->Bar->Limits->Limits();
    std::vector<const korv::Column*> columns = {FindColumn("phrase")};
    for (const Limit& limit : limits) columns.push_back(limit.Of);
    LimitedPhrases test(limits);
    const ReportOptions options;
    NoYielder none;
    WriteList({run.Table, run.Facts, options, numbers, KeptParts(store)}, columns, {}, test, none);
    std::ranges::sort(test.Passing);
    return test.Passing;
  }
  Cells InTheTable() const {
    Cells cells;
    const std::vector<const korv::Column*> columns = WindowColumns();
    const std::vector<std::string> phrases = Phrases();
    for (int row = 0; row < Model().rowCount(); ++row)
      for (int section = 0; section < static_cast<int>(columns.size()); ++section)
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

  const std::vector<const korv::Column*> columns = WindowColumns();
  const auto section = *rc::gen::inRange<size_t>(0, columns.size());
  Grid().horizontalHeader()->setSortIndicator(
      static_cast<int>(section), *rc::gen::arbitrary<bool>() ? Qt::AscendingOrder : Qt::DescendingOrder);
  UntilIdle();
  RC_ASSERT(InTheTable() == expected);
  RC_TAG(anything ? "with phrases" : "without");
}

RC_GTEST_FIXTURE_PROP(TableProperties, ShowsWhatTheColumnsSayOfOtherParts, ()) {
  CountingWorld world = DrawWorld({.Folder = *rc::gen::arbitrary<bool>()});
  world.Options.KeepPlaces = true;
  world.Options.MinFrequency = 1;
  RC_LOG() << world;
  const std::shared_ptr<CountedRun> run = Count(world);
  RC_PRE(AnythingListed(run->Table));
  Show(run);
  ShowAllColumns();
  for (int change = 0; change < 3; ++change) {
    const PartChoice parts{*rc::gen::arbitrary<bool>() ? PartChoice::kFiles : *rc::gen::inRange(2, 101),
                           *rc::gen::arbitrary<bool>()};
    ChooseParts(parts);
    RC_ASSERT(InTheTable() == Listed(*run, parts));
  }
}

/// Limits come one after the other, tighter and looser ones, while the rows are ordered by this and that:
/// orders and rows that were found before are of use again.
RC_GTEST_FIXTURE_PROP(TableProperties, ShowsWhatIsWithinTheLimits, ()) {
  CountingWorld world = DrawWorld({.Folder = true});
  world.Options.KeepPlaces = true;
  world.Options.MinFrequency = 1;
  RC_LOG() << world;
  const std::shared_ptr<CountedRun> run = Count(world);
  RC_PRE(AnythingListed(run->Table));
  Show(run);
  bool some = false;
  for (int change = 0; change < 6; ++change) {
    const std::vector<std::string> columns = {"files", "dispersion", "net_frequency", "frequency"};
    const std::string limited = *rc::gen::elementOf(columns);
    const std::string ordering = *rc::gen::elementOf(columns);
    const std::string least = *rc::gen::elementOf(std::vector<std::string>{"", "0.3", "1", "2"});
    const std::string most = *rc::gen::elementOf(std::vector<std::string>{"", "0.8", "1", "3"});
    Grid().horizontalHeader()->setSortIndicator(
        SectionOfId(ordering), *rc::gen::arbitrary<bool>() ? Qt::AscendingOrder : Qt::DescendingOrder);
    if (auto* field = panel->findChild<QLineEdit*>(QString::fromStdString("txbLeast_" + limited)))
      field->setText(QString::fromStdString(least));
    if (auto* field = panel->findChild<QLineEdit*>(QString::fromStdString("txbMost_" + limited)))
      field->setText(QString::fromStdString(most));
    if (*rc::gen::arbitrary<bool>()) ChooseParts({*rc::gen::element(0, 2, 7), *rc::gen::arbitrary<bool>()});
    panel->Bar->Chosen();
    UntilIdle();
    const std::vector<std::string> expected = WithinLimits(*run);
    std::vector<std::string> shownPhrases = Phrases();
    std::ranges::sort(shownPhrases);
    RC_ASSERT(shownPhrases == expected);
    some = some || !expected.empty();
  }
  RC_TAG(some ? "some pass" : "none");
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
  // That would look for what is not there.
  RC_PRE(part.front() != '-');
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
