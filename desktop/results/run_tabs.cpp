#include "desktop/results/run_tabs.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalBlocker>

#include "base/translation.h"
#include "desktop/widgets/control_factory.h"

namespace korv {
namespace {

/// What looks like the mark of a mnemonic is a part of the name.
QString AsCaption(QString name) {
  return name.replace(u'&', QLatin1String("&&"));
}

}  // namespace

void FillWithRuns(QMenu& menu, const std::vector<NamedRun>& runs, const std::function<void(int index)>& act) {
  menu.clear();
  for (const NamedRun& run : runs)
    menu.addAction(AsCaption(run.Name), &menu, [act, index = run.Index] { act(index); });
  menu.setEnabled(!runs.empty());
}

RunTabs::RunTabs(QWidget* parent) : QTabBar(parent) {
  Described(Named(this, "tabRuns"), Tr("Finished runs"));
  setDocumentMode(true);
  setExpanding(false);
  setUsesScrollButtons(true);
  setElideMode(Qt::ElideMiddle);
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    if (index >= 0) Chosen(index);
  });
  connect(this, &QTabBar::tabCloseRequested, this, [this](int index) { Closed(index); });
  ShowWhatApplies();
}

void RunTabs::Add(const QString& name) {
  const QSignalBlocker byTheProgram(this);
  const int index = addTab({});
  Rename(index, name);
  setCurrentIndex(index);
  ShowWhatApplies();
}

void RunTabs::Rename(int index, const QString& name) {
  setTabText(index, AsCaption(name));
}

void RunTabs::Remove(int index) {
  {
    const QSignalBlocker byTheProgram(this);
    removeTab(index);
  }
  ShowWhatApplies();
}

void RunTabs::mouseReleaseEvent(QMouseEvent* event) {
  const int index = tabAt(event->position().toPoint());
  if (event->button() == Qt::MiddleButton && index >= 0 && tabsClosable()) return Closed(index);
  QTabBar::mouseReleaseEvent(event);
}

void RunTabs::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const int index = byKey ? currentIndex() : tabAt(event->pos());
  if (index < 0) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(Tr("&Take its settings back"), this, [this, index] { SettingsWanted(index); });
  QMenu* const compare = Named(menu->addMenu(Tr("Compare &with")), "mnuCompareTab");
  FillWithRuns(*compare, Comparable(index), [this, index](int other) { CompareWanted(index, other); });
  QAction* const close = menu->addAction(Tr("&Close"), this, [this, index] { Closed(index); });
  close->setEnabled(tabsClosable());
  menu->popup(byKey ? mapToGlobal(tabRect(index).bottomLeft()) : event->globalPos());
}

void RunTabs::ShowWhatApplies() {
  setTabsClosable(count() > 1);
  setVisible(count() > 0);
}

}  // namespace korv
