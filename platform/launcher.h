#pragma once

#include <string>

namespace korv {

enum class LaunchFault { None, OutOfMemory, NoAssociation, Other };

struct LaunchResult {
  LaunchFault Fault = LaunchFault::None;
  int Code = 0;  ///< The system's own number for the fault; 0 where it gives none.
};

/// Starts other programs of the system.
class Launcher {
 public:
  virtual ~Launcher() = default;
  /// Opens a file, or an address that begins with "http:" or "https:", with the program associated with it.
  virtual LaunchResult Open(const std::string& target) = 0;
  /// Shows the system's own clipboard viewer; false where the system has none.
  virtual bool OpenClipboardViewer() = 0;
};

}  // namespace korv
