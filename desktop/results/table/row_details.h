#pragma once

#include <QTextBrowser>
#include <functional>
#include <memory>
#include <optional>

#include "app/contexts/file_reading.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/table/phrase_details.h"

namespace korv {

/// The sentence that explains the column "Alone", and what it comes to in a narrow place.
extern const char* const kAloneSentence;
extern const char* const kAloneInShort;

/// Beside the table: all that there is to say of the phrase of the current row. Phrases in it lead to theirs,
/// contexts and a double click to all contexts.
class RowDetails final : public QTextBrowser {
 public:
  RowDetails(const Desktop& desktop, QWidget* parent);
  ~RowDetails() override;

  std::function<void(PhraseIndex)> PhraseChosen = [](PhraseIndex) {};
  std::function<void(PhraseIndex)> ContextsAsked = [](PhraseIndex) {};

  /// Shows this phrase of a run; kNoPhrase: says that none is selected. Found beside the window.
  void Show(std::shared_ptr<const TableSource> source, const PhraseList& rows, PhraseIndex phrase);
  bool Idle() const { return job_.Idle(); }

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Follow(const QUrl& link);
  void Take(PhraseDetails details);
  void Present();
  /// Of the picture of places: as wide as there is room, but neither a cell too thin to be seen nor a stripe.
  int BarWidth() const;

  const Desktop& desktop_;
  std::optional<PhraseDetails> shown_;
  int barWidth_ = 0;
  std::shared_ptr<FileReading> reading_;  ///< Used by the job.
  NewestJob job_;                         ///< Last: its jobs use the above.
};

/// The details as rich text.
QString RichText(const PhraseDetails& details, const NumberFormat& numbers);

}  // namespace korv
