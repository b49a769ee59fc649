#pragma once

#include <QGroupBox>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace korv {

/// The words by which the listed phrases are chosen, and how.
class FilterPanel final : public QGroupBox {
 public:
  FilterPanel(const Desktop& desktop, QWidget* parent);
  ~FilterPanel() override;

  QRadioButton* optIncludeAllWords = nullptr;
  QRadioButton* optIncludeAllWordsInSameOrder = nullptr;
  QRadioButton* optIncludeAllWordsAsSubphrase = nullptr;
  QLineEdit* txbFilterWords = nullptr;
  QPushButton* cmdFilterResults = nullptr;
  QPushButton* cmdClear = nullptr;

  std::function<void()> FilterResults = [] {};  ///< Filtering is asked for, and there are words.
  std::function<void()> ModeChosen = [] {};     ///< By the user, while there are words.

  void txbFilterWords_LostFocus();
  void txbFilterWords_KeyPress(int key);
  void cmdFilterResults_Click();
  void cmdClear_Click();
  void optFilterMode_Click();

  /// The words as they stand there.
  std::string Words() const;
  /// Whether there are words to filter by.
  bool WantsFilter() const;
  void EnableClearButton();
  /// The focus goes to the words, all of them selected.
  void StartTyping();
  std::vector<QWidget*> TabOrder() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::vector<QRadioButton*> Modes() const;
  void Build();
  void Connect();

  const Desktop& desktop_;
};

}  // namespace korv
