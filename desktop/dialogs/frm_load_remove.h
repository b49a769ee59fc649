#pragma once

#include <QDialog>

class QPushButton;
class QRadioButton;

namespace korv {

class ElidingLabel;

/// Asks what to do with a word-list file that was chosen from the list.
class frmLoadRemove final : public QDialog {
 public:
  enum class Choice { Load, Remove, Cancel };

  explicit frmLoadRemove(const QString& path, QWidget* parent = nullptr);

  ElidingLabel* lblFile = nullptr;
  QRadioButton* optLoad = nullptr;
  QRadioButton* optRemove = nullptr;
  QRadioButton* optCancel = nullptr;
  QPushButton* cmdClose = nullptr;

  /// What was chosen when the window was closed with its button; Cancel when it was closed otherwise.
  Choice Chosen() const;
};

}  // namespace korv
