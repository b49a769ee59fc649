#pragma once

#include <QScopedValueRollback>

#include "app/run/run.h"
#include "app/settings/settings.h"
#include "desktop/main_window/main_panels.h"
#include "report/report_options.h"

namespace korv {

class frmParams;

/// The settings as the controls of both windows hold them.
class ControlSettings {
 public:
  /// The parts have to outlive this.
  ControlSettings(const MainPanels& panels, frmParams& params) : panels_(panels), params_(params) {}

  /// What the controls say.
  Settings Gather() const;
  ReportOptions GatherReportOptions() const;
  /// What a count that began now would be asked for. Without a clipboard's text.
  RunRequest GatherRunRequest() const;
  /// Puts settings into the controls, without asking anything.
  void Put(const Settings& settings);

  /// Settings are being put into the controls: what follows from them waits for the last one.
  bool Restoring() const { return restoring_; }
  /// Restoring() for as long as the result lives.
  [[nodiscard]] QScopedValueRollback<bool> BeginRestoring() {
    return QScopedValueRollback<bool>(restoring_, true);
  }

 private:
  const MainPanels& panels_;
  frmParams& params_;
  bool restoring_ = false;
};

}  // namespace korv
