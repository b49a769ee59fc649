#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QHBoxLayout;

namespace korv {

/// A restriction in force, with what lifts it.
struct Chip {
  std::string Text;  ///< UTF-8, short.
  std::string Tip;
  std::function<void()> Remove;
};

/// The restrictions in force, a button each that lifts it. Those that there is no room for are in a menu at
/// the end. Buttons are named "cmdChip_1" and so on.
class ChipRow final : public QWidget {
 public:
  explicit ChipRow(QWidget* parent);

  void ShowChips(std::vector<Chip> chips);
  void EnableDisableButtons(bool enabled);

 private:
  void Rebuild();
  void Lift(size_t chip);

  QHBoxLayout* row_;
  std::vector<Chip> chips_;
  bool enabled_ = true;
};

}  // namespace korv
