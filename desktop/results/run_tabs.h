#pragma once

#include <QTabBar>
#include <functional>

namespace korv {

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
