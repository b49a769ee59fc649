#include "cli/count_view.h"

#include "base/translation.h"
#include "platform/console/console_messages.h"
#include "platform/console/visible_controls.h"

namespace korv {

void CountView::ShowProgress() {
  if (line_.Due()) line_.Show(ProgressText());
}

void CountView::Notice(const std::string& text) {
  if (quiet_) return;
  line_.Clear();
  std::string plain = WithPlainLineEnds(text);
  if (!plain.ends_with('\n')) plain += '\n';
  err_ << WithVisibleControls(plain) << std::flush;
}

std::string CountView::ProgressText() const {
  const auto grouped = [&](uint64_t value) { return numbers_.Grouped(static_cast<int64_t>(value)); };
  switch (progress_.Stage) {
    case RunStage::Reading:
      break;
    case RunStage::Counting:
      return Fill(
          TrCount("Counting: %1 different phrases", "Counting: %1 different phrases", table_.PhraseCount()),
          {grouped(table_.PhraseCount())});
    case RunStage::Sorting:
      return Tr("Sorting");
    case RunStage::Exclusion:
      return Tr("Excluding redundant subphrases");
    case RunStage::Chain:
      return Tr("Setting up frequency chain");
    case RunStage::Writing:
      return Tr("Writing");
  }
  if (progress_.CountingFiles) return Fill(Tr("Counting files: %1"), {grouped(progress_.FilesTotal)});
  const std::string amount =
      progress_.Counts > 0
          ? Fill(TrCount("%1 counts", "%1 counts", progress_.Counts), {grouped(progress_.Counts)})
          : Fill(TrCount("%1 words", "%1 words", progress_.Words), {grouped(progress_.Words)});
  if (progress_.FilesTotal > 0)
    return Fill(Tr("Reading: %1 of %2 files, %3"),
                {grouped(progress_.FilesRead), grouped(progress_.FilesTotal), amount});
  if (progress_.BytesTotal > 0)
    return Fill(Tr("Reading: %1 %, %2"),
                {std::to_string(progress_.BytesRead * 100 / progress_.BytesTotal), amount});
  return Fill(Tr("Reading: %1"), {amount});
}

}  // namespace korv
