#include "desktop/main_window/source_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <array>

#include "app/run/result_notes.h"
#include "base/translation.h"
#include "desktop/main_window/clipboard_page.h"
#include "desktop/main_window/file_page.h"
#include "desktop/main_window/folder_page.h"
#include "desktop/main_window/path_box.h"
#include "desktop/main_window/recent_list.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/detect/source_checks.h"

namespace korv {

SourcePanel::SourcePanel(const Desktop& desktop, QWidget* parent)
    : QGroupBox(Tr("Select source of text to be scanned:"), parent),
      RecentFiles(desktop.Store, "recent/files"),
      RecentFolders(desktop.Store, "recent/folders"),
      desktop_(desktop) {
  setObjectName(QStringLiteral("fraSource"));
  auto* layout = Tight(new QVBoxLayout(this));
  layout->setSpacing(3);
  optOnClipboard = MakeOption("optOnClipboard", Tr("Clipboard"), this);
  optInFile = MakeOption("optInFile", Tr("Single file"), this);
  optFolder = MakeOption("optFolder", Tr("Folder"), this);
  auto* kinds = new QHBoxLayout;
  for (QRadioButton* option : {optOnClipboard, optInFile, optFolder}) kinds->addWidget(option);
  kinds->addStretch(1);
  layout->addLayout(kinds);
  BuildPages();
  layout->addWidget(stkSource);
  lblFound = Named(new ElidingLabel(this), "lblFound");
  layout->addWidget(lblFound);
  BuildReading(*layout);
  lstRecent = Described(Named(new RecentList(this), "lstRecent"), Tr("Recent files and folders"));
  layout->addWidget(lstRecent, 1);
  FitToPages();
  lblFound->hide();
  TabToTheSelected({optOnClipboard, optInFile, optFolder});
  Connect();
  ConnectRecent();
}

SourcePanel::~SourcePanel() {
  StopListening(*this);
}

void SourcePanel::BuildPages() {
  stkSource = Named(new QStackedWidget(this), "stkSource");
  Clipboard = new ClipboardPage(desktop_, stkSource);
  File = new FilePage(desktop_, stkSource);
  Folder = new FolderPage(desktop_, stkSource);
  for (QWidget* page : std::initializer_list<QWidget*>{Clipboard, File, Folder}) {
    stkSource->addWidget(page);
  }
}

void SourcePanel::BuildReading(QVBoxLayout& layout) {
  cboReading = MakeCombo("cboReading", Tr("How texts are read"), this);
  // In the order of Reading.
  cboReading->addItem(Tr("by the letter"));
  cboReading->addItem(Tr("as a reader sees it"));
  cboReading->setToolTip(Tr(
      "By the letter every byte counts as it stands in the file.\n"
      "As a reader sees it: what a page shows, in the encoding that it declares, with notes and text boxes;\n"
      "phrases end with sentences, and no word is dropped for its length."));
  auto* row = new QHBoxLayout;
  row->addWidget(MakeCaption(Tr("Read:"), cboReading, this));
  row->addWidget(cboReading, 1);
  layout.addLayout(row);
  lblReading = Named(new ElidingLabel(this), "lblReading");
  layout.addWidget(lblReading);
  lblReading->hide();
}

void SourcePanel::FitToPages() {
  // A page that is not shown claims no height.
  const auto fit = [this](int current) {
    for (int i = 0; i < stkSource->count(); ++i) {
      stkSource->widget(i)->setSizePolicy(QSizePolicy::Preferred,
                                          i == current ? QSizePolicy::Fixed : QSizePolicy::Ignored);
    }
    stkSource->updateGeometry();
  };
  stkSource->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  // The group is as high as its highest page needs, whichever is shown.
  int height = 0;
  for (int i = 0; i < stkSource->count(); ++i) {
    fit(i);
    layout()->invalidate();
    height = std::max(height, minimumSizeHint().height());
  }
  setMinimumHeight(height);
  fit(stkSource->currentIndex());
  QObject::connect(stkSource, &QStackedWidget::currentChanged, stkSource, fit);
}

void SourcePanel::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(optOnClipboard, "optOnClipboard_Click", [this] { optOnClipboard_Click(); });
  wiring.OnClick(optInFile, "optInFile_Click", [this] { optInFile_Click(); });
  wiring.OnClick(optFolder, "optFolder_Click", [this] { optFolder_Click(); });
  File->Chosen = [this](const QString& path) { Take(path); };
  Folder->Chosen = [this](const QString& path) { Take(path); };
}

void SourcePanel::ConnectRecent() {
  const auto show = [this] { lstRecent->Show(RecentFiles.Paths(), RecentFolders.Paths()); };
  RecentFiles.Changed = show;
  RecentFolders.Changed = show;
  show();
  const auto choose = [this](const QListWidgetItem* item) {
    const QString path = RecentList::PathOf(*item);
    QMetaObject::invokeMethod(
        this, [this, path] { Guarded(desktop_.Messages, "lstRecent_Click", [&] { RecentChosen(path); })(); },
        Qt::QueuedConnection);
  };
  connect(lstRecent, &QListWidget::itemClicked, this, choose);
  connect(lstRecent, &QListWidget::itemActivated, this, choose);
}

