#include "platform/console/progress_line.h"

namespace korv {

namespace {
constexpr std::chrono::milliseconds kOnTerminal{100};
constexpr std::chrono::seconds kElsewhere{1};
/// To the beginning of the line, and erase it.
constexpr const char* kEraseLine = "\r\x1b[K";
}  // namespace

bool ProgressLine::Due() const {
  const auto passed = clock_.Now() - last_;
  return terminal_ ? passed >= kOnTerminal : passed >= kElsewhere;
}

void ProgressLine::Show(const std::string& text) {
  last_ = clock_.Now();
  if (terminal_)
    stream_ << kEraseLine << text << std::flush;
  else
    stream_ << text << std::endl;
  shown_ = true;
}

void ProgressLine::Clear() {
  if (shown_ && terminal_) stream_ << kEraseLine << std::flush;
  shown_ = false;
}

}  // namespace korv
