#include "desktop/main_window/progress_value.h"

#include <algorithm>

namespace korv {
namespace {

constexpr int kReadingShare = 700;

}  // namespace

int ProgressValue(const RunProgress& progress) {
  const auto shareOf = [](uint64_t done, uint64_t all) {
    return static_cast<int>(kReadingShare * static_cast<double>(std::min(done, all)) /
                            static_cast<double>(all));
  };
  switch (progress.Stage) {
    case RunStage::Reading:
      if (progress.CountingFiles) return -1;
      if (progress.FilesTotal > 0) return shareOf(progress.FilesRead, progress.FilesTotal);
      return progress.BytesTotal > 0 ? shareOf(progress.BytesRead, progress.BytesTotal) : 0;
    case RunStage::Counting:
      return kReadingShare;
    case RunStage::Sorting:
      return 850;
    case RunStage::Exclusion:
      return 900;
    case RunStage::Chain:
      return 940;
    case RunStage::Writing:
      return 960;
  }
  return 0;
}

}  // namespace korv
