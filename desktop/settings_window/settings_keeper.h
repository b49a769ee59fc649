#pragma once

#include <optional>

#include "app/settings/settings.h"
#include "platform/messages.h"

namespace korv {

/// Knows which settings lie in a file, and asks whether those that do not are to be kept when the program
/// ends.
class SettingsKeeper {
 public:
  enum class Wish { Forget, KeepNow, KeepAlways };

  /// These have been read from a file or written into one, or are those of the start.
  void Remember(const Settings& settings) { kept_ = settings; }
  /// Whether `settings` would be missed after a restart. False before the first Remember().
  bool WouldBeMissed(const Settings& settings) const;
  /// Asks once while the program runs; after that, and when told not to ask again, the answer is Forget.
  Wish Ask(Messages& messages);

 private:
  std::optional<Settings> kept_;
  bool asked_ = false;
};

}  // namespace korv
