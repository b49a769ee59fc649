#include "desktop/settings_window/behaviour_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "base/translation.h"
#include "desktop/settings_window/rule_box.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"

namespace korv {

BehaviourPanel::BehaviourPanel(QWidget* parent) : QGroupBox(Tr("Options"), parent) {
  setObjectName(QStringLiteral("fraOptions"));
  auto* layout = Tight(new QGridLayout(this), kSettingsMargins);
  chkPatternMatchingInWordsToIgnoreFile =
      MakeCheckBox("chkPatternMatchingInWordsToIgnoreFile", Tr("Enable pattern matching"), this);
  chkPatternMatchingInWordsToIgnoreFile->setToolTip(
      Tr("In the entries of a words-to-ignore file ~ stands for any characters and ? for one.\n"
         "Example: ~ing\nchecked: every word that ends with ing is ignored\n"
         "unchecked: only what is typed below the file list is a pattern"));
  chkExtractTextFromDocx = MakeCheckBox("chkExtractTextFromDocx", Tr("Extract text from docx files"), this);
  chkExtractTextFromDocx->setToolTip(
      Tr("If checked then text extracted from .docx files will be written to files in an "
         "'extracted_text' subfolder."));
  chkReadOtherDocuments = MakeCheckBox("chkReadOtherDocuments", Tr("Read other documents too"), this);
  chkReadOtherDocuments->setToolTip(
      Tr("OpenDocument texts, e-books (.epub), PDF and RTF, and the text of subtitles (.srt, .vtt, .lrc), "
         "translations (.tmx, .xlf, .po) and TEI or other XML.\nIf not checked they are refused, or read as "
         "plain "
         "text or mark-up."));
  chkSaveStateOnQuit = MakeCheckBox("chkSaveStateOnQuit", Tr("Save settings when quitting"), this);
  chkWarnOnOverwrite = MakeCheckBox("chkWarnOnOverwrite", Tr("Warn on overwrite of output file"), this);
  auto* patterns = new QHBoxLayout;
  patterns->addWidget(chkPatternMatchingInWordsToIgnoreFile);
  patterns->addWidget(new QLabel(Tr("for words-to-ignore file"), this));
  patterns->addStretch(1);
  layout->addLayout(patterns, 0, 0);
  layout->addWidget(chkExtractTextFromDocx, 1, 0);
  layout->addWidget(chkSaveStateOnQuit, 0, 1);
  layout->addWidget(chkWarnOnOverwrite, 1, 1);
  layout->setColumnStretch(0, 1);
  layout->setHorizontalSpacing(16);
  layout->addWidget(chkReadOtherDocuments, 2, 0);
  layout->setRowStretch(3, 1);
}

std::vector<QWidget*> BehaviourPanel::TabOrder() const {
  return {chkPatternMatchingInWordsToIgnoreFile, chkExtractTextFromDocx, chkReadOtherDocuments,
          chkSaveStateOnQuit, chkWarnOnOverwrite};
}

}  // namespace korv
