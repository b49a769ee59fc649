#include "desktop/main_window/status_line.h"

#include <QLabel>

#include "base/size_text.h"
#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"

namespace korv {

StatusLine::StatusLine(const NumberFormat& numbers, QWidget* parent) : QStatusBar(parent), numbers_(numbers) {
  lblStatusText = Named(new QLabel(this), "lblStatusText");
  lblStatusText->setTextFormat(Qt::PlainText);
  // A long path is cut at the window's edge; it never widens the window.
  lblStatusText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblStatusEncoding = MakeLabel("lblStatusEncoding", this);
  lblStatusFiles = MakeLabel("lblStatusFiles", this);
  lblStatusWords = MakeLabel("lblStatusWords", this);
  lblStatusPhrases = MakeLabel("lblStatusPhrases", this);
  lblStatusMemory = MakeLabel("lblStatusMemory", this);
  lblStatusMemory->setToolTip(Tr("Memory that the finished runs take. Closing a run frees what it takes."));
  addWidget(lblStatusText, 1);
  for (QLabel* label :
       {lblStatusEncoding, lblStatusFiles, lblStatusWords, lblStatusPhrases, lblStatusMemory}) {
    label->setContentsMargins(8, 0, 8, 0);
    addPermanentWidget(label);
    label->hide();
  }
}

void StatusLine::ShowText(const QString& text) {
  lblStatusText->setText(text);
}

void StatusLine::ShowCounts(uint64_t files, uint64_t words, uint64_t phrases) {
  const auto count = [this](uint64_t number, const char* pattern) {
    return ToQt(Fill(pattern, {numbers_.Grouped(static_cast<int64_t>(number))}));
  };
  lblStatusFiles->setText(files == 0 ? QString() : count(files, TrCount("%1 file", "%1 files", files)));
  // Some styles draw lines between the fields, around empty ones too.
  lblStatusFiles->setVisible(files != 0);
  lblStatusWords->setText(count(words, TrCount("%1 word", "%1 words", words)));
  lblStatusPhrases->setText(count(phrases, TrCount("%1 different phrase", "%1 different phrases", phrases)));
  lblStatusWords->show();
  lblStatusPhrases->show();
}

void StatusLine::ShowFiles(const std::string& text) {
  lblStatusFiles->setText(ToQt(text));
  lblStatusFiles->show();
}

void StatusLine::ShowEncoding(const std::string& text) {
  lblStatusEncoding->setText(ToQt(text));
  lblStatusEncoding->setVisible(!text.empty());
}

void StatusLine::ShowMemory(size_t runs, uint64_t bytes) {
  lblStatusMemory->setText(ToQt(
      Fill(TrCount("%1 run: %2", "%1 runs: %2", runs), {std::to_string(runs), FormatSize(bytes, numbers_)})));
  lblStatusMemory->setVisible(runs > 1);
}

void StatusLine::HideCounts() {
  for (QLabel* label : {lblStatusEncoding, lblStatusFiles, lblStatusWords, lblStatusPhrases}) label->hide();
}

}  // namespace korv
