#include "desktop/results/contexts/why_panel.h"

#include <QVBoxLayout>

#include "app/why/why_not_listed.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"

namespace korv {

WhyPanel::WhyPanel(const Desktop& desktop, QWidget* parent)
    : QWidget(parent), desktop_(desktop), job_(desktop.Loop) {
  auto* layout = Bare(new QVBoxLayout(this));
  Notes = Named(new ResultNotesPanel(this), "whyNotes");
  Notes->OnAction([this](NoteAction action) { WayOut(action); });
  layout->addWidget(Notes);
}

void WhyPanel::Explain(const std::shared_ptr<const CountedRun>& run, const std::string& phrase) {
  job_.Start([this, run, phrase, numbers = desktop_.Numbers](NewestJob::Turn& turn) {
    auto notes = WhyNotListed(*run, phrase, numbers, turn.Yielder());
    turn.Tell([this, notes = std::move(notes)] { Notes->ShowNotes(notes); });
  });
}

void WhyPanel::Clear() {
  job_.Stop();
  Notes->ShowNotes({});
}

}  // namespace korv
