#pragma once

#include <functional>

#include "engine/analysis/text_parts.h"
#include "platform/messages.h"

class QMenu;
class QSettings;

namespace korv {

/// Over which parts of the text the table tells how evenly phrases are spread, as the user chose it last.
PartChoice KeptParts(const QSettings& store);
void KeepParts(QSettings& store, PartChoice parts);

/// An entry for the files, some for equal parts of the whole text and of each file, and for both one that
/// asks for their number. `now` is ticked; `choose` hears of another one. `messages` outlives the menu.
void FillPartsMenu(QMenu& menu, PartChoice now, Messages& messages,
                   const std::function<void(PartChoice)>& choose);

}  // namespace korv
