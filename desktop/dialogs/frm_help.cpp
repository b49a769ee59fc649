#include "desktop/dialogs/frm_help.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "platform/program_text.h"

namespace korv {
namespace {

constexpr int kTitleText = 351;
constexpr int kFirstHelpText = 364;
constexpr int kLastHelpText = 369;

/// "WORDS AND PHRASES" as it is listed: "Words and phrases".
QString ContentsEntry(const QString& heading) {
  return heading.left(1) + heading.mid(1).toLower();
}

}  // namespace

frmHelp::frmHelp(const ProgramText& text, QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(ToQt(text.Get(kTitleText)));
  BuildControls();
  ReadTexts(text);
  FormatText();

  connect(cmdClose, &QPushButton::clicked, this, &frmHelp::cmdClose_Click);
  connect(lstContents, &QListWidget::currentRowChanged, this, &frmHelp::lstContents_Click);
  connect(lstContents, &QListWidget::itemClicked, this, &frmHelp::lstContents_Click);
  connect(txbSearch, &QLineEdit::textChanged, this, &frmHelp::txbSearch_Change);
  connect(txbSearch, &QLineEdit::returnPressed, this, [this] { GoToFound(1); });
  connect(cmdNext, &QPushButton::clicked, this, [this] { GoToFound(1); });
  connect(cmdPrevious, &QPushButton::clicked, this, [this] { GoToFound(-1); });
  const auto onKey = [this](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, act);
  };
  onKey(Qt::Key_Escape, [this] { cmdClose_Click(); });
  onKey(QKeySequence::FindNext, [this] { GoToFound(1); });
  onKey(QKeySequence::FindPrevious, [this] { GoToFound(-1); });
  onKey(QKeySequence::Find, [this] {
    txbSearch->setFocus(Qt::ShortcutFocusReason);
    txbSearch->selectAll();
  });
  txbSearch_Change();
}

void frmHelp::BuildControls() {
  lstContents = Described(Named(new QListWidget(this), "lstContents"), Tr("Contents"));
  txbSearch = MakeTextBox("txbSearch", Tr("Search the help"), this);
  txbSearch->setPlaceholderText(Tr("Search"));
  txbSearch->setClearButtonEnabled(true);
  cmdPrevious = Described(MakeButton("cmdPrevious", Tr("&Previous"), this), Tr("Previous place found"));
  cmdNext = Described(MakeButton("cmdNext", Tr("&Next"), this), Tr("Next place found"));
  lblFound = MakeLabel("lblFound", this);
  txbHelpScreen = Described(Named(new QPlainTextEdit(this), "txbHelpScreen"), Tr("Help text"));
  txbHelpScreen->setReadOnly(true);
  txbHelpScreen->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txbHelpScreen->setTabChangesFocus(true);
  txbHelpScreen->document()->setDocumentMargin(12);
  cmdClose = MakeButton("cmdClose", Tr("&Close"), this);

  auto* layout = new QVBoxLayout(this);
  auto* search = new QHBoxLayout;
  search->addWidget(txbSearch, 1);
  search->addWidget(cmdPrevious);
  search->addWidget(cmdNext);
  layout->addLayout(search);
  auto* middle = new QHBoxLayout;
  middle->addWidget(lstContents);
  middle->addWidget(txbHelpScreen, 1);
  layout->addLayout(middle, 1);
  auto* foot = new QHBoxLayout;
  foot->addWidget(lblFound, 1);
  foot->addWidget(cmdClose);
  layout->addLayout(foot);
}

void frmHelp::ReadTexts(const ProgramText& text) {
  std::string help;
  for (int number = kFirstHelpText; number <= kLastHelpText; ++number) {
    if (number > kFirstHelpText) help += "\n";
    const std::string section = text.Get(number);
    const QString before = ToQt(help);
    const QString lines = ToQt(section);
    help += section;
    qsizetype heading = 0;
    while (heading < lines.size() && lines[heading] == u'\n') ++heading;
    const QString entry = lines.mid(heading).section(u'\n', 0, 0);
    if (entry.isEmpty()) continue;
    headings_.push_back(static_cast<int>(before.count(u'\n') + heading));
    lstContents->addItem(ContentsEntry(entry));
  }
  txbHelpScreen->setPlainText(ToQt(help));
  // As wide as its longest entry, with room for a frame and a margin on both sides.
  lstContents->setFixedWidth(lstContents->sizeHintForColumn(0) + 32);
  lstContents->setCurrentRow(0);
}

