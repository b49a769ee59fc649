#pragma once

#include <QGroupBox>

#include "engine/text/word_rules.h"

class QLineEdit;

namespace korv {

class ElidingLabel;

/// Shows live what the word rules make of a sample text, which the user may change.
class RulesSampleBox final : public QGroupBox {
 public:
  explicit RulesSampleBox(QWidget* parent);

  QLineEdit* txbSample = nullptr;
  ElidingLabel* lblSampleWords = nullptr;

  /// The rules to show from now on.
  void Show(const WordRules& rules);

 private:
  void ShowWords();

  WordRules rules_;
};

}  // namespace korv
