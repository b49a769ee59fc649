#include "desktop/results/table/table_columns.h"

#include <algorithm>
#include <array>

#include "desktop/toolkit/text.h"

namespace korv {

std::span<const std::string_view> ColumnsAtFirst() {
  static constexpr std::array<std::string_view, 8> kAtFirst = {
      "rank", "phrase", "frequency", "per_million", "words", "files", "dispersion", "net_frequency"};
  return kAtFirst;
}

bool TellsFilesApart(std::string_view id) {
  static constexpr std::array<std::string_view, 3> kOfFiles = {"files", "files_percent", "first_file"};
  return std::ranges::find(kOfFiles, id) != kOfFiles.end();
}

QString TipOfColumn(const Column& column, const RunSummary& facts, const NumberFormat& numbers) {
  const auto grouped = [&](uint64_t number) { return ToQt(numbers.Grouped(static_cast<int64_t>(number))); };
  const QString title = ToQt(column.Heading).toHtmlEscaped();
  QString tip =
      QStringLiteral("<p><b>%1</b></p><p>%2</p>").arg(title, ToQt(column.Definition).toHtmlEscaped());
  if (column.Type != ColumnType::Text) {
    tip += QStringLiteral("<p>In this run N = %1 running words, n = %2 words taken.</p>")
               .arg(grouped(facts.Words.Read()), grouped(facts.Words.Taken));
  }
  return tip;
}

}  // namespace korv
