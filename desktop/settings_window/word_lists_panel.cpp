#include "desktop/settings_window/word_lists_panel.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedLayout>
#include <algorithm>
#include <initializer_list>

#include "base/translation.h"
#include "desktop/dialogs/frm_load_remove.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/wiring.h"
#include "wordlists/common_words.h"
#include "wordlists/typed_words.h"

namespace korv {

WordListsPanel::WordListsPanel(SettingsHost& host, QWidget* parent)
    : QGroupBox(Tr("Words to ignore and to count"), parent), host_(host), work_(host.Work()) {
  setObjectName(QStringLiteral("fraIgnoreTheseWords"));
  Build();
}

WordListsPanel::~WordListsPanel() {
  StopListening(*this);
}

void WordListsPanel::Start() {
  for (const CommonWordsLanguage& language : kCommonWordsLanguages) {
    cboCommonWordsLanguages->addItem(QString::fromUtf8(ItemText(language)));
  }
  optListKind_Click();
  Connect();
}

void WordListsPanel::Connect() {
  Messages& messages = host_.Outside().Messages;
  const Wiring wiring(*this, messages);
  wiring.OnClick(cmdSelectWordsFile, "cmdSelectWordsFile_Click", [this] { cmdSelectWordsFile_Click(); });
  wiring.OnClick(cmdClearWordsFile, "cmdClearWordsFile_Click", [this] { cmdClearWordsFile_Click(); });
  wiring.OnClick(cmdClearWordsToIgnoreOrCount, "cmdClearWordsToIgnoreOrCount_Click",
                 [this] { cmdClearWordsToIgnoreOrCount_Click(); });
  wiring.OnClick(optWordsToIgnore, "optListKind_Click", [this] { optListKind_Click(); });
  wiring.OnClick(optCountOnlyWordsAndPhrases, "optListKind_Click", [this] { optListKind_Click(); });
  // Choosing the entry that is selected already counts, too: that is how a changed file is loaded again.
  connect(cboWordsFile, &QComboBox::activated, this,
          Guarded(messages, "cboWordsFile_Click", [this] { cboWordsFile_Click(); }));
  connect(cboCommonWordsLanguages, &QComboBox::activated, this,
          Guarded(messages, "cboCommonWordsLanguages_Click", [this] { cboCommonWordsLanguages_Click(); }));
  for (QPlainTextEdit* box : txbWordsToIgnoreOrCount) box->installEventFilter(this);
  QPlainTextEdit* const countOnly = txbWordsToIgnoreOrCount[static_cast<size_t>(ListKind::CountOnly)];
  connect(countOnly, &QPlainTextEdit::textChanged, this, [this, countOnly] {
    work_.TypeCountOnly(FromQt(countOnly->toPlainText()));
    EnableClearButtons();
    ShowWordsState();
  });
}

bool WordListsPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut &&
      (watched == txbWordsToIgnoreOrCount[0] || watched == txbWordsToIgnoreOrCount[1])) {
    Guarded(host_.Outside().Messages, "txbWordsToIgnoreOrCount_LostFocus", [this, watched] {
      CheckAllowedExtraChars(watched == txbWordsToIgnoreOrCount[0] ? ListKind::WordsToIgnore
                                                                   : ListKind::CountOnly);
      host_.SetWordsToIgnoreNotice();
    })();
  }
  return QGroupBox::eventFilter(watched, event);
}

ListKind WordListsPanel::ShownKind() const {
  return optCountOnlyWordsAndPhrases->isChecked() ? ListKind::CountOnly : ListKind::WordsToIgnore;
}

void WordListsPanel::optListKind_Click() {
  const bool countOnly = ShownKind() == ListKind::CountOnly;
  wordsBoxes_->setCurrentIndex(countOnly ? 1 : 0);
  lblWordsToIgnoreOrCount->setBuddy(txbWordsToIgnoreOrCount[countOnly ? 1 : 0]);
  lblWordsToIgnoreOrCount->setText(countOnly ? Tr("E&xtra count-only words\nand phrases:")
                                             : Tr("E&xtra words to ignore:"));
  cboWordsFile->setPlaceholderText(ToQt(FilesListHint(ShownKind())));
  cboWordsFile->setAccessibleName(countOnly ? Tr("count-only words files") : Tr("words-to-ignore files"));
  cmdSelectWordsFile->setToolTip(countOnly
                                     ? Tr("Add a file to the list of count-only words files and load it")
                                     : Tr("Add a file to the list of words-to-ignore files and load it"));
  cmdClearWordsFile->setToolTip(countOnly ? Tr("Clear the list of count-only words files")
                                          : Tr("Clear the list of words-to-ignore files"));
  cmdClearWordsToIgnoreOrCount->setToolTip(countOnly ? Tr("Clear the extra count-only words and phrases")
                                                     : Tr("Clear the extra words to ignore"));
  // Common words are words to ignore.
  for (QWidget* control : std::initializer_list<QWidget*>{lblCommonWordsLanguages, cboCommonWordsLanguages}) {
    control->setVisible(!countOnly);
  }
  ShowWordFiles();
}

