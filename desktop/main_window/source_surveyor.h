#pragma once

#include <QObject>
#include <QTimer>

#include "app/run/source_survey.h"
#include "app/workspace.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"

namespace korv {

class SourcePanel;

/// Looks at the chosen source on a thread of its own and has the source panel say what was found. While the
/// user still types, and while a run reads the disk, it waits.
class SourceSurveyor final : public QObject {
 public:
  /// The panel owns it. The other parts have to outlive it.
  SourceSurveyor(const Desktop& desktop, const Workspace& work, SourcePanel& panel);
  ~SourceSurveyor() override;

  QTimer* tmrSurvey = nullptr;  ///< Until the source has stopped changing.

  /// The source may be another one.
  void Follow();
  /// Whether it may look at the disk. What it was doing is done later.
  void Enable(bool enabled);
  /// Nothing is being looked at, or about to be.
  bool Idle() const { return !tmrSurvey->isActive() && job_.Idle(); }

 private:
  void tmrSurvey_Timer();
  void Show(const SourceSurvey& survey);

  const Desktop& desktop_;
  const Workspace& work_;
  SourcePanel& panel_;
  SurveyRequest wanted_;
  bool enabled_ = true;
  bool done_ = true;  ///< What was wanted has been found, or is nothing.
  NewestJob job_;
};

}  // namespace korv
