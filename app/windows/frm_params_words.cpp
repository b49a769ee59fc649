// The Settings window's words to ignore and to count: the list of files, the languages, the typed words.

#include <QEvent>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QStackedLayout>

#include "app/windows/frm_load_remove.h"
#include "app/windows/frm_main.h"
#include "app/windows/frm_params.h"
#include "platform/qt/text.h"
#include "wordlists/common_words.h"
#include "wordlists/gather_lists.h"
#include "wordlists/read_words.h"
#include "wordlists/typed_words.h"

namespace korv {
namespace {

constexpr int kNoLanguage = static_cast<int>(CommonWords::None);

}  // namespace

void frmParams::FillLanguages() {
  for (const CommonWordsLanguage& language : kCommonWordsLanguages) {
    cboCommonWordsLanguages->addItem(ToQt(language.Item));
  }
  cboCommonWordsLanguages->setCurrentIndex(static_cast<int>(CommonWords::English));
}

void frmParams::ConnectWords() {
  const auto onClick = [this](QAbstractButton* button, const char* place, auto handler) {
    connect(button, &QAbstractButton::clicked, this, main_.Guarded(place, handler));
  };
  onClick(cmdSelectWordsFile, "cmdSelectWordsFile_Click", [this] { cmdSelectWordsFile_Click(); });
  onClick(cmdClearWordsFile, "cmdClearWordsFile_Click", [this] { cmdClearWordsFile_Click(); });
  onClick(cmdClearWordsToIgnoreOrCount, "cmdClearWordsToIgnoreOrCount_Click",
          [this] { cmdClearWordsToIgnoreOrCount_Click(); });
  onClick(optWordsToIgnore, "optListKind_Click", [this] { optListKind_Click(); });
  onClick(optCountOnlyWordsAndPhrases, "optListKind_Click", [this] { optListKind_Click(); });
  // Choosing the entry that is selected already counts, too: that is how a changed file is loaded again.
  connect(cboWordsFile, &QComboBox::activated, this,
          main_.Guarded("cboWordsFile_Click", [this] { cboWordsFile_Click(); }));
  connect(cboCommonWordsLanguages, &QComboBox::activated, this,
          main_.Guarded("cboCommonWordsLanguages_Click", [this] { cboCommonWordsLanguages_Click(); }));
  for (QPlainTextEdit* box : txbWordsToIgnoreOrCount) {
    box->installEventFilter(this);
    connect(box, &QPlainTextEdit::textChanged, this, [this] { EnableClearButtons(); });
  }
}

bool frmParams::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut &&
      (watched == txbWordsToIgnoreOrCount[0] || watched == txbWordsToIgnoreOrCount[1])) {
    main_.Guarded("txbWordsToIgnoreOrCount_LostFocus", [this] {
      CheckAllowedExtraChars();
      main_.SetWordsToIgnoreNotice();
    })();
  }
  return QWidget::eventFilter(watched, event);
}

ListKind frmParams::ShownKind() const {
  return optCountOnlyWordsAndPhrases->isChecked() ? ListKind::CountOnly : ListKind::WordsToIgnore;
}

void frmParams::optListKind_Click() {
  const bool countOnly = ShownKind() == ListKind::CountOnly;
  txbWordsToIgnoreOrCount[0]->setVisible(!countOnly);
  txbWordsToIgnoreOrCount[1]->setVisible(countOnly);
  lblWordsToIgnoreOrCount->setText(countOnly ? QStringLiteral("Count-only words\nand phrases (&x):")
                                             : QStringLiteral("E&xtra words to ignore:"));
  lblWordsToIgnoreOrCount->setBuddy(txbWordsToIgnoreOrCount[countOnly ? 1 : 0]);
  cboCommonWordsLanguages->setEnabled(!countOnly);
  ShowWordFiles();
}

// ---- The list of files

void frmParams::cmdSelectWordsFile_Click() {
  const ListKind kind = ShownKind();
  WordFileList& files = FilesOf(kind);
  Messages& messages = main_.Outside().messages;
  if (!files.MayGrow(messages)) return;
  const auto path = main_.Outside().dialogs.ChooseFileToOpen({.title = std::string(SelectFileTitle(kind)),
                                                              .filter = std::string(kListFileFilter),
                                                              .initialPath = files.SelectedPath()});
  if (!path) return;
  const bool added = files.Add(*path, messages);
  ShowWordFiles();
  if (added) AttemptToReadWords(ShownKind());
}

void frmParams::cboWordsFile_Click() {
  WordFileList& files = FilesOf(ShownKind());
  files.Select(cboWordsFile->currentIndex());
  ShowWordFiles();
  frmLoadRemove dialog(cboWordsFile->currentText(), this);
  dialog.exec();
  switch (dialog.Chosen()) {
    case frmLoadRemove::Choice::Load:
      AttemptToReadWords(ShownKind());
      break;
    case frmLoadRemove::Choice::Remove: {
      const std::string removed = files.SelectedPath();
      files.RemoveSelected();
      auto& loaded = LoadedOf(ShownKind());
      if (loaded && PathToText(loaded->Path) == removed) ForgetLoadedWords(ShownKind());
      break;
    }
    case frmLoadRemove::Choice::Cancel:
      break;
  }
  ShowWordFiles();
}

void frmParams::cmdClearWordsFile_Click() {
  if (!FilesOf(ShownKind()).AskToClear(main_.Outside().messages)) return;
  ForgetLoadedWords(ShownKind());
  ShowWordFiles();
}

