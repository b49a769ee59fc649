#pragma once

#include <QWidget>
#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "engine/source_path.h"
#include "sources/folders/file_selection.h"

class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace korv {

class ElidingLabel;

/// The source page of a folder, with which of its files are read; or of several files and folders.
class FolderPage final : public QWidget {
 public:
  FolderPage(const Desktop& desktop, QWidget* parent);
  ~FolderPage() override;

  QPushButton* cmdFolder = nullptr;
  QLineEdit* txbFolder = nullptr;
  ElidingLabel* lblTogether = nullptr;  ///< Several sources, in the place of the folder's path.
  QPushButton* cmdClearFolder = nullptr;
  std::array<QLineEdit*, 2> txbFileFilepathSpecifications{};  ///< 0 patterns of names, 1 exclusions.
  QCheckBox* chkIncludeSubfolders = nullptr;
  QPushButton* cmdListFiles = nullptr;

  std::function<void(const QString& path)> Chosen = [](const QString&) {};  ///< In the system's dialog.
  /// The files of the folder are to be listed.
  std::function<void(const std::filesystem::path& folder, const FileSelection& files)> ListFilesOf =
      [](const auto&, const auto&) {};
  /// The files of the several sources are to be listed.
  std::function<void(const FileSelection& files)> ListTogether = [](const auto&) {};
  /// Whether the user wants other documents read too, which are then files of the folder.
  std::function<bool()> ReadsOtherDocuments = [] { return false; };
  /// The folder is the source again.
  std::function<void()> TogetherEnded = [] {};

  void cmdFolder_Click();
  void cmdClearFolder_Click();
  void txbFolder_LostFocus();
  /// Writes the patterns as they are read, and shows a fault in that box.
  void txbFileFilepathSpecifications_LostFocus(int index);
  void cmdListFiles_Click();

  FileSelection Selection() const;
  /// Several sources stand in the place of the folder; none: the folder itself.
  void ShowTogether(const std::vector<SourcePath>& paths);
  const std::vector<SourcePath>& Together() const { return together_; }
  /// Whether a report at `path` would lie where the folder is read, or be one of several files; says so.
  bool RefusesOutput(const std::string& path) const;
  /// What concerns folders only is out of sight while the source is none.
  void ShowFileChoices(bool shown);
  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  void SetPathToolTips();

 private:
  void BuildFolderRow(QGridLayout& layout);
  void BuildPatterns(QGridLayout& layout);
  void BuildFoot(QGridLayout& layout);
  void Connect();
  std::array<QWidget*, 4> FileChoices() const;

  const Desktop& desktop_;
  std::vector<SourcePath> together_;
  bool enabled_ = true;
};

}  // namespace korv
