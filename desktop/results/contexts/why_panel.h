#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "app/run/run.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/result_notes_panel.h"

namespace korv {

/// The answer to "Why is it not listed?": a row for each cause with its way out. Looks on a thread of its
/// own.
class WhyPanel final : public QWidget {
 public:
  WhyPanel(const Desktop& desktop, QWidget* parent);

  ResultNotesPanel* Notes = nullptr;

  std::function<void(NoteAction)> WayOut = [](NoteAction) {};  ///< The user takes a way out.

  void Explain(const std::shared_ptr<const CountedRun>& run, const std::string& phrase);
  void Clear();
  bool Idle() const { return job_.Idle(); }

 private:
  const Desktop& desktop_;
  NewestJob job_;
};

}  // namespace korv
