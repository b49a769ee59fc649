#include "desktop/results/open_runs.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <utility>

#include "app/run/result_notes.h"
#include "app/run/run_changes.h"
#include "app/run/run_description.h"
#include "app/run/run_request.h"
#include "base/translation.h"
#include "desktop/results/run_tabs.h"
#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"

namespace korv {

QString WhenCounted(const ShownResult& result) {
  const QDateTime ended = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(result.Ended));
  const QLocale locale;
  return result.KeptIn.empty() ? locale.toString(ended.time(), QLocale::ShortFormat)
                               : locale.toString(ended, QLocale::ShortFormat);
}

std::shared_ptr<ShownResult> OpenRuns::InFront() const {
  const int front = tabs_.currentIndex();
  return front < 0 ? nullptr : runs_[static_cast<size_t>(front)].Result;
}

uint64_t OpenRuns::Memory() const {
  uint64_t bytes = 0;
  for (const OpenRun& run : runs_) bytes += MemoryOf(*run.Result);
  return bytes;
}

OpenRuns::OpenRun* OpenRuns::RunOf(const ShownResult* result) {
  const auto found = std::find_if(runs_.begin(), runs_.end(),
                                  [result](const OpenRun& run) { return run.Result.get() == result; });
  return found == runs_.end() ? nullptr : &*found;
}

QString OpenRuns::NameFor(const ShownResult& result) const {
  const RunSummary& facts = result.Run.Facts;
  QString source = ToQt(SourceNameOf(facts));
  if (IsOfSingleWords(result)) source = QString(Tr("%1: words")).arg(source);
  if (!result.KeptIn.empty()) source += QStringLiteral(", ") + WhenCounted(result);
  const auto taken = [this](const QString& name) {
    return std::any_of(runs_.begin(), runs_.end(), [&](const OpenRun& run) { return run.Name == name; });
  };
  QString name = source;
  for (int number = 2; taken(name); ++number) name = source + QStringLiteral(" (%1)").arg(number);
  return name;
}

void OpenRuns::Add(std::shared_ptr<ShownResult> result) {
  KeepBox();
  boxOf_ = result.get();
  const QString name = NameFor(*result);
  runs_.push_back({.Result = std::move(result), .Name = name});
  tabs_.Add(name);
}

void OpenRuns::Close(int index) {
  const auto closed = runs_.begin() + index;
  if (closed->Result.get() == boxOf_) {
    boxOf_ = nullptr;
    lent_ = false;
  }
  runs_.erase(closed);
  tabs_.Remove(index);
}

void OpenRuns::Describe(const QString& tip) {
  runs_[static_cast<size_t>(tabs_.currentIndex())].Tip = tip;
}

void OpenRuns::MarkChanged(const RunRequest& now) {
  for (size_t i = 0; i < runs_.size(); ++i) {
    const ShownResult& result = *runs_[i].Result;
    const RunChanges changes =
        ChangesBetween(result.Request, IsOfSingleWords(result) ? SingleWordsOf(now) : now);
    const std::string changed = ChangedRulesText(changes);
    tabs_.Rename(static_cast<int>(i), changed.empty() ? runs_[i].Name : runs_[i].Name + QStringLiteral(" *"));
    QString tip = runs_[i].Tip;
    if (!changed.empty())
      tip += u'\n' + QString(Tr("* Counted under other rules than those chosen now: %1.")).arg(ToQt(changed));
    tabs_.setTabToolTip(static_cast<int>(i), PlainTip(tip));
  }
}

void OpenRuns::KeepBox() {
  OpenRun* const owner = RunOf(boxOf_);
  if (owner == nullptr) return;
  // What stands there is not of that run; what it kept is.
  if (std::exchange(lent_, false))
    owner->Result->InSight = inSightBefore_;
  else
    owner->Box = report_.GetContents();
}

void OpenRuns::LendBox() {
  OpenRun* const owner = RunOf(boxOf_);
  if (owner == nullptr) return;
  if (!lent_) owner->Box = report_.GetContents();
  lent_ = true;
  inSightBefore_ = owner->Result->InSight;
  owner->Result->InSight = false;
}

void OpenRuns::TakeBoxBack() {
  OpenRun* const owner = RunOf(boxOf_);
  if (owner != nullptr && std::exchange(lent_, false)) owner->Result->InSight = inSightBefore_;
}

bool OpenRuns::BringBox() {
  const std::shared_ptr<ShownResult> front = InFront();
  // What is not of the run stays: it tells how something ended.
  if (front.get() == boxOf_) {
    lent_ = false;
    return false;
  }
  KeepBox();
  boxOf_ = front.get();
  report_.PutBack(RunOf(boxOf_)->Box);
  return true;
}

}  // namespace korv
