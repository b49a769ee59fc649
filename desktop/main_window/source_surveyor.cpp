#include "desktop/main_window/source_surveyor.h"

#include <utility>

#include "app/run/run_request.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"
#include "desktop/widgets/wiring.h"
#include "sources/detect/source_checks.h"

namespace korv {
namespace {

constexpr int kPause = 400;  // milliseconds without a further key

SurveyRequest RequestOf(const Workspace& work) {
  const Settings& settings = work.Current();
  SurveyRequest request{.Kind = settings.SourceKind};
  request.Selection.OtherDocuments = settings.Documents.Others;
  if (request.Kind == TextSource::SingleFile) request.Path = TrimmedPath(settings.InputFile);
  if (request.Kind != TextSource::Folder) return request;
  request.Together = work.Together();
  if (request.Together.empty()) request.Path = TrimmedFolderPath(settings.Folder);
  request.Selection = SelectionOf(settings);
  request.IncludeSubfolders = settings.IncludeSubfolders;
  return request;
}

}  // namespace

SourceSurveyor::SourceSurveyor(const Desktop& desktop, const Workspace& work, SourcePanel& panel)
    : QObject(&panel), desktop_(desktop), work_(work), panel_(panel), job_(desktop.Loop) {
  tmrSurvey = Named(new QTimer(this), "tmrSurvey");
  tmrSurvey->setSingleShot(true);
  tmrSurvey->setInterval(kPause);
  connect(tmrSurvey, &QTimer::timeout, this,
          Guarded(desktop_.Messages, "tmrSurvey_Timer", [this] { tmrSurvey_Timer(); }));
}

SourceSurveyor::~SourceSurveyor() {
  StopListening(*this);
}

void SourceSurveyor::Follow() {
  SurveyRequest request = RequestOf(work_);
  if (request == wanted_) return;
  wanted_ = std::move(request);
  job_.Stop();
  panel_.ShowFound({});
  done_ = wanted_.Path.empty() && wanted_.Together.empty();
  done_ || !enabled_ ? tmrSurvey->stop() : tmrSurvey->start();
}

void SourceSurveyor::Enable(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  if (done_) return;
  if (enabled_) return tmrSurvey->start();
  tmrSurvey->stop();
  job_.Stop();
}

void SourceSurveyor::tmrSurvey_Timer() {
  job_.Start([this, request = wanted_, &files = desktop_.Files](NewestJob::Turn& turn) {
    const SourceSurvey survey = SurveySource(request, files, turn.Yielder());
    turn.Tell([this, survey] { Show(survey); });
  });
}

void SourceSurveyor::Show(const SourceSurvey& survey) {
  done_ = true;
  panel_.ShowFound(SurveyText(survey, desktop_.Numbers));
}

}  // namespace korv
