#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "app/run/run.h"
#include "desktop/desktop.h"

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace korv {

class ContextOptions;
class ContextsOfSide;
class ContextsTable;
class WhyPanel;

/// Where a phrase of a run stands, with what stands around it: a phrase that is shown or typed, and a row for
/// each occurrence; those of two sides in lists side by side.
class ContextsPane final : public QWidget {
 public:
  ContextsPane(const Desktop& desktop, QWidget* parent);
  ~ContextsPane() override;

  QLineEdit* txbContextPhrase = nullptr;
  ContextOptions* Options = nullptr;
  QLabel* lblContextCount = nullptr;
  QLabel* lblContextNote = nullptr;
  ContextsTable* tblContexts = nullptr;  ///< That of OfA.
  QPushButton* cmdWhy = nullptr;
  WhyPanel* Why = nullptr;
  ContextsOfSide* OfA = nullptr;  ///< Of the whole text where there are no sides.
  ContextsOfSide* OfB = nullptr;

  /// The run whose contexts are shown from here on, the phrase being the one that stands there; null for
  /// none.
  void Show(std::shared_ptr<const CountedRun> run);
  /// A phrase of the run's table, as it stands there.
  void ShowPhrase(PhraseIndex phrase);
  /// Says why the phrase that stands there is not listed.
  void ShowWhy();
  /// The list that was used last.
  ContextsOfSide& Active() const;
  std::vector<QWidget*> TabOrder() const;
  /// Whether nothing is being found or read.
  bool Idle() const;

 private:
  void BuildOptions(QBoxLayout& layout);
  QWidget* BuildLists();
  void BuildActions();
  bool HasText() const;
  void EnableWhy();
  void ConnectOptions();
  void ShowTyped();
  void Find(std::vector<WordNumber> words);
  void FindAnew();
  void Clear(const std::string& why);
  void ShowNotes();
  void ShowSides();

  const Desktop& desktop_;
  std::shared_ptr<const CountedRun> run_;
  QTimer typed_;      ///< Runs while more may be typed.
  bool ofB_ = false;  ///< The list of B was used last.
};

}  // namespace korv
