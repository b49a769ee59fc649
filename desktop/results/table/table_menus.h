#pragma once

#include <functional>

class QMenu;

namespace korv {

class ColumnChoice;
class PhraseGrid;
class PhraseTableModel;
struct Preset;

/// Fills the menu of the columns: by which one the rows are ordered, over which parts of the text phrases are
/// spread, and which columns are shown.
void FillColumnsMenu(QMenu& menu, PhraseGrid& grid, const PhraseTableModel& model, ColumnChoice& columns,
                     const std::function<void(QMenu&)>& fillParts);

/// Fills the menu of the presets.
void FillPresetsMenu(QMenu& menu, const std::function<void(const Preset&)>& follow);

}  // namespace korv
