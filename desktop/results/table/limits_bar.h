#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/desktop.h"
#include "report/columns/row_filter.h"

class QLineEdit;

namespace korv {

/// The least and the greatest value that some columns may have; an empty field is no limit.
///
/// The fields are named "txbLeast_" and "txbMost_" with the name of the column.
class LimitsBar final : public QWidget {
 public:
  LimitsBar(const Desktop& desktop, QWidget* parent);
  ~LimitsBar() override;

  std::function<void()> Typed = [] {};  ///< A limit has changed; more may follow at once.

  /// Those that are set and make sense.
  std::vector<Limit> Limits() const;
  /// Whether every field is empty or holds a number. Marks those that do not.
  bool Check();
  void Clear();
  /// Puts limits into the fields; a column without a field is passed over.
  void Set(const std::vector<Limit>& limits);
  /// Hides the limits that say nothing where all text is one file.
  void SetOneFile(bool oneFile);
  std::vector<QWidget*> TabOrder() const;

 private:
  struct Row {
    const Column* Of;
    QWidget* Box;  ///< Holds the fields and their caption.
    QLineEdit* Least;
    QLineEdit* Most;
  };

  Row MakeRow(const Column& column);
  std::optional<double> NumberIn(const QLineEdit& field) const;

  const Desktop& desktop_;
  std::vector<Row> rows_;
};

}  // namespace korv
