#pragma once

#include <QGroupBox>
#include <functional>
#include <string>
#include <vector>

#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/recent_sources.h"
#include "engine/run_options.h"

class QComboBox;
class QRadioButton;
class QStackedWidget;
class QVBoxLayout;

namespace korv {

class ClipboardPage;
class ElidingLabel;
class FilePage;
class FolderPage;
class RecentList;

/// What is to be counted: the kind of source, a page for each kind, and the sources of before.
class SourcePanel final : public QGroupBox {
 public:
  SourcePanel(const Desktop& desktop, QWidget* parent);
  ~SourcePanel() override;

  QRadioButton* optOnClipboard = nullptr;
  QRadioButton* optInFile = nullptr;
  QRadioButton* optFolder = nullptr;
  QStackedWidget* stkSource = nullptr;  ///< One page per kind, each as high as it needs.
  ClipboardPage* Clipboard = nullptr;
  FilePage* File = nullptr;
  FolderPage* Folder = nullptr;
  QComboBox* cboReading = nullptr;     ///< By the letter, or as a reader sees a text.
  ElidingLabel* lblReading = nullptr;  ///< Which reading is in force.
  ElidingLabel* lblFound = nullptr;    ///< What a look at the source has found.
  RecentList* lstRecent = nullptr;     ///< Has what room the page leaves over: nothing below it jumps.

  RecentSources RecentFiles;
  RecentSources RecentFolders;

  /// Another kind has been selected, or the same one again.
  std::function<void(ChangedBy by)> KindChanged = [](ChangedBy) {};
  /// A recent source was clicked. Called once the list is done with the click: choosing an entry fills it
  /// anew.
  std::function<void(const QString& path)> RecentChosen = [](const QString&) {};

  void optOnClipboard_Click();
  void optInFile_Click();
  void optFolder_Click();

  TextSource Kind() const;
  /// The focus goes to the path of the source, all of it selected, or to the kind of a source without path.
  void StartChoosing();
  /// Selects a kind, and does what follows from a choice.
  void Select(TextSource kind, ChangedBy by);
  /// Makes a file or a folder the source.
  void Take(const QString& path);
  /// Counted sources are the most recent ones.
  void Remember(TextSource kind, const std::string& path);
  /// What the source is called: the name of the file or folder, "3 files", "Clipboard". Empty for none.
  std::string Name() const;
  /// Says which reading is in force.
  void ShowReading(const std::string& text);
  /// Says what was found; hidden where that is nothing.
  void ShowFound(const std::string& text);
  /// Whether a report at `path` would be read by a folder run, or replace what it reads; says so.
  bool RefusesOutput(const std::string& path) const;

  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  void SetPathToolTips();
  void ShowFileChoices();
  std::vector<QWidget*> TabOrder() const;

 private:
  void BuildPages();
  void BuildReading(QVBoxLayout& layout);
  void FitToPages();
  void Connect();
  void ConnectRecent();
  void SourceHasChanged(ChangedBy by);
  bool CountsTogether() const;

  const Desktop& desktop_;
};

}  // namespace korv
