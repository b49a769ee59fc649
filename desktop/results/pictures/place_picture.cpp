#include "desktop/results/pictures/place_picture.h"

#include <QFontMetricsF>
#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/place_bar.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr double kGap = 8;
constexpr double kBarOfLine = 1.6;   ///< The height of a bar, in lines of text.
constexpr double kMostLabel = 0.28;  ///< Of the width, for the phrases.
constexpr double kBorderTick = 4;

}  // namespace

PlacePicture::PlacePicture(std::vector<Row> rows, std::vector<double> borders, uint64_t words,
                           NumberFormat numbers)
    : rows_(std::move(rows)), borders_(std::move(borders)), words_(words), numbers_(std::move(numbers)) {}

QString PlacePicture::Title() const {
  return Tr("Where phrases stand");
}

QString PlacePicture::Description() const {
  QString text = Tr("Bars from the first word to the last.");
  for (const Row& row : rows_) {
    const auto holding = std::ranges::count_if(row.Cells, [](uint32_t n) { return n > 0; });
    text += u' ' + QString(Tr("\u201c%1\u201d, %2 times, stands in %3 of %4 parts."))
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
    PaintPlaceBar(painter, bar, rows_[row].Cells, style, style.ColourOf(row));
    top += bar.height() + kGap;
  }
  PaintBorders(painter, {left, top - kGap, width, kBorderTick}, borders_, style);
  painter.setPen(style.Text);
  const QRectF foot(left, top - kGap + kBorderTick, width, line);
  painter.drawText(foot, Qt::AlignLeft | Qt::TextSingleLine, Tr("first word"));
  painter.drawText(foot, Qt::AlignRight | Qt::TextSingleLine,
                   QString(Tr("word %1")).arg(ToQt(numbers_.Grouped(static_cast<int64_t>(words_)))));
}

}  // namespace korv
