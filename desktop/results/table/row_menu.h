#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/counting/phrase_index.h"

class QMenu;

namespace korv {

/// What the user can have done with a phrase of the table. An action that nobody does is not offered.
struct RowActions {
  std::function<void(const std::string& word)> IgnoreWord;
  std::function<void(const std::vector<PhraseIndex>&)> LeaveOut;
  std::function<void(PhraseIndex)> CountOnlyWith;
  std::function<void(PhraseIndex)> ShowWhy;
};

/// Fills the menu of a phrase. `words` are its different words; `selected` the selected phrases, as far as
/// they can be left out together.
void FillRowMenu(QMenu& menu, const RowActions& actions, PhraseIndex phrase,
                 const std::vector<std::string>& words, const std::vector<PhraseIndex>& selected);

}  // namespace korv
