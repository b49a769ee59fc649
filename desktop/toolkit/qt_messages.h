#pragma once

#include "platform/messages.h"

class QSettings;

namespace korv {

/// Message boxes over the window that is in use. Which questions were silenced is kept in `store`, which
/// outlives this.
class QtMessages final : public Messages {
 public:
  explicit QtMessages(QSettings& store) : store_(store) {}

  Answer Show(const Message& message) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;

 private:
  QSettings& store_;
};

}  // namespace korv
