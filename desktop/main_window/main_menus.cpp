#include "desktop/main_window/main_menus.h"

#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QToolButton>
#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "base/translation.h"
#include "desktop/main_window/clipboard_page.h"
#include "desktop/main_window/file_page.h"
#include "desktop/main_window/folder_page.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/result_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"
#include "desktop/widgets/icons.h"

namespace korv {
namespace {

struct CommandIcon {
  const char* Caption;
  const char* Icon;
};
constexpr CommandIcon kIcons[] = {{"&Open file...", "document-open"},
                                  {"Open fol&der...", "folder-open"},
                                  {"Use the &clipboard", "edit-paste"},
                                  {"Save list &as...", "document-save-as"},
                                  {"Count &phrases", "media-playback-start"},
                                  {"S&top", "process-stop"},
                                  {"&Close run", "window-close"},
                                  {"&Save settings", "document-save"},
                                  {"&Quit", "application-exit"},
                                  {"&Undo", "edit-undo"},
                                  {"&Copy", "edit-copy"},
                                  {"&Paste", "edit-paste"},
                                  {"&Filter words", "edit-find"},
                                  {"Clear te&xtbox", "edit-clear"},
                                  {"Larger &text", "zoom-in"},
                                  {"S&maller text", "zoom-out"},
                                  {"&Settings", "preferences-system"},
                                  {"&Help", "help-contents"},
                                  {"&About Korv", "help-about"}};

QIcon IconOf(std::string_view caption) {
  const auto* const icon = std::find_if(std::begin(kIcons), std::end(kIcons),
                                        [&](const CommandIcon& one) { return one.Caption == caption; });
  return icon == std::end(kIcons) ? QIcon() : NamedIcon(icon->Icon);
}

/// Acts on the box that has the focus, if one has. The boxes have the keys of these commands themselves.
template <typename Act>
std::function<void()> OnFocus(Act act) {
  return [act] {
    QWidget* focus = QApplication::focusWidget();
    if (auto* line = qobject_cast<QLineEdit*>(focus)) act(line);
    if (auto* text = qobject_cast<QPlainTextEdit*>(focus)) act(text);
  };
}

}  // namespace

MainMenus::MainMenus(QMenuBar& bar, const Desktop& desktop, const MainPanels& panels, Commands commands)
    : desktop_(desktop), panels_(panels), commands_(std::move(commands)) {
  BuildFile(bar);
  BuildEdit(bar);
  BuildView(bar);
  BuildHelp(bar);
}

void MainMenus::EnableDisableButtons(bool enabled) {
  for (QAction* action : idleActions_) action->setEnabled(enabled);
  for (QAction* action : {export_, keep_}) action->setEnabled(enabled && commands_.HasRun());
}

void MainMenus::EnableStop(bool enabled) {
  stop_->setEnabled(enabled);
}

QAction* MainMenus::Add(QMenu* menu, const char* caption, const QKeySequence& key,
                        std::function<void()> handler, During during) {
  QAction* action = menu->addAction(Tr(caption));
  action->setShortcut(key);
  action->setIcon(IconOf(caption));
  connect(action, &QAction::triggered, this, Guarded(desktop_.Messages, caption, std::move(handler)));
  if (during == During::Idle) idleActions_.append(action);
  return action;
}

void MainMenus::BuildFile(QMenuBar& bar) {
  QMenu* menu = bar.addMenu(Tr("&File"));
  SourcePanel* const source = panels_.Source;
  Add(menu, TrLater("&Open file..."), QKeySequence::Open, [source] { source->File->cmdFile_Click(); });
  Add(menu, TrLater("Open fol&der..."), Qt::CTRL | Qt::SHIFT | Qt::Key_O,
      [source] { source->Folder->cmdFolder_Click(); });
  Add(menu, TrLater("Use the &clipboard"), Qt::CTRL | Qt::SHIFT | Qt::Key_V,
      [source] { source->Select(TextSource::Clipboard, ChangedBy::User); });
  QMenu* recent = menu->addMenu(Tr("&Recent"));
  recent->setIcon(NamedIcon("document-open-recent"));
  recent->setObjectName(QStringLiteral("mnuRecent"));
  connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecent(recent); });
  idleActions_.append(recent->menuAction());
  Add(menu, TrLater("Go to the sou&rce"), Qt::CTRL | Qt::Key_L, commands_.GoToSource, During::Always);
  Add(menu, TrLater("Co&mpare with..."), {}, commands_.CompareWith);
  QMenu* const compare = Named(menu->addMenu(Tr("Compare this r&un with")), "mnuCompareRun");
  connect(menu, &QMenu::aboutToShow, this, [this, compare] {
    FillWithRuns(*compare, commands_.ComparableRuns(), commands_.CompareRun);
    if (stop_->isEnabled()) compare->setEnabled(false);
  });
  Add(menu, TrLater("Save list &as..."), Qt::CTRL | Qt::SHIFT | Qt::Key_S, commands_.SaveListAs);
  export_ = Add(menu, TrLater("&Export..."), Qt::CTRL | Qt::Key_E, commands_.Export);
  keep_ = Add(menu, TrLater("&Keep run..."), Qt::CTRL | Qt::Key_K, commands_.KeepRun);
  Add(menu, TrLater("Open kept ru&n..."), Qt::CTRL | Qt::SHIFT | Qt::Key_K, commands_.OpenKeptRun);
  menu->addSeparator();
  Add(menu, TrLater("Count &phrases"), Qt::CTRL | Qt::Key_Return, commands_.CountPhrases)
      ->setShortcuts({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter, Qt::Key_F5});
  Add(menu, TrLater("Count single &words"), {}, commands_.CountSingleWords);
  stop_ = Add(menu, TrLater("S&top"), Qt::Key_Escape, commands_.Stop, During::Always);
  stop_->setEnabled(false);
  Add(menu, TrLater("Take settings of the run &back"), {}, commands_.TakeSettingsBack);
  Add(menu, TrLater("&Close run"), QKeySequence::Close, commands_.CloseRun, During::Always);
  menu->addSeparator();
  Add(menu, TrLater("&Save settings"), QKeySequence::Save, commands_.SaveState);
  Add(menu, TrLater("&Load settings from file..."), {}, commands_.LoadSettings);
  Add(menu, TrLater("Save settings to f&ile..."), {}, commands_.SaveSettings);
  menu->addSeparator();
  Add(menu, TrLater("&Quit"), QKeySequence::Quit, commands_.Quit, During::Always);
}