void frmHelp::FormatText() {
  QTextCharFormat heading;
  heading.setFontWeight(QFont::Bold);
  QTextCharFormat columns;
  columns.setFontFamilies(WordsFont().families());
  columns.setFontFixedPitch(true);
  QTextCursor cursor(txbHelpScreen->document());
  for (QTextBlock block = txbHelpScreen->document()->begin(); block.isValid(); block = block.next()) {
    const bool isHeading =
        std::find(headings_.begin(), headings_.end(), block.blockNumber()) != headings_.end();
    // Indented lines are examples and lists, in columns.
    if (!isHeading && !block.text().startsWith(QLatin1String("  "))) continue;
    cursor.setPosition(block.position());
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.setCharFormat(isHeading ? heading : columns);
  }
  const QFontMetrics letters(WordsFont());
  resize(letters.averageCharWidth() * 84 + lstContents->width() + 60, letters.lineSpacing() * 42);
}

void frmHelp::cmdClose_Click() {
  hide();
}

void frmHelp::lstContents_Click() {
  const int row = lstContents->currentRow();
  if (row < 0 || static_cast<size_t>(row) >= headings_.size()) return;
  const QTextBlock block = txbHelpScreen->document()->findBlockByNumber(headings_[static_cast<size_t>(row)]);
  txbHelpScreen->setTextCursor(QTextCursor(block));
  // The heading stands at the top; a cursor alone would only bring it into sight. Bars count lines as
  // wrapped.
  txbHelpScreen->verticalScrollBar()->setValue(block.firstLineNumber());
}

void frmHelp::txbSearch_Change() {
  found_.clear();
  current_ = 0;
  const QString wanted = txbSearch->text().trimmed();
  const QString text = txbHelpScreen->toPlainText();
  if (!wanted.isEmpty()) {
    for (qsizetype at = 0; (at = text.indexOf(wanted, at, Qt::CaseInsensitive)) >= 0; at += wanted.size()) {
      found_.push_back(static_cast<int>(at));
    }
  }
  QList<QTextEdit::ExtraSelection> marks;
  for (const int at : found_) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(txbHelpScreen->document());
    mark.cursor.setPosition(at);
    mark.cursor.setPosition(at + static_cast<int>(wanted.size()), QTextCursor::KeepAnchor);
    QColor behind = palette().color(QPalette::Highlight);
    behind.setAlphaF(0.3F);
    mark.format.setBackground(behind);
    marks.append(mark);
  }
  txbHelpScreen->setExtraSelections(marks);
  ShowFound();
}

void frmHelp::GoToFound(int step) {
  if (found_.empty()) return;
  const int count = static_cast<int>(found_.size());
  current_ = (current_ + step + count) % count;
  ShowFound();
}

void frmHelp::ShowFound() {
  cmdNext->setEnabled(found_.size() > 1);
  cmdPrevious->setEnabled(found_.size() > 1);
  const bool searching = !txbSearch->text().trimmed().isEmpty();
  if (found_.empty()) {
    lblFound->setText(searching ? Tr("Not found") : QString());
    return;
  }
  lblFound->setText(QString(Tr("%1 of %2")).arg(current_ + 1).arg(found_.size()));
  QTextCursor cursor(txbHelpScreen->document());
  const int at = found_[static_cast<size_t>(current_)];
  cursor.setPosition(at);
  cursor.setPosition(at + static_cast<int>(txbSearch->text().trimmed().size()), QTextCursor::KeepAnchor);
  txbHelpScreen->setTextCursor(cursor);
  txbHelpScreen->centerCursor();
}

}  // namespace korv
