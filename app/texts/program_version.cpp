#include "app/texts/program_version.h"

namespace korv {

std::string_view ProgramVersion() {
  return KORV_VERSION;
}

std::string_view LibraryVersions() {
  return KORV_LIBRARIES;
}

}  // namespace korv
