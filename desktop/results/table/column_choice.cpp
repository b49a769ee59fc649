#include "desktop/results/table/column_choice.h"

#include <QAction>
#include <QEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMenu>
#include <QSettings>
#include <utility>

#include "base/translation.h"
#include "desktop/results/table/table_columns.h"
#include "desktop/toolkit/text.h"
#include "report/key_phrases.h"

namespace korv {

namespace {

constexpr const char* kColumnsKey = "table/columns";
constexpr const char* kWidthsGroup = "table/widths/";

QString IdOf(const PhraseTableModel& model, int section) {
  return ToQt(model.Columns()[static_cast<size_t>(section)]->Id);
}

}  // namespace

ColumnChoice::ColumnChoice(QHeaderView& header, const PhraseTableModel& model, QSettings& store)
    : header_(header), model_(model), store_(store) {
  for (int section = 0; section < model_.columnCount(); ++section) {
    const int kept = store_.value(QLatin1String(kWidthsGroup) + IdOf(model_, section)).toInt();
    header_.resizeSection(section, kept > 0 ? kept : UsualWidth(section));
  }
  ShowKept();
  connect(&header_, &QHeaderView::sectionMoved, this, [this] {
    if (!applying_) Keep();
  });
  connect(&header_, &QHeaderView::sectionResized, this,
          [this](int section, int, int width) { KeepWidth(section, width); });
  header_.installEventFilter(this);
}

bool ColumnChoice::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) FillWithPhrase();
  return QObject::eventFilter(watched, event);
}

void ColumnChoice::Use(TableKind kind) {
  if (kind_ == kind) return;
  kind_ = kind;
  ShowKept();
}

QString ColumnChoice::Key() const {
  static constexpr const char* kEndings[] = {"", "_of_comparisons", "_of_drafts"};
  return QLatin1String(kColumnsKey) + QLatin1String(kEndings[static_cast<size_t>(kind_)]);
}

bool ColumnChoice::Offers(int section) const {
  return kind_ != TableKind::OneSide || !ComparesSides(*model_.Columns()[static_cast<size_t>(section)]);
}

bool ColumnChoice::IsShown(int section) const {
  return !header_.isSectionHidden(section);
}

std::vector<int> ColumnChoice::Shown() const {
  std::vector<int> shown;
  for (int visual = 0; visual < header_.count(); ++visual) {
    const int section = header_.logicalIndex(visual);
    if (IsShown(section)) shown.push_back(section);
  }
  return shown;
}

void ColumnChoice::SetOneFile(bool oneFile) {
  oneFile_ = oneFile;
  HideOrShow();
}

void ColumnChoice::Choose(int section, bool shown) {
  const QString id = IdOf(model_, section);
  chosen_.removeAll(id);
  if (shown) chosen_.append(id);
  HideOrShow();
  Keep();
  Changed();
}

void ColumnChoice::ShowForNow(const QStringList& more) {
  QStringList ids = KeptIds();
  for (const QString& id : more)
    if (!ids.contains(id)) ids.append(id);
  Apply(ids);
  Changed();
}

void ColumnChoice::ShowKept() {
  Apply(KeptIds());
  Changed();
}

QStringList ColumnChoice::KeptIds() const {
  const QStringList kept = store_.value(Key()).toStringList();
  return kept.isEmpty() ? DefaultIds() : kept;
}

void ColumnChoice::RestoreDefaults() {
  store_.remove(Key());
  for (int section = 0; section < model_.columnCount(); ++section) {
    if (IsShown(section)) header_.resizeSection(section, UsualWidth(section));
    store_.remove(QLatin1String(kWidthsGroup) + IdOf(model_, section));
  }
  ShowKept();
}

