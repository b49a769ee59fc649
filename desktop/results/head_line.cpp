#include "desktop/results/head_line.h"

#include <QHBoxLayout>

#include "app/run/run_description.h"
#include "desktop/results/chip_row.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"

namespace korv {

HeadLine::HeadLine(QWidget* parent) : QWidget(parent) {
  auto* layout = Bare(new QHBoxLayout(this));
  lblHeadLine = Named(new ElidingLabel(this), "lblHeadLine");
  layout->addWidget(lblHeadLine, 1);
  Chips = new ChipRow(this);
  layout->addWidget(Chips);
  hide();
}

void HeadLine::ShowRun(const ShownResult* result, const NumberFormat& numbers) {
  setVisible(result != nullptr);
  lblHeadLine->setText(result == nullptr ? QString() : ToQt(HeadLineText(*result, numbers)));
}

}  // namespace korv
