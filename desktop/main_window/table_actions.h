#pragma once

#include <string>
#include <vector>

#include "app/workspace.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/results/chip_row.h"
#include "engine/counting/phrase_index.h"

namespace korv {

class ResultController;
class SettingsSteps;

/// What the user has done with phrases of the table, and the chips in the head line that undo it: words to
/// ignore and count-only entries, which hold from the next count on, and phrases that are left out of the
/// table of their run.
class TableActions {
 public:
  /// All have to outlive this.
  TableActions(const MainPanels& panels, Workspace& work, SettingsSteps& steps, ResultController& result);

  /// Another run is in front: leaves out of its table what was left out before.
  void FollowRun();
  /// Brings the chips up to date.
  void ShowChips();

 private:
  void IgnoreWord(const std::string& word);
  void CountOnlyWith(PhraseIndex phrase);
  void LeaveOut(const std::vector<PhraseIndex>& phrases);
  /// Adds an entry to the typed ones of a list, in one step.
  void Type(ListKind kind, const std::string& entry, const std::string& name);
  /// Takes an entry away from the typed ones, in one step.
  void Untype(ListKind kind, const std::string& entry);
  /// `counted`: whether the run in front was counted with it.
  Chip ChipOf(ListKind kind, const std::string& entry, bool counted);
  void AddTyped(std::vector<Chip>& chips);
  void AddListing(std::vector<Chip>& chips);

  const MainPanels& panels_;
  Workspace& work_;
  SettingsSteps& steps_;
  ResultController& result_;
  std::vector<std::string> ignored_;  ///< Words that were ignored from the table, in that order.
};

}  // namespace korv
