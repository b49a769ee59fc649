#include "desktop/settings_window/phrase_boundaries_panel.h"

#include <QCheckBox>
#include <QGridLayout>

#include "desktop/settings_window/rule_box.h"
#include "desktop/widgets/layouts.h"

namespace korv {

PhraseBoundariesPanel::PhraseBoundariesPanel(QWidget* parent)
    : QGroupBox(QStringLiteral("A phrase must not go beyond:"), parent) {
  setObjectName(QStringLiteral("fraPhraseBoundaries"));
  using R = WordRules;
  chkTerminatePhraseAtDoubleQuote =
      MakeRuleBox("chkTerminatePhraseAtDoubleQuote", "end double quote \xE2\x80\x9D \"",
                  {&R::TerminateAtDoubleQuote,
                   "No phrase goes on after a double quote that ends a quotation.", "yes\" he said"},
                  this);
  chkTerminatePhraseAtComma =
      MakeRuleBox("chkTerminatePhraseAtComma", "comma ,",
                  {&R::TerminateAtComma, "No phrase goes on after a comma.", "at last, he said"}, this);
  chkTerminatePhraseAtTab = MakeRuleBox(
      "chkTerminatePhraseAtTab", "tab",
      {&R::TerminateAtTab, "No phrase goes on after a tab (here \xE2\x87\xA5).", "name\xE2\x87\xA5place"},
      this);
  chkTerminatePhraseAtPeriod =
      MakeRuleBox("chkTerminatePhraseAtPeriod", "period .",
                  {&R::TerminateAtPeriod, "No phrase goes on after a period.", "at last. He said"}, this);
  chkTerminatePhraseAtEndOfLine = MakeRuleBox(
      "chkTerminatePhraseAtEndOfLine", "end of line",
      {&R::TerminateAtEndOfLine, "No phrase goes on from one line (here up to \xC2\xB6) to the next.",
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
