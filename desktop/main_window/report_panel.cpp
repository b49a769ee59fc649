#include "desktop/main_window/report_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/flow_layout.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "report/report_rules.h"

namespace korv {
namespace {

constexpr int kFileListFormat = 10;

}  // namespace

ReportPanel::ReportPanel(const Desktop& desktop, Workspace& work, QWidget* parent)
    : QWidget(parent), desktop_(desktop), work_(work) {
  setObjectName(QStringLiteral("fraReport"));
  Build();
  Connect();
}

ReportPanel::~ReportPanel() {
  StopListening(*this);
}

void ReportPanel::Build() {
  auto* layout = new FlowLayout(this);
  cboWordOrder = MakeCombo("cboWordOrder", Tr("Order of the phrases"), this);
  cboDisplayFormat = MakeCombo("cboDisplayFormat", Tr("Display format"), this);
  chkDisplayRelativeFrequency = MakeCheckBox(
      "chkDisplayRelativeFrequency", Tr("Display relative frequency instead of absolute frequency"), this);
  chkDisplayRelativeFrequency->setToolTip(
      Tr("'Relative frequency' is explained in 'Report Formats' in the online user manual."));
  chkFileList = MakeCheckBox("chkFileList", Tr("Set display format to #10"), this);
  chkSuppressWords = MakeCheckBox("chkSuppressWords", Tr("Don't display words as found"), this);
  chkSuppressWords->setToolTip(Tr("Check this box for faster processing."));
  chkSortByNumberOfFiles =
      MakeCheckBox("chkSortByNumberOfFiles", Tr("Sort by number of files instead of frequency"), this);
  layout->AddGroup(WithCaption(Tr("Or&der:"), cboWordOrder));
  layout->AddGroup(WithCaption(Tr("For&mat:"), cboDisplayFormat));
  layout->addWidget(chkDisplayRelativeFrequency);
  layout->addWidget(chkSuppressWords);
  // Last: what comes and goes with the source moves nothing beside it.
  layout->addWidget(chkFileList);
}

QLayout* ReportPanel::WithCaption(const char* caption, QComboBox* list) {
  // Its items do not change, and each is read in full.
  list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* group = Bare(new QHBoxLayout);
  group->addWidget(MakeCaption(caption, list, this));
  group->addWidget(list);
  return group;
}

void ReportPanel::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(chkDisplayRelativeFrequency, "chkDisplayRelativeFrequency_Click",
                 [this] { chkDisplayRelativeFrequency_Click(); });
  wiring.OnClick(chkSortByNumberOfFiles, "chkSortByNumberOfFiles_Click",
                 [this] { chkSortByNumberOfFiles_Click(); });
  wiring.OnClick(chkFileList, "chkFileList_Click", [this] { chkFileList_Click(); });
}

void ReportPanel::FillLists(const ProgramText& texts) {
  for (int format = 0; format < kDisplayFormats; ++format) {
    cboDisplayFormat->addItem(ToQt(texts.Get(DisplayFormatTextNumber(format))));
  }
  for (int order = 0; order < 2; ++order) {
    cboWordOrder->addItem(ToQt(texts.Get(WordOrderTextNumber(order))));
  }
}

void ReportPanel::EnableDisableReportOptions(TextSource source, bool tells) {
  source_ = source;
  ReportOptions options = work_.Current().Report;
  const QString format = cboDisplayFormat->currentText();
  const bool available = ApplyReportRules(options, source);
  work_.Change(ChangedBy::Program, [&options](Settings& settings) { settings.Report = options; });
  const ReportRules rules = RulesOfOptions(options, source);
  chkDisplayRelativeFrequency->setEnabled(rules.RelativeFrequencyEnabled);
  chkSortByNumberOfFiles->setEnabled(rules.SortByNumberOfFilesEnabled);
  chkFileList->setVisible(source == TextSource::Folder);
  chkFileList->setChecked(options.DisplayFormat == kFileListFormat);
  if (!available && tells) desktop_.Messages.Show(UnavailableFormatMessage(FromQt(format)));
}

void ReportPanel::cboDisplayFormat_Click() {
  EnableDisableReportOptions(source_, true);
  Changed();
}

void ReportPanel::cboWordOrder_Click() {
  EnableDisableReportOptions(source_, true);
  Changed();
}

void ReportPanel::chkDisplayRelativeFrequency_Click() {
  EnableDisableReportOptions(source_, true);
  Changed();
}

void ReportPanel::chkSortByNumberOfFiles_Click() {
  Changed();
}

void ReportPanel::chkFileList_Click() {
  cboDisplayFormat->setCurrentIndex(chkFileList->isChecked() ? kFileListFormat : 0);
}

std::vector<QWidget*> ReportPanel::TabOrder() const {
  return {cboWordOrder, cboDisplayFormat, chkDisplayRelativeFrequency, chkFileList};
}

}  // namespace korv
