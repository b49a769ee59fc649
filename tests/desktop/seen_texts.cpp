#include "tests/desktop/seen_texts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QTabBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <utility>

#include "desktop/widgets/control_factory.h"

namespace korv {
namespace {

constexpr QChar kOpens(0x27E6);
constexpr QChar kCloses(0x27E7);

/// What controls show that is not the program's: samples of texts, and what the user types.
const char* const kDataOf[] = {
    "txbSample text",
    "lblSampleWords text",
    "lblSampleWords tip",
    "txbText text",
    "txbClipboard text",
    "txbWordsToIgnoreOrCount_0 text",
    "txbWordsToIgnoreOrCount_0 placeholder",
    "txbWordsToIgnoreOrCount_1 text",
    "txbWordsToIgnoreOrCount_1 placeholder",
};

/// The toolkit's own, which its own catalogues translate.
const char* const kOfToolkit[] = {"Scroll Left", "Scroll Right", "Close Tab", "&Yes", "&No",
                                  "Yes",         "No",           "OK",        "&OK",  "Cancel"};

class Collector {
 public:
  explicit Collector(const QStringList& data) : data_(data) {}

  void Look(QWidget& widget);
  void Look(const QAction& action, const QString& where);
  std::vector<std::string> Found() && { return std::move(found_); }

 private:
  void See(const QString& where, const char* what, const QString& text);
  void LookAtContents(QWidget& widget, const QString& where);
  void LookAtItems(const QAbstractItemModel& model, const QString& where);
  void LookAtHeadings(const QAbstractItemModel& model, const QString& where);