void frmParams::ClearWordFiles() {
  FilesOf(ListKind::WordsToIgnore).Clear();
  ForgetLoadedWords(ListKind::WordsToIgnore);
}

void frmParams::ForgetLoadedWords(ListKind kind) {
  LoadedOf(kind).reset();
  loadedLabels_[static_cast<size_t>(kind)].clear();
  ShowWordFiles();
  main_.SetWordsToIgnoreNotice();
}

void frmParams::ShowWordFiles() {
  const WordFileList& files = FilesOf(ShownKind());
  const QSignalBlocker quiet(cboWordsFile);
  cboWordsFile->clear();
  for (const std::string& path : files.Paths()) cboWordsFile->addItem(ToQt(path));
  cboWordsFile->setCurrentIndex(files.Selected());
  lblWordsState->setText(ToQt(loadedLabels_[static_cast<size_t>(ShownKind())]));
  ShowWordFilesState();
  EnableClearButtons();
}

void frmParams::ShowWordFilesState() {
  const WordFileList& files = FilesOf(ShownKind());
  QString caption = ToQt(FilesButtonCaption(ShownKind(), files.Paths().size()));
  caption.insert(caption.indexOf(QLatin1String("ords")) - 1, u'&');
  cmdSelectWordsFile->setText(caption);
  cboWordsFile->setToolTip(ToQt(files.SelectedPath()));
}

void frmParams::EnableClearButtons() {
  const size_t kind = static_cast<size_t>(ShownKind());
  cmdClearWordsToIgnoreOrCount->setEnabled(!txbWordsToIgnoreOrCount[kind]->document()->isEmpty());
  cboWordsFile->setEnabled(cboWordsFile->count() > 0);
  cmdClearWordsFile->setEnabled(cboWordsFile->count() > 0);
}

void frmParams::GatherWordFiles(Settings& settings) const {
  const WordFileList& files = FilesOf(ListKind::WordsToIgnore);
  settings.WordsFiles = files.Paths();
  settings.SelectedWordsFile = files.Selected();
}

void frmParams::ApplyWordFiles(const Settings& settings) {
  FilesOf(ListKind::WordsToIgnore).Restore(settings.WordsFiles, settings.SelectedWordsFile);
  ShowWordFiles();
}

// ---- Languages

void frmParams::cboCommonWordsLanguages_Click() {
  const int item = cboCommonWordsLanguages->currentIndex();
  const Desktop& outside = main_.Outside();
  if (AddCommonWords(kCommonWordsLanguages[static_cast<size_t>(item)], outside.programFolder, outside.files,
                     FilesOf(ListKind::WordsToIgnore), outside.messages)) {
    ShowWordFiles();
    AttemptToReadWords(ListKind::WordsToIgnore);
  }
}

void frmParams::SetPathToCWDs_Eng() {
  const Desktop& outside = main_.Outside();
  korv::SetPathToCWDs_Eng(outside.programFolder, FilesOf(ListKind::WordsToIgnore), outside.messages);
  ShowWordFiles();
}

void frmParams::SelectNoLanguage() {
  cboCommonWordsLanguages->setCurrentIndex(kNoLanguage);
}

// ---- Loading

void frmParams::AttemptToReadWords(ListKind kind) {
  const std::filesystem::path path = PathFromText(FilesOf(kind).SelectedPath());
  WordList list;
  std::string label;
  main_.WhileBusy(std::string(ReadingNotice(kind)), [&](ListReading& reading) {
    if (korv::AttemptToReadWords(reading, path, kind, main_.GatherSettings().Words, list, label)) {
      LoadedOf(kind) = std::move(list);
      loadedLabels_[static_cast<size_t>(kind)] = label;
      lblState->setText(ToQt(label));
    }
  });
  ShowWordFiles();
  main_.SetCountPhrasesCaption();
  main_.SetWordsToIgnoreNotice();
}

// ---- Typed words

std::string frmParams::TypedOf(ListKind kind) const {
  return FromQt(txbWordsToIgnoreOrCount[static_cast<size_t>(kind)]->toPlainText());
}

void frmParams::CheckAllowedExtraChars() {
  WordRules rules = main_.GatherSettings().Words;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  for (const ListKind kind : {ListKind::WordsToIgnore, ListKind::CountOnly}) {
    korv::CheckAllowedExtraChars(kind, TypedOf(kind), rules, main_.Outside().messages);
  }
}

void frmParams::ClearExtraWords() {
  txbWordsToIgnoreOrCount[0]->clear();
}

void frmParams::cmdClearWordsToIgnoreOrCount_Click() {
  QPlainTextEdit* box = txbWordsToIgnoreOrCount[static_cast<size_t>(ShownKind())];
  box->clear();
  box->setFocus();
  main_.SetWordsToIgnoreNotice();
}

ListEntries frmParams::GatherListEntries(const WordRules& rules) const {
  const auto loaded = [this](ListKind kind) {
    const auto& list = loaded_[static_cast<size_t>(kind)];
    return list ? &*list : nullptr;
  };
  return MakeListEntries(loaded(ListKind::WordsToIgnore), TypedOf(ListKind::WordsToIgnore),
                         chkPatternMatchingInWordsToIgnoreFile->isChecked(), loaded(ListKind::CountOnly),
                         TypedOf(ListKind::CountOnly), rules);
}

bool frmParams::HasWordsToIgnore() const {
  const auto& list = loaded_[static_cast<size_t>(ListKind::WordsToIgnore)];
  return (list && !list->Words.empty()) ||
         !SplitTypedEntries(ListKind::WordsToIgnore, TypedOf(ListKind::WordsToIgnore)).empty();
}

}  // namespace korv
