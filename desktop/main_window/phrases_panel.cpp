#include "desktop/main_window/phrases_panel.h"

#include <QComboBox>
#include <QGridLayout>

#include "base/translation.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/settings_binding.h"

namespace korv {

PhrasesPanel::PhrasesPanel(QWidget* parent) : QGroupBox(Tr("Phrases"), parent) {
  setObjectName(QStringLiteral("fraPhrases"));
  auto* layout = Tight(new QGridLayout(this));
  cboPhraseLength[0] = MakeCombo("cboPhraseLength_0", Tr("Minimum number of words in phrase"), this);
  cboPhraseLength[1] = MakeCombo("cboPhraseLength_1", Tr("Maximum number of words in phrase"), this);
  cboMinimumFrequency = MakeCombo("cboMinimumFrequency", Tr("Minimum number of occurrences"), this);
  for (QComboBox* combo : {cboPhraseLength[0], cboPhraseLength[1], cboMinimumFrequency}) {
    combo->setToolTip(combo->accessibleName());
    // As wide as the two digits of its items need.
    combo->setMinimumWidth(combo->minimumSizeHint().width() +
                           combo->fontMetrics().horizontalAdvance(QStringLiteral("25")) + 8);
    combo->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
  layout->addWidget(MakeCaption(Tr("Phrase length"), cboPhraseLength[0], this), 0, 0);
  layout->addWidget(cboPhraseLength[0], 0, 1);
  // Translators: stands between the least and the greatest number of words.
  layout->addWidget(MakeCaption(Tr("to"), cboPhraseLength[1], this), 0, 2);
  layout->addWidget(cboPhraseLength[1], 0, 3);
  layout->addWidget(MakeCaption(Tr("Minimum frequenc&y"), cboMinimumFrequency, this), 1, 0);
  layout->addWidget(cboMinimumFrequency, 1, 1);
  layout->setColumnStretch(4, 1);
}

void PhrasesPanel::FillLists() {
  FillWithNumbers(*cboPhraseLength[0], RowOf("MinWords"));
  FillWithNumbers(*cboPhraseLength[1], RowOf("MaxWords"));
  FillWithNumbers(*cboMinimumFrequency, RowOf("MinFrequency"));
}

void PhrasesPanel::EnableDisableButtons(bool enabled) {
  for (QComboBox* combo : {cboPhraseLength[0], cboPhraseLength[1], cboMinimumFrequency}) {
    combo->setEnabled(enabled);
  }
}

std::vector<QWidget*> PhrasesPanel::TabOrder() const {
  return {cboPhraseLength[0], cboPhraseLength[1], cboMinimumFrequency};
}

}  // namespace korv
