#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "app/run/result_notes.h"

class QBoxLayout;

namespace korv {

/// The notes above a result: a row of text each, with a button for every way out.
///
/// A row's label is named "lblNote_" and the note's kind, its buttons "cmdNote_", the kind, "_" and the
/// action. Further rows of one kind have a number at the end.
class ResultNotesPanel final : public QWidget {
 public:
  explicit ResultNotesPanel(QWidget* parent);

  /// Called with the way out that the user takes.
  void OnAction(std::function<void(NoteAction)> act) { act_ = std::move(act); }
  /// Puts these in place of what stands there. Nothing moves where they are the same.
  void ShowNotes(const std::vector<ResultNote>& notes);
  /// Whether ways out can be taken: not while a run goes on.
  void EnableWaysOut(bool enabled);

 private:
  QWidget* MakeRow(const ResultNote& note, const QString& name);
  void RemoveRows();

  QBoxLayout* rows_;
  std::vector<ResultNote> shown_;
  std::function<void(NoteAction)> act_;
  bool enabled_ = true;
};

/// "Filter", "ShowAll": how kinds and actions are called in the names of controls.
const char* NameOf(NoteKind kind);
const char* NameOf(NoteAction action);

}  // namespace korv
