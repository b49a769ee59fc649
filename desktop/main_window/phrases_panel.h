#pragma once

#include <QGroupBox>
#include <array>
#include <functional>
#include <vector>

#include "desktop/desktop.h"

class QComboBox;

namespace korv {

/// How many words a phrase has, and how often it has to occur.
class PhrasesPanel final : public QGroupBox {
 public:
  PhrasesPanel(const Desktop& desktop, QWidget* parent);
  ~PhrasesPanel() override;

  std::array<QComboBox*, 2> cboPhraseLength{};  ///< 0 the least, 1 the greatest number of words.
  QComboBox* cboMinimumFrequency = nullptr;

  std::function<void()> Changed = [] {};

  /// Puts the items into the lists and selects those of the start.
  void FillLists();
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;
};

}  // namespace korv
