#pragma once

#include <string>

namespace korv {

/// The numbered texts of the user interface.
class ProgramText {
 public:
  virtual ~ProgramText() = default;
  /// Text `number`, UTF-8 with LF between lines; empty when there is none ("~" in the file).
  virtual std::string Get(int number) const = 0;
};

}  // namespace korv
