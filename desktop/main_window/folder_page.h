#pragma once

#include <QWidget>
#include <array>
#include <filesystem>
#include <functional>
#include <string>

#include "desktop/desktop.h"
#include "sources/folders/file_selection.h"

class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace korv {

/// The source page of a folder, with which of its files are read.
class FolderPage final : public QWidget {
 public:
  FolderPage(const Desktop& desktop, QWidget* parent);
  ~FolderPage() override;

  QPushButton* cmdFolder = nullptr;
  QLineEdit* txbFolder = nullptr;
  QPushButton* cmdClearFolder = nullptr;
  std::array<QLineEdit*, 2> txbFileFilepathSpecifications{};  ///< 0 patterns of names, 1 exclusions.
  QCheckBox* chkIncludeSubfolders = nullptr;
  QPushButton* cmdListFiles = nullptr;

  std::function<void(const QString& path)> Chosen = [](const QString&) {};  ///< In the system's dialog.
  /// The files of the folder are to be listed.
  std::function<void(const std::filesystem::path& folder, const FileSelection& files)> ListFilesOf =
      [](const auto&, const auto&) {};

  void cmdFolder_Click();
  void cmdClearFolder_Click();
  void txbFolder_LostFocus();
  /// Writes the patterns as they are read, and shows a fault in that box.
  void txbFileFilepathSpecifications_LostFocus(int index);
  void cmdListFiles_Click();

  FileSelection Selection() const;
  /// Whether a file at `path` would lie where the folder is read.
  bool Contains(const std::string& path) const;
  /// These files alone are to be read, and those of subfolders are not.
  void SelectFiles(const std::string& patterns);
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
  bool enabled_ = true;
};

}  // namespace korv
