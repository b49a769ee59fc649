#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/yielder.h"
#include "desktop/results/table/column_orders.h"
#include "desktop/results/table/key_tabs.h"
#include "desktop/results/table/table_source.h"
#include "engine/analysis/phrase_list.h"
#include "report/columns/row_filter.h"

namespace korv {

/// What the user wants to see of a run.
struct TableRequest {
  const Column* SortBy = nullptr;
  SortDirection Direction = SortDirection::Ascending;
  RowFilter Filter;
  std::vector<PhraseIndex> LeftOut;  ///< Never shown. Ascending.
  AnalysisNeeds Shown;               ///< Of the columns in sight.
  ValueChoice Values;
  std::optional<KeyTab> Tab{};  ///< Of a run that compares: only the phrases of this one.
};

/// What there is to see.
struct TableAnswer {
  std::shared_ptr<const TableSource> Source;
  /// Nothing: the rows are as they were, but values that were being computed have come.
  std::optional<PhraseList> Rows{};
  bool Whole = true;    ///< False: further rows may pass the filter; the answer with them follows.
  std::string Fault{};  ///< Why the query makes no sense; the rows pass the one before.
  std::shared_ptr<const KeyTabs> Tabs{};  ///< Null where no tab was asked for.
};

/// Orders and filters the phrases of one run, as a job on a thread of its own. Remembers the last order,
/// the last filter and the orders of some columns, of which the next answer can often be made. Nobody else
/// uses it meanwhile.
class TableWork {
 public:
  using Tell = std::function<void(TableAnswer)>;

  explicit TableWork(std::shared_ptr<const CountedRun> run) : run_(std::move(run)) {}

  /// Tells the first rows early, then all of them, then that the values of all columns are there. Nothing
  /// more when stopped.
  void Answer(const TableRequest& request, Yielder& yielder, const Tell& tell);

 private:
  bool Prepare(const AnalysisNeeds& needs, const ValueChoice& choice, Yielder& yielder);
  void ForgetOtherValues(const ValueChoice& choice);
  bool Order(const TableRequest& request, Yielder& yielder);
  SharedOrder NewOrder(const TableRequest& request, Yielder& yielder);
  bool SortOut(const TableRequest& request, Yielder& yielder);
  bool Filter(const TableRequest& request, Yielder& yielder, const Tell& tell);
  void FilterAnew();

  std::shared_ptr<const CountedRun> run_;
  std::shared_ptr<const TableSource> source_;  ///< Null until it is prepared.
  ColumnOrders orders_;
  TableRequest last_;                    ///< What all_ and rows_ were made for.
  PhraseList all_;                       ///< In the order of last_.
  PhraseList rows_;                      ///< Those that pass its filter.
  std::shared_ptr<const KeyTabs> tabs_;  ///< Null where they are not known.
};

}  // namespace korv
