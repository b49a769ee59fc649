#include "desktop/main_window/compare_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "base/translation.h"
#include "desktop/main_window/path_box.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/flow_layout.h"
#include "desktop/widgets/icons.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/detect/source_checks.h"

namespace korv {
namespace {

constexpr QChar kBetweenPaths = u'\n';
constexpr int kPathInMenu = 40;  // average letters

QToolButton* MakeTool(const char* name, const char* caption, const char* tip, QWidget* parent) {
  auto* button = Named(new QToolButton(parent), name);
  if (caption != nullptr) button->setText(Tr(caption));
  button->setToolTip(Tr(tip));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

QString InMenu(const QString& path, const QFontMetrics& font) {
  return font.elidedText(path, Qt::ElideMiddle, kPathInMenu * font.averageCharWidth())
      .replace(u'&', QLatin1String("&&"));
}

}  // namespace

ComparePanel::ComparePanel(const Desktop& desktop, Workspace& work, SourcePanel& source, QWidget* parent)
    : QGroupBox(Tr("Compare with"), parent),
      desktop_(desktop),
      work_(work),
      source_(source),
      pairs_(desktop.Store, "recent/pairs") {
  setObjectName(QStringLiteral("fraCompare"));
  Build();
  Connect();
  EnableWhatApplies();
}

ComparePanel::~ComparePanel() {
  StopListening(*this);
}

void ComparePanel::Build() {
  auto* layout = Tight(new QVBoxLayout(this));
  auto* path = new QHBoxLayout;
  txbCompared = MakeTextBox("txbCompared", Tr("Path of the file or folder to compare with"), this);
  cmdCloseCompare = MakeTool("cmdCloseCompare", nullptr, TrLater("Compare with nothing"), this);
  Described(cmdCloseCompare, Tr("Compare with nothing"))->setIcon(NamedIcon("window-close"));
  cmdCloseCompare->setToolButtonStyle(Qt::ToolButtonIconOnly);
  cmdCloseCompare->setAutoRaise(true);
  path->addWidget(txbCompared, 1);
  path->addWidget(cmdCloseCompare);
  layout->addLayout(path);

  auto* buttons = new FlowLayout(nullptr);
  cmdComparedFile = MakeTool("cmdComparedFile", TrLater("File..."), TrLater("Compare with a file"), this);
  cmdComparedFile->setIcon(NamedIcon("document-open"));
  cmdComparedFolder =
      MakeTool("cmdComparedFolder", TrLater("Folder..."), TrLater("Compare with a folder"), this);
  cmdComparedFolder->setIcon(NamedIcon("folder-open"));
  cmdSwapSides = MakeTool("cmdSwapSides", TrLater("Swap"),
                          TrLater("Make this the source, and compare it with what is the source now"), this);
  cmdRecentPairs =
      MakeTool("cmdRecentPairs", TrLater("Recent"), TrLater("Sources that were compared before"), this);
  cmdRecentPairs->setPopupMode(QToolButton::InstantPopup);
  cmdRecentPairs->setMenu(Named(new QMenu(cmdRecentPairs), "mnuRecentPairs"));
  cmdRecentPairs->menu()->setToolTipsVisible(true);
  for (QToolButton* button : {cmdComparedFile, cmdComparedFolder, cmdSwapSides, cmdRecentPairs})
    buttons->addWidget(button);
  layout->addLayout(buttons);

  cboCompareBy = MakeCombo("cboCompareBy", Tr("What phrases are compared by"), this);
  cboCompareBy->setToolTip(cboCompareBy->accessibleName());
  cboCompareBy->addItems({Tr("by words"), Tr("by files"), Tr("by occurrences in no longer phrase")});
  layout->addWidget(cboCompareBy);
  chkDrafts = MakeCheckBox("chkDrafts", Tr("A is a new version of B"), this);
  chkDrafts->setToolTip(Tr("A is the source above. Shows what is new in it, gone, more and less than in B."));
  layout->addWidget(chkDrafts);
}

void ComparePanel::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnText(txbCompared, "txbCompared_Change", [this] {
    Change([this](ComparedWith& compared) { compared.Path = FromQt(txbCompared->text()); });
  });
  wiring.OnLeaving(txbCompared, "txbCompared_LostFocus", [this] { TrimBox(*txbCompared); });
  wiring.OnClick(cmdCloseCompare, "cmdCloseCompare_Click", [this] { cmdCloseCompare_Click(); });
  wiring.OnClick(cmdComparedFile, "cmdComparedFile_Click", [this] { cmdComparedFile_Click(); });
  wiring.OnClick(cmdComparedFolder, "cmdComparedFolder_Click", [this] { cmdComparedFolder_Click(); });
  wiring.OnClick(cmdSwapSides, "cmdSwapSides_Click", [this] { cmdSwapSides_Click(); });
  wiring.OnChoice(cboCompareBy, "cboCompareBy_Click", [this] {
    Change([this](ComparedWith& compared) {
      compared.How.Basis = static_cast<ComparisonBasis>(cboCompareBy->currentIndex());
    });
  });
  wiring.OnToggle(chkDrafts, "chkDrafts_Click", [this] {
    Change([this](ComparedWith& compared) { compared.How.Drafts = chkDrafts->isChecked(); });
  });
  QMenu* const menu = cmdRecentPairs->menu();
  connect(menu, &QMenu::aboutToShow, this,
          Guarded(desktop_.Messages, "cmdRecentPairs_Click", [this, menu] { FillPairs(menu); }));
}

void ComparePanel::Change(const std::function<void(ComparedWith&)>& edit) {
  if (following_) return;
  ComparedWith compared = work_.Compared().value_or(ComparedWith{});
  edit(compared);
  work_.CompareWith(ChangedBy::User, std::move(compared));
}

void ComparePanel::Open() {
  Change([](ComparedWith&) {});
  txbCompared->setFocus(Qt::ShortcutFocusReason);
  txbCompared->selectAll();
}

void ComparePanel::Take(const QString& path) {
  Change([&path](ComparedWith& compared) { compared.Path = FromQt(path); });
}

void ComparePanel::TakeDropped(const QStringList& paths) {
  if (paths.size() == 1) return Take(paths.front());
  desktop_.Messages.Show({.Text = Tr("Please drop one file or folder to compare with."),
                          .Title = Tr("Several files"),
                          .Icon = Icon::Information});
}

void ComparePanel::Follow() {
  const std::optional<ComparedWith>& compared = work_.Compared();
  const bool focused = isAncestorOf(window()->focusWidget());
  if (!compared && focused) source_.StartChoosing();
  setVisible(compared.has_value());
  const ComparedWith shown = compared.value_or(ComparedWith{});
  following_ = true;
  if (FromQt(txbCompared->text()) != shown.Path) SetPath(*txbCompared, ToQt(shown.Path));
  cboCompareBy->setCurrentIndex(static_cast<int>(shown.How.Basis));
  chkDrafts->setChecked(shown.How.Drafts);
  following_ = false;
  ShowPathAsToolTip(*txbCompared, Tr("The file or folder to compare with. It can also be dropped here."));
  EnableWhatApplies();
}

void ComparePanel::cmdCloseCompare_Click() {
  work_.CompareWith(ChangedBy::User, std::nullopt);
}

void ComparePanel::cmdComparedFile_Click() {
  const auto path = desktop_.Dialogs.ChooseFileToOpen({.Title = Tr("Specify a file to compare with"),
                                                       .Filter = AnyTextFile(),
                                                       .InitialPath = FromQt(txbCompared->text())});
  if (path) Take(ToQt(*path));
}

void ComparePanel::cmdComparedFolder_Click() {
  const auto path =
      desktop_.Dialogs.ChooseFolder(Tr("Specify a folder to compare with"), FromQt(txbCompared->text()));
  if (path) Take(ToQt(*path));
}

QString ComparePanel::PathOfA() const {
  const Settings& settings = work_.Current();
  switch (settings.SourceKind) {
    case TextSource::Clipboard:
      return {};
    case TextSource::SingleFile:
      return ToQt(TrimmedPath(settings.InputFile));
    case TextSource::Folder:
      break;
  }
  return work_.Together().empty() ? ToQt(TrimmedFolderPath(settings.Folder)) : QString();
}

void ComparePanel::cmdSwapSides_Click() {
  const QString a = PathOfA();
  const QString b = txbCompared->text().trimmed();
  Take(a);
  source_.Take(b);
}

void ComparePanel::Remember(const RunRequest& counted) {
  if (counted.Paths.size() != 1 || counted.Compared.size() != 1) return;
  const SourcePath& a = counted.Paths.front();
  const SourcePath& b = counted.Compared.front();
  for (const SourcePath& side : {a, b})
    if (side.What == SourcePath::Kind::StandardInput) return;
  pairs_.Add(ToQt(a.Path) + kBetweenPaths + ToQt(b.Path));
}

void ComparePanel::FillPairs(QMenu* menu) {
  menu->clear();
  const QStringList pairs = pairs_.Paths();
  for (const QString& pair : pairs) {
    const QString a = pair.section(kBetweenPaths, 0, 0);
    const QString b = pair.section(kBetweenPaths, 1);
    QAction* const action = menu->addAction(InMenu(a, menu->fontMetrics()) + QStringLiteral(" - ") +
                                            InMenu(b, menu->fontMetrics()));
    action->setToolTip(PlainTip(pair));
    connect(action, &QAction::triggered, this,
            Guarded(desktop_.Messages, "mnuRecentPairs_Click", [this, a, b] {
              source_.Take(a);
              Take(b);
            }));
  }
  if (!pairs.isEmpty()) menu->addSeparator();
  QAction* const forget = menu->addAction(Tr("&Forget these"));
  forget->setEnabled(!pairs.isEmpty());
  connect(forget, &QAction::triggered, this, [this] { pairs_.Clear(); });
}

void ComparePanel::EnableDisableButtons(bool enabled) {
  enabled_ = enabled;
  for (QWidget* control : TabOrder()) control->setEnabled(enabled);
  EnableWhatApplies();
}

void ComparePanel::EnableWhatApplies() {
  // The clipboard and several sources are no path that side B could have.
  cmdSwapSides->setEnabled(enabled_ && !txbCompared->text().trimmed().isEmpty() && !PathOfA().isEmpty());
}

std::vector<QWidget*> ComparePanel::TabOrder() const {
  return {txbCompared,  cmdCloseCompare, cmdComparedFile, cmdComparedFolder,
          cmdSwapSides, cmdRecentPairs,  cboCompareBy,    chkDrafts};
}

}  // namespace korv