void WordListsPanel::ShowList(ListKind kind) {
  QRadioButton* const option = kind == ListKind::CountOnly ? optCountOnlyWordsAndPhrases : optWordsToIgnore;
  if (!option->isChecked()) option->click();
}

// ---- The list of files

void WordListsPanel::cmdSelectWordsFile_Click() {
  const ListKind kind = ShownKind();
  const WordFileList& files = work_.FilesOf(kind);
  Messages& messages = host_.Outside().Messages;
  if (!files.MayGrow(messages)) return;
  const auto path = host_.Outside().Dialogs.ChooseFileToOpen({.Title = std::string(SelectFileTitle(kind)),
                                                              .Filter = AnyTextFile(),
                                                              .InitialPath = files.SelectedPath()});
  if (!path) return;
  bool added = false;
  work_.ChangeFiles(ChangedBy::User, kind,
                    [&](WordFileList& changed) { added = changed.Add(*path, messages); });
  ShowWordFiles();
  if (added) AttemptToReadWords(kind);
}

void WordListsPanel::cboWordsFile_Click() {
  const ListKind kind = ShownKind();
  const int index = cboWordsFile->currentIndex();
  work_.ChangeFiles(ChangedBy::User, kind, [&](WordFileList& files) { files.Select(index); });
  ShowWordFiles();
  frmLoadRemove dialog(cboWordsFile->currentText(), this);
  dialog.exec();
  switch (dialog.Chosen()) {
    case frmLoadRemove::Choice::Load:
      AttemptToReadWords(kind);
      break;
    case frmLoadRemove::Choice::Remove: {
      const std::string removed = work_.FilesOf(kind).SelectedPath();
      work_.ChangeFiles(ChangedBy::User, kind, [](WordFileList& files) { files.RemoveSelected(); });
      const WordList* const loaded = work_.LoadedOf(kind);
      if (loaded != nullptr && PathToText(loaded->Path) == removed) ForgetLoadedWords(kind);
      break;
    }
    case frmLoadRemove::Choice::Cancel:
      break;
  }
  ShowWordFiles();
}

void WordListsPanel::cmdClearWordsFile_Click() {
  const ListKind kind = ShownKind();
  bool cleared = false;
  work_.ChangeFiles(ChangedBy::User, kind,
                    [&](WordFileList& files) { cleared = files.AskToClear(host_.Outside().Messages); });
  if (!cleared) return;
  ForgetLoadedWords(kind);
  ShowWordFiles();
}

void WordListsPanel::ClearWordFiles() {
  work_.ChangeFiles(ChangedBy::Program, ListKind::WordsToIgnore, [](WordFileList& files) { files.Clear(); });
  ForgetLoadedWords(ListKind::WordsToIgnore);
}

void WordListsPanel::ForgetLoadedWords(ListKind kind) {
  work_.Forget(kind);
  // The label describes files that are gone.
  std::string& told = loadedLabels_[static_cast<size_t>(kind)];
  Untold(ToQt(told));
  told.clear();
  ShowWordFiles();
  host_.SetWordsToIgnoreNotice();
}

void WordListsPanel::ShowAnew() {
  QPlainTextEdit* const countOnly = txbWordsToIgnoreOrCount[static_cast<size_t>(ListKind::CountOnly)];
  const QString entries = ToQt(work_.TypedOf(ListKind::CountOnly));
  if (countOnly->toPlainText() != entries) countOnly->setPlainText(entries);
  for (std::string& told : loadedLabels_) {
    // It may be of a file that is loaded no longer.
    Untold(ToQt(told));
    told.clear();
  }
  ShowWordFiles();
}

