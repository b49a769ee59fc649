#pragma once

class QLineEdit;
class QString;

namespace korv {

/// Turns a field red and has it say why, as a tool tip and to those who cannot see it. An empty reason takes
/// that back.
void MarkWrong(QLineEdit& field, const QString& reason);

}  // namespace korv
