// Counting two sources together, so as to compare them.

#include <utility>

#include "app/run/changed_sources.h"
#include "app/run/comparison_request.h"
#include "app/run/counted.h"
#include "base/translation.h"
#include "desktop/main_window/compare_panel.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/questions.h"

namespace korv {
namespace {

/// A message with more lines is not read.
constexpr size_t kMostNamed = 10;

std::string ListOf(const std::set<std::string>& paths) {
  std::string text;
  size_t named = 0;
  for (const std::string& path : paths) {
    if (!text.empty()) text += "\n";
    if (++named > kMostNamed) return text + "...";
    text += path;
  }
  return text;
}

/// Whether the runs may be counted together, as their files are now; asks, and tells what is gone.
bool AskAboutChanges(const ChangedSources& sources, const NumberFormat& numbers, Messages& messages) {
  if (!sources.Gone.empty()) {
    messages.Show(
        {.Text = Counted(TrCount("%1 file that was counted is not there any more.",
                                 "%1 files that were counted are not there any more.", sources.Gone.size()),
                         sources.Gone.size(), numbers),
         .Title = Tr("Compare runs"),
         .Icon = Icon::Exclamation,
         .Addition = ListOf(sources.Gone)});
    return false;
  }
  if (sources.Changed.empty()) return true;
  return messages.Show({.Text = Counted(TrCount("%1 file has changed since it was counted.\n"
                                                "Compare as it is now?",
                                                "%1 files have changed since they were counted.\n"
                                                "Compare as they are now?",
                                                sources.Changed.size()),
                                        sources.Changed.size(), numbers),
                        .Title = Tr("Compare runs"),
                        .Icon = Icon::Question,
                        .Buttons = Buttons::YesNo,
                        .DefaultAnswer = Answer::Yes,
                        .Question = questions::kCompareChanged,
                        .Addition = ListOf(sources.Changed)}) == Answer::Yes;
}

bool IsOfClipboard(const ShownResult& run) {
  return run.Request.Options.SourceKind == TextSource::Clipboard;
}

}  // namespace

bool RunController::CanCompare(RunRequest& request) {
  if (!work_.Compared()) return true;
  if (request.Compared.empty()) {
    desktop_.Messages.Show({.Text = Tr("Please name the file or folder that is to be compared with."),
                            .Title = Tr("Nothing to compare with"),
                            .Icon = Icon::Exclamation});
    panels_.Compare->Open();
    return false;
  }
  return SidesAreThere(request, desktop_.Files, desktop_.Messages);
}

void RunController::CompareRuns(const std::shared_ptr<ShownResult>& a,
                                const std::shared_ptr<ShownResult>& b) {
  if (!Idle()) return;
  if (IsOfClipboard(*a) && IsOfClipboard(*b)) {
    desktop_.Messages.Show({.Text = Tr("Two texts of the clipboard cannot be compared. Save one as a file."),
                            .Title = Tr("Compare runs"),
                            .Icon = Icon::Information});
    return;
  }
  const ComparisonChoice how = work_.Compared().value_or(ComparedWith{}).How;
  const std::vector<SourcePath> sideB = SourcesOf(b->Request);
  RunRequest request = ComparisonOf(a->Request, sideB, how);
  if (IsOfClipboard(*a)) request.ClipboardText = a->Run.KeptText;
  if (IsOfClipboard(*b)) request.ClipboardText = b->Run.KeptText;
  std::optional<Workspace::State> chosen = a->Chosen;
  if (chosen && sideB.size() == 1 && !IsOfClipboard(*b)) chosen->Compared = {sideB.front().Path, how};
  Count(std::move(request), {.Result = nullptr, .Filtered = false, .ToFile = false},
        {.Runs = {a, b}, .Chosen = std::move(chosen)});
}

bool RunController::RunsAreAsCounted(const CountedBefore& before) {
  ChangedSources sources;
  for (const std::shared_ptr<ShownResult>& run : before.Runs)
    AddChangedSources(run->Run.Table.Corpus(), desktop_.Files, thread_.Yielder(), sources);
  return !thread_.Yielder().Stopped() && AskAboutChanges(sources, desktop_.Numbers, thread_.Messages());
}

}  // namespace korv