void MainMenus::BuildEdit(QMenuBar& bar) {
  QMenu* menu = bar.addMenu(Tr("&Edit"));
  QAction* const undo = Add(menu, TrLater("&Undo"), {}, commands_.Undo);
  connect(menu, &QMenu::aboutToShow, this, [this, undo] {
    const std::string name = commands_.Undoable();
    undo->setText(name.empty() ? Tr("&Undo")
                               : QString(Tr("&Undo: %1")).arg(ToQt(name).replace(u'&', QLatin1String("&&"))));
    undo->setEnabled(!name.empty() && stop_ != nullptr && !stop_->isEnabled());
  });
  menu->addSeparator();
  Add(menu, TrLater("&Copy"), {}, OnFocus([](auto* box) { box->copy(); }), During::Always);
  Add(menu, TrLater("&Paste"), {}, OnFocus([](auto* box) { box->paste(); }), During::Always);
  Add(menu, TrLater("Select &all"), {}, OnFocus([](auto* box) { box->selectAll(); }), During::Always);
  menu->addSeparator();
  ResultPanel* const result = panels_.Result;
  ResultFrame* const frame = panels_.Frame;
  Add(
      menu, TrLater("&Filter words"), QKeySequence::Find, [frame] { frame->StartFiltering(); },
      During::Always);
  Add(menu, TrLater("Filter &results"), Qt::CTRL | Qt::SHIFT | Qt::Key_F,
      [result] { result->Filter->cmdFilterResults_Click(); });
  Add(menu, TrLater("Clear te&xtbox"), Qt::CTRL | Qt::SHIFT | Qt::Key_Delete,
      [result] { result->cmdClearOutput_Click(); });
}

