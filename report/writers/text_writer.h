#pragma once

#include <memory>
#include <string>

#include "report/formats.h"
#include "report/report.h"
#include "report/report_form.h"
#include "report/writers/list_writer.h"
#include "report/writers/pieces.h"
#include "report/writers/text_line.h"

namespace korv {

/// The report as text: opening, heading, a line per phrase, notices; padded or with tabs as its form says. A
/// line costs no allocation beyond the growth of what waits for the sink.
class TextWriter final : public ListWriter {
 public:
  /// All of them outlive the writer.
  TextWriter(const Report& report, const ReportForm& form, ReportSink& sink);

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;

 private:
  void AppendHeading(const ListExtent& extent);
  void AppendFileLines(const RowCells& cells);
  void AppendNoMatch();

  const Report& report_;
  const ReportForm& form_;
  const Format& format_;
  std::unique_ptr<TextLine> line_;
  TextColumns columns_;
  Pieces pieces_;
  bool anyRow_ = false;
};

}  // namespace korv
