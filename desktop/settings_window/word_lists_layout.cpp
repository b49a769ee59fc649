// How the controls of the lists of words are made and where they stand.

#include <QComboBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedLayout>
#include <algorithm>

#include "base/translation.h"
#include "desktop/settings_window/rule_box.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"
#include "wordlists/word_file_list.h"

namespace korv {
namespace {

QPlainTextEdit* MakeWordsBox(const char* name, const char* accessibleName, const char* sample,
                             const char* toolTip, QWidget* parent) {
  auto* box = Described(Named(new QPlainTextEdit(parent), name), accessibleName);
  box->setFont(WordsFont());
  box->setTabChangesFocus(true);
  box->setPlaceholderText(QString::fromUtf8(sample));
  box->setToolTip(QString::fromUtf8(toolTip));
  return box;
}

}  // namespace

void WordListsPanel::Build() {
  auto* layout = Tight(new QGridLayout(this), kSettingsMargins);
  BuildChoiceOfList(*layout);
  BuildFiles(*layout);
  BuildTypedWords(*layout);
  lblWordsState = Named(new ElidingLabel(this), "lblWordsState");
  layout->addWidget(lblWordsState, 3, 1, 1, 2);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(2, 1);
}

void WordListsPanel::BuildChoiceOfList(QGridLayout& layout) {
  optWordsToIgnore = MakeOption("optWordsToIgnore", Tr("Words to ignore"), this);
  optCountOnlyWordsAndPhrases =
      MakeOption("optCountOnlyWordsAndPhrases", Tr("Count-only words and phrases"), this);
  optWordsToIgnore->setChecked(true);
  cboCommonWordsLanguages = MakeCombo("cboCommonWordsLanguages", Tr("Ignore common words in:"), this);
  cboCommonWordsLanguages->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  auto* top = new QHBoxLayout;
  top->addWidget(optWordsToIgnore);
  top->addSpacing(12);
  top->addWidget(optCountOnlyWordsAndPhrases);
  top->addStretch(1);
  lblCommonWordsLanguages = MakeCaption(Tr("Ignore common words in:"), cboCommonWordsLanguages, this);
  top->addWidget(lblCommonWordsLanguages);
  top->addWidget(cboCommonWordsLanguages);
  // The languages go while the other list is shown; what stands beside them stays where it is.
  for (QWidget* control : std::initializer_list<QWidget*>{lblCommonWordsLanguages, cboCommonWordsLanguages}) {
    KeepPlaceWhenHidden(control);
  }
  layout.addLayout(top, 0, 0, 1, 3);
  TabToTheSelected({optWordsToIgnore, optCountOnlyWordsAndPhrases});
}

void WordListsPanel::BuildFiles(QGridLayout& layout) {
  cmdSelectWordsFile = MakeButton("cmdSelectWordsFile", "", this);
  // Room for the longest caption, so that the list beside it does not move.
  for (const ListKind kind : {ListKind::CountOnly, ListKind::WordsToIgnore}) {
    cmdSelectWordsFile->setText(ToQt(FilesButtonCaption(kind, WordFileList::kMostFiles)));
    cmdSelectWordsFile->setMinimumWidth(
        std::max(cmdSelectWordsFile->minimumWidth(), cmdSelectWordsFile->sizeHint().width()));
  }
  cboWordsFile = MakeCombo("cboWordsFile", Tr("Word-list files"), this);
  cmdClearWordsFile =
      Described(MakeButton("cmdClearWordsFile", Tr("&Clear"), this), Tr("Clear the list of word-list files"));
  layout.addWidget(cmdSelectWordsFile, 1, 0);
  layout.addWidget(cboWordsFile, 1, 1);
  layout.addWidget(cmdClearWordsFile, 1, 2);
}

void WordListsPanel::BuildTypedWords(QGridLayout& layout) {
  lblWordsToIgnoreOrCount = Named(new QLabel(this), "lblWordsToIgnoreOrCount");
  lblWordsToIgnoreOrCount->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  // Two lines of the longer caption, so that nothing below moves.
  lblWordsToIgnoreOrCount->setMinimumHeight(2 * lblWordsToIgnoreOrCount->fontMetrics().lineSpacing());
  cmdClearWordsToIgnoreOrCount =
      Described(MakeButton("cmdClearWordsToIgnoreOrCount", Tr("Clea&r"), this), Tr("Clear the extra words"));
  layout.addWidget(lblWordsToIgnoreOrCount, 2, 0);
  layout.addLayout(BuildWordsBoxes(), 2, 1);
  layout.addWidget(cmdClearWordsToIgnoreOrCount, 2, 2, Qt::AlignTop);
}

QLayout* WordListsPanel::BuildWordsBoxes() {
  txbWordsToIgnoreOrCount[0] =
      MakeWordsBox("txbWordsToIgnoreOrCount_0", Tr("Extra words to ignore"), "ibid, vide, viz, sans, Ising",
                   Tr("Extra words to ignore (not phrases) may be added here.  Spaces (not commas) should be "
                      "used to separate them.  Case is not significant."),
                   this);
  txbWordsToIgnoreOrCount[1] = MakeWordsBox(
      "txbWordsToIgnoreOrCount_1", Tr("Count-only words and phrases"), "white whale, harpoon~, <s[aeiou]+l>",
      Tr("Only phrases that hold one of these words, or are one of these phrases, are counted.  Comma "
         "and space should be used to separate them.  A regular expression stands between < and >."),
      this);
  wordsBoxes_ = new QStackedLayout;
  for (QPlainTextEdit* box : txbWordsToIgnoreOrCount) wordsBoxes_->addWidget(box);
  // Two lines at least; the rest of the window's height goes here.
  const int lines = 2 * QFontMetrics(WordsFont()).lineSpacing() + 14;
  for (QPlainTextEdit* box : txbWordsToIgnoreOrCount) box->setMinimumHeight(lines);
  return wordsBoxes_;
}

std::vector<QWidget*> WordListsPanel::TabOrder() const {
  return {optWordsToIgnore,
          optCountOnlyWordsAndPhrases,
          cboCommonWordsLanguages,
          cmdSelectWordsFile,
          cboWordsFile,
          cmdClearWordsFile,
          txbWordsToIgnoreOrCount[0],
          txbWordsToIgnoreOrCount[1],
          cmdClearWordsToIgnoreOrCount};
}

}  // namespace korv
