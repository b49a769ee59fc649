#pragma once

#include <QGroupBox>
#include <vector>

class QCheckBox;

namespace korv {

/// Where phrases end.
class PhraseBoundariesPanel final : public QGroupBox {
 public:
  explicit PhraseBoundariesPanel(QWidget* parent);

  QCheckBox* chkTerminatePhraseAtDoubleQuote = nullptr;
  QCheckBox* chkTerminatePhraseAtComma = nullptr;
  QCheckBox* chkTerminatePhraseAtTab = nullptr;
  QCheckBox* chkTerminatePhraseAtPeriod = nullptr;
  QCheckBox* chkTerminatePhraseAtEndOfLine = nullptr;

  std::vector<QWidget*> TabOrder() const;
};

}  // namespace korv
