#include "desktop/results/result_notes_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <map>

#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"

namespace korv {

ResultNotesPanel::ResultNotesPanel(QWidget* parent) : QWidget(parent), rows_(new QVBoxLayout(this)) {
  rows_->setContentsMargins(0, 0, 0, 0);
  rows_->setSpacing(2);
  setVisible(false);
}

void ResultNotesPanel::ShowNotes(const std::vector<ResultNote>& notes) {
  if (notes == shown_) return;
  RemoveRows();
  shown_ = notes;
  std::map<NoteKind, int> count;
  for (const ResultNote& note : notes) {
    const int number = ++count[note.Kind];
    const QString suffix = number == 1 ? QString() : QString::number(number);
    rows_->addWidget(MakeRow(note, QLatin1String(NameOf(note.Kind)) + suffix));
  }
  setVisible(!notes.empty());
  // Tab goes through them where they stand.
  QWidget* last = this;
  for (QToolButton* button : findChildren<QToolButton*>()) {
    if (button->objectName().isEmpty()) continue;
    setTabOrder(last, button);
    last = button;
  }
}

QWidget* ResultNotesPanel::MakeRow(const ResultNote& note, const QString& name) {
  auto* row = new QWidget(this);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  QLabel* const label = MakeLabel("", row);
  label->setObjectName(QLatin1String("lblNote_") + name);
  label->setText(ToQt(note.Text));
  label->setToolTip(PlainTip(ToQt(note.Tip)));
  label->setWordWrap(true);
  // A long name is broken or cut; it never widens the window. A row is as high as the lines that this makes.
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  label->setSizePolicy(policy);
  if (note.Kind == NoteKind::Source) {
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
  }
  layout->addWidget(label, 1);
  for (const NoteAction action : note.WaysOut) {
    auto* button = new QToolButton(row);
    button->setObjectName(QLatin1String("cmdNote_") + name + u'_' + QLatin1String(NameOf(action)));
    button->setText(QString::fromUtf8(CaptionOf(action)));
    button->setAccessibleDescription(ToQt(note.Text));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setEnabled(enabled_);
    connect(button, &QToolButton::clicked, this, [this, action] {
      if (act_) act_(action);
    });
    layout->addWidget(button, 0, Qt::AlignTop);
  }
  return row;
}

void ResultNotesPanel::RemoveRows() {
  while (QLayoutItem* const item = rows_->takeAt(0)) {
    QWidget* const row = item->widget();
    delete item;
    // One of its buttons may be what has been pressed just now. Until then nobody is to find them.
    for (QObject* child : row->findChildren<QObject*>()) child->setObjectName(QString());
    row->hide();
    row->deleteLater();
  }
}

void ResultNotesPanel::EnableWaysOut(bool enabled) {
  enabled_ = enabled;
  for (QToolButton* button : findChildren<QToolButton*>()) button->setEnabled(enabled);
}

const char* NameOf(NoteKind kind) {
  switch (kind) {
    case NoteKind::Source:
      return "Source";
    case NoteKind::BothSides:
      return "BothSides";
    case NoteKind::SharedFiles:
      return "SharedFiles";
    case NoteKind::NotInSight:
      return "NotInSight";
    case NoteKind::OtherSource:
      return "OtherSource";
    case NoteKind::OtherRules:
      return "OtherRules";
    case NoteKind::OtherReport:
      return "OtherReport";
    case NoteKind::NotWritten:
      return "NotWritten";
    case NoteKind::OnlyInFile:
      return "OnlyInFile";
    case NoteKind::Written:
      return "Written";
    case NoteKind::Empty:
      return "Empty";
    case NoteKind::Full:
      return "Full";
    case NoteKind::ListingStopped:
      return "ListingStopped";
    case NoteKind::Incomplete:
      return "Incomplete";
    case NoteKind::Filter:
      return "Filter";
    case NoteKind::OtherFilter:
      return "OtherFilter";
    case NoteKind::CountOnly:
      return "CountOnly";
    case NoteKind::WordsLeftOut:
      return "WordsLeftOut";
    case NoteKind::Skipped:
      return "Skipped";
    case NoteKind::LongPhrases:
      return "LongPhrases";
    case NoteKind::Replaced:
      return "Replaced";
    case NoteKind::Why:
      return "Why";
  }
  return "";
}

const char* NameOf(NoteAction action) {
  switch (action) {
    case NoteAction::ListAnew:
      return "ListAnew";
    case NoteAction::CountAgain:
      return "CountAgain";
    case NoteAction::ShowLastList:
      return "ShowLastList";
    case NoteAction::ShowAll:
      return "ShowAll";
    case NoteAction::FilterResults:
      return "FilterResults";
    case NoteAction::WriteToFile:
      return "WriteToFile";
    case NoteAction::OpenFile:
      return "OpenFile";
    case NoteAction::OpenFolder:
      return "OpenFolder";
    case NoteAction::CountLeftOut:
      return "CountLeftOut";
    case NoteAction::ShowSkipped:
      return "ShowSkipped";
    case NoteAction::WordRules:
      return "WordRules";
    case NoteAction::WordsToIgnore:
      return "WordsToIgnore";
    case NoteAction::CountOnly:
      return "CountOnly";
    case NoteAction::MinFrequency:
      return "MinFrequency";
    case NoteAction::Lengths:
      return "Lengths";
  }
  return "";
}

}  // namespace korv