void SourcePanel::optOnClipboard_Click() {
  SourceHasChanged(ChangedBy::User);
}

void SourcePanel::optInFile_Click() {
  SourceHasChanged(ChangedBy::User);
}

void SourcePanel::optFolder_Click() {
  SourceHasChanged(ChangedBy::User);
}

void SourcePanel::SourceHasChanged(ChangedBy by) {
  stkSource->setCurrentIndex(static_cast<int>(Kind()));
  File->SetSelected(Kind() == TextSource::SingleFile);
  File->ShowSizes({}, {});
  ShowFileChoices();
  KindChanged(by);
  if (Kind() == TextSource::SingleFile) File->ShowFileSizes();
}

TextSource SourcePanel::Kind() const {
  if (optOnClipboard->isChecked()) return TextSource::Clipboard;
  if (optFolder->isChecked()) return TextSource::Folder;
  return TextSource::SingleFile;
}

void SourcePanel::Select(TextSource kind, ChangedBy by) {
  const std::array<QRadioButton*, 3> options = {optOnClipboard, optInFile, optFolder};
  options[static_cast<size_t>(kind)]->setChecked(true);
  SourceHasChanged(by);
}

void SourcePanel::StartChoosing() {
  if (Kind() == TextSource::Clipboard) return optOnClipboard->setFocus(Qt::ShortcutFocusReason);
  if (CountsTogether()) return Folder->cmdFolder->setFocus(Qt::ShortcutFocusReason);
  QLineEdit* const path = Kind() == TextSource::Folder ? Folder->txbFolder : File->txbFile;
  path->setFocus(Qt::ShortcutFocusReason);
  path->selectAll();
}

void SourcePanel::Take(const QString& path) {
  Folder->TogetherEnded();
  const bool folder = desktop_.Files.FolderExists(PathFromText(FromQt(path)));
  SetPath(folder ? *Folder->txbFolder : *File->txbFile, path);
  (folder ? RecentFolders : RecentFiles).Add(path);
  Select(folder ? TextSource::Folder : TextSource::SingleFile, ChangedBy::User);
  EnableClearButtons();
  SetPathToolTips();
}

void SourcePanel::Remember(TextSource kind, const std::string& path) {
  if (kind == TextSource::Clipboard) return;
  (kind == TextSource::Folder ? RecentFolders : RecentFiles).Add(ToQt(path));
}

bool SourcePanel::CountsTogether() const {
  return Kind() == TextSource::Folder && !Folder->Together().empty();
}

std::string SourcePanel::Name() const {
  if (CountsTogether()) return TogetherName(Folder->Together());
  const QLineEdit* const box = Kind() == TextSource::Folder ? Folder->txbFolder : File->txbFile;
  return SourceName(Kind(), FromQt(box->text()));
}

void SourcePanel::ShowReading(const std::string& text) {
  lblReading->setText(ToQt(text));
  // The choice above says it already.
  lblReading->setVisible(text != Tr("Read by the letter"));
}

void SourcePanel::ShowFound(const std::string& text) {
  lblFound->setText(ToQt(text));
  lblFound->setVisible(!text.empty());
}

bool SourcePanel::RefusesOutput(const std::string& path) const {
  return Kind() == TextSource::Folder && Folder->RefusesOutput(path);
}

void SourcePanel::EnableDisableButtons(bool enabled) {
  for (QWidget* control : std::initializer_list<QWidget*>{optOnClipboard, optInFile, optFolder, cboReading,
                                                          lstRecent, Clipboard->cmdClipboardViewer}) {
    control->setEnabled(enabled);
  }
  File->EnableDisableButtons(enabled);
  Folder->EnableDisableButtons(enabled);
}

void SourcePanel::EnableClearButtons() {
  File->EnableClearButtons();
  Folder->EnableClearButtons();
}

void SourcePanel::SetPathToolTips() {
  File->SetPathToolTips();
  Folder->SetPathToolTips();
}

void SourcePanel::ShowFileChoices() {
  Folder->ShowFileChoices(Kind() == TextSource::Folder);
}

std::vector<QWidget*> SourcePanel::TabOrder() const {
  return {optOnClipboard,
          optInFile,
          optFolder,
          Clipboard->cmdClipboardViewer,
          File->cmdFile,
          File->txbFile,
          File->cmdClearFile,
          Folder->cmdFolder,
          Folder->txbFolder,
          Folder->cmdClearFolder,
          Folder->txbFileFilepathSpecifications[0],
          Folder->txbFileFilepathSpecifications[1],
          Folder->chkIncludeSubfolders,
          Folder->cmdListFiles,
          cboReading,
          lstRecent};
}

}  // namespace korv
