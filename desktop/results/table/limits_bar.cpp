#include "desktop/results/table/limits_bar.h"

#include <fmt/format.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <algorithm>
#include <string_view>

#include "base/translation.h"
#include "desktop/results/table/table_columns.h"
#include "desktop/results/table/wrong_mark.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "report/columns/registry.h"

namespace korv {

namespace {

constexpr std::string_view kLimited[] = {"frequency", "words", "files", "dispersion", "net_frequency"};

}  // namespace

LimitsBar::LimitsBar(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QGridLayout(this));
  for (const std::string_view id : kLimited) {
    const Column* const column = FindColumn(id);
    if (column == nullptr) continue;
    rows_.push_back(MakeRow(*column));
    // Two of them stand side by side, so that a narrow window has room.
    const int place = static_cast<int>(rows_.size()) - 1;
    layout->addWidget(rows_.back().Box, place / 2, place % 2, Qt::AlignLeft);
  }
  layout->setColumnStretch(1, 1);
}

LimitsBar::~LimitsBar() {
  StopListening(*this);
}

LimitsBar::Row LimitsBar::MakeRow(const Column& column) {
  const Wiring wiring(*this, desktop_.Messages);
  auto* box = new QWidget(this);
  auto* layout = Bare(new QHBoxLayout(box));
  const QString heading = ToQt(HeadingText(column));
  const auto field = [&](const char* name, const char* which, const char* hint) {
    const QString id = ToQt(column.Id);
    auto* line = MakeTextBox("", "", box);
    line->setObjectName(QLatin1String(name) + id);
    line->setAccessibleName(QString(which).arg(heading));
    line->setPlaceholderText(hint);
    line->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("1,000,000")) + 16);
    line->setAlignment(Qt::AlignRight);
    wiring.OnText(line, "txbLimit_Change", [this] { Typed(); });
    return line;
  };
  const Row row{&column, box, field("txbLeast_", Tr("Least %1"), Tr("least")),
                field("txbMost_", Tr("Most %1"), Tr("most"))};
  auto* caption = MakeCaption("", row.Least, box);
  caption->setText(heading);
  layout->addWidget(caption);
  layout->setContentsMargins(0, 0, 16, 0);
  layout->addWidget(row.Least);
  // Translators: stands between the least and the greatest value.
  layout->addWidget(new QLabel(Tr("to"), box));
  layout->addWidget(row.Most);
  return row;
}

std::optional<double> LimitsBar::NumberIn(const QLineEdit& field) const {
  QString text = field.text().trimmed();
  if (!desktop_.Numbers.GroupSeparator.empty()) text.remove(ToQt(desktop_.Numbers.GroupSeparator));
  text.replace(ToQt(desktop_.Numbers.DecimalPoint), QLatin1String("."));
  bool isNumber = false;
  const double number = QLocale::c().toDouble(text, &isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}

std::vector<Limit> LimitsBar::Limits() const {
  std::vector<Limit> limits;
  for (const Row& row : rows_) {
    if (row.Box->isHidden()) continue;
    const Limit limit{row.Of, NumberIn(*row.Least), NumberIn(*row.Most)};
    if (limit.Least || limit.Most) limits.push_back(limit);
  }
  return limits;
}

bool LimitsBar::Check() {
  bool good = true;
  for (const Row& row : rows_) {
    for (QLineEdit* field : {row.Least, row.Most}) {
      const bool wrong = !field->text().trimmed().isEmpty() && !NumberIn(*field);
      MarkWrong(*field, wrong ? Tr("This is no number.") : QString());
      good = good && !wrong;
    }
  }
  return good;
}

void LimitsBar::Clear() {
  Set({});
}

void LimitsBar::Set(const std::vector<Limit>& limits) {
  for (const Row& row : rows_) {
    const auto found = std::ranges::find(limits, row.Of, &Limit::Of);
    const auto put = [&](QLineEdit* field, std::optional<double> Limit::*bound) {
      const bool set = found != limits.end() && (*found).*bound;
      std::string text = set ? fmt::format("{:.9g}", *((*found).*bound)) : std::string();
      field->setText(ToQt(text).replace(u'.', ToQt(desktop_.Numbers.DecimalPoint)));
    };
    put(row.Least, &Limit::Least);
    put(row.Most, &Limit::Most);
  }
}

void LimitsBar::SetOneFile(bool oneFile) {
  for (const Row& row : rows_) row.Box->setVisible(!oneFile || !TellsFilesApart(row.Of->Id));
}

std::vector<QWidget*> LimitsBar::TabOrder() const {
  std::vector<QWidget*> order;
  for (const Row& row : rows_) {
    order.push_back(row.Least);
    order.push_back(row.Most);
  }
  return order;
}

}  // namespace korv
