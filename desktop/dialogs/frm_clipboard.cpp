#include "desktop/dialogs/frm_clipboard.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "platform/clipboard.h"

namespace korv {

frmClipboard::frmClipboard(const Clipboard& clipboard, QWidget* parent)
    : QWidget(parent, Qt::Window), clipboard_(clipboard) {
  setObjectName(QStringLiteral("frmClipboard"));
  setWindowTitle(Tr("Clipboard"));
  txbClipboard = Described(Named(new QPlainTextEdit(this), "txbClipboard"), Tr("Text on the clipboard"));
  txbClipboard->setReadOnly(true);
  txbClipboard->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txbClipboard->setPlaceholderText(Tr("There is no text on the clipboard."));
  cmdClose = MakeButton("cmdClose", Tr("&Close"), this);
  connect(cmdClose, &QPushButton::clicked, this, &QWidget::hide);
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::hide);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txbClipboard, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);
  layout->addLayout(buttons);
  resize(640, 480);
}

void frmClipboard::ShowText() {
  txbClipboard->setPlainText(ToQtLines(clipboard_.Text()));
  show();
  raise();
  activateWindow();
}

}  // namespace korv
