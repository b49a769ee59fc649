#include "desktop/settings_window/phrase_boundaries_panel.h"

#include <QCheckBox>
#include <QGridLayout>

#include "base/translation.h"
#include "desktop/settings_window/rule_box.h"
#include "desktop/widgets/layouts.h"

namespace korv {

PhraseBoundariesPanel::PhraseBoundariesPanel(QWidget* parent)
    : QGroupBox(Tr("A phrase must not go beyond:"), parent) {
  setObjectName(QStringLiteral("fraPhraseBoundaries"));
  using R = WordRules;
  chkTerminatePhraseAtDoubleQuote =
      MakeRuleBox("chkTerminatePhraseAtDoubleQuote", Tr("end double quote \xE2\x80\x9D \""),
                  {&R::TerminateAtDoubleQuote,
                   Tr("No phrase goes on after a double quote that ends a quotation."), "yes\" he said"},
                  this);
  chkTerminatePhraseAtComma =
      MakeRuleBox("chkTerminatePhraseAtComma", Tr("comma ,"),
                  {&R::TerminateAtComma, Tr("No phrase goes on after a comma."), "at last, he said"}, this);
  chkTerminatePhraseAtTab = MakeRuleBox(
      "chkTerminatePhraseAtTab", Tr("tab"),
      {&R::TerminateAtTab, Tr("No phrase goes on after a tab (here \xE2\x87\xA5)."), "name\xE2\x87\xA5place"},
      this);
  chkTerminatePhraseAtPeriod =
      MakeRuleBox("chkTerminatePhraseAtPeriod", Tr("period ."),
                  {&R::TerminateAtPeriod, Tr("No phrase goes on after a period."), "at last. He said"}, this);
  chkTerminatePhraseAtEndOfLine = MakeRuleBox(
      "chkTerminatePhraseAtEndOfLine", Tr("end of line"),
      {&R::TerminateAtEndOfLine, Tr("No phrase goes on from one line (here up to \xC2\xB6) to the next."),
       "at last\xC2\xB6he said"},
      this);
  auto* layout = Tight(new QGridLayout(this), kSettingsMargins);
  layout->addWidget(chkTerminatePhraseAtDoubleQuote, 0, 0);
  layout->addWidget(chkTerminatePhraseAtComma, 1, 0);
  layout->addWidget(chkTerminatePhraseAtTab, 2, 0);
  layout->addWidget(chkTerminatePhraseAtPeriod, 0, 1);
  layout->addWidget(chkTerminatePhraseAtEndOfLine, 1, 1);
  layout->setColumnStretch(1, 1);
}

std::vector<QWidget*> PhraseBoundariesPanel::TabOrder() const {
  return {chkTerminatePhraseAtDoubleQuote, chkTerminatePhraseAtComma, chkTerminatePhraseAtTab,
          chkTerminatePhraseAtPeriod, chkTerminatePhraseAtEndOfLine};
}

}  // namespace korv
