#pragma once

#include <string>

namespace korv {

/// The system's clipboard.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// The text on the clipboard, UTF-8, line breaks as they are; empty when there is none.
  virtual std::string Text() const = 0;
};

}  // namespace korv
