#include "desktop/main_window/frm_main_controls.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <vector>

#include "desktop/main_window/recent_list.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/widgets/scroll_column.h"

namespace korv {
namespace {

constexpr int kColumnWidth = 400;
constexpr int kTick = 1000;  // milliseconds

QGroupBox* MakeGroup(const char* name, const char* title, QWidget* parent) {
  return Named(new QGroupBox(QString::fromUtf8(title), parent), name);
}

template <typename Layout>
Layout* Tight(Layout* layout) {
  layout->setContentsMargins(8, 6, 8, 8);
  layout->setSpacing(5);
  return layout;
}

template <typename Layout>
Layout* Bare(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(5);
  return layout;
}

/// A quiet line of explanation: smaller, but in the palette's own text colour.
QLabel* MakeHint(const char* text, QWidget* parent) {
  auto* label = new QLabel(QString::fromUtf8(text), parent);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 0.92);
  label->setFont(font);
  label->setWordWrap(true);
  return label;
}

/// What comes and goes must not move what stands around it.
void KeepPlaceWhenHidden(QWidget* control) {
  QSizePolicy policy = control->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control->setSizePolicy(policy);
}

}  // namespace

QFont WordsFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"), font.family()});
  font.setStyleHint(QFont::Monospace);
  return font;
}

void FrmMainControls::BuildControls(QMainWindow* window) {
  auto* centre = new QWidget(window);
  auto* row = new QHBoxLayout(centre);
  row->setContentsMargins(8, 6, 8, 4);
  row->setSpacing(10);
  row->addWidget(BuildColumn(centre));
  row->addWidget(BuildResult(centre), 1);
  window->setCentralWidget(centre);
  BuildStatusLine(window);

  Timer1 = Named(new QTimer(window), "Timer1");
  Timer1->setInterval(kTick);
  Timer2 = Named(new QTimer(window), "Timer2");
  Timer2->setInterval(kTick);
  SetTabOrder();
}

QWidget* FrmMainControls::BuildColumn(QWidget* parent) {
  auto* column = new QWidget(parent);
  auto* layout = Bare(new QVBoxLayout(column));

  // On a low screen the groups scroll; the count button below them does not.
  auto* scroll = Named(new ScrollColumn(column), "scrOptions");
  auto* groups = new QWidget(scroll);
  auto* stack = Bare(new QVBoxLayout(groups));
  stack->addWidget(BuildSource(groups), 1);
  stack->addWidget(BuildPhrases(groups));
  stack->addWidget(BuildWordsToIgnore(groups));
  stack->addWidget(BuildReport(groups));
  stack->addWidget(BuildOutputFile(groups));
  scroll->setWidget(groups);
  // The width that the groups need, and room for the scroll bar beside them.
  const int bar = scroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, scroll);
  column->setFixedWidth(std::max(kColumnWidth, groups->minimumSizeHint().width()) + bar);

  layout->addWidget(scroll, 1);
  layout->addWidget(BuildRun(column));
  return column;
}

QWidget* FrmMainControls::BuildSource(QWidget* parent) {
  fraSource = MakeGroup("fraSource", "Select source of text to be scanned:", parent);
  auto* layout = Tight(new QVBoxLayout(fraSource));

  optOnClipboard = MakeOption("optOnClipboard", "Clipboard", fraSource);
  optInFile = MakeOption("optInFile", "Single file", fraSource);
  optFolder = MakeOption("optFolder", "Folder", fraSource);
  auto* kinds = new QHBoxLayout;
  kinds->addWidget(optOnClipboard);
  kinds->addWidget(optInFile);
  kinds->addWidget(optFolder);
  kinds->addStretch(1);
  layout->addLayout(kinds);

  BuildSourcePages(fraSource);
  layout->addWidget(stkSource);

  lstRecent = Described(Named(new RecentList(fraSource), "lstRecent"), "Recent files and folders");
  layout->addWidget(lstRecent, 1);
  FitSourceToItsPages();
  return fraSource;
}

