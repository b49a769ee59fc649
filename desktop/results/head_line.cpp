#include "desktop/results/head_line.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <initializer_list>

#include "app/run/run_description.h"
#include "desktop/results/chip_row.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"

namespace korv {

HeadLine::HeadLine(QWidget* parent) : QWidget(parent) {
  auto* stack = Bare(new QVBoxLayout(this));
  stack->setSpacing(0);
  auto* layout = Bare(new QHBoxLayout);
  stack->addLayout(layout);
  lblHeadLine = Named(new ElidingLabel(this), "lblHeadLine");
  layout->addWidget(lblHeadLine, 1);
  Chips = new ChipRow(this);
  layout->addWidget(Chips);
  lblBothSides = Named(new ElidingLabel(this), "lblBothSides");
  lblComparisonNote = MakeLabel("lblComparisonNote", this);
  lblComparisonNote->setWordWrap(true);
  for (QLabel* line : std::initializer_list<QLabel*>{lblBothSides, lblComparisonNote}) {
    MakeQuiet(line);
    stack->addWidget(line);
    line->hide();
  }
  hide();
}

void HeadLine::ShowRun(const ShownResult* result, const NumberFormat& numbers) {
  setVisible(result != nullptr);
  lblHeadLine->setText(result == nullptr ? QString() : ToQt(HeadLineText(*result, numbers)));
  const auto show = [](auto* line, const std::string& text) {
    line->setText(ToQt(text));
    line->setVisible(!text.empty());
  };
  show(lblBothSides, result == nullptr ? std::string() : SharedRulesText(*result));
  show(lblComparisonNote, result == nullptr ? std::string() : ComparisonNote(*result));
}

}  // namespace korv