void MainMenus::BuildView(QMenuBar& bar) {
  QMenu* menu = bar.addMenu(Tr("&View"));
  AddViews(menu);
  MirrorList(menu->addMenu(Tr("&Format")), panels_.Report->cboDisplayFormat);
  MirrorList(menu->addMenu(Tr("&Order")), panels_.Report->cboWordOrder);
  menu->addSeparator();
  ResultPanel* const result = panels_.Result;
  Add(
      menu, TrLater("Larger &text"), QKeySequence::ZoomIn, [result] { result->ZoomText(1); }, During::Always);
  Add(
      menu, TrLater("S&maller text"), QKeySequence::ZoomOut, [result] { result->ZoomText(-1); },
      During::Always);
  Add(
      menu, TrLater("&Normal text size"), Qt::CTRL | Qt::Key_0, [result] { result->ZoomText(0); },
      During::Always);
  menu->addSeparator();
  Add(menu, TrLater("View clip&board"), {},
      [this] { panels_.Source->Clipboard->cmdClipboardViewer_Click(); });
  Add(menu, TrLater("&Settings"), Qt::CTRL | Qt::Key_Comma, commands_.Settings);
}

void MainMenus::AddViews(QMenu* menu) {
  ResultFrame* const frame = panels_.Frame;
  const auto view = [&](const char* caption, const QKeySequence& key, RunView wanted) {
    Add(
        menu, caption, key, [frame, wanted] { frame->ShowView(wanted); }, During::Always);
  };
  view(TrLater("&Table"), Qt::ALT | Qt::Key_1, RunView::Table);
  view(TrLater("&Report"), Qt::ALT | Qt::Key_2, RunView::Report);
  view(TrLater("&Pictures"), Qt::ALT | Qt::Key_3, RunView::Pictures);
  for (const char* name : {"mnuContextNext", "mnuContextPrevious"}) {
    // The pane's own commands: their keys hold in the whole window.
    auto* const action = frame->Contexts->findChild<QAction*>(QLatin1String(name));
    action->setShortcutContext(Qt::WindowShortcut);
    menu->addAction(action);
  }
  Add(
      menu, TrLater("Report o&ptions"), {}, [frame] { frame->cmdReportOptions->toggle(); }, During::Always);
  Add(menu, TrLater("&Left column"), Qt::CTRL | Qt::Key_B, commands_.FoldColumn, During::Always);
  menu->addSeparator();
}

void MainMenus::BuildHelp(QMenuBar& bar) {
  QMenu* menu = bar.addMenu(Tr("&Help"));
  Add(menu, TrLater("&Help"), QKeySequence::HelpContents, commands_.Help);
  Add(menu, TrLater("&About Korv"), {}, [this] { ShowAbout(); });
}

void MainMenus::MirrorList(QMenu* menu, QComboBox* list) {
  auto* group = new QActionGroup(menu);
  for (int i = 0; i < list->count(); ++i) {
    QString caption = list->itemText(i);
    QAction* action = menu->addAction(caption.replace(u'&', QLatin1String("&&")));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, list, [list, i] { list->setCurrentIndex(i); });
  }
  connect(menu, &QMenu::aboutToShow, this, [group, list] {
    const qsizetype current = list->currentIndex();
    if (current >= 0 && current < group->actions().size()) group->actions().at(current)->setChecked(true);
  });
}

void MainMenus::FillRecent(QMenu* menu) {
  menu->clear();
  SourcePanel* const source = panels_.Source;
  const QStringList files = source->RecentFiles.Paths();
  const QStringList folders = source->RecentFolders.Paths();
  for (const QStringList& paths : {files, folders}) {
    for (const QString& path : paths) {
      QAction* action = menu->addAction(QString(path).replace(u'&', QLatin1String("&&")));
      connect(action, &QAction::triggered, this,
              Guarded(desktop_.Messages, "mnuRecent_Click", [source, path] { source->Take(path); }));
    }
    if (!paths.isEmpty()) menu->addSeparator();
  }
  QAction* forget = menu->addAction(Tr("&Forget these"));
  forget->setEnabled(!files.isEmpty() || !folders.isEmpty());
  connect(forget, &QAction::triggered, this, [source] {
    source->RecentFiles.Clear();
    source->RecentFolders.Clear();
  });
}

void MainMenus::ShowAbout() {
  desktop_.Messages.Show({.Text = "Korv " + FromQt(QApplication::applicationVersion()) + "\n\n" +
                                  Tr("Counts the phrases of natural-language text."),
                          .Title = Tr("About Korv"),
                          .Icon = Icon::Information});
}

}  // namespace korv
