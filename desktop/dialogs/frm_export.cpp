#include "desktop/dialogs/frm_export.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/wiring.h"

namespace korv {
namespace {

constexpr int kTick = 100;  // milliseconds
constexpr int kPathWidth = 420;

/// Those that this program can write.
std::vector<const TableForm*> OfferedForms() {
  std::vector<const TableForm*> forms = {&TableFormOf("csv"), &SpreadsheetCsv()};
  for (const TableForm& form : TableForms())
    if (form.Make != nullptr && form.Name != "csv") forms.push_back(&form);
  return forms;
}

/// Where the first export is offered to go.
std::filesystem::path FirstFolder(const FileSystem& files) {
  for (const auto place : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
    const std::filesystem::path folder = PathFromText(FromQt(QStandardPaths::writableLocation(place)));
    if (files.FolderExists(folder)) return folder;
  }
  return {};
}

/// The path with the extension of `form` in place of that of another form.
std::string WithExtension(const std::string& path, const TableForm& form) {
  std::filesystem::path named = PathFromText(path);
  if (!named.has_filename()) return path;
  if (TableFormOfFile(named) != nullptr) named.replace_extension();
  return PathToText(named) + "." + std::string(form.Extension);
}

/// `columns` in words, after what there is of rows.
QString ExtentText(const ExportExtent& extent, bool all, const NumberFormat& numbers) {
  const auto grouped = [&](uint64_t number) { return numbers.Grouped(static_cast<int64_t>(number)); };
  const uint64_t columns = all ? extent.AllColumns : extent.Columns;
  const std::string rows =
      all || extent.Rows == extent.Phrases
          ? Fill(TrCount("%1 phrase", "%1 phrases", extent.Phrases), {grouped(extent.Phrases)})
          : Fill(TrCount("%1 of %2 phrase", "%1 of %2 phrases", extent.Phrases),
                 {grouped(extent.Rows), grouped(extent.Phrases)});
  return ToQt(rows + ", " + Fill(TrCount("%1 column", "%1 columns", columns), {grouped(columns)}));
}

}  // namespace

frmExport::frmExport(const Desktop& desktop, QWidget* parent)
    : QDialog(parent), desktop_(desktop), forms_(OfferedForms()), tmrExport_(new QTimer(this)) {
  setObjectName(QStringLiteral("frmExport"));
  setWindowTitle(Tr("Export"));
  tmrExport_->setInterval(kTick);
  MakeControls();
  LayOut();
  Connect();
}

frmExport::~frmExport() {
  StopListening(*this);
}

void frmExport::MakeControls() {
  txbExportFile = MakeTextBox("txbExportFile", Tr("File to export to"), this);
  txbExportFile->setMinimumWidth(kPathWidth);
  cmdExportFile = MakeButton("cmdExportFile", Tr("&Browse..."), this);
  cboExportForm = MakeCombo("cboExportForm", Tr("Form of the export"), this);
  for (const TableForm* form : forms_)
    cboExportForm->addItem(ToQt(TitleText(*form)) + QStringLiteral(" (*.") + ToQt(form->Extension) + u')');
  optExportShown = MakeOption("optExportShown", Tr("&Rows and columns as the table shows them"), this);
  optExportAll = MakeOption("optExportAll", Tr("&Everything: all phrases, all columns"), this);
  optExportShown->setChecked(true);
  chkExportDescribed = MakeCheckBox("chkExportDescribed", Tr("With a &description beside it"), this);
  chkExportDescribed->setToolTip(
      Tr("A file named datapackage.json says what the columns mean, how the table came about, "
         "and what it is of."));
  chkExportDescribed->setChecked(true);
  lblExportRows = MakeLabel("lblExportRows", this);
  cmdExport = MakeButton("cmdExport", Tr("E&xport"), this);
  cmdExport->setDefault(true);
  cmdExportCancel = MakeButton("cmdExportCancel", Tr("&Cancel"), this);
  for (QPushButton* button : {cmdExportFile, cmdExportCancel}) button->setAutoDefault(false);
}

void frmExport::LayOut() {
  auto* grid = new QGridLayout;
  grid->addWidget(MakeCaption(Tr("&File"), txbExportFile, this), 0, 0);
  grid->addWidget(txbExportFile, 0, 1);
  grid->addWidget(cmdExportFile, 0, 2);
  grid->addWidget(MakeCaption(Tr("F&orm"), cboExportForm, this), 1, 0);
  grid->addWidget(cboExportForm, 1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(lblExportRows, 1);
  buttons->addWidget(cmdExport);
  buttons->addWidget(cmdExportCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addSpacing(8);
  layout->addWidget(optExportShown);
  layout->addWidget(optExportAll);
  layout->addSpacing(8);
  layout->addWidget(chkExportDescribed);
  layout->addSpacing(8);
  layout->addLayout(buttons);
}

void frmExport::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(cmdExportFile, "cmdExportFile_Click", [this] { cmdExportFile_Click(); });
  wiring.OnClick(cmdExport, "cmdExport_Click", [this] { cmdExport_Click(); });
  wiring.OnText(txbExportFile, "txbExportFile_Change", [this] { txbExportFile_Change(); });
  wiring.OnToggle(optExportShown, "optExportShown_Click", [this] { tmrExport_Timer(); });
  connect(cboExportForm, &QComboBox::activated, this,
          Guarded(desktop_.Messages, "cboExportForm_Click", [this] { cboExportForm_Click(); }));
  connect(cmdExportCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(this, &QDialog::finished, tmrExport_, &QTimer::stop);
  connect(tmrExport_, &QTimer::timeout, this,
          Guarded(desktop_.Messages, "tmrExport_Timer", [this] { tmrExport_Timer(); }));
}

void frmExport::Offer(const std::string& name) {
  const std::filesystem::path last = PathFromText(FromQt(txbExportFile->text()));
  const std::filesystem::path folder =
      last.has_parent_path() ? last.parent_path() : FirstFolder(desktop_.Files);
  const std::string path =
      PathToText((folder / PathFromText(name)).make_preferred()) + "." + std::string(Form().Extension);
  txbExportFile->setText(ToQt(path));
  tmrExport_Timer();
  tmrExport_->start();
  open();
  txbExportFile->setFocus();
}

void frmExport::cmdExportFile_Click() {
  const TableForm& form = Form();
  const std::string pattern = "*." + std::string(form.Extension);
  const auto path = desktop_.Dialogs.ChooseFileToSave(
      {.Title = Tr("Export"),
       .Filter = std::string(TitleText(form)) + " (" + pattern + ") | " + pattern,
       .InitialPath = FromQt(txbExportFile->text()),
       .Extension = std::string(form.Extension)});
  if (path) txbExportFile->setText(ToQt(*path));
}

void frmExport::cboExportForm_Click() {
  const std::string path = FromQt(txbExportFile->text().trimmed());
  if (!path.empty()) txbExportFile->setText(ToQt(WithExtension(path, Form())));
}

void frmExport::txbExportFile_Change() {
  const TableForm* const form = TableFormOfFile(PathFromText(FromQt(txbExportFile->text().trimmed())));
  // Both forms of comma-separated values have the extension.
  if (form != nullptr && form->Extension != Form().Extension)
    if (const auto found = std::ranges::find(forms_, form); found != forms_.end())
      cboExportForm->setCurrentIndex(static_cast<int>(found - forms_.begin()));
  tmrExport_Timer();
}

void frmExport::cmdExport_Click() {
  const ExportChoice choice{.Form = &Form(),
                            .Path = FromQt(txbExportFile->text().trimmed()),
                            .Everything = optExportAll->isChecked(),
                            .Described = chkExportDescribed->isChecked()};
  if (Chosen(choice)) accept();
}

void frmExport::tmrExport_Timer() {
  const ExportExtent extent = Extent();
  const bool all = optExportAll->isChecked();
  const bool there = all || extent.Whole;
  lblExportRows->setText(there ? ExtentText(extent, all, desktop_.Numbers)
                               : Tr("The table is being filtered . . ."));
  cmdExport->setEnabled(there && !txbExportFile->text().trimmed().isEmpty());
}

const TableForm& frmExport::Form() const {
  return *forms_[static_cast<size_t>(cboExportForm->currentIndex())];
}

}  // namespace korv
