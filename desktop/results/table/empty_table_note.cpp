#include "desktop/results/table/empty_table_note.h"

#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/widgets/control_factory.h"

namespace korv {

EmptyTableNote::EmptyTableNote(QWidget* parent) : QWidget(parent) {
  lblEmptyTable = MakeLabel("lblEmptyTable", this);
  lblEmptyTable->setAlignment(Qt::AlignCenter);
  lblEmptyTable->setWordWrap(true);
  cmdClearMatch = MakeButton("cmdClearMatch", Tr("&Show all phrases"), this);
  auto* layout = new QVBoxLayout(this);
  layout->addStretch(1);
  layout->addWidget(lblEmptyTable);
  layout->addWidget(cmdClearMatch, 0, Qt::AlignHCenter);
  layout->addStretch(2);
}

void EmptyTableNote::Say(Reason reason) {
  static constexpr const char* kReasons[] = {
      TrLater("Nothing has been counted yet."), TrLater("The run found no phrase that it could list."),
      TrLater("No phrase passes the filter."), TrLater("The comparison found no such phrase.")};
  lblEmptyTable->setText(Tr(kReasons[static_cast<size_t>(reason)]));
  cmdClearMatch->setVisible(reason == Reason::NothingPasses);
}

}  // namespace korv
