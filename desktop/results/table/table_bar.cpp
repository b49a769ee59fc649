#include "desktop/results/table/table_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/results/table/limits_bar.h"
#include "desktop/results/table/match_bar.h"
#include "desktop/results/table/row_details.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/menu_button.h"
#include "desktop/widgets/wiring.h"

namespace korv {

TableBar::TableBar(const Desktop& desktop, QWidget* parent) : QWidget(parent) {
  Match = new MatchBar(desktop, this);
  lblPhraseCount = Named(new ElidingLabel(this), "lblPhraseCount");
  Limits = Named(new LimitsBar(desktop, this), "fraLimits");
  cmdLimits =
      MakeTool("cmdLimits", Tr("Limits"), Tr("Set the least and the greatest value of some columns."));
  cmdPresets = MakeTool("cmdPresets", Tr("Presets"), Tr("Filters and columns for some purposes."));
  cmdColumns = MakeTool("cmdColumns", Tr("Columns"), Tr("Choose the columns of the table and its order."));
  cmdRowDetails =
      MakeTool("cmdRowDetails", Tr("Details"), Tr("Show more about the phrase of the current row. (F2)"));
  cmdLimits->setCheckable(true);
  cmdRowDetails->setCheckable(true);
  auto* layout = Bare(new QVBoxLayout(this));
  auto* second = Bare(new QHBoxLayout);
  auto* lblAlone = Named(new QLabel(Tr(kAloneInShort), this), "lblAlone");
  lblAlone->setToolTip(Tr(kAloneSentence));
  second->addWidget(lblPhraseCount, 1);
  second->addWidget(lblAlone);
  for (QToolButton* tool : {cmdLimits, cmdPresets, cmdColumns, cmdRowDetails}) second->addWidget(tool);
  for (QToolButton* tool : {cmdPresets, cmdColumns}) {
    tool->setPopupMode(QToolButton::InstantPopup);
    tool->setMenu(new QMenu(tool));
  }
  layout->addWidget(Match);
  layout->addLayout(second);
  layout->addWidget(Limits);
  Limits->hide();
  Wiring(*this, desktop.Messages).OnClick(cmdLimits, "cmdLimits_Click", [this] { cmdLimits_Click(); });
  Match->Typed = Limits->Typed = [this] {
    SayHowManyLimits();
    if (telling_) Typed();
  };
  Match->Chosen = [this] {
    if (telling_) Chosen();
  };
}

TableBar::~TableBar() {
  StopListening(*this);
}

QToolButton* TableBar::MakeTool(const char* name, const char* caption, const char* tip) {
  auto* tool = Named(new MenuButton(this), name);
  tool->setText(caption);
  tool->setToolTip(tip);
  tool->setFocusPolicy(Qt::StrongFocus);
  return tool;
}

RowFilter TableBar::Filter() const {
  return {.Query = Match->Query(), .Limits = Limits->Limits()};
}

bool TableBar::Check() {
  return Limits->Check();
}

void TableBar::Clear() {
  telling_ = false;
  Match->Clear();
  Limits->Clear();
  telling_ = true;
}

void TableBar::Limit(const std::vector<korv::Limit>& limits) {
  Clear();
  telling_ = false;
  Limits->Set(limits);
  Limits->setVisible(!limits.empty());
  cmdLimits->setChecked(!limits.empty());
  telling_ = true;
}

void TableBar::cmdLimits_Click() {
  Limits->setVisible(cmdLimits->isChecked());
  if (cmdLimits->isChecked()) Limits->TabOrder().front()->setFocus(Qt::OtherFocusReason);
}

void TableBar::SayHowManyLimits() {
  // They hold when they are folded away, too.
  const size_t limits = Limits->Limits().size();
  cmdLimits->setText(limits == 0 ? Tr("Limits") : QString(Tr("Limits (%1)")).arg(limits));
}

std::vector<QWidget*> TableBar::TabOrder() const {
  std::vector<QWidget*> order = Match->TabOrder();
  order.insert(order.end(), {cmdLimits, cmdPresets, cmdColumns, cmdRowDetails});
  const std::vector<QWidget*> limits = Limits->TabOrder();
  order.insert(order.end(), limits.begin(), limits.end());
  return order;
}

}  // namespace korv