void FrmMainControls::BuildSourcePages(QWidget* parent) {
  stkSource = Named(new QStackedWidget(parent), "stkSource");

  auto* clipboard = new QWidget(stkSource);
  auto* clipboardLayout = Bare(new QVBoxLayout(clipboard));
  clipboardLayout->addWidget(
      MakeHint("Copy a text in any program, then count it here. The clipboard is read when the count begins.",
               clipboard));
  cmdClipboardViewer = MakeButton("cmdClipboardViewer", "View clip&board", clipboard);
  clipboardLayout->addWidget(cmdClipboardViewer, 0, Qt::AlignLeft);
  stkSource->addWidget(clipboard);

  auto* file = new QWidget(stkSource);
  auto* fileLayout = Bare(new QVBoxLayout(file));
  auto* fileRow = new QHBoxLayout;
  cmdFile[0] = MakeButton("cmdFile_0", "S&ingle file", file);
  txbFile[0] = MakeTextBox("txbFile_0", "Path of the input file", file);
  cmdClearFile[0] = Described(MakeButton("cmdClearFile_0", "Cle&ar", file), "Clear the input file");
  fileRow->addWidget(cmdFile[0]);
  fileRow->addWidget(txbFile[0], 1);
  fileRow->addWidget(cmdClearFile[0]);
  fileLayout->addLayout(fileRow);
  fileLayout->addWidget(
      MakeHint("Plain text, HTML, XML, PHP or Word .docx. A file or a folder can also be dropped "
               "anywhere on this window.",
               file));
  lblFilesize = MakeLabel("lblFilesize", file);
  lblXMLsize = MakeLabel("lblXMLsize", file);
  auto* sizes = new QHBoxLayout;
  sizes->addWidget(lblFilesize);
  sizes->addSpacing(16);
  sizes->addWidget(lblXMLsize);
  sizes->addStretch(1);
  fileLayout->addLayout(sizes);
  stkSource->addWidget(file);

  auto* folder = new QWidget(stkSource);
  auto* folderLayout = Bare(new QGridLayout(folder));
  cmdFolder = MakeButton("cmdFolder", "F&older", folder);
  txbFolder = MakeTextBox("txbFolder", "Path of the folder", folder);
  cmdClearFolder = Described(MakeButton("cmdClearFolder", "Cle&ar", folder), "Clear the folder");
  folderLayout->addWidget(cmdFolder, 0, 0);
  folderLayout->addWidget(txbFolder, 0, 1);
  folderLayout->addWidget(cmdClearFolder, 0, 2);
  const std::array<const char*, 2> captions = {"Scan files matching patterns:",
                                               "Exclude filepaths containing text:"};
  const std::array<const char*, 2> names = {"txbFileFilepathSpecifications_0",
                                            "txbFileFilepathSpecifications_1"};
  const std::array<const char*, 2> examples = {"E.g., *.txt, *.docx, a*.htm*, b*.xml", "E.g., copy, bak"};
  auto* patternRows = Bare(new QGridLayout);
  for (int i = 0; i < 2; ++i) {
    const auto index = static_cast<size_t>(i);
    auto* box = MakeTextBox(names[index], captions[index], folder);
    box->setPlaceholderText(QString::fromUtf8(examples[index]));
    box->setToolTip(box->placeholderText());
    txbFileFilepathSpecifications[index] = box;
    patternRows->addWidget(MakeCaption(captions[index], box, folder), i, 0);
    patternRows->addWidget(box, i, 1);
  }
  folderLayout->addLayout(patternRows, 1, 0, 1, 3);
  chkIncludeSubfolders = MakeCheckBox("chkIncludeSubfolders", "Include subfolders", folder);
  cmdListFiles = MakeButton("cmdListFiles", "List files to be sca&nned", folder);
  auto* folderFoot = new QHBoxLayout;
  folderFoot->addWidget(chkIncludeSubfolders);
  folderFoot->addStretch(1);
  folderFoot->addWidget(cmdListFiles);
  folderLayout->addLayout(folderFoot, 2, 0, 1, 3);
  for (QWidget* control :
       std::initializer_list<QWidget*>{txbFileFilepathSpecifications[0], txbFileFilepathSpecifications[1],
                                       chkIncludeSubfolders, cmdListFiles}) {
    KeepPlaceWhenHidden(control);
  }
  folderLayout->setColumnStretch(1, 1);
  stkSource->addWidget(folder);
}

