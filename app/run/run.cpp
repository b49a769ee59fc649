#include "app/run/run.h"

#include <cmath>
#include <exception>
#include <new>
#include <optional>
#include <utility>

#include "app/run/counts_source.h"
#include "app/run/questions.h"
#include "app/run/run_start.h"
#include "app/run/source_reader.h"
#include "app/run/stage_yielder.h"
#include "base/translation.h"
#include "engine/corpus/corpus_builder.h"
#include "report/error_text.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

/// Sorting fewer phrases is over before a notice could be read.
constexpr uint64_t kNoticedSort = 1000;
constexpr double kAdviceFromKilobytes = 51;

bool LengthsAreValid(const RunOptions& options, Messages& messages) {
  if (options.MaxWords >= options.MinWords) return true;
  messages.Show({.Text = Tr("The maximum number of words in each phrase\n"
                            "must not be less than the minimum number."),
                 .Title = Tr("Invalid input"),
                 .Icon = Icon::Exclamation});
  return false;
}

bool IsWorthAdvice(const RunRequest& request, const FileSystem& files) {
  switch (request.Options.SourceKind) {
    case TextSource::Folder:
      return true;
    case TextSource::Clipboard:
      return false;
    case TextSource::SingleFile:
      break;
  }
  const auto size = files.FileSize(PathFromText(TrimmedPath(request.InputPath)));
  return size && std::nearbyint(static_cast<double>(*size) / 1024) >= kAdviceFromKilobytes;
}

/// One run from its start to the frequency chain.
class Run {
 public:
  Run(const RunRequest& request, const RunServices& services, CountedRun& run)
      : request_(request), services_(services), run_(run), rules_(RulesInForce(request)) {}

  RunEnd Count() {
    services_.Progress = {};
    BeginRun(request_, services_.Yielder, run_);
    if (services_.Yielder.Stopped()) return RunEnd::Stopped;
    const RunEnd read = request_.FromCounts ? TakeCounts() : ReadText();
    if (read != RunEnd::Counted) return read;
    if (!Finish()) {
      services_.View.Status(Tr("Stopped"));
      return RunEnd::Stopped;
    }
    services_.View.ClearOutput();
    return RunEnd::Counted;
  }

 private:
  RunEnd ReadText() {
    const StageTimer timer(services_.Clock, run_.Times, RunStage::Reading);
    CorpusBuilder stream(rules_, request_.Options, *run_.Lists);
    SourceReader reading(request_, rules_, services_, run_, stream);
    RunEnd end = RunEnd::Counted;
    switch (request_.Options.SourceKind) {
      case TextSource::Clipboard:
        end = reading.DoItFromClipboard();
        break;
      case TextSource::SingleFile:
        end = reading.DoItFromFile();
        break;
      case TextSource::Folder:
        end = reading.DoItFromFolder();
        break;
    }
    if (end != RunEnd::Counted) return end;
    run_.Facts.Words = stream.Counts();
    run_.Facts.Options.Stopped = services_.Yielder.Stopped();
    TakeText(std::move(stream), run_.Table);
    return services_.Yielder.Stopped() && !StopFindsSomething() ? RunEnd::Stopped : RunEnd::Counted;
  }

  RunEnd TakeCounts() {
    const StageTimer timer(services_.Clock, run_.Times, RunStage::Reading);
    sums_.emplace(request_.Options, *run_.Lists, run_.Table);
    return ReadCountsOf(request_, services_, *sums_, run_.Facts);
  }

  bool CountThem(Yielder& yielder) {
    return sums_ ? sums_->Finish(yielder) : CountPhrases(run_.Table, yielder);
  }

  // Where no phrase was read there is nothing to ask about.
  bool StopFindsSomething() {
    services_.Yielder.ClearStop();
    const bool found = HoldsPhrase(run_.Table, services_.Yielder);
    services_.Yielder.RequestStop();
    return found;
  }

  bool Finish() {
    if (!Stage(RunStage::Counting, "", [&](Yielder& yielder) { return CountThem(yielder); })) return false;
    run_.Facts.LongPhrases = run_.Table.LongPhrases();
    const bool longSort = run_.Table.PhraseCount() > kNoticedSort;
    if (run_.Table.PhraseCount() >= 2 &&
        !Stage(RunStage::Sorting, longSort ? Tr("Now sorting ...") : "",
               [&](Yielder& yielder) { return SortPhrases(run_.Table, yielder); }))
      return false;
    ListByFrequency(run_.Table, request_.Options.MinFrequency);
    return (request_.Options.KeepRedundant ||
            Stage(RunStage::Exclusion, Tr("Excluding redundant subphrases . . . "),
                  [&](Yielder& yielder) { return ExcludeRedundant(yielder); })) &&
           Stage(RunStage::Chain, Tr("Now setting up frequency chain . . ."),
                 [&](Yielder& yielder) { return SetUpFrequencyChain(run_.Table, run_.Chain, yielder); });
  }

