#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/number_format.h"
#include "desktop/desktop.h"
#include "desktop/results/table/key_tabs.h"

class QComboBox;
class QTabBar;

namespace korv {

/// Above the table of a run that compares: the tables that it is sorted out into, each with the number of its
/// phrases, to which test they are put, and what is compared.
class ComparisonBar final : public QWidget {
 public:
  ComparisonBar(const Desktop& desktop, QWidget* parent);
  ~ComparisonBar() override;

  QTabBar* tabSides = nullptr;
  QComboBox* cboTest = nullptr;
  QComboBox* cboBasis = nullptr;

  /// The section and the order by which runs that compare nothing are ordered, kept while one that does is
  /// shown.
  std::pair<int, Qt::SortOrder> OrderOfOthers = {0, Qt::AscendingOrder};

  std::function<void()> TabChosen = [] {};    ///< The user wants to see another table.
  std::function<void()> TestChosen = [] {};   ///< Or other phrases in them.
  std::function<void()> BasisChosen = [] {};  ///< Or other values.

  /// Keeps what the user chose with the run.
  std::function<void(ComparisonBasis)> KeepBasis = [](ComparisonBasis) {};

  /// For a run: whether A is a new version of B, and what it is compared by. Tells nobody.
  void Use(bool drafts, ComparisonBasis basis);
  /// Null for not yet known.
  void ShowCounts(const KeyTabs* tabs);
  KeyTab Tab() const;
  ComparisonBasis Basis() const;
  std::vector<QWidget*> TabOrder() const;

 private:
  void Connect();

  const Desktop& desktop_;
  bool drafts_ = false;
  QWidget* fraTest_ = nullptr;  ///< Holds cboTest and its caption.
};

}  // namespace korv