void ColumnChoice::FillMenu(QMenu& menu) {
  for (int section = 0; section < model_.columnCount(); ++section) {
    if (!Offers(section)) continue;
    const Column& column = *model_.Columns()[static_cast<size_t>(section)];
    const QString id = IdOf(model_, section);
    QAction* const action = menu.addAction(ToQt(HeadingText(column)), this,
                                           [this, section](bool shown) { Choose(section, shown); });
    action->setObjectName(QStringLiteral("mnuColumn_") + id);
    action->setCheckable(true);
    action->setChecked(chosen_.contains(id));
    action->setToolTip(model_.headerData(section, Qt::Horizontal, Qt::ToolTipRole).toString());
    // The phrase is what the row is about.
    const bool always = column.Id == "phrase";
    action->setEnabled(!always && !(oneFile_ && TellsFilesApart(column.Id)));
  }
  menu.addSeparator();
  menu.addAction(Tr("&Usual columns"), this, [this] { RestoreDefaults(); })
      ->setObjectName(QStringLiteral("mnuUsualColumns"));
  menu.setToolTipsVisible(true);
}

QStringList ColumnChoice::DefaultIds() const {
  QStringList ids;
  if (kind_ != TableKind::OneSide) {
    const bool drafts = kind_ == TableKind::Drafts;
    for (const Column* column : UsualColumnsOf(drafts ? KeyPhrases::Changes : KeyPhrases::Typical))
      ids.append(ToQt(column->Id));
    return ids;
  }
  for (const std::string_view id : ColumnsAtFirst())
    if (model_.SectionOf(id) >= 0) ids.append(ToQt(id));
  return ids;
}

void ColumnChoice::Apply(const QStringList& ids) {
  applying_ = true;
  chosen_ = ids;
  if (!chosen_.contains(QLatin1String("phrase"))) chosen_.append(QStringLiteral("phrase"));
  // The others follow in the order of the menu, so that a column that is shown later stands where one looks.
  int visual = 0;
  for (const QString& id : std::as_const(chosen_)) {
    const int section = model_.SectionOf(id.toStdString());
    if (section >= 0) header_.moveSection(header_.visualIndex(section), visual++);
  }
  for (int section = 0; section < model_.columnCount(); ++section)
    if (!chosen_.contains(IdOf(model_, section))) header_.moveSection(header_.visualIndex(section), visual++);
  HideOrShow();
  applying_ = false;
}

void ColumnChoice::HideOrShow() {
  const bool before = std::exchange(applying_, true);
  for (int section = 0; section < model_.columnCount(); ++section) {
    const bool hidden = !Offers(section) || !chosen_.contains(IdOf(model_, section)) ||
                        (oneFile_ && TellsFilesApart(model_.Columns()[static_cast<size_t>(section)]->Id));
    header_.setSectionHidden(section, hidden);
  }
  applying_ = before;
  FillWithPhrase();
}

void ColumnChoice::FillWithPhrase() {
  const int phrase = model_.SectionOf("phrase");
  if (store_.contains(QLatin1String(kWidthsGroup) + IdOf(model_, phrase))) return;
  int others = 0;
  for (const int section : Shown())
    if (section != phrase) others += header_.sectionSize(section);
  const bool before = std::exchange(applying_, true);
  header_.resizeSection(phrase, std::max(UsualWidth(phrase), header_.width() - others));
  applying_ = before;
}

int ColumnChoice::UsualWidth(int section) const {
  const Column& column = *model_.Columns()[static_cast<size_t>(section)];
  const QFontMetrics metrics(header_.font());
  // The arrow of the order has its place beside the heading.
  const int heading =
      metrics.horizontalAdvance(ToQt(HeadingText(column))) + 2 * metrics.averageCharWidth() + 14;
  const QString usual = column.Id == "phrase"             ? QString(24, u'n')
                        : column.Type == ColumnType::Text ? QString(14, u'n')
                                                          : QStringLiteral("1,234,567");
  return std::max(heading, metrics.horizontalAdvance(usual) + 12);
}

void ColumnChoice::Keep() {
  QStringList ids;
  for (int visual = 0; visual < header_.count(); ++visual) {
    const QString id = IdOf(model_, header_.logicalIndex(visual));
    if (chosen_.contains(id)) ids.append(id);
  }
  store_.setValue(Key(), ids);
}

void ColumnChoice::KeepWidth(int section, int width) {
  // A column that is hidden has no width; the one that it had is kept.
  if (width > 0 && !applying_ && IsShown(section))
    store_.setValue(QLatin1String(kWidthsGroup) + IdOf(model_, section), width);
}

}  // namespace korv
