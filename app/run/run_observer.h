#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "base/clock.h"
#include "base/gauge.h"

namespace korv {

enum class RunStage { Reading, Counting, Sorting, Exclusion, Chain, Writing };
inline constexpr int kRunStages = 6;

/// How far a run has come. The thread that runs it keeps it up to date; any thread may look at it.
struct RunProgress {
  Gauge<RunStage> Stage = RunStage::Reading;
  Gauge<bool> CountingFiles = false;  ///< A folder's files are being counted; nothing is read yet.
  Gauge<uint64_t> BytesRead;
  Gauge<uint64_t> BytesTotal;  ///< Of a single file; 0 for short ones and where it is not known.
  Gauge<uint64_t> FilesRead;   ///< Folder runs: files read or skipped.
  Gauge<uint64_t> FilesTotal;
  Gauge<uint64_t> FoldersRead;  ///< Folder runs: folders whose files are being read or have been.
  Gauge<uint64_t> Words;        ///< Words that went into phrases.
  Gauge<uint64_t> Counts;       ///< Of phrases that were counted elsewhere.
};

/// Wall time of the stages of a run.
class StageTimes {
 public:
  using Duration = std::chrono::steady_clock::duration;

  Duration Of(RunStage stage) const { return times_[static_cast<size_t>(stage)]; }
  void Add(RunStage stage, Duration time) { times_[static_cast<size_t>(stage)] += time; }

 private:
  std::array<Duration, kRunStages> times_{};
};

/// Adds the time of its life to a stage.
class StageTimer {
 public:
  StageTimer(const Clock& clock, StageTimes& times, RunStage stage)
      : clock_(clock), times_(times), stage_(stage), begin_(clock.Now()) {}
  ~StageTimer() { times_.Add(stage_, clock_.Now() - begin_); }
  StageTimer(const StageTimer&) = delete;
  StageTimer& operator=(const StageTimer&) = delete;

 private:
  const Clock& clock_;
  StageTimes& times_;
  RunStage stage_;
  std::chrono::steady_clock::time_point begin_;
};

/// What a run shows beside its messages and its report. Texts have no line break at their end.
class RunObserver {
 public:
  virtual ~RunObserver() = default;
  /// What is being done: "Now sorting ...". For the output box, each on a line of its own.
  virtual void Status(const std::string& text) = 0;
  /// What the user should know after the run too: a folder that could not be read.
  virtual void Notice(const std::string& text) = 0;
  /// Empties the output box.
  virtual void ClearOutput() = 0;
  /// The file that is counted; empty when the path given is no file's.
  virtual void InputFile(const std::string& path) = 0;
  /// lblFilesize and lblXMLsize; empty texts clear them.
  virtual void Sizes(const std::string& fileSize, const std::string& textSize) = 0;
  /// lblTotalNumOccurrences.
  virtual void FileKind(const std::string& text) = 0;
  /// The bar of characters while a large .docx is unpacked.
  virtual void TextProgress(const std::string& bar) = 0;
  /// Lets the user name an output file for a large input; empty when none was named.
  virtual std::optional<std::string> ChooseOutputFile() = 0;
};

}  // namespace korv
