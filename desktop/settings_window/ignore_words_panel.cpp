#include "desktop/settings_window/ignore_words_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "desktop/settings_window/rule_box.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/settings_binding.h"

namespace korv {

IgnoreWordsPanel::IgnoreWordsPanel(QWidget* parent) : QGroupBox(Tr("Ignore words:"), parent) {
  setObjectName(QStringLiteral("fraIgnoreWords"));
  auto* layout = Tight(new QGridLayout(this), kSettingsMargins);
  MakeRules();
  MakeSizes();
  layout->addWidget(chkIgnoreShortWords, 0, 0);
  layout->addWidget(cboShortWordSize, 0, 1);
  layout->addWidget(new QLabel(Tr("characters"), this), 0, 2);
  auto* longWords = MakeCaption(Tr("with &more than"), cboLongWordSize, this);
  // Under the text of the boxes around it, not under their marks.
  longWords->setIndent(chkIgnoreShortWords->sizeHint().width() -
                       chkIgnoreShortWords->fontMetrics().horizontalAdvance(chkIgnoreShortWords->text()) - 2);
  layout->addWidget(longWords, 1, 0);
  layout->addWidget(cboLongWordSize, 1, 1);
  layout->addWidget(new QLabel(Tr("characters"), this), 1, 2);
  layout->addWidget(chkIgnoreRepetitions, 2, 0, 1, 4);
  layout->addWidget(chkIgnoreNoLetter, 3, 0, 1, 4);
  layout->setColumnStretch(3, 1);
  layout->setRowStretch(4, 1);
}

void IgnoreWordsPanel::MakeRules() {
  using R = WordRules;
  chkIgnoreShortWords = MakeRuleBox(
      "chkIgnoreShortWords", Tr("with fewer than"),
      {&R::IgnoreShortWords,
       Tr("Words with fewer characters than the list beside says (here 3) are not counted."), "an old man"},
      this);
  chkIgnoreRepetitions = MakeRuleBox(
      "chkIgnoreRepetitions", Tr("containing 4 repetitions of a letter"),
      {&R::IgnoreRepetitions, Tr("Words in which a letter stands four times in a row are not counted."),
       "Grrrr said he"},
      this);
  chkIgnoreNoLetter = MakeRuleBox(
      "chkIgnoreNoLetter", Tr("which lack a letter"),
      {&R::IgnoreNoLetter,
       Tr("Words without any letter are not counted. It matters where numerals are allowed."), "3D in 2024"},
      this);
}

void IgnoreWordsPanel::MakeSizes() {
  cboShortWordSize = MakeCombo("cboShortWordSize", Tr("Ignore words with fewer characters than"), this);
  cboLongWordSize = MakeCombo("cboLongWordSize", Tr("Ignore words with more characters than"), this);
  // They are measured before their items, of two figures at most, are there.
  for (QComboBox* sizes : {cboShortWordSize, cboLongWordSize}) {
    sizes->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    sizes->setMinimumContentsLength(2);
  }
  cboShortWordSize->setToolTip(chkIgnoreShortWords->toolTip());
  cboLongWordSize->setToolTip(
      Tr("Words with more characters than this are not counted.\n"
         "Example: internationalization has 20 letters; antidisestablishmentarianism has 28 and is "
         "counted from 30 on."));
}

void IgnoreWordsPanel::FillLists() {
  FillWithNumbers(*cboShortWordSize, RowOf("ShortWordSize"));
  FillWithNumbers(*cboLongWordSize, RowOf("LongWordSize"));
}

void IgnoreWordsPanel::EnableWordSizes() {
  cboShortWordSize->setEnabled(chkIgnoreShortWords->isChecked());
}

std::vector<QWidget*> IgnoreWordsPanel::TabOrder() const {
  return {chkIgnoreShortWords, cboShortWordSize, cboLongWordSize, chkIgnoreRepetitions, chkIgnoreNoLetter};
}

}  // namespace korv