void FrmMainControls::FitSourceToItsPages() {
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
    fraSource->layout()->invalidate();
    height = std::max(height, fraSource->minimumSizeHint().height());
  }
  fraSource->setMinimumHeight(height);
  fit(stkSource->currentIndex());
  QObject::connect(stkSource, &QStackedWidget::currentChanged, stkSource, fit);
}

QWidget* FrmMainControls::BuildPhrases(QWidget* parent) {
  fraPhrases = MakeGroup("fraPhrases", "Phrases", parent);
  auto* layout = Tight(new QHBoxLayout(fraPhrases));
  cboPhraseLength[0] = MakeCombo("cboPhraseLength_0", "Minimum number of words in phrase", fraPhrases);
  cboPhraseLength[1] = MakeCombo("cboPhraseLength_1", "Maximum number of words in phrase", fraPhrases);
  cboMinimumFrequency = MakeCombo("cboMinimumFrequency", "Minimum number of occurrences", fraPhrases);
  for (QComboBox* combo : {cboPhraseLength[0], cboPhraseLength[1], cboMinimumFrequency}) {
    combo->setToolTip(combo->accessibleName());
    // As wide as the two digits of its items need.
    combo->setMinimumWidth(combo->minimumSizeHint().width() +
                           combo->fontMetrics().horizontalAdvance(QStringLiteral("25")) + 8);
    combo->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
  layout->addWidget(MakeCaption("Phrase length", cboPhraseLength[0], fraPhrases));
  layout->addWidget(cboPhraseLength[0]);
  layout->addWidget(MakeCaption("to", cboPhraseLength[1], fraPhrases));
  layout->addWidget(cboPhraseLength[1]);
  layout->addStretch(1);
  layout->addWidget(MakeCaption("Minimum frequenc&y", cboMinimumFrequency, fraPhrases));
  layout->addWidget(cboMinimumFrequency);
  return fraPhrases;
}

QWidget* FrmMainControls::BuildWordsToIgnore(QWidget* parent) {
  fraWordsToIgnore = MakeGroup("fraWordsToIgnore", "Words to ignore", parent);
  auto* layout = Tight(new QVBoxLayout(fraWordsToIgnore));
  layout->setSpacing(2);
  optAllowPhrasesAllWordsToIgnore =
      MakeOption("optAllowPhrasesAllWordsToIgnore", "Allow phrases consisting entirely of words to ignore",
                 fraWordsToIgnore);
  optExcludePhrasesAllWordsToIgnore =
      MakeOption("optExcludePhrasesAllWordsToIgnore",
                 "Exclude phrases consisting entirely of words to ignore", fraWordsToIgnore);
  optExcludePhrasesWithWordToIgnore = MakeOption(
      "optExcludePhrasesWithWordToIgnore", "Exclude phrases containing a word to ignore", fraWordsToIgnore);
  optRemoveWordsToIgnore =
      MakeOption("optRemoveWordsToIgnore", "Remove &words to ignore from phrases", fraWordsToIgnore);
  for (QRadioButton* option : {optAllowPhrasesAllWordsToIgnore, optExcludePhrasesAllWordsToIgnore,
                               optExcludePhrasesWithWordToIgnore, optRemoveWordsToIgnore}) {
    layout->addWidget(option);
  }
  auto* foot = new QHBoxLayout;
  lblWordsToIgnoreNotice = MakeLabel("lblWordsToIgnoreNotice", fraWordsToIgnore);
  lblWordsToIgnoreNotice->setWordWrap(true);
  // Two lines are kept free for the longest notice, whether it stands there or not.
  lblWordsToIgnoreNotice->setMinimumHeight(2 * lblWordsToIgnoreNotice->fontMetrics().lineSpacing());
  cmdSetParameters = MakeButton("cmdSetParameters", "&Settings", fraWordsToIgnore);
  cmdSetParameters->setToolTip(
      QStringLiteral("Define what counts as a word, specify words to ignore and words/phrases to count"));
  foot->addWidget(lblWordsToIgnoreNotice, 1);
  foot->addWidget(cmdSetParameters, 0, Qt::AlignBottom);
  layout->addLayout(foot);
  return fraWordsToIgnore;
}

QWidget* FrmMainControls::BuildReport(QWidget* parent) {
  fraReport = MakeGroup("fraReport", "Report", parent);
  auto* layout = Tight(new QGridLayout(fraReport));
  cboWordOrder = MakeCombo("cboWordOrder", "Order of the phrases", fraReport);
  cboDisplayFormat = MakeCombo("cboDisplayFormat", "Display format", fraReport);
  chkDisplayRelativeFrequency = MakeCheckBox(
      "chkDisplayRelativeFrequency", "Display relative frequency instead of absolute frequency", fraReport);
  chkDisplayRelativeFrequency->setToolTip(
      QStringLiteral("'Relative frequency' is explained in 'Report Formats' in the online user manual."));
  chkFileList = MakeCheckBox("chkFileList", "Set display format to #10", fraReport);
  chkSuppressWords = MakeCheckBox("chkSuppressWords", "Don't display words as found", fraReport);
  chkSuppressWords->setToolTip(QStringLiteral("Check this box for faster processing."));
  KeepPlaceWhenHidden(chkFileList);
  layout->addWidget(MakeCaption("Or&der:", cboWordOrder, fraReport), 0, 0);
  layout->addWidget(cboWordOrder, 0, 1);
  layout->addWidget(chkFileList, 0, 2);
  layout->addWidget(MakeCaption("For&mat:", cboDisplayFormat, fraReport), 1, 0);
  layout->addWidget(cboDisplayFormat, 1, 1, 1, 2);
  layout->addWidget(chkDisplayRelativeFrequency, 2, 0, 1, 3);
  layout->addWidget(chkSuppressWords, 3, 0, 1, 3);
  layout->setColumnStretch(1, 1);
  return fraReport;
}

QWidget* FrmMainControls::BuildOutputFile(QWidget* parent) {
  fraOutputFile = MakeGroup("fraOutputFile", "Output file", parent);
  auto* layout = Tight(new QGridLayout(fraOutputFile));
  cmdFile[1] = MakeButton("cmdFile_1", "O&utput file", fraOutputFile);
  txbFile[1] = MakeTextBox("txbFile_1", "Path of the output file", fraOutputFile);
  cmdClearFile[1] = Described(MakeButton("cmdClearFile_1", "Clea&r", fraOutputFile), "Clear the output file");
  chkDisableOutputToFile = MakeCheckBox("chkDisableOutputToFile", "Disable output to file", fraOutputFile);
  layout->addWidget(cmdFile[1], 0, 0);
  layout->addWidget(txbFile[1], 0, 1);
  layout->addWidget(cmdClearFile[1], 0, 2);
  layout->addWidget(chkDisableOutputToFile, 1, 0, 1, 3);
  layout->setColumnStretch(1, 1);
  return fraOutputFile;
}

QWidget* FrmMainControls::BuildRun(QWidget* parent) {
  auto* run = new QWidget(parent);
  auto* layout = Bare(new QVBoxLayout(run));
  cmdCountPhrases = MakeButton("cmdCountPhrases", "&Count phrases", run);
  QFont large = cmdCountPhrases->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  large.setBold(true);
  cmdCountPhrases->setFont(large);
  cmdCountPhrases->setMinimumHeight(44);
  layout->addWidget(cmdCountPhrases);

  prgProgress = Described(Named(new QProgressBar(run), "prgProgress"), "Progress of the count");
  prgProgress->setRange(0, 1000);
  prgProgress->setValue(0);
  prgProgress->setFormat(QStringLiteral("%p %"));
  prgProgress->setTextVisible(false);
  lblTwirler = Named(new QLabel(run), "lblTwirler");
  lblTwirler->setFixedWidth(lblTwirler->fontMetrics().height());
  lblTimeElapsed = MakeLabel("lblTimeElapsed", run);
  lblTimeElapsed->setMinimumWidth(
      lblTimeElapsed->fontMetrics().horizontalAdvance(QStringLiteral("Time elapsed: 00h 00m 00s")));
  auto* progress = new QHBoxLayout;
  progress->addWidget(prgProgress, 1);
  progress->addWidget(lblTwirler);
  progress->addWidget(lblTimeElapsed);
  prgProgress->hide();
  KeepPlaceWhenHidden(prgProgress);
  KeepPlaceWhenHidden(lblTwirler);
  KeepPlaceWhenHidden(lblTimeElapsed);
  layout->addLayout(progress);

  cmdSaveState = MakeButton("cmdSaveState", "Save settin&gs", run);
  cmdHelp = MakeButton("cmdHelp", "Hel&p", run);
  cmdQuit = MakeButton("cmdQuit", "&Quit", run);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdSaveState);
  buttons->addStretch(1);
  buttons->addWidget(cmdHelp);
  buttons->addWidget(cmdQuit);
  layout->addLayout(buttons);
  return run;
}

