#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/contexts/context_list.h"
#include "app/contexts/context_rows.h"
#include "app/run/run.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/contexts/contexts_copier.h"
#include "desktop/results/contexts/contexts_model.h"

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace korv {

class ContextOptions;
class ContextsTable;
class TextView;
class WhyPanel;

/// Where a phrase of a run stands, with what stands around it: a phrase that is shown or typed, and a row for
/// each occurrence. Finds, sorts and reads on threads of its own.
class ContextsPane final : public QWidget {
 public:
  ContextsPane(const Desktop& desktop, QWidget* parent);
  ~ContextsPane() override;

  QLineEdit* txbContextPhrase = nullptr;
  ContextOptions* Options = nullptr;
  QLabel* lblContextCount = nullptr;
  QLabel* lblContextNote = nullptr;
  ContextsTable* tblContexts = nullptr;
  QPushButton* cmdWhy = nullptr;
  WhyPanel* Why = nullptr;
  TextView* frmText = nullptr;  ///< Null until it is opened.

  /// The run whose contexts are shown from here on, the phrase being the one that stands there; null for
  /// none.
  void Show(std::shared_ptr<const CountedRun> run);
  /// A phrase of the run's table, as it stands there.
  void ShowPhrase(PhraseIndex phrase);
  /// Selects the next (previous) occurrence, from the last one on the first. Where the text is open, it shows
  /// it.
  void NextOccurrence() { GoBy(1); }
  void PreviousOccurrence() { GoBy(-1); }
  /// Says why the phrase that stands there is not listed.
  void ShowWhy();
  /// Opens the text at the selected occurrence.
  void ShowText();
  std::vector<QWidget*> TabOrder() const;
  /// Whether nothing is being found or read.
  bool Idle() const;

 private:
  void BuildOptions(QBoxLayout& layout);
  void BuildActions();
  std::optional<size_t> CurrentPlace() const;
  bool HasText() const;
  void EnableWhy();
  void ConnectOptions();
  void ShowTyped();
  void Find(std::vector<WordNumber> words);
  void FindAnew();
  void Take(const std::shared_ptr<const ContextList>& list);
  void Clear(const std::string& why);
  void WantRows();
  void TextsCame();
  void GoBy(int rows);
  void Copy();
  void ShowChanged();
  void OpenSource();

  const Desktop& desktop_;
  std::shared_ptr<const CountedRun> run_;
  ContextQuery query_;
  ContextRows rows_;
  ContextsModel model_;
  QTimer typed_;  ///< Runs while more may be typed.
  NewestJob finder_;
  ContextsCopier copier_;
};

}  // namespace korv
