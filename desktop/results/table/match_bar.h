#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "engine/analysis/phrase_query.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace korv {

/// Which phrases of the table are looked for: the text, how it is meant, and whether those that match are
/// wanted or the others.
class MatchBar final : public QWidget {
 public:
  MatchBar(const Desktop& desktop, QWidget* parent);
  ~MatchBar() override;

  QComboBox* cboMatchMode = nullptr;
  QLineEdit* txbMatch = nullptr;
  QCheckBox* chkMatchNot = nullptr;
  QCheckBox* chkMatchAccents = nullptr;

  std::function<void()> Typed = [] {};    ///< The text has changed; more may follow at once.
  std::function<void()> Chosen = [] {};   ///< Something else has.
  std::function<void()> Entered = [] {};  ///< Enter or Down: on to the list.

  PhraseQuery Query() const;
  void Clear();
  /// Says why the text makes no sense; empty when it does.
  void ShowFault(const std::string& reason);
  void StartTyping();
  std::vector<QWidget*> TabOrder() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Connect(Messages& messages);
};

}  // namespace korv
