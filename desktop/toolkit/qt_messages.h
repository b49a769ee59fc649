#pragma once

#include <span>

#include "desktop/toolkit/silenced_questions.h"
#include "platform/messages.h"

namespace korv {

/// Message boxes over the window that is in use. `rules` says which questions may be silenced; those that
/// were are kept in `store`. Both outlive this.
class QtMessages final : public Messages {
 public:
  QtMessages(QSettings& store, std::span<const SilenceRule> rules) : store_(store), rules_(rules) {}

  Answer Show(const Message& message) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                     const std::string& initial) override;

 private:
  QSettings& store_;
  std::span<const SilenceRule> rules_;
};

}  // namespace korv
