#include "desktop/main_window/run_display.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include "desktop/main_window/file_page.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/results/result_panel.h"
#include "desktop/toolkit/text.h"

namespace korv {

void RunDisplay::Status(const std::string& text) {
  if (!std::exchange(shown_, true)) first_();
  panels_.Result->Output().OutputToTxb(text + "\r\n");
  panels_.Status->ShowText(ToQtLines(text).simplified());
}

void RunDisplay::Notice(const std::string& text) {
  panels_.Result->Output().OutputToTxb(text + "\r\n");
}

void RunDisplay::ClearOutput() {
  panels_.Result->Output().Clear();
}

void RunDisplay::InputFile(const std::string& path) {
  QLineEdit* const box = panels_.Source->File->txbFile;
  if (path.empty()) return box->clear();
  // The files of a folder pass through the box. None of them is the user's choice, which is the setting.
  const QSignalBlocker passing(box);
  box->setText(ToQt(path));
  panels_.Status->ShowText(ToQt(path));
}

void RunDisplay::Sizes(const std::string& fileSize, const std::string& textSize) {
  panels_.Source->File->ShowSizes(fileSize, textSize);
}

void RunDisplay::FileKind(const std::string& text) {
  panels_.Result->ShowFileKind(text);
}

void RunDisplay::TextProgress(const std::string& bar) {
  panels_.Status->ShowText(ToQt(bar));
}

std::optional<std::string> RunDisplay::ChooseOutputFile() {
  const RunClock::Waiting waiting(clock_);
  if (!panels_.OutputFile->ChooseOutputFile()) return std::nullopt;
  panels_.OutputFile->chkDisableOutputToFile->setChecked(false);
  return FromQt(panels_.OutputFile->txbFile->text());
}

}  // namespace korv
