#include "desktop/results/table/row_details.h"

#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QUrl>
#include <algorithm>
#include <string_view>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/place_bar.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"

namespace korv {

const char* const kAloneInShort = TrLater("Alone: not within a longer phrase.");
const char* const kAloneSentence =
    TrLater("Alone: the occurrences of a phrase that do not stand within an occurrence of a longer phrase.");

namespace {

constexpr const char* kPlacesPicture = "places:";
constexpr double kTick = 4;  ///< Height of a tick, in pixels.

QString Grouped(uint64_t number, const NumberFormat& numbers) {
  return ToQt(numbers.Grouped(static_cast<int64_t>(number)));
}

/// A heading that says how many of all are shown.
QString Heading(const char* title, size_t shown, size_t all, const NumberFormat& numbers) {
  const QString count = shown == all
                            ? Grouped(all, numbers)
                            : QString(Tr("%1 of %2")).arg(Grouped(shown, numbers), Grouped(all, numbers));
  return QStringLiteral("<h4>%1 (%2)</h4>").arg(QString(title), count);
}

QString Row(const QString& text, uint32_t count, const NumberFormat& numbers) {
  return QStringLiteral("<tr><td align=\"right\">%1&nbsp;&nbsp;</td><td>%2</td></tr>")
      .arg(Grouped(count, numbers), text);
}

QString Phrases(const char* title, const std::vector<PhraseDetails::Other>& others, size_t all,
                const NumberFormat& numbers) {
  if (others.empty()) return {};
  QString text = Heading(title, others.size(), all, numbers) + QLatin1String("<table>");
  for (const PhraseDetails::Other& other : others) {
    const QString link = QStringLiteral("<a href=\"phrase:%1\">%2</a>")
                             .arg(ValueOf(other.Phrase))
                             .arg(ToQt(other.Text).toHtmlEscaped());
    text += Row(link, other.Count, numbers);
  }
  return text + QLatin1String("</table>");
}

QString Files(const PhraseDetails& details, const NumberFormat& numbers) {
  if (details.Files.empty()) return {};
  QString text =
      Heading(Tr("Files"), details.Files.size(), details.AllFiles, numbers) + QLatin1String("<table>");
  for (const PhraseDetails::InFile& file : details.Files)
    text += Row(ToQt(file.Path).toHtmlEscaped(), file.Count, numbers);
  return text + QLatin1String("</table>");
}

QString Places(const PhraseDetails& details, const NumberFormat& numbers) {
  if (details.Cells.empty()) return {};
  const auto holding = std::ranges::count_if(details.Cells, [](uint32_t n) { return n > 0; });
  const QString where =
      QString(Tr("From the first word to the last: in %1 of %2 equal parts of the text."))
          .arg(Grouped(static_cast<uint64_t>(holding), numbers), Grouped(details.Cells.size(), numbers));
  return QStringLiteral("<p><img src=\"%1\"><br><small>%2</small></p>")
      .arg(QLatin1String(kPlacesPicture), where);
}

/// Whether a text begins with a sign that stands right behind a word.
bool AdjoinsWord(std::string_view text) {
  return !text.empty() && std::string_view(".,;:!?)").find(text.front()) != std::string_view::npos;
}

QString Contexts(const PhraseDetails& details, const NumberFormat& numbers) {
  if (details.First.empty()) return {};
  QString text = Heading(Tr("Contexts"), details.First.size(), details.Count, numbers);
  for (const PhraseDetails::Context& context : details.First)
    text +=
        QStringLiteral("<p><a href=\"contexts:\">%1</a><br>%2 <b>%3</b>%4%5</p>")
            .arg(ToQt(context.Where).toHtmlEscaped(), ToQt(context.Left).toHtmlEscaped(),
                 ToQt(context.Phrase).toHtmlEscaped(), QLatin1String(AdjoinsWord(context.Right) ? "" : " "),
                 ToQt(context.Right).toHtmlEscaped());
  return text;
}

}  // namespace

QString RichText(const PhraseDetails& details, const NumberFormat& numbers) {
  QString text = QStringLiteral("<p><b>%1</b></p>").arg(ToQt(details.Text).toHtmlEscaped());
  const QString all = Grouped(details.Count, numbers);
  text += QStringLiteral("<p>%1</p>")
              .arg(details.Alone ? QString(Tr("On its own: %1 of %2."))
                                       .arg(Grouped(static_cast<uint64_t>(*details.Alone), numbers), all)
                                 : QString(Tr("Occurrences: %1.")).arg(all));
  text += QStringLiteral("<p><small>%1</small></p>").arg(Tr(kAloneSentence));
  text += Places(details, numbers);
  text += Contexts(details, numbers);
  text += Files(details, numbers);
  text += Phrases(Tr("Within longer phrases"), details.Longer, details.AllLonger, numbers);
  text += Phrases(Tr("Shorter phrases in it"), details.Shorter, details.AllShorter, numbers);
  return text;
}

RowDetails::RowDetails(const Desktop& desktop, QWidget* parent)
    : QTextBrowser(parent),
      desktop_(desktop),
      reading_(std::make_shared<FileReading>(desktop.Files)),
      job_(desktop.Loop) {
  Described(Named(this, "txbRowDetails"), Tr("Details of the phrase"));
  setOpenLinks(false);
  setTabChangesFocus(true);
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    Guarded(desktop_.Messages, "txbRowDetails_Click", [&] { Follow(link); })();
  });
}

