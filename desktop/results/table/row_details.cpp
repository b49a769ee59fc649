#include "desktop/results/table/row_details.h"

#include <QUrl>
#include <utility>

#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"

namespace korv {

const char* const kAloneSentence =
    "Alone: the occurrences of a phrase that do not stand within an occurrence of a longer phrase.";

namespace {

QString Grouped(uint64_t number, const NumberFormat& numbers) {
  return ToQt(numbers.Grouped(static_cast<int64_t>(number)));
}

/// A heading that says how many of all are shown.
QString Heading(const char* title, size_t shown, size_t all, const NumberFormat& numbers) {
  const QString count = shown == all
                            ? Grouped(all, numbers)
                            : QStringLiteral("%1 of %2").arg(Grouped(shown, numbers), Grouped(all, numbers));
  return QStringLiteral("<h4>%1 (%2)</h4>").arg(QLatin1String(title), count);
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
  QString text = Heading("Files", details.Files.size(), details.AllFiles, numbers) + QLatin1String("<table>");
  for (const PhraseDetails::InFile& file : details.Files)
    text += Row(ToQt(file.Path).toHtmlEscaped(), file.Count, numbers);
  return text + QLatin1String("</table>");
}

}  // namespace

QString RichText(const PhraseDetails& details, const NumberFormat& numbers) {
  QString text = QStringLiteral("<p><b>%1</b></p>").arg(ToQt(details.Text).toHtmlEscaped());
  if (details.Alone) {
    text +=
        QStringLiteral("<p>On its own: %1 of %2.</p>")
            .arg(Grouped(static_cast<uint64_t>(*details.Alone), numbers), Grouped(details.Count, numbers));
  } else {
    text += QStringLiteral("<p>Occurrences: %1.</p>").arg(Grouped(details.Count, numbers));
  }
  text += QStringLiteral("<p><small>%1</small></p>").arg(QLatin1String(kAloneSentence));
  text += Files(details, numbers);
  text += Phrases("Within longer phrases", details.Longer, details.AllLonger, numbers);
  text += Phrases("Shorter phrases in it", details.Shorter, details.AllShorter, numbers);
  return text;
}

RowDetails::RowDetails(const Desktop& desktop, QWidget* parent)
    : QTextBrowser(parent), desktop_(desktop), job_(desktop.Loop) {
  Described(Named(this, "txbRowDetails"), "Details of the phrase");
  setOpenLinks(false);
  setTabChangesFocus(true);
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    Guarded(desktop_.Messages, "txbRowDetails_Click",
            [&] { PhraseChosen(PhraseIndex{link.path().toUInt()}); })();
  });
}

RowDetails::~RowDetails() = default;

void RowDetails::Show(std::shared_ptr<const TableSource> source, const PhraseList& rows, PhraseIndex phrase) {
  if (source == nullptr || phrase == kNoPhrase) {
    job_.Stop();
    return setPlainText(QStringLiteral("Select a phrase in the table."));
  }
  job_.Start(
      [this, source = std::move(source), rows, phrase, numbers = desktop_.Numbers](NewestJob::Turn& turn) {
        const std::optional<PhraseDetails> details = DetailsOf(*source, rows, phrase, turn.Yielder());
        if (!details) return;
        turn.Tell([this, text = RichText(*details, numbers)] { setHtml(text); });
      });
}

}  // namespace korv
