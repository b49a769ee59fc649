#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace korv {

/// What is wrong with where the visible controls of `window` stand: one that overlaps a sibling, lies outside
/// its parent, is smaller than it can be shown, or cuts its caption. Each names its controls; none when all
/// is well. The window need not be on a screen, but has to be shown.
///
/// A caption of a button must be read in full. A label, list, or box with a placeholder may be cut where its
/// tool tip holds the whole text. What scrolls may be larger than what it scrolls in.
///
///   EXPECT_THAT(GeometryFaults(*main), IsEmpty());
std::vector<std::string> GeometryFaults(QWidget& window);

/// The same for every size that matters: as the window is, as small as it lets itself be made, and large.
/// The window has its own size again afterwards.
std::vector<std::string> GeometryFaultsInEverySize(QWidget& window);

}  // namespace korv
