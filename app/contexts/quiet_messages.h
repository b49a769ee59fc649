#pragma once

#include <optional>
#include <string>

#include "platform/messages.h"

namespace korv {

/// For views that read files again beside a window: nobody is asked or told anything. A question gets Yes,
/// which goes on with what was wanted when the file was counted, and ends what is stopped.
class QuietMessages final : public Messages {
 public:
  Answer Show(const Message& message) override {
    return message.Buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
  }
  std::optional<std::string> AskText(const std::string& /*prompt*/, const std::string& /*title*/,
                                     const std::string& /*initial*/) override {
    return std::nullopt;
  }
};

}  // namespace korv
