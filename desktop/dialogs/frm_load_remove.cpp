#include "desktop/dialogs/frm_load_remove.h"

#include <QVBoxLayout>
#include <algorithm>

#include "base/translation.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"

namespace korv {
namespace {

constexpr int kLeastPathWidth = 420;
constexpr int kMostPathWidth = 700;

}  // namespace

frmLoadRemove::frmLoadRemove(const QString& path, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmLoadRemove"));
  setWindowTitle(Tr("Load or remove this file"));

  lblFile = Named(new ElidingLabel(this), "lblFile");
  lblFile->setText(path);
  // Most paths are seen in full; the longest do not make the window wider than a screen.
  lblFile->setMinimumWidth(std::clamp(lblFile->sizeHint().width(), kLeastPathWidth, kMostPathWidth));
  optLoad = MakeOption("optLoad", Tr("&Load this file"), this);
  optRemove = MakeOption("optRemove", Tr("&Remove this file from the list"), this);
  optCancel = MakeOption("optCancel", Tr("C&ancel"), this);
  optLoad->setChecked(true);
  cmdClose = MakeButton("cmdClose", Tr("&Close"), this);
  cmdClose->setDefault(true);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblFile);
  layout->addSpacing(6);
  for (QRadioButton* option : {optLoad, optRemove, optCancel}) layout->addWidget(option);
  layout->addSpacing(6);
  layout->addWidget(cmdClose, 0, Qt::AlignRight);
}

frmLoadRemove::Choice frmLoadRemove::Chosen() const {
  if (result() != QDialog::Accepted) return Choice::Cancel;
  if (optLoad->isChecked()) return Choice::Load;
  if (optRemove->isChecked()) return Choice::Remove;
  return Choice::Cancel;
}

}  // namespace korv
