#include "desktop/settings_window/rules_sample_box.h"

#include <QGridLayout>

#include "app/texts/rules_sample.h"
#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"

namespace korv {

RulesSampleBox::RulesSampleBox(QWidget* parent)
    : QGroupBox(Tr("What these rules make of a sample:"), parent) {
  setObjectName(QStringLiteral("fraSample"));
  txbSample = MakeTextBox("txbSample", Tr("Sample text"), this);
  txbSample->setText(ToQt(RulesSample()));
  txbSample->setCursorPosition(0);
  txbSample->setClearButtonEnabled(true);
  txbSample->setPlaceholderText(Tr("Type a few words of your text here"));
  txbSample->setToolTip(
      Tr("Type any text to see which words would be counted. \u00B6 stands for the end of a line, "
         "\u21E5 for a tab."));
  lblSampleWords = Named(new ElidingLabel(this), "lblSampleWords");
  setToolTip(Tr("| stands between two words, || where no phrase goes on."));
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(10, 8, 10, 8);
  layout->setSpacing(5);
  layout->addWidget(MakeCaption(Tr("Text:"), txbSample, this), 0, 0);
  layout->addWidget(txbSample, 0, 1);
  layout->addWidget(new QLabel(Tr("Words:"), this), 1, 0);
  layout->addWidget(lblSampleWords, 1, 1);
  layout->setColumnStretch(1, 1);
  connect(txbSample, &QLineEdit::textChanged, this, [this] { ShowWords(); });
}

void RulesSampleBox::Show(const WordRules& rules) {
  rules_ = rules;
  ShowWords();
}

void RulesSampleBox::ShowWords() {
  const std::string words = WordsOfSample(FromQt(txbSample->text()), rules_);
  const bool none = words.empty();
  lblSampleWords->setText(none ? Tr("No word of this text would be counted.") : ToQt(words));
}

}  // namespace korv