QWidget* FrmMainControls::BuildResult(QWidget* parent) {
  auto* result = new QWidget(parent);
  auto* layout = Bare(new QVBoxLayout(result));

  lblNumberOfWords = MakeLabel("lblNumberOfWords", result);
  lblNumOccurrences = MakeLabel("lblNumOccurrences", result);
  lblTotalNumOccurrences = MakeLabel("lblTotalNumOccurrences", result);
  lblNumWordsExcluded = MakeLabel("lblNumWordsExcluded", result);
  // In a narrow window they take a second line; they never widen it. The least height has room for that.
  result->setMinimumHeight(24 * result->fontMetrics().lineSpacing());
  for (QLabel* label : {lblNumberOfWords, lblNumOccurrences, lblTotalNumOccurrences, lblNumWordsExcluded}) {
    label->setWordWrap(true);
  }
  auto* summary = Bare(new QGridLayout);
  summary->addWidget(lblNumberOfWords, 0, 0);
  summary->addWidget(lblTotalNumOccurrences, 0, 1);
  summary->addWidget(lblNumOccurrences, 1, 0);
  summary->addWidget(lblNumWordsExcluded, 1, 1);
  summary->setColumnStretch(0, 1);
  summary->setColumnStretch(1, 1);
  layout->addLayout(summary);
  Notes = Named(new ResultNotesPanel(result), "notes");
  layout->addWidget(Notes);

  txbOutput = Described(Named(new QPlainTextEdit(result), "txbOutput"), "Result");
  txbOutput->setFont(WordsFont());
  txbOutput->setReadOnly(true);
  txbOutput->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txbOutput->setLineWrapMode(QPlainTextEdit::NoWrap);
  txbOutput->setUndoRedoEnabled(false);
  txbOutput->setTabChangesFocus(true);
  txbOutput->setPlaceholderText(
      QString::fromUtf8("The phrases will be listed here.\n\n"
                        "1.  Choose the source of the text at the top left.\n"
                        "2.  Set how many words a phrase has and how often it must occur.\n"
                        "3.  Click on \"Count phrases\".\n\n"
                        "F1 shows the help."));
  layout->addWidget(txbOutput, 1);

  chkSortByNumberOfFiles =
      MakeCheckBox("chkSortByNumberOfFiles", "Sort by number of files instead of frequency", result);
  cmdClearOutput = MakeButton("cmdClearOutput", "Clear te&xtbox", result);
  auto* below = new QHBoxLayout;
  below->addWidget(chkSortByNumberOfFiles);
  below->addStretch(1);
  below->addWidget(cmdClearOutput);
  layout->addLayout(below);
  layout->addWidget(BuildFilter(result));
  return result;
}

