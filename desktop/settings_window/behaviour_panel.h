#pragma once

#include <QGroupBox>
#include <vector>

class QCheckBox;

namespace korv {

/// Options of the program that are no word rules.
class BehaviourPanel final : public QGroupBox {
 public:
  explicit BehaviourPanel(QWidget* parent);

  QCheckBox* chkPatternMatchingInWordsToIgnoreFile = nullptr;
  QCheckBox* chkExtractTextFromDocx = nullptr;
  QCheckBox* chkReadOtherDocuments = nullptr;
  QCheckBox* chkSaveStateOnQuit = nullptr;
  QCheckBox* chkWarnOnOverwrite = nullptr;

  std::vector<QWidget*> TabOrder() const;
};

}  // namespace korv
