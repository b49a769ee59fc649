#pragma once

#include <QLabel>
#include <QLayout>
#include <QMargins>
#include <QWidget>

namespace korv {

/// The margins of the groups of controls in the main window.
inline constexpr QMargins kGroupMargins(8, 4, 8, 6);

/// A layout of a group of controls.
template <typename Layout>
Layout* Tight(Layout* layout, const QMargins& margins = kGroupMargins) {
  layout->setContentsMargins(margins);
  layout->setSpacing(5);
  return layout;
}

/// A layout without margins, within another one.
template <typename Layout>
Layout* Bare(Layout* layout) {
  return Tight(layout, QMargins());
}

/// The font of quiet lines: smaller, but in the palette's own text colour.
void MakeQuiet(QLabel* label);
/// A quiet line of explanation.
QLabel* MakeHint(const char* text, QWidget* parent);

/// What comes and goes must not move what stands around it.
void KeepPlaceWhenHidden(QWidget* control);

/// The font of the boxes that show words and results: "Courier New", or what the system has in its place.
QFont WordsFont();

}  // namespace korv
