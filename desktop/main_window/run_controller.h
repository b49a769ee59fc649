#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/run/run.h"
#include "app/run/run_clock.h"
#include "app/run/shown_result.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/settings_window/settings_host.h"
#include "platform/program_text.h"
#include "report/report_options.h"
#include "sources/detect/encoding_choice.h"
#include "sources/folders/file_selection.h"

namespace korv {

struct Report;

/// What a run has led to, and how it is to be listed.
struct FinishedRun {
  std::unique_ptr<ShownResult> Result;  ///< Not listed yet.
  bool Filtered = false;
  bool ToFile = true;  ///< Into the output file, if one is named.
};

/// Everything that takes its time: counting, listing, listing the files of a folder, reading a word list.
/// Shows in the panels how far it is, and takes no second thing before the first is over.
///
/// The results go to callbacks, so that callers need not know when they come.
class RunController {
 public:
  /// What the rest of the window does then.
  struct Hooks {
    std::function<void(bool enabled)> EnableDisableButtons;
    std::function<void()> SetCountPhrasesCaption;
    std::function<void()> HideResult;       ///< A count takes the place of the last result.
    std::function<void()> ShowResultAgain;  ///< It came to nothing.
    std::function<void(FinishedRun)> Counted;
    std::function<void()> Ended;  ///< Nothing goes on any more.
  };
  /// The parts have to outlive this.
  RunController(const Desktop& desktop, RunClock& clock, const MainPanels& panels, Workspace& work,
                const ProgramText& texts, Hooks hooks);

  /// A count or a listing goes on; it can be stopped.
  bool Running() const { return activity_ == Activity::Run; }
  /// Neither counting nor listing, and no word list is being read.
  bool Idle() const { return activity_ == Activity::None; }

  /// Counts; during a run asks whether to stop.
  void cmdCountPhrases_Click();
  /// Lists a result into the file `path`, or into the text box where there is none. `listed` is not called
  /// when the order of the phrases was not found because of a stop.
  void List(ShownResult& result, const ReportOptions& options, const std::optional<std::string>& path,
            const std::function<void(ShownListing)>& listed);
  /// Lists into the text box which files of a folder a count would read.
  void ListFolderFiles(const std::filesystem::path& folder, const FileSelection& files,
                       bool includeSubfolders);
  /// `done` is not called when the file cannot be read; the user has been told.
  void ReadWords(const WordListRequest& request, const std::function<void(ReadWordList)>& done);
  /// The end of the program is wanted: ends what goes on.
  void RequestStop() { desktop_.Yielder.RequestStop(); }

  /// "3 files in 2 folders" while a folder is counted, else empty.
  std::string CountSoFar() const;

  void Timer2_Timer();
  /// The bar, the twirler, the status line.
  void tmrProgress_Timer();

 private:
  class Busy;
  enum class Activity { None, Run, ListReading };

  /// The window is in its running state until the last copy of the result is gone. `counts`: its time is
  /// told.
  std::shared_ptr<Busy> StayBusy(bool counts);
  void BeginRun(bool counts);
  void EndRun();
  void BeginListReading(const std::string& notice);
  void EndListReading();

  void Count(RunRequest request, FinishedRun finished);
  RunEnd CountInto(CountedRun& run, const RunRequest& request);
  std::unique_ptr<ShownResult> MakeResult(RunRequest request, CountedRun run);
  ShownListing ListIntoBox(const Report& report);
  ShownListing ListIntoFile(const Report& report, const std::string& path);

  const Desktop& desktop_;
  RunClock& clock_;
  const MainPanels& panels_;
  Workspace& work_;
  const ProgramText& texts_;
  Hooks hooks_;

  Activity activity_ = Activity::None;
  std::weak_ptr<Busy> busy_;
  EncodingChooser encodings_;
  bool macNoticeShown_ = false;           ///< It is shown once while the program runs.
  const CountedRun* counting_ = nullptr;  ///< The count that is going on.
  bool countShown_ = false;               ///< It has shown its first status.
  RunProgress progress_;
};

}  // namespace korv
