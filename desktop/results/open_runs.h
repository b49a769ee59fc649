#pragma once

#include <memory>
#include <vector>

#include "app/run/shown_result.h"
#include "desktop/results/result_panel.h"

namespace korv {

class RunTabs;

/// When a run was counted, as the user writes it: the time of the day; of one that was kept the day too.
QString WhenCounted(const ShownResult& result);

/// The finished runs of a window, each with its tab until the user closes it. There is one text box: the run
/// in front has it, and the others keep what it held of them.
class OpenRuns {
 public:
  /// Both have to outlive this.
  OpenRuns(RunTabs& tabs, ResultPanel& report) : tabs_(tabs), report_(report) {}

  /// Null before the first run.
  std::shared_ptr<ShownResult> InFront() const;
  size_t Count() const { return runs_.size(); }
  std::shared_ptr<ShownResult> Share(int index) const { return runs_[static_cast<size_t>(index)].Result; }
  const ShownResult& At(int index) const { return *runs_[static_cast<size_t>(index)].Result; }
  const QString& NameOf(int index) const { return runs_[static_cast<size_t>(index)].Name; }
  /// Of all runs, in bytes.
  uint64_t Memory() const;

  /// A tab for `result`, in front. Its listing has the text box from now on.
  void Add(std::shared_ptr<ShownResult> result);
  void Close(int index);
  /// Says in the tool tip of the tab in front how its run came about.
  void Describe(const QString& tip);
  /// Marks the tabs of runs that were counted under other rules than `now`.
  void MarkChanged(const RunRequest& now);

  // ---- Whose the text box is

  /// Something that goes on empties the text box. Its run keeps what it held.
  void LendBox();
  /// What went on came to nothing, and the text box holds what it held before.
  void TakeBoxBack();
  /// Gives the text box to the run in front. True where another one had it.
  bool BringBox();

 private:
  struct OpenRun {
    std::shared_ptr<ShownResult> Result;
    QString Name;
    QString Tip{};
    ResultPanel::Contents Box{};  ///< What the text box held of it.
  };
  OpenRun* RunOf(const ShownResult* result);
  QString NameFor(const ShownResult& result) const;
  /// The run that has the text box keeps what it holds.
  void KeepBox();

  RunTabs& tabs_;
  ResultPanel& report_;
  std::vector<OpenRun> runs_;           ///< In the order of the tabs.
  const ShownResult* boxOf_ = nullptr;  ///< Whose listing the text box has; null for none.
  bool lent_ = false;                   ///< Something else is in it.
  bool inSightBefore_ = false;          ///< The listing stood there when the box was lent.
};

}  // namespace korv
