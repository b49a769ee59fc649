#pragma once

#include <QTabBar>
#include <functional>
#include <vector>

class QMenu;

namespace korv {

/// A finished run, by its tab.
struct NamedRun {
  int Index;
  QString Name;
};

/// Fills a menu with runs to be chosen; it is disabled without one.
void FillWithRuns(QMenu& menu, const std::vector<NamedRun>& runs, const std::function<void(int index)>& act);

/// A tab for every finished run of a window. Seen as soon as there is a run; the last one cannot be closed.
class RunTabs final : public QTabBar {
 public:
  explicit RunTabs(QWidget* parent);

  /// The user has brought another run in front.
  std::function<void(int index)> Chosen = [](int) {};
  /// The user closes a run.
  std::function<void(int index)> Closed = [](int) {};
  /// The user wants the settings back under which a run was counted.
  std::function<void(int index)> SettingsWanted = [](int) {};

  /// Which runs a run can be compared with.
  std::function<std::vector<NamedRun>(int index)> Comparable = [](int) { return std::vector<NamedRun>(); };
  /// The user wants a run compared with another one.
  std::function<void(int a, int b)> CompareWanted = [](int, int) {};

  /// A tab at the end, in front.
  void Add(const QString& name);
  void Rename(int index, const QString& name);
  void Remove(int index);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void ShowWhatApplies();
};

}  // namespace korv
