#include "desktop/main_window/open_associated.h"

#include "base/translation.h"
#include "sources/detect/classification.h"

namespace korv {
namespace {

bool IsAddress(const std::string& target) {
  return target.starts_with("https:") || target.starts_with("http:");
}

std::string Explanation(LaunchFault fault, const std::string& target) {
  switch (fault) {
    case LaunchFault::OutOfMemory:
      return std::string("\n") + Tr("Out of memory.\nPlease try once more.");
    case LaunchFault::NoAssociation:
      return "\n" + Fill(Tr("File extension '%1' is not associated with any application program."),
                         {FileExtension(target, false)});
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
    messages.Show(
        {.Text = Fill(Tr("Error launching web browser, error code = %1."), {std::to_string(result.Code)}) +
                 Explanation(result.Fault, target),
         .Title = Tr("Cannot launch web browser"),
         .Icon = Icon::Exclamation});
  } else {
    messages.Show(
        {.Text = Fill(Tr("Error when opening file %1.\nPerhaps the file extension has no association."),
                      {target}) +
                 Explanation(result.Fault, target),
         .Title = Tr("Error"),
         .Icon = Icon::Exclamation});
  }
  return false;
}

}  // namespace korv
