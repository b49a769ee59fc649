#pragma once

class QWidget;

namespace korv {

class ComparePanel;
class OutputFilePanel;
class PhrasesPanel;
class ReportPanel;
class ResultFrame;
class ResultPanel;
class RunPanel;
class SourcePanel;
class SourceSurveyor;
class StatusLine;
class WordsToIgnorePanel;

/// The parts that the main window is assembled from. The window owns them.
struct MainPanels {
  QWidget* Column = nullptr;  ///< At the left: what to count, and the count button.
  SourcePanel* Source = nullptr;
  ComparePanel* Compare = nullptr;
  SourceSurveyor* Surveyor = nullptr;  ///< In the panel of the source.
  PhrasesPanel* Phrases = nullptr;
  WordsToIgnorePanel* WordsToIgnore = nullptr;
  ReportPanel* Report = nullptr;
  OutputFilePanel* OutputFile = nullptr;
  RunPanel* Run = nullptr;
  ResultFrame* Frame = nullptr;
  ResultPanel* Result = nullptr;  ///< In the frame.
  StatusLine* Status = nullptr;
};

}  // namespace korv
