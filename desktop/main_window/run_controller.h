#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/kept/kept_run_error.h"
#include "app/run/export_run.h"
#include "app/run/run.h"
#include "app/run/run_clock.h"
#include "app/run/run_thread.h"
#include "app/run/shown_result.h"
#include "app/workspace.h"
#include "base/gauge.h"
#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/main_window/run_display.h"
#include "desktop/settings_window/settings_host.h"
#include "engine/source_path.h"
#include "platform/program_text.h"
#include "report/report_options.h"
#include "sources/detect/encoding_choice.h"
#include "sources/folders/folder_walk.h"

namespace korv {

class FolderWalk;

/// What a run has led to, and how it is to be listed.
struct FinishedRun {
  std::shared_ptr<ShownResult> Result;  ///< Not listed yet. Freed beside the window.
  bool Filtered = false;
  bool ToFile = true;  ///< Into the output file, if one is named.
};

/// Everything that takes its time: counting, listing, listing the files of a folder, reading a word list. It
/// goes on beside the window, one thing at a time; the panels show how far it is.
///
/// Results come to callbacks, later.
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
  ~RunController();

  RunActivity Doing() const { return thread_.Doing(); }
  /// A count or a listing goes on; it can be stopped.
  bool Running() const { return !Idle() && Doing() != RunActivity::ReadingWords; }
  /// Neither counting nor listing, and no word list is being read.
  bool Idle() const { return thread_.Idle(); }
  /// Calls `act` once nothing goes on, which may be now.
  void WhenIdle(std::function<void()> act);

  /// Counts; during a run asks whether to stop.
  void cmdCountPhrases_Click();
  /// Counts single words in place of phrases.
  void CountSingleWords();
  /// Counts the sources of two finished runs together, under the rules of `a`, so as to compare them. Asks
  /// where files have changed since, and refuses where some are gone.
  void CompareRuns(const std::shared_ptr<ShownResult>& a, const std::shared_ptr<ShownResult>& b);
  /// Lists a result into the file `path`, or into the text box where there is none.
  /// `listed` is not called when the order of the phrases was not found because of a stop.
  void List(std::shared_ptr<ShownResult> result, const ReportOptions& options,
            const std::optional<std::string>& path, std::function<void(ShownListing)> listed);
  /// Lists into the text box which files of a folder a count would read.
  void ListFolderFiles(const std::filesystem::path& folder, const FileSelection& files,
                       bool includeSubfolders);
  /// The same of several files and folders, paths in full.
  void ListFilesTogether(std::vector<SourcePath> paths, const FileSelection& files, bool includeSubfolders);
  /// Exports `rows` phrases of a finished run into the file `path`; failures have been shown.
  void Export(std::shared_ptr<ShownResult> result, ExportRequest request, const std::filesystem::path& path,
              uint32_t rows, std::function<void(const FileListResult&)> exported);
  /// Keeps a finished run as the file `path`, in place of what that holds. `kept` gets the bytes written.
  void Keep(const std::shared_ptr<ShownResult>& result, const std::filesystem::path& path,
            std::function<void(Expected<uint64_t, KeepError>)> kept);
  /// Opens a kept run, which goes the way of a finished count. `failed` is called where there is none.
  void OpenKept(const std::filesystem::path& path, std::function<void(const OpenError&)> failed);
  /// `done` is not called when the file cannot be read; the user has been told.
  void ReadWords(const WordListRequest& request, std::function<void(ReadWordList)> done);

  /// The end of the program is wanted: ends what goes on, and asks nothing more.
  void Abandon() { thread_.Abandon(); }
  bool Abandoned() const { return thread_.Abandoned(); }
  /// What goes on stands still while this lives: the user is asked about it.
  [[nodiscard]] RunThread::Hold HoldStill() { return RunThread::Hold(thread_); }

  /// "3 files in 2 folders" while a folder is counted, else empty.
  std::string CountSoFar() const;

  void Timer2_Timer();
  /// The bar, the twirler, the status line.
  void tmrProgress_Timer();

 private:
  struct CountJob;
  struct ListJob;
  struct ReadJob;
  struct KeptJob;
  struct ExportJob;

  /// Has the worker do `work`, and then the window `done` with what it threw, if anything.
  void Start(RunActivity what, std::function<void()> work, std::function<void(std::exception_ptr)> done);
  /// `counts`: its time is told.
  void BeginRun(bool counts);
  void BecomeIdle();
  /// A count goes on, and the window shows it.
  bool CountIsShown() const;

  /// Asks what is to be asked, and counts.
  void BeginCount(bool singleWords);
  /// Where the window compares: whether there is something on both sides; the user has been told if not.
  bool CanCompare(RunRequest& request);
  /// The finished runs that a count takes together; none where it is of sources alone.
  struct CountedBefore {
    std::vector<std::shared_ptr<ShownResult>> Runs;
    std::optional<Workspace::State> Chosen;  ///< Of the new run.
  };
  void Count(RunRequest request, FinishedRun finished, CountedBefore before = {});
  void EndCount(CountJob& job);
  // On the worker.
  /// Or the user wants them as they are now.
  bool RunsAreAsCounted(const CountedBefore& before);
  void CountOnWorker(CountJob& job);
  void ListOnWorker(ListJob& job);
  void ListIntoBox(ListJob& job);
  void ListIntoFile(ListJob& job);
  FolderEvents ListingEvents();
  /// What is said of it in the end.
  std::string EndListing(uint64_t files, bool stopped);
  void ReadOnWorker(ReadJob& job);
  /// `list` is for the worker, and says what it found.
  void ListFilesBy(std::function<std::string()> list);
  /// Begins to keep or to open a run.
  void BeginKept(const QString& what);
  void ShowKeptProgress();
  void ShowExportProgress();

  const Desktop& desktop_;
  RunClock& clock_;
  const MainPanels& panels_;
  Workspace& work_;
  const ProgramText& texts_;
  Hooks hooks_;

  RunDisplay display_;
  TextSource counted_ = TextSource::SingleFile;  ///< The source of the count.
  // The worker's.
  EncodingChooser encodings_;
  bool macNoticeShown_ = false;  ///< It is shown once while the program runs.
  RunProgress progress_;
  Gauge<uint64_t> phrasesFound_;
  KeptProgress keptProgress_;
  Gauge<uint32_t> exported_;  ///< Phrases.
  uint32_t toExport_ = 0;

  RunThread thread_;  ///< Last: what goes on uses all of the above.
};

}  // namespace korv
