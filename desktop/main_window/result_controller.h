#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/run/result_notes.h"
#include "app/run/shown_result.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/exports.h"
#include "desktop/main_window/kept_runs.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/results/open_runs.h"
#include "desktop/results/run_tabs.h"
#include "report/output_file.h"
#include "wordlists/list_kind.h"

namespace korv {

class RunController;
struct FinishedRun;

/// The finished runs and their listings: what is shown of the one in front, and when it is listed anew. "The
/// result" is that of the run in front.
class ResultController final : public QObject {
 public:
  /// Shows the Settings window; with a kind, the list of that kind.
  using ShowSettings = std::function<void(std::optional<ListKind>)>;
  /// The parts have to outlive this.
  ResultController(const Desktop& desktop, const MainPanels& panels, Workspace& work, RunController& run,
                   ShowSettings showSettings);

  /// Words have been read and their phrases can be listed.
  bool HasResult() const { return result_ != nullptr; }
  const OpenRuns& Runs() const { return runs_; }
  /// Those that are files.
  KeptRuns& Kept() { return kept_; }
  /// Those that become tables for other programs.
  Exports& Tables() { return exports_; }
  /// Null before the first run.
  const std::shared_ptr<ShownResult>& InFront() const { return result_; }

  std::function<void()> RunChanged = [] {};    ///< Another run has come in front.
  std::function<void()> Shown = [] {};         ///< What restricts the result may be something else now.
  std::function<void()> CountLeftOut = [] {};  ///< The words that the run in front left out are wanted.
  /// They were read under these word rules.
  bool ResultKeepsTo(const WordRules& rules) const;

  /// The runs that the one at `index` can be compared with: all others that are of a text, but comparisons.
  std::vector<NamedRun> ComparableWith(int index) const;
  /// Counts the sources of both together, under the rules of `a`.
  void CompareRuns(int a, int b);
  /// Closes a run; the last one stays.
  void CloseRun(int index);
  /// Takes a result, which comes in front, and lists it.
  void Take(FinishedRun finished);
  /// Lists the counted phrases: into the output file, if there is one and `toFile`, else into the text box.
  void ListTheResult(bool filtered, bool toFile = true);

  /// Brings all that shows the result up to date. Called after every change.
  void ShowResult();
  /// No result is shown while another one is being counted.
  void HideResult();
  /// The count came to nothing, and the text box holds what it held before.
  void ShowResultAgain();
  /// The text box has been emptied.
  void ForgetListing();
  /// Nothing goes on any more.
  void RunEnded();

  /// The report options have changed, but not by the user's own choice: lists anew if that writes no file.
  void FollowControls();
  /// The user has chosen other report options.
  void RelistAfterChange();
  /// The user asks for the filter.
  void FilterResults();
  /// Output to the file has been enabled: asks whether to write it.
  void OfferToWrite();
  /// A way out of a note.
  void TakeWayOut(NoteAction action);

 private:
  /// What is chosen now, for comparing it with what is shown.
  ChosenNow GatherChosen() const;
  bool WantsFilter() const;
  /// The run in front compares. Its report goes into no output file.
  bool Compares() const { return result_ && result_->Run.Facts.SecondSide.has_value(); }
  void ShowCounts();
  void ShowNotes();
  void TakeListing(ShownResult& result, ShownListing listing);
  /// Puts into the tool tip of the tab in front how its run came about.
  void DescribeRun();
  void ShowMemory();
  /// Another run has come in front.
  void FrontHasChanged();
  void ShowLastList();
  /// Where the report is to be written; empty for the text box. May ask, and may disable file output.
  std::optional<std::string> ConfirmedOutputPath();
  /// Whether writing to `path` would destroy what was counted; says so.
  bool OutputIsSource(const std::string& path);
  void ShowSkipped();
  void OpenWrittenFile();
  void OpenWrittenFolder();

  const Desktop& desktop_;
  const MainPanels& panels_;
  Workspace& work_;
  RunController& run_;
  ShowSettings showSettings_;
  OverwriteGuard overwrite_;
  OpenRuns runs_;
  KeptRuns kept_;
  Exports exports_;
  std::shared_ptr<ShownResult> result_;  ///< Of the run in front.
  /// Something was chosen while a listing went on; it will be looked at afterwards.
  bool changedMeanwhile_ = false;
};

}  // namespace korv