  QStringList data_;
  std::vector<std::string> found_;
};

QString NameOf(const QWidget& widget) {
  const QString window = widget.window()->objectName();
  const QString name =
      widget.objectName().isEmpty() ? QLatin1String(widget.metaObject()->className()) : widget.objectName();
  return window + u'/' + name;
}

bool IsData(const QString& where, const char* what) {
  for (const char* const data : kDataOf)
    if (where.section(u'/', -1) + u' ' + QLatin1String(what) == QLatin1String(data)) return true;
  return false;
}

bool IsOfToolkit(const QString& text) {
  for (const char* const own : kOfToolkit)
    if (text == QLatin1String(own)) return true;
  return false;
}

void Collector::See(const QString& where, const char* what, const QString& text) {
  if (text.isEmpty() || IsData(where, what) || IsOfToolkit(text)) return;
  const QStringList words = UntranslatedWords(text, data_);
  if (words.isEmpty()) return;
  const QString line = where + u' ' + QLatin1String(what) + QStringLiteral(": ") + text +
                       QStringLiteral("   [") + words.join(u' ') + u']';
  found_.push_back(line.toStdString());
}

void Collector::LookAtItems(const QAbstractItemModel& model, const QString& where) {
  constexpr int kMostRows = 200;
  for (int row = 0; row < std::min(model.rowCount(), kMostRows); ++row)
    for (int column = 0; column < model.columnCount(); ++column) {
      const QModelIndex cell = model.index(row, column);
      See(where, "item", cell.data().toString());
      See(where, "tip of an item", cell.data(Qt::ToolTipRole).toString());
      See(where, "description of an item", cell.data(Qt::AccessibleTextRole).toString());
    }
}

void Collector::LookAtHeadings(const QAbstractItemModel& model, const QString& where) {
  for (int column = 0; column < model.columnCount(); ++column) {
    See(where, "heading", model.headerData(column, Qt::Horizontal).toString());
    See(where, "tip of a heading", model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
  }
}

void Collector::LookAtContents(QWidget& widget, const QString& where) {
  if (auto* const label = qobject_cast<QLabel*>(&widget)) See(where, "text", label->text());
  if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) See(where, "caption", button->text());
  if (auto* const group = qobject_cast<QGroupBox*>(&widget)) See(where, "title", group->title());
  if (auto* const spin = qobject_cast<QAbstractSpinBox*>(&widget)) See(where, "text", spin->text());
  if (auto* const line = qobject_cast<QLineEdit*>(&widget)) {
    See(where, "placeholder", line->placeholderText());
    // Others hold what the user types.
    if (line->isReadOnly()) See(where, "text", line->text());
  }
  if (auto* const box = qobject_cast<QPlainTextEdit*>(&widget)) {
    See(where, "placeholder", box->placeholderText());
    See(where, "text", box->toPlainText());
  }
  if (auto* const browser = qobject_cast<QTextBrowser*>(&widget)) See(where, "text", browser->toPlainText());
  if (auto* const menu = qobject_cast<QMenu*>(&widget)) See(where, "title", menu->title());
  if (auto* const combo = qobject_cast<QComboBox*>(&widget)) {
    See(where, "placeholder", combo->placeholderText());
    LookAtItems(*combo->model(), where);
  }
  if (auto* const tabs = qobject_cast<QTabBar*>(&widget)) {
    for (int tab = 0; tab < tabs->count(); ++tab) {
      See(where, "tab", tabs->tabText(tab));
      See(where, "tip of a tab", tabs->tabToolTip(tab));
    }
  }
  if (auto* const view = qobject_cast<QAbstractItemView*>(&widget); view != nullptr && view->model()) {
    if (qobject_cast<QHeaderView*>(view) != nullptr) return LookAtHeadings(*view->model(), where);
    LookAtItems(*view->model(), where);
  }
}

void Collector::Look(QWidget& widget) {
  const QString where = NameOf(widget);
  if (widget.isWindow()) See(where, "window title", widget.windowTitle());
  See(where, "tip", widget.toolTip());
  See(where, "status tip", widget.statusTip());
  See(where, "what's this", widget.whatsThis());
  See(where, "accessible name", widget.accessibleName());
  See(where, "accessible description", widget.accessibleDescription());
  LookAtContents(widget, where);
  for (const QAction* action : widget.actions()) Look(*action, where);
}

void Collector::Look(const QAction& action, const QString& where) {
  See(where, "action", action.text());
  // Where none was set, the toolkit makes it of the text.
  if (action.toolTip() != WithoutMnemonic(action.text())) See(where, "tip of an action", action.toolTip());
  See(where, "status tip of an action", action.statusTip());
}

}  // namespace

QString OutsideOfTranslations(const QString& text) {
  QString plain = text;
  if (Qt::mightBeRichText(text)) {
    QTextDocument document;
    document.setHtml(text);
    plain = document.toPlainText();
  }
  QString outside;
  int depth = 0;
  for (const QChar c : std::as_const(plain)) {
    if (c == kOpens) ++depth;
    if (depth == 0) outside += c;
    if (c == kCloses && depth > 0) --depth;
  }
  if (depth > 0) outside += kOpens;
  return outside;
}

QStringList UntranslatedWords(const QString& text, const QStringList& data) {
  static const QRegularExpression kWord(QStringLiteral("\\{?[\\p{L}\u27E6\u27E7]+\\}?"));
  QStringList words;
  QRegularExpressionMatchIterator matches = kWord.globalMatch(OutsideOfTranslations(text).remove(u'&'));
  while (matches.hasNext()) {
    const QString word = matches.next().captured();
    if (!data.contains(word, Qt::CaseInsensitive)) words.append(word);
  }
  return words;
}

std::vector<std::string> UntranslatedTexts(const QStringList& data) {
  QList<QPointer<QMenu>> menus;
  for (QWidget* const widget : QApplication::allWidgets())
    if (auto* const menu = qobject_cast<QMenu*>(widget)) menus.append(menu);
  for (const QPointer<QMenu>& menu : std::as_const(menus))
    if (menu) emit menu->aboutToShow();
  Collector collector(data);
  for (QWidget* const widget : QApplication::allWidgets()) collector.Look(*widget);
  return std::move(collector).Found();
}

}  // namespace korv
