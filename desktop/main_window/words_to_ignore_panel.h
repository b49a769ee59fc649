#pragma once

#include <QGroupBox>
#include <functional>
#include <vector>

#include "desktop/desktop.h"
#include "engine/run_options.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace korv {

/// What words to ignore do to a phrase, and the way to the lists of them.
class WordsToIgnorePanel final : public QGroupBox {
 public:
  WordsToIgnorePanel(const Desktop& desktop, QWidget* parent);
  ~WordsToIgnorePanel() override;

  QRadioButton* optAllowPhrasesAllWordsToIgnore = nullptr;
  QRadioButton* optExcludePhrasesAllWordsToIgnore = nullptr;
  QRadioButton* optExcludePhrasesWithWordToIgnore = nullptr;
  QRadioButton* optRemoveWordsToIgnore = nullptr;
  QLabel* lblWordsToIgnoreNotice = nullptr;
  QPushButton* cmdSetParameters = nullptr;

  std::function<void()> RuleChosen = [] {};           ///< By the user.
  std::function<void()> SetParametersWanted = [] {};  ///< The Settings window is asked for.

  /// Says what `rule` does, `inForce` where there are words to ignore.
  void SetWordsToIgnoreNotice(IgnoreRule rule, bool inForce);
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;

 private:
  std::vector<QRadioButton*> Options() const;
};

}  // namespace korv