RowDetails::~RowDetails() = default;

void RowDetails::Show(std::shared_ptr<const TableSource> source, const PhraseList& rows, PhraseIndex phrase) {
  if (source == nullptr || phrase == kNoPhrase) {
    // The files of a run that is gone are let go on the thread that reads them.
    job_.Start([reading = reading_](NewestJob::Turn&) { reading->Forget(); });
    shown_.reset();
    return setPlainText(Tr("Select a phrase in the table."));
  }
  job_.Start([this, source = std::move(source), rows, phrase, reading = reading_](NewestJob::Turn& turn) {
    std::optional<PhraseDetails> details = DetailsOf(*source, rows, phrase, turn.Yielder());
    if (!details) return;
    turn.Tell([this, found = *details] { Take(found); });
    reading->Do(source->SharedRun(), turn.Yielder(),
                [&](PlaceLocator& locator) { ReadContexts(source->Run(), locator, *details); });
    if (!turn.Yielder().Stopped()) turn.Tell([this, read = *std::move(details)] { Take(read); });
  });
}

void RowDetails::Take(PhraseDetails details) {
  const bool samePhrase = shown_ && shown_->Phrase == details.Phrase;
  const int at = samePhrase ? verticalScrollBar()->value() : 0;
  shown_ = std::move(details);
  Present();
  verticalScrollBar()->setValue(at);
}

void RowDetails::Present() {
  barWidth_ = BarWidth();
  setHtml(RichText(*shown_, desktop_.Numbers));
}

int RowDetails::BarWidth() const {
  constexpr int kCells = static_cast<int>(kPlaceCells);
  // The scroll bar may come and go; the picture stays as it is.
  const int room = width() - 2 * frameWidth() - 2 * static_cast<int>(document()->documentMargin()) -
                   style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  return std::clamp(room, kCells, kCells * std::max(2, fontMetrics().height() / 6));
}

void RowDetails::Follow(const QUrl& link) {
  if (link.scheme() == QLatin1String("phrase")) return PhraseChosen(PhraseIndex{link.path().toUInt()});
  ContextsAsked(shown_->Phrase);
}

QVariant RowDetails::loadResource(int type, const QUrl& name) {
  if (name != QUrl(QLatin1String(kPlacesPicture)) || !shown_) return QTextBrowser::loadResource(type, name);
  const QSize size(barWidth_, 2 * fontMetrics().height());
  QImage image(size * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(devicePixelRatioF());
  image.fill(Qt::transparent);
  QPainter painter(&image);
  const PictureStyle style = StyleOf(palette(), font());
  const QRectF bar(0.5, 0.5, size.width() - 1, size.height() - kTick - 1);
  PaintPlaceBar(painter, bar, shown_->Cells, style, style.ColourOf(0));
  PaintBorders(painter, {bar.left(), bar.bottom(), bar.width(), kTick}, shown_->Borders, style);
  return image;
}

void RowDetails::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!shown_) return QTextBrowser::mouseDoubleClickEvent(event);
  Guarded(desktop_.Messages, "txbRowDetails_DoubleClick", [&] { ContextsAsked(shown_->Phrase); })();
}

void RowDetails::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (!shown_ || BarWidth() == barWidth_) return;
  const int at = verticalScrollBar()->value();
  Present();
  verticalScrollBar()->setValue(at);
}

void RowDetails::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  const bool looks = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
  if (looks && shown_) Present();
}

}  // namespace korv
