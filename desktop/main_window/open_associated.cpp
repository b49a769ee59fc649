#include "desktop/main_window/open_associated.h"

#include "sources/detect/classification.h"

namespace korv {
namespace {

bool IsAddress(const std::string& target) {
  return target.starts_with("https:") || target.starts_with("http:");
}

std::string Explanation(LaunchFault fault, const std::string& target) {
  switch (fault) {
    case LaunchFault::OutOfMemory:
      return "\nOut of memory.\nPlease try once more.";
    case LaunchFault::NoAssociation:
      return "\nFile extension '" + FileExtension(target, false) +
             "' is not associated with any application program.";
    case LaunchFault::None:
    case LaunchFault::Other:
      break;
  }
  return {};
}

}  // namespace

bool OpenWithAssociatedProgram(Launcher& launcher, Messages& messages, const std::string& target) {
  const LaunchResult result = launcher.Open(target);
  if (result.Fault == LaunchFault::None) return true;
  if (IsAddress(target)) {
    messages.Show({.Text = "Error launching web browser, error code = " + std::to_string(result.Code) + "." +
                           Explanation(result.Fault, target),
                   .Title = "Cannot launch web browser",
                   .Icon = Icon::Exclamation});
  } else {
    messages.Show({.Text = "Error when opening file " + target +
                           ".\nPerhaps the file extension has no association." +
                           Explanation(result.Fault, target),
                   .Title = "Error",
                   .Icon = Icon::Exclamation});
  }
  return false;
}

}  // namespace korv
