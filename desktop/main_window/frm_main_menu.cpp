// The main window's wiring: which signal calls which handler, and the menus that repeat the commands.

#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTimer>

#include "desktop/main_window/frm_main.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"
#include "report/report_rules.h"

namespace korv {

void frmMain::Connect() {
  const auto onClick = [this](QAbstractButton* button, const char* place, auto handler) {
    connect(button, &QAbstractButton::clicked, this, Guarded(place, handler));
  };
  const auto onChoice = [this](QComboBox* combo, const char* place, auto handler) {
    connect(combo, &QComboBox::currentIndexChanged, this, Guarded(place, handler));
  };
  const auto onLeaving = [this](QLineEdit* box, const char* place, auto handler) {
    connect(box, &QLineEdit::editingFinished, this, Guarded(place, handler));
  };

  onClick(optOnClipboard, "optOnClipboard_Click", [this] { optOnClipboard_Click(); });
  onClick(optInFile, "optInFile_Click", [this] { optInFile_Click(); });
  onClick(optFolder, "optFolder_Click", [this] { optFolder_Click(); });
  for (int i = 0; i < 2; ++i) {
    const auto index = static_cast<size_t>(i);
    onClick(cmdFile[index], "cmdFile_Click", [this, i] { cmdFile_Click(i); });
    onClick(cmdClearFile[index], "cmdClearFile_Click", [this, i] { cmdClearFile_Click(i); });
    onLeaving(txbFile[index], "txbFile_LostFocus", [this, i] { txbFile_LostFocus(i); });
    onLeaving(txbFileFilepathSpecifications[index], "txbFileFilepathSpecifications_LostFocus",
              [this, i] { txbFileFilepathSpecifications_LostFocus(i); });
  }
  onClick(cmdFolder, "cmdFolder_Click", [this] { cmdFolder_Click(); });
  onClick(cmdClearFolder, "cmdClearFolder_Click", [this] { cmdClearFolder_Click(); });
  onLeaving(txbFolder, "txbFolder_LostFocus", [this] { txbFolder_LostFocus(); });
  onClick(cmdListFiles, "cmdListFiles_Click", [this] { cmdListFiles_Click(); });
  onClick(cmdClipboardViewer, "cmdClipboardViewer_Click", [this] { cmdClipboardViewer_Click(); });

  onChoice(cboDisplayFormat, "cboDisplayFormat_Click", [this] { cboDisplayFormat_Click(); });
  onChoice(cboWordOrder, "cboWordOrder_Click", [this] { cboWordOrder_Click(); });
  onClick(chkDisplayRelativeFrequency, "chkDisplayRelativeFrequency_Click",
          [this] { chkDisplayRelativeFrequency_Click(); });
  onClick(chkSortByNumberOfFiles, "chkSortByNumberOfFiles_Click", [this] { chkSortByNumberOfFiles_Click(); });
  onClick(chkFileList, "chkFileList_Click", [this] { chkFileList_Click(); });
  onClick(chkDisableOutputToFile, "chkDisableOutputToFile_Click", [this] { chkDisableOutputToFile_Click(); });

  for (QRadioButton* option :
       {optIncludeAllWords, optIncludeAllWordsInSameOrder, optIncludeAllWordsAsSubphrase}) {
    onClick(option, "optFilterMode_Click", [this] { optFilterMode_Click(); });
  }
  onClick(cmdFilterResults, "cmdFilterResults_Click", [this] { cmdFilterResults_Click(); });
  onClick(cmdClear, "cmdClear_Click", [this] { cmdClear_Click(); });
  onClick(cmdClearOutput, "cmdClearOutput_Click", [this] { cmdClearOutput_Click(); });
  txbFilterWords->installEventFilter(this);

  onClick(cmdCountPhrases, "cmdCountPhrases_Click", [this] { cmdCountPhrases_Click(); });
  onClick(cmdSetParameters, "cmdSetParameters_Click", [this] { cmdSetParameters_Click(); });
  onClick(cmdSaveState, "cmdSaveState_Click", [this] { cmdSaveState_Click(); });
  onClick(cmdHelp, "cmdHelp_Click", [this] { cmdHelp_Click(); });
  onClick(cmdQuit, "cmdQuit_Click", [this] { cmdQuit_Click(); });
  connect(Timer1, &QTimer::timeout, this, Guarded("Timer1_Timer", [this] { Timer1_Timer(); }));
  connect(Timer2, &QTimer::timeout, this, Guarded("Timer2_Timer", [this] { Timer2_Timer(); }));

  connect(tmrProgress_, &QTimer::timeout, this,
          Guarded("tmrProgress_Timer", [this] { tmrProgress_Timer(); }));
  for (QRadioButton* option : {optAllowPhrasesAllWordsToIgnore, optExcludePhrasesAllWordsToIgnore,
                               optExcludePhrasesWithWordToIgnore, optRemoveWordsToIgnore}) {
    onClick(option, "optWordsToIgnore_Click", [this] { SetWordsToIgnoreNotice(); });
  }
  ConnectResult();

  connect(txbFilterWords, &QLineEdit::textChanged, this,
          [this](const QString& text) { cmdClear->setEnabled(!text.isEmpty()); });

  // The tick would do this within a second; a button that follows at once feels alive.
  for (QLineEdit* box : {txbFile[0], txbFile[1], txbFolder}) {
    connect(box, &QLineEdit::textChanged, this, [this] { EnableClearButtons(); });
  }
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txbFilterWords) {
    if (event->type() == QEvent::FocusOut) {
      Guarded("txbFilterWords_LostFocus", [this] { txbFilterWords_LostFocus(); })();
    } else if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key != Qt::Key_Tab && key != Qt::Key_Backtab && key != Qt::Key_Escape) {
        Guarded("txbFilterWords_KeyPress", [this, key] { txbFilterWords_KeyPress(key); })();
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmMain::BuildMenus() {
  const auto add = [this](QMenu* menu, const char* caption, const QKeySequence& key, auto handler,
                          bool duringRun = false) {
    QAction* action = menu->addAction(QString::fromUtf8(caption));
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, Guarded(caption, handler));
    if (!duringRun) idleActions_.append(action);
    return action;
  };

  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  add(file, "&Open file...", QKeySequence::Open, [this] { cmdFile_Click(0); });
  add(file, "Open fol&der...", Qt::CTRL | Qt::SHIFT | Qt::Key_O, [this] { cmdFolder_Click(); });
  add(file, "Use the &clipboard", Qt::CTRL | Qt::SHIFT | Qt::Key_V,
      [this] { SelectSource(TextSource::Clipboard); });
  QMenu* recent = file->addMenu(QStringLiteral("&Recent"));
  recent->setObjectName(QStringLiteral("mnuRecent"));
  connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecentMenu(recent); });
  idleActions_.append(recent->menuAction());
  add(file, "Output &file...", Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { cmdFile_Click(1); });
  file->addSeparator();
  add(file, "Count &phrases", Qt::CTRL | Qt::Key_Return, [this] {
    cmdCountPhrases_Click();
  })->setShortcuts({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter, Qt::Key_F5});
  stopAction_ = add(
      file, "S&top", Qt::Key_Escape,
      [this] {
        if (running_) cmdCountPhrases_Click();
      },
      true);
  stopAction_->setEnabled(false);
  file->addSeparator();
  add(file, "&Save settings", QKeySequence::Save, [this] { cmdSaveState_Click(); });
  add(file, "&Load settings from file...", {}, [this] { params_->cmdSaveLoadState_Click(0, this); });
  add(file, "Save settings to f&ile...", {}, [this] { params_->cmdSaveLoadState_Click(1, this); });
  file->addSeparator();
  add(
      file, "&Quit", QKeySequence::Quit, [this] { cmdQuit_Click(); }, true);

  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
  // The boxes have these keys themselves; the menu acts on the one that has the focus.
  const auto onFocus = [](auto act) {
    return [act] {
      QWidget* focus = QApplication::focusWidget();
      if (auto* line = qobject_cast<QLineEdit*>(focus)) act(line);
      if (auto* text = qobject_cast<QPlainTextEdit*>(focus)) act(text);
    };
  };
  add(edit, "&Copy", {}, onFocus([](auto* box) { box->copy(); }), true);
  add(edit, "&Paste", {}, onFocus([](auto* box) { box->paste(); }), true);
  add(edit, "Select &all", {}, onFocus([](auto* box) { box->selectAll(); }), true);
  edit->addSeparator();
  add(
      edit, "&Filter words", QKeySequence::Find,
      [this] {
        txbFilterWords->setFocus(Qt::ShortcutFocusReason);
        txbFilterWords->selectAll();
      },
      true);
  add(edit, "Filter &results", Qt::CTRL | Qt::SHIFT | Qt::Key_F, [this] { cmdFilterResults_Click(); });
  add(edit, "Clear te&xtbox", Qt::CTRL | Qt::SHIFT | Qt::Key_Delete, [this] { cmdClearOutput_Click(); });

  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  QMenu* formats = view->addMenu(QStringLiteral("&Format"));
  QMenu* orders = view->addMenu(QStringLiteral("&Order"));
  const std::array<std::pair<QMenu*, QComboBox*>, 2> lists = {
      {{formats, cboDisplayFormat}, {orders, cboWordOrder}}};
  for (const auto& [menu, combo] : lists) {
    auto* group = new QActionGroup(menu);
    for (int i = 0; i < combo->count(); ++i) {
      QString caption = combo->itemText(i);
      QAction* action = menu->addAction(caption.replace(u'&', QLatin1String("&&")));
      action->setCheckable(true);
      group->addAction(action);
      connect(action, &QAction::triggered, combo, [combo = combo, i] { combo->setCurrentIndex(i); });
    }
    connect(menu, &QMenu::aboutToShow, this, [group, combo = combo] {
      const qsizetype current = combo->currentIndex();
      if (current >= 0 && current < group->actions().size()) group->actions().at(current)->setChecked(true);
    });
  }
  view->addSeparator();
  add(
      view, "Larger &text", QKeySequence::ZoomIn, [this] { txbOutput->zoomIn(); }, true);
  add(
      view, "S&maller text", QKeySequence::ZoomOut, [this] { txbOutput->zoomOut(); }, true);
  add(
      view, "&Normal text size", Qt::CTRL | Qt::Key_0, [this] { txbOutput->setFont(WordsFont()); }, true);
  view->addSeparator();
  add(view, "View clip&board", {}, [this] { cmdClipboardViewer_Click(); });
  add(view, "&Settings", Qt::CTRL | Qt::Key_Comma, [this] { cmdSetParameters_Click(); });

  QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
  add(help, "&Help", QKeySequence::HelpContents, [this] { cmdHelp_Click(); });
  add(help, "&About Korv", {}, [this] {
    desktop_.Messages.Show({.Text = "Korv " + FromQt(QApplication::applicationVersion()) +
                                    "\r\n\r\nCounts the phrases of natural-language text.",
                            .Title = "About Korv",
                            .Icon = Icon::Information});
  });
}

