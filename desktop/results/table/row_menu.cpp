#include "desktop/results/table/row_menu.h"

#include <QMenu>
#include <utility>

#include "base/translation.h"
#include "desktop/toolkit/text.h"

namespace korv {

namespace {

/// In a menu "&" marks a mnemonic.
QString Caption(const std::string& text) {
  return ToQt(text).replace(u'&', QLatin1String("&&"));
}

void AddWords(QMenu& menu, const RowActions& actions, const std::vector<std::string>& words) {
  QMenu* const ignore = menu.addMenu(Tr("&Ignore a word"));
  ignore->setObjectName(QStringLiteral("mnuIgnoreWord"));
  for (const std::string& word : words)
    ignore->addAction(Caption(word), [act = actions.IgnoreWord, word] { act(word); });
}

}  // namespace

void FillRowMenu(QMenu& menu, const RowActions& actions, PhraseIndex phrase,
                 const std::vector<std::string>& words, const std::vector<PhraseIndex>& selected) {
  const auto add = [&](const char* name, const char* caption, std::function<void()> act) {
    menu.addAction(QString(caption), std::move(act))->setObjectName(QLatin1String(name));
  };
  if (actions.ShowWhy) add("mnuShowWhy", Tr("&Why…"), [act = actions.ShowWhy, phrase] { act(phrase); });
  menu.addSeparator();
  if (actions.IgnoreWord) AddWords(menu, actions, words);
  if (actions.LeaveOut) {
    add("mnuLeaveOut", selected.size() > 1 ? Tr("&Leave these phrases out") : Tr("&Leave this phrase out"),
        [act = actions.LeaveOut, selected] { act(selected); });
  }
  if (actions.CountOnlyWith) {
    add("mnuCountOnlyWith", Tr("Count &only phrases with it"),
        [act = actions.CountOnlyWith, phrase] { act(phrase); });
  }
}

}  // namespace korv
