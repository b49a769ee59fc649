#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "report/formats.h"
#include "report/report.h"
#include "report/report_form.h"
#include "report/writers/list_writer.h"
#include "report/writers/pieces.h"
#include "report/writers/text_line.h"

namespace korv {

/// The lines of a phrase in a report.
class TextRows final : public RowText {
 public:
  /// `line` and `lineEnd` outlive the object.
  TextRows(const TextLine& line, std::string_view lineEnd, bool linePerFile, TextColumns columns)
      : line_(line), lineEnd_(lineEnd), linePerFile_(linePerFile), columns_(std::move(columns)) {}

  void Append(const RowCells& cells, TextBuffer& out) override;

 private:
  void AppendFileLines(const RowCells& cells, TextBuffer& out);

  const TextLine& line_;
  std::string_view lineEnd_;
  bool linePerFile_;
  TextColumns columns_;
};

/// The report as text: opening, heading, a line per phrase, notices; padded or with tabs as its form says. A
/// line costs no allocation beyond the growth of what waits for the sink.
class TextWriter final : public ListWriter {
 public:
  /// All of them outlive the writer.
  TextWriter(const Report& report, const ReportForm& form, ReportSink& sink);

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  /// Null where the list is one line.
  std::unique_ptr<RowText> Rows() const override;
  bool MadeRow(std::string_view row) override;
  bool End(bool stopped) override;

 private:
  void AppendHeading(const ListExtent& extent);
  void AppendNoMatch();

  TextRows MakeRows() const;

  const Report& report_;
  const ReportForm& form_;
  const Format& format_;
  std::unique_ptr<TextLine> line_;
  TextColumns columns_;
  std::optional<TextRows> rows_;  ///< After Begin().
  Pieces pieces_;
  bool anyRow_ = false;
};

}  // namespace korv
