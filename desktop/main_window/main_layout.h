#pragma once

#include "app/run/output_box.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"

class QMainWindow;

namespace korv {

/// Makes the panels of the main window and lays them out in it. From the left: a column with what to count,
/// in the order in which a newcomer needs it, and the count button always in sight at its foot; then the
/// result.
MainPanels LayOutPanels(QMainWindow& window, const Desktop& desktop, Workspace& work,
                        const OutputBoxHooks& hooks);

}  // namespace korv
