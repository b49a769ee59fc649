#pragma once

#include <QGroupBox>
#include <functional>
#include <vector>

#include "desktop/desktop.h"
#include "engine/run_options.h"

class QBoxLayout;
class QLabel;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace korv {

/// Which words count: what words to ignore do to a phrase, which of them are in force, what a word is, and
/// the way to all that.
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
  QLabel* lblWordsInForce = nullptr;
  QLabel* lblWordRules = nullptr;
  QToolButton* cmdChangeWordRules = nullptr;

  std::function<void()> RuleChosen = [] {};           ///< By the user.
  std::function<void()> SetParametersWanted = [] {};  ///< The Settings window is asked for.

  /// Says what `rule` does, `inForce` where there are words to ignore.
  void SetWordsToIgnoreNotice(IgnoreRule rule, bool inForce);
  /// Says which words to ignore are in force, and what a word is.
  void ShowWords(const std::string& inForce, const std::string& rules);
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;

 private:
  void BuildRules(QBoxLayout& layout);
  std::vector<QRadioButton*> Options() const;
};

}  // namespace korv