QWidget* FrmMainControls::BuildFilter(QWidget* parent) {
  fraFilterResults = MakeGroup("fraFilterResults", "Filter", parent);
  auto* layout = Tight(new QGridLayout(fraFilterResults));
  optIncludeAllWords = MakeOption("optIncludeAllWords", "All words below included", fraFilterResults);
  optIncludeAllWordsInSameOrder =
      MakeOption("optIncludeAllWordsInSameOrder", "in same order", fraFilterResults);
  optIncludeAllWordsAsSubphrase =
      MakeOption("optIncludeAllWordsAsSubphrase", "as subphrase", fraFilterResults);
  optIncludeAllWords->setChecked(true);
  txbFilterWords = MakeTextBox("txbFilterWords", "Filter words", fraFilterResults);
  txbFilterWords->setFont(WordsFont());
  cmdFilterResults = MakeButton("cmdFilterResults", "Fil&ter results", fraFilterResults);
  cmdClear = Described(MakeButton("cmdClear", "C&lear", fraFilterResults), "Clear the filter words");
  auto* modes = new QHBoxLayout;
  modes->addWidget(optIncludeAllWords);
  modes->addWidget(optIncludeAllWordsInSameOrder);
  modes->addWidget(optIncludeAllWordsAsSubphrase);
  modes->addStretch(1);
  auto* note = MakeHint("Case is not significant.", fraFilterResults);
  note->setWordWrap(false);
  layout->addLayout(modes, 0, 0, 1, 4);
  layout->addWidget(txbFilterWords, 1, 0);
  layout->addWidget(note, 1, 1);
  layout->addWidget(cmdFilterResults, 1, 2);
  layout->addWidget(cmdClear, 1, 3);
  layout->setColumnStretch(0, 1);
  return fraFilterResults;
}

