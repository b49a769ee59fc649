#pragma once

#include <functional>
#include <utility>

#include "base/loop_calls.h"
#include "platform/messages.h"

namespace korv {

/// Messages for a worker: the window's thread shows them, and the worker waits for the answer. Once waiting
/// is over, nothing is shown and every question gets the answer that ends what is being done.
class RemoteMessages final : public Messages {
 public:
  /// `messages` is used on the thread of `calls`; both outlive this. `before` is called on the worker before
  /// anything is asked.
  RemoteMessages(LoopCalls& calls, Messages& messages, std::function<void()> before)
      : calls_(calls), messages_(messages), before_(std::move(before)) {}

  Answer Show(const Message& message) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;

 private:
  LoopCalls& calls_;
  Messages& messages_;
  std::function<void()> before_;
};

}  // namespace korv
