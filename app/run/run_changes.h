#pragma once

#include <string>

#include "app/run/run.h"

namespace korv {

/// In what a count that began now would differ from one that is finished.
struct RunChanges {
  bool Source = false;  ///< Another kind of source, another file or folder, other files of it.
  bool Lengths = false;
  bool MinFrequency = false;   ///< A comparison has one of its own: between it and others nothing.
  bool WordsToIgnore = false;  ///< The list or how it acts; nothing where neither run has words to ignore.
  bool CountOnly = false;
  bool WordRules = false;

  bool Rules() const { return Lengths || MinFrequency || WordsToIgnore || CountOnly || WordRules; }
};

/// What differs between two requests. The text on the clipboard is not looked at.
RunChanges ChangesBetween(const RunRequest& counted, const RunRequest& now);

/// "phrase lengths, word rules": what changed but the source; empty when nothing did.
std::string ChangedRulesText(const RunChanges& changes);

}  // namespace korv
