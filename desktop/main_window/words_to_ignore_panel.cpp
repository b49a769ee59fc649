#include "desktop/main_window/words_to_ignore_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "wordlists/list_kind.h"

namespace korv {

WordsToIgnorePanel::WordsToIgnorePanel(const Desktop& desktop, QWidget* parent)
    : QGroupBox(Tr("Words"), parent) {
  setObjectName(QStringLiteral("fraWordsToIgnore"));
  auto* layout = Tight(new QVBoxLayout(this));
  layout->setSpacing(2);
  optAllowPhrasesAllWordsToIgnore = MakeOption(
      "optAllowPhrasesAllWordsToIgnore", Tr("Allow phrases consisting entirely of words to ignore"), this);
  optExcludePhrasesAllWordsToIgnore =
      MakeOption("optExcludePhrasesAllWordsToIgnore",
                 Tr("Exclude phrases consisting entirely of words to ignore"), this);
  optExcludePhrasesWithWordToIgnore = MakeOption("optExcludePhrasesWithWordToIgnore",
                                                 Tr("Exclude phrases containing a word to ignore"), this);
  optRemoveWordsToIgnore =
      MakeOption("optRemoveWordsToIgnore", Tr("Remove &words to ignore from phrases"), this);
  for (QRadioButton* option : Options()) layout->addWidget(option);
  auto* foot = new QHBoxLayout;
  lblWordsToIgnoreNotice = MakeLabel("lblWordsToIgnoreNotice", this);
  lblWordsToIgnoreNotice->setWordWrap(true);
  // Two lines are kept free for the longest notice, whether it stands there or not.
  lblWordsToIgnoreNotice->setMinimumHeight(2 * lblWordsToIgnoreNotice->fontMetrics().lineSpacing());
  cmdSetParameters = MakeButton("cmdSetParameters", Tr("&Settings"), this);
  cmdSetParameters->setToolTip(
      Tr("Define what counts as a word, specify words to ignore and words/phrases to count"));
  foot->addWidget(lblWordsToIgnoreNotice, 1);
  foot->addWidget(cmdSetParameters, 0, Qt::AlignBottom);
  layout->addLayout(foot);
  BuildRules(*layout);
  TabToTheSelected(Options());

  const Wiring wiring(*this, desktop.Messages);
  for (QRadioButton* option : Options()) {
    wiring.OnClick(option, "optWordsToIgnore_Click", [this] { RuleChosen(); });
  }
  wiring.OnClick(cmdSetParameters, "cmdSetParameters_Click", [this] { SetParametersWanted(); });
  wiring.OnClick(cmdChangeWordRules, "cmdChangeWordRules_Click", [this] { SetParametersWanted(); });
}

void WordsToIgnorePanel::BuildRules(QBoxLayout& layout) {
  lblWordsInForce = MakeLabel("lblWordsInForce", this);
  lblWordsInForce->setWordWrap(true);
  lblWordRules = MakeLabel("lblWordRules", this);
  lblWordRules->setWordWrap(true);
  MakeQuiet(lblWordsInForce);
  MakeQuiet(lblWordRules);
  cmdChangeWordRules =
      Described(Named(new QToolButton(this), "cmdChangeWordRules"), Tr("Change the word rules"));
  cmdChangeWordRules->setText(Tr("Change..."));
  cmdChangeWordRules->setToolTip(Tr("Change what counts as a word and where phrases end"));
  cmdChangeWordRules->setFocusPolicy(Qt::StrongFocus);
  auto* rules = new QHBoxLayout;
  rules->addWidget(lblWordRules, 1);
  rules->addWidget(cmdChangeWordRules, 0, Qt::AlignBottom);
  layout.addWidget(lblWordsInForce);
  layout.addLayout(rules);
}

void WordsToIgnorePanel::ShowWords(const std::string& inForce, const std::string& rules) {
  lblWordsInForce->setText(ToQt(inForce));
  lblWordRules->setText(ToQt(rules + "."));
}

WordsToIgnorePanel::~WordsToIgnorePanel() {
  StopListening(*this);
}

void WordsToIgnorePanel::SetWordsToIgnoreNotice(IgnoreRule rule, bool inForce) {
  lblWordsToIgnoreNotice->setText(ToQt(korv::SetWordsToIgnoreNotice(rule, inForce)));
}

void WordsToIgnorePanel::EnableDisableButtons(bool enabled) {
  cmdSetParameters->setEnabled(enabled);
  cmdChangeWordRules->setEnabled(enabled);
  for (QRadioButton* option : Options()) option->setEnabled(enabled);
}

std::vector<QRadioButton*> WordsToIgnorePanel::Options() const {
  return {optAllowPhrasesAllWordsToIgnore, optExcludePhrasesAllWordsToIgnore,
          optExcludePhrasesWithWordToIgnore, optRemoveWordsToIgnore};
}

std::vector<QWidget*> WordsToIgnorePanel::TabOrder() const {
  return {optAllowPhrasesAllWordsToIgnore,
          optExcludePhrasesAllWordsToIgnore,
          optExcludePhrasesWithWordToIgnore,
          optRemoveWordsToIgnore,
          cmdSetParameters,
          cmdChangeWordRules};
}

}  // namespace korv
