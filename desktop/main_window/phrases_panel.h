#pragma once

#include <QGroupBox>
#include <array>
#include <vector>

class QComboBox;

namespace korv {

/// How many words a phrase has, and how often it has to occur.
class PhrasesPanel final : public QGroupBox {
 public:
  explicit PhrasesPanel(QWidget* parent);

  std::array<QComboBox*, 2> cboPhraseLength{};  ///< 0 the least, 1 the greatest number of words.
  QComboBox* cboMinimumFrequency = nullptr;

  /// Puts the items into the lists.
  void FillLists();
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;
};

}  // namespace korv