  /// What stands within the words of another phrase is still counted on its own where two sides are compared.
  bool ExcludeRedundant(Yielder& yielder) {
    return request_.Compared.empty() ? ExcludeRedundantSubphrases(run_.Table, yielder)
                                     : ExcludeContainedPhrases(run_.Table, yielder);
  }

  /// Runs a stage that returns false when it was stopped. False: what was found is not wanted.
  template <typename Work>
  bool Stage(RunStage stage, const char* status, Work work) {
    services_.Progress.Stage = stage;
    if (*status) services_.View.Status(status);
    const StageTimer timer(services_.Clock, run_.Times, stage);
    StageYielder yielder(services_.Yielder, [this] { return GoesOn(); });
    return GoesOn() && work(yielder) && !yielder.Stopped();
  }

  /// After a stop: whether what was found is wanted. The rest of the run is then done as if nothing had been.
  bool GoesOn() {
    if (!services_.Yielder.Stopped()) return true;
    run_.Interrupted = true;
    const Answer answer =
        services_.Messages.Show({.Text = Tr("The operation was stopped before all phrases were counted.\n"
                                            "Do you wish to list those which were were found?"),
                                 .Title = Tr("Counting interrupted"),
                                 .Icon = Icon::Question,
                                 .Buttons = Buttons::YesNo,
                                 .DefaultAnswer = Answer::Yes,
                                 .Question = questions::kCountingInterrupted});
    services_.Yielder.ClearStop();
    return answer == Answer::Yes;
  }

  const RunRequest& request_;
  const RunServices& services_;
  CountedRun& run_;
  const WordRules rules_;
  std::optional<PhraseSums> sums_;  ///< Of a run from counts.
};

}  // namespace

bool AskBeforeCounting(RunRequest& request, ReportOptions& report, FileSystem& files, Messages& messages) {
  if (!LengthsAreValid(request.Options, messages)) return false;
  if (request.Options.MinFrequency == 1 && report.WordOrder == 0 && IsWorthAdvice(request, files) &&
      messages.Show(
          {.Text = Tr("If you are just interested in the most frequently occurring phrases then the "
                      "minimum number of occurrences should be set to at least 2, otherwise "
                      "processing will take longer.\nDo you wish to reset it?"),
           .Title = Tr("Minimum frequency"),
           .Icon = Icon::Question,
           .Buttons = Buttons::YesNo,
           .DefaultAnswer = Answer::Yes,
           .Question = questions::kMinimumFrequency}) == Answer::Yes)
    request.Options.MinFrequency = 2;
  report.FilterActive = false;
  if (report.FilterText.empty()) return true;
  if (messages.Show({.Text = Tr("Do you wish to keep the filter settings?"),
                     .Title = Tr("Filter results?"),
                     .Icon = Icon::Question,
                     .Buttons = Buttons::YesNo,
                     .DefaultAnswer = Answer::Yes,
                     .Question = questions::kKeepFilter}) == Answer::Yes)
    report.FilterActive = true;
  else
    report.FilterText.clear();
  return true;
}

void AskToStop(Messages& messages, Yielder& yielder, RunObserver& view) {
  if (messages.Show({.Text = Tr("Really stop?"),
                     .Title = Tr("Stop"),
                     .Icon = Icon::Question,
                     .Buttons = Buttons::YesNo,
                     .DefaultAnswer = Answer::No,
                     .Question = questions::kReallyStop}) != Answer::Yes)
    return;
  yielder.RequestStop();
  view.Status(Tr("Counting of all phrases was stopped."));
}

RunEnd RunCount(const RunRequest& request, const RunServices& services, CountedRun& run) {
  try {
    return Run(request, services, run).Count();
  } catch (const std::bad_alloc&) {
    run = CountedRun{};
    services.Messages.Show(
        {.Text = Tr("Insufficient memory"), .Title = Tr("Error"), .Icon = Icon::Exclamation});
  } catch (const std::exception& error) {
    services.Messages.Show({.Text = UnexpectedErrorText("RunCount", kErrorUnexpected, error.what()),
                            .Title = Tr("Error"),
                            .Icon = Icon::Critical});
  }
  return RunEnd::Failed;
}

ChainOrder ChainOrderOf(const ReportOptions& report) {
  return report.SortByNumberOfFiles ? ChainOrder::ByFiles : ChainOrder::ByCount;
}

bool SetUpChainFor(CountedRun& run, const ReportOptions& report, Yielder& yielder) {
  const bool there = run.Table.ChainHead() != kNoPhrase;
  if (there && run.Chain == ChainOrderOf(report)) return true;
  run.Chain = ChainOrderOf(report);
  return SetUpFrequencyChain(run.Table, run.Chain, yielder);
}

}  // namespace korv
