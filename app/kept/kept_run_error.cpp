#include "app/kept/kept_run_error.h"

namespace korv {

std::string TextOf(const KeepError& error) {
  switch (error.Fault) {
    case KeepFault::IsSource:
      return "This file is one of those that were counted. Please choose another one.";
    case KeepFault::Unwritable:
      return "The run cannot be kept there: " + error.Description + ".";
    case KeepFault::Stopped:
      break;
  }
  return {};
}

std::string TextOf(const OpenError& error) {
  switch (error.Fault) {
    case OpenFault::NoKeptRun:
      return "This is no kept run.";
    case OpenFault::Newer:
      return "This run was kept by a later version of Korv, which is needed to open it.";
    case OpenFault::CutShort:
      return "The end of this kept run is missing: it was not copied or written wholly.";
    case OpenFault::Damaged:
      return "This kept run is damaged: what it holds is not what was written.";
    case OpenFault::Unreadable:
      return "This kept run cannot be read: " + error.Description + ".";
    case OpenFault::NoMemory:
      return "There is not enough memory for this kept run.";
    case OpenFault::Stopped:
      break;
  }
  return {};
}

}  // namespace korv
