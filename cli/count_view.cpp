#include "cli/count_view.h"

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
      return "Counting: " + grouped(table_.PhraseCount()) + " different phrases";
    case RunStage::Sorting:
      return "Sorting";
    case RunStage::Exclusion:
      return "Excluding redundant subphrases";
    case RunStage::Chain:
      return "Setting up frequency chain";
    case RunStage::Writing:
      return "Writing";
  }
  if (progress_.CountingFiles) return "Counting files: " + grouped(progress_.FilesTotal);
  std::string text = "Reading: ";
  if (progress_.FilesTotal > 0)
    text += grouped(progress_.FilesRead) + " of " + grouped(progress_.FilesTotal) + " files, ";
  else if (progress_.BytesTotal > 0)
    text += std::to_string(progress_.BytesRead * 100 / progress_.BytesTotal) + " %, ";
  if (progress_.Counts > 0) return text + grouped(progress_.Counts) + " counts";
  return text + grouped(progress_.Words) + " words";
}

}  // namespace korv
