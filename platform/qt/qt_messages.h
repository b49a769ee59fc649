#pragma once

#include "platform/messages.h"

namespace korv {

/// Message boxes over the window that is in use.
class QtMessages final : public Messages {
 public:
  Answer Show(const Message& message) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;
};

}  // namespace korv
