#pragma once

#include <QTextBrowser>
#include <functional>
#include <memory>

#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/table/phrase_details.h"

namespace korv {

/// The sentence that explains the column "Alone".
extern const char* const kAloneSentence;

/// Beside the table: all that there is to say of the phrase of the current row. Phrases in it lead to theirs.
class RowDetails final : public QTextBrowser {
 public:
  RowDetails(const Desktop& desktop, QWidget* parent);
  ~RowDetails() override;

  std::function<void(PhraseIndex)> PhraseChosen = [](PhraseIndex) {};

  /// Shows this phrase of a run; kNoPhrase: says that none is selected. Found beside the window.
  void Show(std::shared_ptr<const TableSource> source, const PhraseList& rows, PhraseIndex phrase);
  bool Idle() const { return job_.Idle(); }

 private:
  const Desktop& desktop_;
  NewestJob job_;
};

/// The details as rich text.
QString RichText(const PhraseDetails& details, const NumberFormat& numbers);

}  // namespace korv
