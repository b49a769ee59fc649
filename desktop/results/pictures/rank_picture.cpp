#include "desktop/results/pictures/rank_picture.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/axes.h"
#include "desktop/results/pictures/ticks.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr double kHeightOfWidth = 0.5;
constexpr double kLeastHeight = 220;

std::vector<AxisMark> MarksOf(const std::vector<double>& powers, const NumberFormat& numbers) {
  std::vector<AxisMark> marks;
  marks.reserve(powers.size());
  for (const double power : powers)
    marks.push_back(
        {std::log10(power) / std::log10(powers.back()), ToQt(numbers.Grouped(static_cast<int64_t>(power)))});
  return marks;
}

}  // namespace

RankPicture::RankPicture(std::vector<FrequencyStep> frequencies, NumberFormat numbers)
    : frequencies_(std::move(frequencies)), numbers_(std::move(numbers)) {
  for (const FrequencyStep& step : frequencies_) phrases_ += step.Phrases;
}

QString RankPicture::Title() const {
  return Tr("Frequency by rank");
}

QString RankPicture::Description() const {
  if (frequencies_.empty()) return Tr("No phrase is listed.");
  const auto number = [this](uint64_t n) { return ToQt(numbers_.Grouped(static_cast<int64_t>(n))); };
  return QString(Tr("A falling line: the most frequent of %1 phrases occurs %2 times, the least frequent %3 "
                    "times."))
      .arg(number(phrases_), number(frequencies_.front().Frequency), number(frequencies_.back().Frequency));
}

double RankPicture::HeightFor(double width, const PictureStyle&) const {
  return std::max(kLeastHeight, width * kHeightOfWidth);
}

void RankPicture::Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const {
  if (frequencies_.empty()) return;
  const std::vector<double> ranks = PowersOfTen(static_cast<double>(phrases_));
  const std::vector<double> counts = PowersOfTen(frequencies_.front().Frequency);
  const QRectF inner = PaintAxes(painter, area, style,
                                 {.Across = MarksOf(ranks, numbers_),
                                  .Up = MarksOf(counts, numbers_),
                                  .AcrossTitle = Tr("Rank"),
                                  .UpTitle = Tr("Occurrences")});
  const auto at = [&](double rank, double count) {
    return QPointF(inner.left() + std::log10(rank) / std::log10(ranks.back()) * inner.width(),
                   inner.bottom() - std::log10(count) / std::log10(counts.back()) * inner.height());
  };
  // One step of the line for the phrases that share a frequency.
  QPolygonF line;
  double before = 0;
  for (const FrequencyStep& step : frequencies_) {
    line << at(before + 1, step.Frequency);
    before += static_cast<double>(step.Phrases);
    line << at(before, step.Frequency);
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(style.ColourOf(0), 2));
  painter.drawPolyline(line);
  painter.restore();
}

}  // namespace korv