void WordListsPanel::ShowWordFiles() {
  const WordFileList& files = work_.FilesOf(ShownKind());
  const QSignalBlocker quiet(cboWordsFile);
  cboWordsFile->clear();
  for (const std::string& path : files.Paths()) cboWordsFile->addItem(ToQt(path));
  cboWordsFile->setCurrentIndex(files.Selected());
  ShowWordsState();
  ShowWordFilesState();
  EnableClearButtons();
}

void WordListsPanel::ShowWordFilesState() {
  const WordFileList& files = work_.FilesOf(ShownKind());
  QString caption = ToQt(FilesButtonCaption(ShownKind(), files.Paths().size()));
  // The letter of "words"; in another language the first one.
  caption.insert(std::max<qsizetype>(0, caption.indexOf(QLatin1String("ords")) - 1), u'&');
  cmdSelectWordsFile->setText(caption);
  cboWordsFile->setToolTip(files.Selected() < 0 ? cboWordsFile->placeholderText()
                                                : PlainTip(ToQt(files.SelectedPath())));
}

void WordListsPanel::ShowWordsState() {
  const WordList* const loaded = work_.LoadedOf(ShownKind());
  const std::string file =
      loaded != nullptr && !loaded->Words.empty() ? PathToText(loaded->Path.filename()) : std::string();
  lblWordsState->setText(ToQt(
      ListStateLabel(ShownKind(), file, SplitTypedEntries(ShownKind(), work_.TypedOf(ShownKind())).size())));
}

void WordListsPanel::EnableClearButtons() {
  const size_t kind = static_cast<size_t>(ShownKind());
  cmdClearWordsToIgnoreOrCount->setEnabled(!txbWordsToIgnoreOrCount[kind]->document()->isEmpty());
  cboWordsFile->setEnabled(cboWordsFile->count() > 0);
  cmdClearWordsFile->setEnabled(cboWordsFile->count() > 0);
}

// ---- Languages

void WordListsPanel::cboCommonWordsLanguages_Click() {
  const int item = cboCommonWordsLanguages->currentIndex();
  const Desktop& outside = host_.Outside();
  bool load = false;
  work_.ChangeFiles(ChangedBy::User, ListKind::WordsToIgnore, [&](WordFileList& files) {
    load = AddCommonWords(kCommonWordsLanguages[static_cast<size_t>(item)], outside.ProgramFolder,
                          outside.Files, files, outside.Messages);
  });
  if (load) AttemptToReadWords(ListKind::WordsToIgnore);
}

void WordListsPanel::LoadCommonWordsOfEnglish() {
  const Desktop& outside = host_.Outside();
  work_.ChangeFiles(ChangedBy::Program, ListKind::WordsToIgnore, [&](WordFileList& files) {
    SetPathToCWDs_Eng(outside.ProgramFolder, files, outside.Messages);
  });
  AttemptToReadWords(ListKind::WordsToIgnore);
}

// ---- Loading

void WordListsPanel::AttemptToReadWords(ListKind kind) {
  const WordListRequest request{
      .Kind = kind, .Path = PathFromText(work_.FilesOf(kind).SelectedPath()), .Rules = work_.Current().Words};
  host_.ReadWords(request, [this, kind](ReadWordList read) {
    work_.Load(kind, std::move(read.List));
    loadedLabels_[static_cast<size_t>(kind)] = read.StateLabel;
    Told(ToQt(read.StateLabel));
    ShowWordFiles();
    host_.SetWordsToIgnoreNotice();
  });
  ShowWordFiles();
}

// ---- Typed words

void WordListsPanel::CheckAllowedExtraChars() {
  for (const ListKind kind : {ListKind::WordsToIgnore, ListKind::CountOnly}) CheckAllowedExtraChars(kind);
}

void WordListsPanel::CheckAllowedExtraChars(ListKind kind) {
  korv::CheckAllowedExtraChars(kind, work_.TypedOf(kind), work_.Current().Words, host_.Outside().Messages);
}

void WordListsPanel::cmdClearWordsToIgnoreOrCount_Click() {
  QPlainTextEdit* box = txbWordsToIgnoreOrCount[static_cast<size_t>(ShownKind())];
  box->clear();
  box->setFocus();
  host_.SetWordsToIgnoreNotice();
}

}  // namespace korv
