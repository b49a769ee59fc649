#include "app/windows/frm_help.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QVBoxLayout>

#include "app/windows/control_factory.h"
#include "app/windows/frm_main_controls.h"
#include "platform/program_text.h"
#include "platform/qt/text.h"

namespace korv {
namespace {

constexpr int kTitleText = 351;
constexpr int kFirstHelpText = 364;
constexpr int kLastHelpText = 369;

}  // namespace

frmHelp::frmHelp(const ProgramText& text, QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(ToQt(text.Get(kTitleText)));

  std::string help;
  for (int number = kFirstHelpText; number <= kLastHelpText; ++number) {
    if (number > kFirstHelpText) help += "\r\n";
    help += text.Get(number);
  }

  txbHelpScreen = Described(Named(new QPlainTextEdit(this), "txbHelpScreen"), "Help text");
  txbHelpScreen->setReadOnly(true);
  txbHelpScreen->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The text has columns and lists as in a report.
  txbHelpScreen->setFont(WordsFont());
  txbHelpScreen->setPlainText(ToQtLines(help));
  txbHelpScreen->document()->setDocumentMargin(12);
  cmdClose = MakeButton("cmdClose", "&Close", this);
  connect(cmdClose, &QPushButton::clicked, this, &frmHelp::cmdClose_Click);
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &frmHelp::cmdClose_Click);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txbHelpScreen, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);
  layout->addLayout(buttons);
  const QFontMetrics letters(txbHelpScreen->font());
  resize(letters.averageCharWidth() * 88, letters.lineSpacing() * 42);
}

void frmHelp::cmdClose_Click() {
  hide();
}

}  // namespace korv
