#include "desktop/results/table/table_columns.h"

#include <algorithm>
#include <array>

#include "base/translation.h"
#include "desktop/results/table/first_column.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

QString Paragraph(const QString& text) {
  return QStringLiteral("<p>%1</p>").arg(text);
}

}  // namespace

std::vector<const Column*> WindowColumns(TableOf run) {
  std::vector<const Column*> columns = TableColumns(run);
  for (const Column*& column : columns)
    if (column->Id == "first_file") column = &FirstColumn();
  std::erase_if(columns, [](const Column* column) { return column->Id == "first_line"; });
  return columns;
}

bool ComparesSides(const Column& column) {
  return std::ranges::any_of(ComparisonColumns(), [&](const Column& one) { return &one == &column; });
}

std::vector<const Column*> ColumnsForOthers(const Column& column) {
  if (&column != &FirstColumn()) return {&column};
  return {FindColumn("first_file"), FindColumn("first_line")};
}

std::span<const std::string_view> ColumnsAtFirst() {
  static constexpr std::array<std::string_view, 9> kAtFirst = {
      "rank", "phrase", "frequency", "per_million", "words", "files", "dispersion", "net_frequency", "first"};
  return kAtFirst;
}

bool TellsFilesApart(std::string_view id) {
  static constexpr std::array<std::string_view, 2> kOfFiles = {"files", "files_percent"};
  return std::ranges::find(kOfFiles, id) != kOfFiles.end();
}

bool IsComputed(const Column& column) {
  return column.Type != ColumnType::Text && (column.NeedsFileCount || column.Needs.Any());
}

QString TipOfColumn(const Column& column, const RunSummary& facts, PartChoice parts,
                    const NumberFormat& numbers) {
  const auto grouped = [&](uint64_t number) { return ToQt(numbers.Grouped(static_cast<int64_t>(number))); };
  const QString title = ToQt(HeadingText(column)).toHtmlEscaped();
  QString tip =
      QStringLiteral("<p><b>%1</b></p><p>%2</p>").arg(title, ToQt(DefinitionText(column)).toHtmlEscaped());
  if (column.Type != ColumnType::Text) {
    tip += Paragraph(QString(Tr("In this run N = %1 running words, n = %2 words taken."))
                         .arg(grouped(facts.Words.Read()), grouped(facts.Words.Taken)));
  }
  if (facts.SecondSide && ComparesSides(column)) {
    tip += Paragraph(
        QString(Tr("A has %1 running words, B %2."))
            .arg(grouped(SizeOf(facts, Side::A).Words.Read()), grouped(SizeOf(facts, Side::B).Words.Read())));
  }
  if (column.Needs.Parts || column.Needs.SideParts) {
    const char* const equal = parts.OfEachFile ? Tr("Parts of this run: %1 equal ones of each file.")
                                               : Tr("Parts of this run: %1 equal ones of the whole.");
    tip += Paragraph(parts.Equal == PartChoice::kFiles ? QString(Tr("Parts of this run: files."))
                                                       : QString(equal).arg(parts.Equal));
  }
  return tip;
}

}  // namespace korv
