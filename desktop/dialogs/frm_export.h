#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "report/writers/table_forms.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace korv {

/// What the user wants to be exported.
struct ExportChoice {
  const TableForm* Form = nullptr;
  std::string Path;
  bool Everything = false;  ///< Not what the table shows, but all there is.
  bool Described = false;   ///< With a file that says what it is.
};

/// How much that would be.
struct ExportExtent {
  uint64_t Rows = 0;      ///< That the table shows.
  uint64_t Phrases = 0;   ///< All of them.
  size_t Columns = 0;     ///< That the table shows.
  size_t AllColumns = 0;  ///< That it can show.
  bool Whole = true;      ///< False while the table is still being made.
};

/// Asks what of a run to write as a table, in which form and where. The name of the file and the form follow
/// each other: a form brings its extension, and an extension its form.
class frmExport final : public QDialog {
 public:
  frmExport(const Desktop& desktop, QWidget* parent);
  ~frmExport() override;

  QLineEdit* txbExportFile = nullptr;
  QPushButton* cmdExportFile = nullptr;
  QComboBox* cboExportForm = nullptr;
  QRadioButton* optExportShown = nullptr;
  QRadioButton* optExportAll = nullptr;
  QCheckBox* chkExportDescribed = nullptr;
  QLabel* lblExportRows = nullptr;
  QPushButton* cmdExport = nullptr;
  QPushButton* cmdExportCancel = nullptr;

  /// How much there is; looked at now and then while the window is open.
  std::function<ExportExtent()> Extent;
  /// The user has chosen. The window stays open where the answer is false.
  std::function<bool(const ExportChoice&)> Chosen;

  /// Opens for a run named `name`. The folder and the form are those that were chosen last.
  void Offer(const std::string& name);

  void cmdExportFile_Click();
  void cboExportForm_Click();
  void txbExportFile_Change();
  void cmdExport_Click();
  void tmrExport_Timer();

 private:
  void MakeControls();
  void LayOut();
  void Connect();
  const TableForm& Form() const;

  const Desktop& desktop_;
  std::vector<const TableForm*> forms_;  ///< In the order of the list.
  QTimer* tmrExport_;
};

}  // namespace korv
