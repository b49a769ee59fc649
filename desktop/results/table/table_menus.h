#pragma once

#include <functional>

class QMenu;

namespace korv {

class ColumnChoice;
class PhraseGrid;
class PhraseTableModel;
struct Preset;

/// Fills the menu of the columns: by which one the rows are ordered, and which are shown.
void FillColumnsMenu(QMenu& menu, PhraseGrid& grid, const PhraseTableModel& model, ColumnChoice& columns);

/// Fills the menu of the presets.
void FillPresetsMenu(QMenu& menu, const std::function<void(const Preset&)>& follow);

}  // namespace korv
