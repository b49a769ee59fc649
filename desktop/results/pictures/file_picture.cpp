#include "desktop/results/pictures/file_picture.h"

#include <QFontMetricsF>
#include <algorithm>
#include <numeric>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/legend.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr double kGap = 8;
constexpr double kMostLabel = 0.34;  ///< Of the width, for the names of files.
constexpr double kLineSpacing = 1.35;
constexpr double kBarOfLine = 0.8;

uint64_t SumOf(const FilePicture::Row& row) {
  return std::accumulate(row.Occurrences.begin(), row.Occurrences.end(), uint64_t{0});
}

}  // namespace

FilePicture::FilePicture(std::vector<QString> phrases, std::vector<Row> rows, uint64_t further,
                         NumberFormat numbers)
    : phrases_(std::move(phrases)), rows_(std::move(rows)), further_(further), numbers_(std::move(numbers)) {}

QString FilePicture::Title() const {
  return Tr("Phrases by file");
}

QString FilePicture::Description() const {
  QStringList bars;
  for (const Row& row : rows_)
    bars.append(row.File + u' ' + ToQt(numbers_.Grouped(static_cast<int64_t>(SumOf(row)))));
  const QString text = QString(Tr("Bars, by file: %1.")).arg(bars.join(QLatin1String("; ")));
  return further_ == 0 ? text : text + u' ' + FurtherText() + u'.';
}

QString FilePicture::FurtherText() const {
  if (further_ == 0) return {};
  return QString(TrCount("and %1 further file", "and %1 further files", further_))
      .arg(ToQt(numbers_.Grouped(static_cast<int64_t>(further_))));
}

double FilePicture::HeightFor(double width, const PictureStyle& style) const {
  const double line = QFontMetricsF(style.Font).height() * kLineSpacing;
  return LegendHeight(width, style, phrases_) +
         static_cast<double>(rows_.size() + (further_ > 0 ? 1 : 0)) * line;
}

void FilePicture::Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const {
  const QRectF below = PaintLegend(painter, area, style, phrases_);
  const QFontMetricsF metrics(style.Font);
  const double line = metrics.height() * kLineSpacing;
  uint64_t most = 1;
  double label = 0;
  for (const Row& row : rows_) {
    most = std::max(most, SumOf(row));
    label = std::max(label, metrics.horizontalAdvance(row.File));
  }
  label = std::min(label, below.width() * kMostLabel);
  const double numberWidth =
      metrics.horizontalAdvance(ToQt(numbers_.Grouped(static_cast<int64_t>(most)))) + kGap;
  const double left = below.left() + label + kGap;
  const double width = std::max(0.0, below.right() - numberWidth - left);
  double top = below.top();
  for (const Row& row : rows_) {
    painter.setPen(style.Text);
    painter.drawText(QRectF(below.left(), top, label, line),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(row.File, Qt::ElideMiddle, label));
    double x = left;
    for (size_t phrase = 0; phrase < row.Occurrences.size(); ++phrase) {
      const double part = static_cast<double>(row.Occurrences[phrase]) / static_cast<double>(most) * width;
      painter.fillRect(QRectF(x, top + line * (1 - kBarOfLine) / 2, part, line * kBarOfLine),
                       style.ColourOf(phrase));
      x += part;
    }
    painter.drawText(QRectF(x + kGap, top, numberWidth, line),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     ToQt(numbers_.Grouped(static_cast<int64_t>(SumOf(row)))));
    top += line;
  }
  painter.setPen(style.Text);
  painter.drawText(QRectF(left, top, width, line), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   FurtherText());
}

}  // namespace korv
