#include "app/windows/frm_load_remove.h"

#include <QVBoxLayout>

#include "app/windows/control_factory.h"

namespace korv {

frmLoadRemove::frmLoadRemove(const QString& path, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmLoadRemove"));
  setWindowTitle(QStringLiteral("Load or remove this file"));

  lblFile = MakeLabel("lblFile", this);
  lblFile->setText(path);
  lblFile->setWordWrap(true);
  lblFile->setMinimumWidth(420);
  optLoad = MakeOption("optLoad", "&Load this file", this);
  optRemove = MakeOption("optRemove", "&Remove this file from the list", this);
  optCancel = MakeOption("optCancel", "C&ancel", this);
  optLoad->setChecked(true);
  cmdClose = MakeButton("cmdClose", "&Close", this);
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
