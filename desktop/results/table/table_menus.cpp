#include "desktop/results/table/table_menus.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QMenu>

#include "base/translation.h"
#include "desktop/results/table/column_choice.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/presets.h"
#include "desktop/toolkit/text.h"

namespace korv {

namespace {

void FillOrderMenu(QMenu& menu, QHeaderView& header, const PhraseTableModel& model,
                   const ColumnChoice& columns) {
  auto* group = new QActionGroup(&menu);
  for (const int section : columns.Shown()) {
    const Column& column = *model.Columns()[static_cast<size_t>(section)];
    QAction* const action = menu.addAction(ToQt(HeadingText(column)), [&header, &model, section] {
      const QVariant usual = model.headerData(section, Qt::Horizontal, Qt::InitialSortOrderRole);
      header.setSortIndicator(section, static_cast<Qt::SortOrder>(usual.toInt()));
    });
    action->setObjectName(QStringLiteral("mnuOrderBy_") + ToQt(column.Id));
    action->setCheckable(true);
    action->setChecked(header.sortIndicatorSection() == section);
    group->addAction(action);
  }
  menu.addSeparator();
  QAction* const reverse = menu.addAction(Tr("&Reverse the order"), [&header] {
    const bool ascends = header.sortIndicatorOrder() == Qt::AscendingOrder;
    header.setSortIndicator(header.sortIndicatorSection(),
                            ascends ? Qt::DescendingOrder : Qt::AscendingOrder);
  });
  reverse->setObjectName(QStringLiteral("mnuReverseOrder"));
}

}  // namespace

void FillColumnsMenu(QMenu& menu, PhraseGrid& grid, const PhraseTableModel& model, ColumnChoice& columns,
                     const std::function<void(QMenu&)>& fillParts) {
  menu.clear();
  // That leaves the menus within it.
  qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
  QMenu* const order = menu.addMenu(Tr("&Order by"));
  order->setObjectName(QStringLiteral("mnuOrderBy"));
  FillOrderMenu(*order, *grid.horizontalHeader(), model, columns);
  QMenu* const parts = menu.addMenu(Tr("&Parts for dispersion"));
  parts->setObjectName(QStringLiteral("mnuParts"));
  fillParts(*parts);
  menu.addSeparator();
  columns.FillMenu(menu);
}

void FillPresetsMenu(QMenu& menu, const std::function<void(const Preset&)>& follow) {
  for (const Preset& preset : Presets()) {
    QAction* const action = menu.addAction(ToQt(preset.Caption), [follow, preset] { follow(preset); });
    action->setObjectName(QStringLiteral("mnuPreset_") + ToQt(preset.Name));
    action->setToolTip(ToQt(preset.Tip));
  }
  menu.setToolTipsVisible(true);
}

}  // namespace korv
