#pragma once

#include <string>

#include "base/translation.h"

namespace korv {

/// The filter of a dialog (FileChoice::Filter) for files that are `what` ("Kept runs"), of `patterns`
/// ("*.korvrun", or several with blanks between them).
inline std::string FileFilter(const std::string& what, const std::string& patterns) {
  return what + " (" + patterns + ") | " + patterns;
}

/// That of the dialogs that choose a text file.
inline std::string AnyTextFile() {
  return FileFilter(Tr("Any text file"), "*.*");
}

}  // namespace korv
