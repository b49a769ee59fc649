#pragma once

#include "platform/messages.h"

namespace korv {

/// Messages that fall silent once the program is about to end: nothing is shown any more, and a question gets
/// No, but for the one whether to stop.
class MutedMessages final : public Messages {
 public:
  explicit MutedMessages(Messages& messages) : messages_(messages) {}

  void Mute() { muted_ = true; }
  void Unmute() { muted_ = false; }

  Answer Show(const Message& message) override {
    if (!muted_) return messages_.Show(message);
    switch (message.buttons) {
      case Buttons::Ok:
        return Answer::Ok;
      case Buttons::YesNo:
        return message.question == Question::StopDocx ? Answer::Yes : Answer::No;
      case Buttons::YesNoCancel:
        return Answer::Cancel;
    }
    return Answer::Ok;
  }
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override {
    if (muted_) return std::nullopt;
    return messages_.AskText(prompt, title, initial);
  }

 private:
  Messages& messages_;
  bool muted_ = false;
};

}  // namespace korv
