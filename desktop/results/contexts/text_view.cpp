#include "desktop/results/contexts/text_view.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>
#include <utility>

#include "app/contexts/context_texts.h"
#include "base/translation.h"
#include "desktop/main_window/open_associated.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/places/words_around.h"

namespace korv {

namespace {

/// Bytes that are read on each side.
constexpr uint64_t kAround = 100'000;
/// Code points on each side where there are only the words of the run.
constexpr size_t kWordsAround = 2000;

}  // namespace

/// What stands there.
struct TextView::Shown {
  std::shared_ptr<const ContextList> List;
  size_t Index = 0;  ///< In its places.
  PlaceInText At{};  ///< Line 0 while it is not known.
  TextWindow Window;

  const CountedRun& Run() const { return List->Run(); }
  Place Where() const { return List->Places()[Index]; }
  size_t Source() const { return Run().Table.Corpus().SourceAt(Where()); }
};

TextView::TextView(const Desktop& desktop, QWidget* parent)
    : QWidget(parent, Qt::Window),
      desktop_(desktop),
      shown_(std::make_unique<Shown>()),
      reading_(std::make_shared<FileReading>(desktop.Files)),
      reader_(desktop.Loop) {
  Named(this, "frmText");
  setWindowTitle(Tr("Text"));
  Build();
  Connect();
  resize(90 * fontMetrics().averageCharWidth(), 36 * fontMetrics().lineSpacing());
}

TextView::~TextView() {
  StopListening(*this);
}

void TextView::Build() {
  auto* layout = Tight(new QVBoxLayout(this));
  lblTextPlace = MakeLabel("lblTextPlace", this);
  lblTextPlace->setWordWrap(true);
  layout->addWidget(lblTextPlace);
  lblTextNote = MakeLabel("lblTextNote", this);
  lblTextNote->setWordWrap(true);
  lblTextNote->hide();
  layout->addWidget(lblTextNote);
  cmdTextBefore = MakeButton("cmdTextBefore", Tr("&Earlier text"), this);
  layout->addWidget(cmdTextBefore, 0, Qt::AlignLeft);
  txbText = Described(Named(new QPlainTextEdit(this), "txbText"), Tr("Text"));
  txbText->setReadOnly(true);
  txbText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txbText->setUndoRedoEnabled(false);
  txbText->setTabChangesFocus(true);
  layout->addWidget(txbText, 1);
  cmdTextBehind = MakeButton("cmdTextBehind", Tr("&Later text"), this);
  layout->addWidget(cmdTextBehind, 0, Qt::AlignLeft);
  auto* foot = Bare(new QHBoxLayout);
  cmdPreviousOccurrence = MakeButton("cmdPreviousOccurrence", Tr("&Previous occurrence"), this);
  cmdPreviousOccurrence->setToolTip(QStringLiteral("Shift+F3"));
  cmdNextOccurrence = MakeButton("cmdNextOccurrence", Tr("&Next occurrence"), this);
  cmdNextOccurrence->setToolTip(QStringLiteral("F3"));
  cmdOpenSource = MakeButton("cmdOpenSource", Tr("&Open in its own program"), this);
  cmdCloseText = MakeButton("cmdCloseText", Tr("Close"), this);
  foot->addWidget(cmdPreviousOccurrence);
  foot->addWidget(cmdNextOccurrence);
  foot->addStretch(1);
  foot->addWidget(cmdOpenSource);
  foot->addWidget(cmdCloseText);
  layout->addLayout(foot);
}

void TextView::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(cmdTextBefore, "cmdTextBefore_Click", [this] { ReadMore(/*before=*/true); });
  wiring.OnClick(cmdTextBehind, "cmdTextBehind_Click", [this] { ReadMore(/*before=*/false); });
  wiring.OnClick(cmdPreviousOccurrence, "cmdPreviousOccurrence_Click", [this] { Step(-1); });
  wiring.OnClick(cmdNextOccurrence, "cmdNextOccurrence_Click", [this] { Step(1); });
  wiring.OnClick(cmdOpenSource, "cmdOpenSource_Click", [this] { OpenSource(); });
  wiring.OnClick(cmdCloseText, "cmdCloseText_Click", [this] { close(); });
  const auto onKey = [this](const QKeySequence& key, QPushButton* button) {
    connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
  };
  onKey(Qt::Key_F3, cmdNextOccurrence);
  onKey(Qt::SHIFT | Qt::Key_F3, cmdPreviousOccurrence);
  onKey(Qt::Key_Escape, cmdCloseText);
}

void TextView::closeEvent(QCloseEvent* event) {
  // Nothing of a run is kept for a window that is not there.
  reader_.Start([reading = reading_](NewestJob::Turn&) { reading->Forget(); });
  *shown_ = {};
  txbText->clear();
  QWidget::closeEvent(event);
}

void TextView::ShowPlace(const std::shared_ptr<const ContextList>& list, size_t index) {
  shown_->List = list;
  ReadPlace(index);
}

