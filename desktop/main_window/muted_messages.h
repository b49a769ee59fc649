#pragma once

#include "app/run/run_clock.h"
#include "platform/messages.h"
#include "sources/questions.h"

namespace korv {

/// Messages that fall silent once the program is about to end: nothing is shown any more, and a question gets
/// No, but for the one whether to stop. While one is shown the clock of the run stands.
class MutedMessages final : public Messages {
 public:
  MutedMessages(Messages& messages, RunClock& clock) : messages_(messages), clock_(clock) {}

  void Mute() { muted_ = true; }
  void Unmute() { muted_ = false; }

  Answer Show(const Message& message) override {
    if (!muted_) {
      const RunClock::Waiting waiting(clock_);
      return messages_.Show(message);
    }
    switch (message.Buttons) {
      case Buttons::Ok:
        return Answer::Ok;
      case Buttons::YesNo:
        return message.Question == questions::kStopDocx ? Answer::Yes : Answer::No;
      case Buttons::YesNoCancel:
        return Answer::Cancel;
    }
    return Answer::Ok;
  }
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    if (muted_) return std::nullopt;
    const RunClock::Waiting waiting(clock_);
    return messages_.AskText(prompt, title, initial);
  }

 private:
  Messages& messages_;
  RunClock& clock_;
  bool muted_ = false;
};

}  // namespace korv
