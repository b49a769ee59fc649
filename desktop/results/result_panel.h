#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "app/run/output_box.h"
#include "app/run/result_notes.h"
#include "desktop/desktop.h"
#include "desktop/results/output_text_box.h"

class QBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace korv {

class FilterPanel;

/// The list of phrases with its labels; above it its options, below it the filter.
class ResultPanel final : public QWidget {
 public:
  ResultPanel(const Desktop& desktop, OutputBoxHooks hooks, QWidget* parent);
  ~ResultPanel() override;

  QLabel* lblNumberOfWords = nullptr;
  QLabel* lblNumOccurrences = nullptr;
  QLabel* lblTotalNumOccurrences = nullptr;
  QLabel* lblNumWordsExcluded = nullptr;
  QPlainTextEdit* txbOutput = nullptr;
  QPushButton* cmdClearOutput = nullptr;
  FilterPanel* Filter = nullptr;
  QPushButton* cmdTrySample = nullptr;  ///< In the empty text box, below its words on how to begin.

  std::function<void()> SampleWanted = [] {};
  std::function<void()> Cleared = [] {};  ///< The user has emptied the text box.

  void cmdClearOutput_Click();

  /// All that the text box holds goes through here.
  OutputBox& Output() { return output_; }
  /// Of the text box, in characters; a line break counts twice.
  size_t OutputLength() const { return box_.Length(); }
  /// Takes back what was appended after the box held `length` characters.
  void TruncateOutput(size_t length) { box_.Truncate(length); }

  /// What the text box holds and which part of it is in sight.
  struct Contents {
    QString Text;
    bool Full;
    size_t Kept;
    std::array<int, 2> Scrolled;  ///< Down, to the right.
  };
  Contents GetContents() const;
  void PutBack(const Contents& contents);
  /// How far the box is scrolled down and to the right.
  std::array<int, 2> Scrolled() const;
  void ScrollTo(const std::array<int, 2>& scrolled);
  void ScrollToTop() { ScrollTo({0, 0}); }
  /// Larger, smaller or (0) normal text.
  void ZoomText(int steps);

  void ShowLabels(const ResultLabels& labels);
  void ClearLabels();
  void ShowFoundSoFar(uint64_t phrases);
  void ShowFileKind(const std::string& text);
  /// Whether a sample is offered, as long as the text box is empty.
  void OfferSample(bool offered);
  /// Puts the options of the list above all else. Called once.
  void AddOptions(QWidget* options);
  void ShowOptions(bool shown);
  /// Puts a control before the buttons below the text box.
  void AddBelow(QWidget* control);

  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  /// Suggests a wider window where lines are wider than the box.
  void SuggestWidth();
  std::vector<QWidget*> TabOrder(QWidget* below) const;
  QSize minimumSizeHint() const override;

 private:
  void BuildLabels(QBoxLayout& layout);
  void BuildBox(QBoxLayout& layout);
  void BuildFoot(QBoxLayout& layout);
  void ShowSample();
  /// The labels take no room while they say nothing.
  void ShowSummary();
  std::array<QLabel*, 4> Labels() const;

  const Desktop& desktop_;
  QBoxLayout* stack_ = nullptr;
  QBoxLayout* foot_ = nullptr;
  QWidget* options_ = nullptr;
  QWidget* summary_ = nullptr;  ///< Holds the labels.
  OutputTextBox box_;
  OutputBox output_;
  bool enabled_ = true;
  bool offersSample_ = false;
};

}  // namespace korv
