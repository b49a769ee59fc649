#include "app/kept/kept_run_error.h"

#include "base/translation.h"

namespace korv {

std::string TextOf(const KeepError& error) {
  switch (error.Fault) {
    case KeepFault::IsSource:
      return Tr("This file is one of those that were counted. Please choose another one.");
    case KeepFault::Unwritable:
      return Fill(Tr("The run cannot be kept there: %1."), {error.Description});
    case KeepFault::Stopped:
      break;
  }
  return {};
}

std::string TextOf(const OpenError& error) {
  switch (error.Fault) {
    case OpenFault::NoKeptRun:
      return Tr("This is no kept run.");
    case OpenFault::Newer:
      return Tr("This run was kept by a later version of Korv, which is needed to open it.");
    case OpenFault::CutShort:
      return Tr("The end of this kept run is missing: it was not copied or written wholly.");
    case OpenFault::Damaged:
      return Tr("This kept run is damaged: what it holds is not what was written.");
    case OpenFault::Unreadable:
      return Fill(Tr("This kept run cannot be read: %1."), {error.Description});
    case OpenFault::NoMemory:
      return Tr("There is not enough memory for this kept run.");
    case OpenFault::Stopped:
      break;
  }
  return {};
}

}  // namespace korv
