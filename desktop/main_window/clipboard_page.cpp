#include "desktop/main_window/clipboard_page.h"

#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/dialogs/frm_clipboard.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/placement.h"
#include "desktop/widgets/wiring.h"

namespace korv {

ClipboardPage::ClipboardPage(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QVBoxLayout(this));
  layout->addWidget(MakeHint(
      Tr("Copy a text in any program, then count it here. The clipboard is read when the count begins."),
      this));
  cmdClipboardViewer = MakeButton("cmdClipboardViewer", Tr("View clip&board"), this);
  layout->addWidget(cmdClipboardViewer, 0, Qt::AlignLeft);
  Wiring(*this, desktop_.Messages).OnClick(cmdClipboardViewer, "cmdClipboardViewer_Click", [this] {
    cmdClipboardViewer_Click();
  });
}

ClipboardPage::~ClipboardPage() {
  StopListening(*this);
}

void ClipboardPage::cmdClipboardViewer_Click() {
  if (desktop_.Launcher.OpenClipboardViewer()) return;
  if (!viewer_) viewer_ = std::make_unique<frmClipboard>(desktop_.Clipboard);
  if (!viewer_->isVisible()) CentreOver(*viewer_, *window());
  viewer_->ShowText();
}

void ClipboardPage::HideViewer() {
  if (viewer_) viewer_->hide();
}

}  // namespace korv