void TextView::ReadPlace(size_t index) {
  shown_->Index = index;
  reader_.Start([this, reading = reading_, list = shown_->List, place = shown_->Where(),
                 source = shown_->Source()](NewestJob::Turn& turn) {
    reading->Do(list->SharedRun(), turn.Yielder(), [&](PlaceLocator& locator) {
      const auto at = locator.Locate(place, list->Words(), 0);
      if (!at) return turn.Tell([this, fault = at.Error()] { ShowWords(fault); });
      const auto window = ReadTextWindow(list->Run().Table.Corpus(), locator,
                                         {.Source = source,
                                          .Offset = at->Begin,
                                          .Line = at->Line,
                                          .Around = kAround,
                                          .PhraseBegin = at->Begin,
                                          .PhraseEnd = at->End});
      if (!window) return turn.Tell([this, fault = window.Error()] { ShowWords(fault); });
      turn.Tell([this, found = *at, part = *window] {
        shown_->At = found;
        Show(part);
        SayPlace();
      });
    });
  });
}

void TextView::ReadMore(bool before) {
  const TextWindow& now = shown_->Window;
  const WindowWish wish{.Source = shown_->Source(),
                        .Offset = before ? now.Begin : now.End,
                        .Line = before ? now.FirstLine : now.LastLine(),
                        .Around = kAround,
                        .PhraseBegin = shown_->At.Begin,
                        .PhraseEnd = shown_->At.End};
  reader_.Start([this, reading = reading_, list = shown_->List, wish](NewestJob::Turn& turn) {
    reading->Do(list->SharedRun(), turn.Yielder(), [&](PlaceLocator& locator) {
      const auto window = ReadTextWindow(list->Run().Table.Corpus(), locator, wish);
      if (!window) return turn.Tell([this, fault = window.Error()] { ShowWords(fault); });
      turn.Tell([this, part = *window, line = wish.Line] {
        Show(part);
        // What stood at the edge stays in sight.
        const auto block = static_cast<int>(line - part.FirstLine);
        txbText->setTextCursor(QTextCursor(txbText->document()->findBlockByNumber(block)));
        txbText->centerCursor();
      });
    });
  });
}

void TextView::Show(const TextWindow& window) {
  shown_->Window = window;
  const QString before = ToQt(std::string_view(window.Text).substr(0, window.PhraseBegin));
  const QString phrase =
      ToQt(std::string_view(window.Text).substr(window.PhraseBegin, window.PhraseEnd - window.PhraseBegin));
  txbText->setPlainText(ToQt(window.Text));
  MarkPhrase(before, phrase);
  cmdTextBefore->setEnabled(window.Begin > 0);
  cmdTextBehind->setEnabled(!window.ToEnd);
  lblTextNote->hide();
}

/// The words of the run where the file is not the one that was counted.
void TextView::ShowWords(PlaceFault fault) {
  const PlaceInText words =
      WordsAround(shown_->Run().Table.Corpus(), shown_->Where(), shown_->List->Words(), kWordsAround);
  shown_->At = words;
  shown_->Window = {};
  const QString before = ToQt(words.Left) + (words.Left.empty() ? QString() : QStringLiteral(" "));
  const QString phrase = ToQt(words.Phrase);
  txbText->setPlainText(before + phrase + u' ' + ToQt(words.Right));
  MarkPhrase(before, phrase);
  cmdTextBefore->setEnabled(false);
  cmdTextBehind->setEnabled(false);
  lblTextNote->setText(ToQt(ChangedTextsText(shown_->Run(), {{shown_->Source(), fault}}, desktop_.Numbers)));
  lblTextNote->show();
  SayPlace();
}

void TextView::MarkPhrase(const QString& before, const QString& phrase) {
  QTextEdit::ExtraSelection mark;
  mark.cursor = QTextCursor(txbText->document());
  mark.cursor.setPosition(static_cast<int>(before.size()));
  mark.cursor.setPosition(static_cast<int>(before.size() + phrase.size()), QTextCursor::KeepAnchor);
  mark.format.setBackground(palette().highlight());
  mark.format.setForeground(palette().highlightedText());
  txbText->setExtraSelections(phrase.isEmpty() ? QList<QTextEdit::ExtraSelection>() : QList{mark});
  QTextCursor cursor(txbText->document());
  cursor.setPosition(static_cast<int>(before.size()));
  txbText->setTextCursor(cursor);
  txbText->centerCursor();
}

void TextView::SayPlace() {
  const NumberFormat& numbers = desktop_.Numbers;
  const auto number = [&](uint64_t value) { return numbers.Grouped(static_cast<int64_t>(value)); };
  const std::string name = NameOfText(shown_->Run(), shown_->Source());
  const std::string occurrence = number(shown_->Index + 1);
  const std::string all = number(shown_->List->Places().size());
  const PlaceInText& at = shown_->At;
  lblTextPlace->setText(ToQt(at.Line > 0
                                 ? OccurrencePlaceText(at, name, occurrence, all, numbers)
                                 : Fill(Tr("%1 \u2013 occurrence %2 of %3"), {name, occurrence, all})));
  setWindowTitle(ToQt(name));
  cmdOpenSource->setEnabled(!shown_->Run().Table.Corpus().Sources[shown_->Source()].Path.empty());
}

void TextView::OpenSource() {
  OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages,
                            PathToText(shown_->Run().Table.Corpus().Sources[shown_->Source()].Path));
}

}  // namespace korv
