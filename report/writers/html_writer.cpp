#include "report/writers/html_writer.h"

#include <algorithm>

#include "base/translation.h"
#include "report/writers/html_text.h"
#include "report/writers/table_facts.h"

namespace korv {

namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="%1" dir="ltr">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>%2</title>
<style>
:root { color-scheme: light dark; }
body { font: 1rem/1.4 system-ui, sans-serif; margin: 2rem auto; max-width: 70rem; padding: 0 1rem; }
table { border-collapse: collapse; margin: 1rem 0; }
th, td { padding: .2rem .6rem; text-align: start; vertical-align: top; }
thead th { border-bottom: 2px solid; position: sticky; top: 0; background: Canvas; }
tbody tr:nth-child(even) { background: color-mix(in srgb, CanvasText 6%, Canvas); }
.n { text-align: right; font-variant-numeric: tabular-nums; }
dt { font-weight: 600; }
</style>
</head>
<body>
<h1>%2</h1>
)";

std::string Html(std::string_view text) {
  std::string html;
  AppendHtml(text, html);
  return html;
}

/// The language of the texts as HTML names it: "pt-BR".
std::string LanguageTag() {
  std::string tag = TranslationLanguage();
  std::ranges::replace(tag, '_', '-');
  return tag.empty() ? "en" : tag;
}

bool IsNumber(const Column& column) {
  return column.Type != ColumnType::Text;
}

}  // namespace

void HtmlWriter::Begin(std::span<const Column* const> columns, const ColumnSource& source) {
  columns_.assign(columns.begin(), columns.end());
  html_ = Fill(kHead, {Html(LanguageTag()), Html(Tr("Phrases"))});
  html_ += "<details>\n<summary>" + Html(Tr("How this list came about")) + "</summary>\n<dl>\n";
  for (const TableFact& fact : FactsOf(source, about_)) {
    html_ += "<dt>";
    AppendHtml(fact.Name, html_);
    html_ += "</dt><dd>";
    AppendHtml(fact.Value, html_);
    html_ += "</dd>\n";
  }
  html_ += "</dl>\n</details>\n<table>\n<thead>\n<tr>";
  for (const Column* column : columns_) {
    html_ += IsNumber(*column) ? "<th scope=\"col\" class=\"n\" title=\"" : "<th scope=\"col\" title=\"";
    AppendHtml(DefinitionText(*column), html_);
    html_ += "\">";
    AppendHtml(HeadingText(*column), html_);
    html_ += "</th>";
  }
  html_ += "</tr>\n</thead>\n<tbody>\n";
  pieces_.Append(html_);
}

bool HtmlWriter::Row(const RowCells& cells) {
  if (++rows_ > limit_) return true;
  html_ = "<tr>";
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) {
    const Cell& cell = cells.OfPhrase[k];
    if (const auto* text = std::get_if<std::string_view>(&cell)) {
      // A phrase has the direction of its own script.
      html_ += "<td dir=\"auto\">";
      AppendHtml(*text, html_);
    } else {
      html_ += IsNumber(*columns_[k]) ? "<td class=\"n\">" : "<td>";
      html_ += number_.Of(cell);
    }
    html_ += "</td>";
  }
  html_ += "</tr>\n";
  pieces_.Append(html_);
  return pieces_.HandOverWhenLarge();
}

bool HtmlWriter::End(bool stopped) {
  html_ = "</tbody>\n</table>\n";
  for (const std::string& note : RowNotes(rows_, limit_, stopped, about_.Numbers)) {
    html_ += "<p>";
    AppendHtml(note, html_);
    html_ += "</p>\n";
  }
  html_ += "<h2>" + Html(Tr("Columns")) + "</h2>\n<dl>\n";
  for (const Column* column : columns_) {
    html_ += "<dt>";
    AppendHtml(HeadingText(*column), html_);
    html_ += "</dt><dd>";
    AppendHtml(DefinitionText(*column), html_);
    html_ += "</dd>\n";
  }
  html_ += "</dl>\n</body>\n</html>\n";
  pieces_.Append(html_);
  return pieces_.HandOverRest();
}

}  // namespace korv
