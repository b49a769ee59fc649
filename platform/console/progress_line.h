#pragma once

#include <chrono>
#include <ostream>
#include <string>

#include "base/clock.h"

namespace korv {

/// One line of a terminal that is written over and over. On anything else than a terminal each text gets a
/// line of its own, and less often.
class ProgressLine {
 public:
  ProgressLine(std::ostream& stream, bool terminal, const Clock& clock)
      : stream_(stream), clock_(clock), terminal_(terminal), last_(clock.Now()) {}

  /// Whether enough time has passed for another text to be worth showing.
  bool Due() const;
  void Show(const std::string& text);
  /// Takes the line away, so that other output can begin there.
  void Clear();

 private:
  std::ostream& stream_;
  const Clock& clock_;
  bool terminal_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point last_;
};

}  // namespace korv
