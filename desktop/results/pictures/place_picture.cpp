#include "desktop/results/pictures/place_picture.h"

#include <QFontMetricsF>
#include <algorithm>
#include <utility>

#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr double kGap = 8;
constexpr double kBarOfLine = 1.6;   ///< The height of a bar, in lines of text.
constexpr double kMostLabel = 0.28;  ///< Of the width, for the phrases.
/// A cell with one occurrence is seen beside one with a thousand.
constexpr double kLeastFilled = 0.18;
constexpr double kBorderTick = 4;

}  // namespace

PlacePicture::PlacePicture(std::vector<Row> rows, std::vector<double> borders, uint64_t words,
                           NumberFormat numbers)
    : rows_(std::move(rows)), borders_(std::move(borders)), words_(words), numbers_(std::move(numbers)) {}

QString PlacePicture::Title() const {
  return QStringLiteral("Where phrases stand");
}

QString PlacePicture::Description() const {
  QString text = QStringLiteral("Bars from the first word to the last.");
  for (const Row& row : rows_) {
    const auto holding = std::ranges::count_if(row.Cells, [](uint32_t n) { return n > 0; });
    text += QStringLiteral(" \u201c%1\u201d, %2 times, stands in %3 of %4 parts.")
                .arg(row.Phrase, ToQt(numbers_.Grouped(row.Frequency)), QString::number(holding),
                     QString::number(row.Cells.size()));
  }
  return text;
}

double PlacePicture::HeightFor(double, const PictureStyle& style) const {
  const double line = QFontMetricsF(style.Font).height();
  return static_cast<double>(rows_.size()) * (kBarOfLine * line + kGap) + kBorderTick + kGap + line;
}

void PlacePicture::Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const {
  const QFontMetricsF metrics(style.Font);
  const double line = metrics.height();
  double label = 0;
  double count = 0;
  for (const Row& row : rows_) {
    label = std::max(label, metrics.horizontalAdvance(row.Phrase));
    count = std::max(count, metrics.horizontalAdvance(ToQt(numbers_.Grouped(row.Frequency))));
  }
  label = std::min(label, area.width() * kMostLabel);
  const double left = area.left() + label + kGap;
  const double width = std::max(0.0, area.right() - count - kGap - left);

  double top = area.top();
  for (size_t row = 0; row < rows_.size(); ++row) {
    const QRectF bar(left, top, width, kBarOfLine * line);
    painter.setPen(style.Text);
    painter.drawText(QRectF(area.left(), top, label, bar.height()),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(rows_[row].Phrase, Qt::ElideMiddle, label));
    painter.drawText(QRectF(bar.right() + kGap, top, count, bar.height()),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     ToQt(numbers_.Grouped(rows_[row].Frequency)));
    PaintRow(painter, bar, style, row);
    top += bar.height() + kGap;
  }
  painter.setPen(style.Line);
  for (const double border : borders_) {
    const double x = left + border * width;
    painter.drawLine(QPointF(x, top - kGap), QPointF(x, top - kGap + kBorderTick));
  }
  painter.setPen(style.Text);
  const QRectF foot(left, top - kGap + kBorderTick, width, line);
  painter.drawText(foot, Qt::AlignLeft | Qt::TextSingleLine, QStringLiteral("first word"));
  painter.drawText(foot, Qt::AlignRight | Qt::TextSingleLine,
                   QStringLiteral("word %1").arg(ToQt(numbers_.Grouped(static_cast<int64_t>(words_)))));
}

void PlacePicture::PaintRow(QPainter& painter, const QRectF& bar, const PictureStyle& style,
                            size_t row) const {
  const std::vector<uint32_t>& cells = rows_[row].Cells;
  const uint32_t most = cells.empty() ? 0 : std::ranges::max(cells);
  const double width = bar.width() / static_cast<double>(std::max<size_t>(cells.size(), 1));
  for (size_t cell = 0; cell < cells.size(); ++cell) {
    if (cells[cell] == 0) continue;
    const double share = static_cast<double>(cells[cell]) / most;
    const double height = std::max(kLeastFilled, share) * bar.height();
    painter.fillRect(
        QRectF(bar.left() + static_cast<double>(cell) * width, bar.bottom() - height, width, height),
        style.ColourOf(row));
  }
  painter.setPen(style.Line);
  painter.drawRect(bar);
}

}  // namespace korv