void FrmMainControls::BuildStatusLine(QMainWindow* window) {
  QStatusBar* bar = window->statusBar();
  lblStatusText = Named(new QLabel(bar), "lblStatusText");
  lblStatusText->setTextFormat(Qt::PlainText);
  // A long path is cut at the window's edge; it never widens the window.
  lblStatusText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblStatusEncoding = MakeLabel("lblStatusEncoding", bar);
  lblStatusFiles = MakeLabel("lblStatusFiles", bar);
  lblStatusWords = MakeLabel("lblStatusWords", bar);
  lblStatusPhrases = MakeLabel("lblStatusPhrases", bar);
  bar->addWidget(lblStatusText, 1);
  for (QLabel* label : {lblStatusEncoding, lblStatusFiles, lblStatusWords, lblStatusPhrases}) {
    label->setContentsMargins(8, 0, 8, 0);
    bar->addPermanentWidget(label);
    label->hide();
  }
}

void FrmMainControls::SetTabOrder() {
  const std::vector<QWidget*> order = {optOnClipboard,
                                       optInFile,
                                       optFolder,
                                       cmdClipboardViewer,
                                       cmdFile[0],
                                       txbFile[0],
                                       cmdClearFile[0],
                                       cmdFolder,
                                       txbFolder,
                                       cmdClearFolder,
                                       txbFileFilepathSpecifications[0],
                                       txbFileFilepathSpecifications[1],
                                       chkIncludeSubfolders,
                                       cmdListFiles,
                                       lstRecent,
                                       cboPhraseLength[0],
                                       cboPhraseLength[1],
                                       cboMinimumFrequency,
                                       optAllowPhrasesAllWordsToIgnore,
                                       optExcludePhrasesAllWordsToIgnore,
                                       optExcludePhrasesWithWordToIgnore,
                                       optRemoveWordsToIgnore,
                                       cmdSetParameters,
                                       cboWordOrder,
                                       chkFileList,
                                       cboDisplayFormat,
                                       chkDisplayRelativeFrequency,
                                       cmdFile[1],
                                       txbFile[1],
                                       cmdClearFile[1],
                                       chkDisableOutputToFile,
                                       cmdCountPhrases,
                                       cmdSaveState,
                                       cmdHelp,
                                       cmdQuit,
                                       Notes,
                                       txbOutput,
                                       chkSortByNumberOfFiles,
                                       cmdClearOutput,
                                       optIncludeAllWords,
                                       optIncludeAllWordsInSameOrder,
                                       optIncludeAllWordsAsSubphrase,
                                       txbFilterWords,
                                       cmdFilterResults,
                                       cmdClear};
  for (size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
  TabToTheSelected({optOnClipboard, optInFile, optFolder});
  TabToTheSelected({optAllowPhrasesAllWordsToIgnore, optExcludePhrasesAllWordsToIgnore,
                    optExcludePhrasesWithWordToIgnore, optRemoveWordsToIgnore});
  TabToTheSelected({optIncludeAllWords, optIncludeAllWordsInSameOrder, optIncludeAllWordsAsSubphrase});
}

}  // namespace korv
