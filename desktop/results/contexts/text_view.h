#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "app/contexts/context_list.h"
#include "app/contexts/file_reading.h"
#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "sources/places/text_window.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace korv {

/// A window with the text in which a phrase stands, the phrase marked. Holds a part of the text, the rest of
/// which is a click away. Reads on a thread of its own.
class TextView final : public QWidget {
 public:
  TextView(const Desktop& desktop, QWidget* parent);
  ~TextView() override;

  QLabel* lblTextPlace = nullptr;
  QLabel* lblTextNote = nullptr;
  QPlainTextEdit* txbText = nullptr;
  QPushButton* cmdTextBefore = nullptr;
  QPushButton* cmdTextBehind = nullptr;
  QPushButton* cmdPreviousOccurrence = nullptr;
  QPushButton* cmdNextOccurrence = nullptr;
  QPushButton* cmdOpenSource = nullptr;
  QPushButton* cmdCloseText = nullptr;

  std::function<void(int)> Step = [](int) {};  ///< The user wants the next (1) or previous (-1) occurrence.

  /// Shows the text around an occurrence, an index in the list's Places().
  void ShowPlace(const std::shared_ptr<const ContextList>& list, size_t index);
  bool Idle() const { return reader_.Idle(); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Shown;

  void Build();
  void Connect();
  void ReadPlace(size_t index);
  void ReadMore(bool before);
  void Show(const TextWindow& window);
  void ShowWords(PlaceFault fault);
  void MarkPhrase(const QString& before, const QString& phrase);
  void SayPlace();
  void OpenSource();

  const Desktop& desktop_;
  std::unique_ptr<Shown> shown_;
  std::shared_ptr<FileReading> reading_;
  NewestJob reader_;
};

}  // namespace korv
