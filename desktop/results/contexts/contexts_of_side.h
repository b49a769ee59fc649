#pragma once

#include <QWidget>
#include <functional>
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

class QLabel;

namespace korv {

class ContextsTable;
class TextView;

/// The list of the contexts of a phrase in a run, or on one side of a run that compares. Finds, sorts and
/// reads on threads of its own.
class ContextsOfSide final : public QWidget {
 public:
  ContextsOfSide(const Desktop& desktop, Side side, QWidget* parent);
  ~ContextsOfSide() override;

  QLabel* lblSideCount = nullptr;  ///< Seen where there are two sides.
  ContextsTable* tblContexts = nullptr;
  TextView* frmText = nullptr;  ///< Null until it is opened.

  std::function<void(const QString&)> Counted = [](const QString&) {};  ///< How many there are, or why none.
  std::function<void()> NoteChanged = [] {};                            ///< Note() may be another.

  /// Lists the occurrences of a phrase of `run`; of its side alone where the run compares.
  void Find(std::shared_ptr<const CountedRun> run, ContextQuery query);
  /// Whether there is a list, or one is being found.
  bool HasPhrase() const { return model_.List() != nullptr || !finder_.Idle(); }
  const std::vector<WordNumber>& Words() const { return query_.Words; }
  void Clear(const std::string& why);
  /// Nothing that was copied is waited for any more.
  void ForgetCopy() { copier_.Forget(); }
  /// Most code points on each side of the phrase.
  void SetAround(size_t around);
  /// What is to be said of the texts; empty for nothing.
  const QString& Note() const { return note_; }

  /// Selects the next (1) or previous (-1) occurrence, from the last one on the first. Where the text is
  /// open, it shows it.
  void GoBy(int rows);
  /// Opens the text at the selected occurrence.
  void ShowText();
  void OpenSource();
  void Copy();
  /// Whether nothing is being found or read.
  bool Idle() const;

 private:
  std::optional<size_t> CurrentPlace() const;
  void Take(const std::shared_ptr<const ContextList>& list);
  void Say(const std::string& count);
  void WantRows();
  void TextsCame();
  void ShowChanged();

  const Desktop& desktop_;
  const Side side_;
  ContextQuery query_;
  QString note_;
  ContextRows rows_;
  ContextsModel model_;
  NewestJob finder_;
  ContextsCopier copier_;
};

}  // namespace korv
