#pragma once

#include "app/run/run_clock.h"
#include "platform/messages.h"

namespace korv {

/// Messages of a window: while one is shown the clock of its run stands.
class ClockedMessages final : public Messages {
 public:
  ClockedMessages(Messages& messages, RunClock& clock) : messages_(messages), clock_(clock) {}

  Answer Show(const Message& message) override {
    const RunClock::Waiting waiting(clock_);
    return messages_.Show(message);
  }
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    const RunClock::Waiting waiting(clock_);
    return messages_.AskText(prompt, title, initial);
  }

 private:
  Messages& messages_;
  RunClock& clock_;
};

}  // namespace korv
