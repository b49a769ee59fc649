#include "desktop/results/pictures/length_picture.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/axes.h"
#include "desktop/results/pictures/legend.h"
#include "desktop/results/pictures/ticks.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr double kHeightOfWidth = 0.4;
constexpr double kLeastHeight = 220;
constexpr int kTicks = 5;
/// Of the room of one length: the two bars side by side.
constexpr double kBarShare = 0.36;

double Percent(uint64_t part, uint64_t whole) {
  return whole == 0 ? 0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace

LengthPicture::LengthPicture(const ListProfile& profile, NumberFormat numbers)
    : numbers_(std::move(numbers)) {
  LengthStep all;
  for (const LengthStep& length : profile.Lengths) {
    all.Phrases += length.Phrases;
    all.Occurrences += length.Occurrences;
  }
  for (size_t words = 0; words < profile.Lengths.size(); ++words) {
    const LengthStep& length = profile.Lengths[words];
    if (length.Phrases == 0 && bars_.empty()) continue;
    bars_.push_back({static_cast<int>(words), Percent(length.Phrases, all.Phrases),
                     Percent(length.Occurrences, all.Occurrences)});
  }
  while (!bars_.empty() && bars_.back().PercentOfPhrases == 0) bars_.pop_back();
}

QString LengthPicture::Title() const {
  return Tr("Lengths of phrases");
}

QString LengthPicture::Description() const {
  if (bars_.empty()) return Tr("No phrase is listed.");
  QStringList texts;
  for (const Bars& bars : bars_)
    // Translators: phrases of %1 words make up %2 percent of the phrases and %3 percent of the occurrences.
    texts.append(QString(Tr("%1 words %2 and %3"))
                     .arg(QString::number(bars.Words), ToQt(numbers_.Decimals(bars.PercentOfPhrases, 1)),
                          ToQt(numbers_.Decimals(bars.PercentOfOccurrences, 1))));
  return QString(Tr("Bars, in percent of phrases and of occurrences: %1."))
      .arg(texts.join(QLatin1String("; ")));
}

double LengthPicture::HeightFor(double width, const PictureStyle&) const {
  return std::max(kLeastHeight, width * kHeightOfWidth);
}

void LengthPicture::Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const {
  if (bars_.empty()) return;
  const QRectF below = PaintLegend(painter, area, style, {Tr("phrases"), Tr("occurrences")});
  double most = 0;
  Axes axes{.Across = {}, .Up = {}, .AcrossTitle = Tr("Words"), .UpTitle = Tr("Percent")};
  const auto count = static_cast<double>(bars_.size());
  for (size_t k = 0; k < bars_.size(); ++k) {
    most = std::max({most, bars_[k].PercentOfPhrases, bars_[k].PercentOfOccurrences});
    axes.Across.push_back({(static_cast<double>(k) + 0.5) / count, QString::number(bars_[k].Words)});
  }
  const std::vector<double> ticks = RoundTicks(most, kTicks);
  for (const double tick : ticks) axes.Up.push_back({tick / ticks.back(), ToQt(numbers_.Decimals(tick, 0))});

  const QRectF inner = PaintAxes(painter, below, style, axes);
  const double room = inner.width() / count;
  for (size_t k = 0; k < bars_.size(); ++k) {
    const double middle = inner.left() + (static_cast<double>(k) + 0.5) * room;
    const std::array<double, 2> values = {bars_[k].PercentOfPhrases, bars_[k].PercentOfOccurrences};
    for (size_t series = 0; series < values.size(); ++series) {
      const double height = values[series] / ticks.back() * inner.height();
      const double left = middle + (series == 0 ? -kBarShare * room : 0);
      painter.fillRect(QRectF(left, inner.bottom() - height, kBarShare * room, height),
                       style.ColourOf(series));
    }
  }
}

}  // namespace korv