void frmMain::FillRecentMenu(QMenu* menu) {
  menu->clear();
  const auto addPaths = [this, menu](const QStringList& paths) {
    for (const QString& path : paths) {
      QAction* action = menu->addAction(QString(path).replace(u'&', QLatin1String("&&")));
      connect(action, &QAction::triggered, this,
              Guarded("mnuRecent_Click", [this, path] { TakeSource(path); }));
    }
    if (!paths.isEmpty()) menu->addSeparator();
  };
  addPaths(recentFiles_.Paths());
  addPaths(recentFolders_.Paths());
  QAction* forget = menu->addAction(QStringLiteral("&Forget these"));
  forget->setEnabled(!menu->isEmpty() &&
                     (!recentFiles_.Paths().isEmpty() || !recentFolders_.Paths().isEmpty()));
  connect(forget, &QAction::triggered, this, [this] {
    recentFiles_.Clear();
    recentFolders_.Clear();
  });
}

void frmMain::FillLists() {
  for (QComboBox* combo : cboPhraseLength) {
    for (int words = kLeastWords; words <= kMostWords; ++words) combo->addItem(QString::number(words));
  }
  for (int least = 1; least <= kMostMinFrequency; ++least) {
    cboMinimumFrequency->addItem(QString::number(least));
  }
  cboPhraseLength[0]->setCurrentIndex(2);
  cboPhraseLength[1]->setCurrentIndex(4);
  cboMinimumFrequency->setCurrentIndex(1);
  for (int format = 0; format < kDisplayFormats; ++format) {
    cboDisplayFormat->addItem(ToQt(texts_->Get(DisplayFormatTextNumber(format))));
  }
  for (int order = 0; order < 2; ++order) {
    cboWordOrder->addItem(ToQt(texts_->Get(WordOrderTextNumber(order))));
  }
  cboDisplayFormat->setCurrentIndex(0);
  cboWordOrder->setCurrentIndex(0);
}

}  // namespace korv
