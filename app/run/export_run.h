#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "app/run/shown_result.h"
#include "base/clock.h"
#include "base/gauge.h"
#include "engine/analysis/phrase_list.h"
#include "engine/analysis/text_parts.h"
#include "platform/program_text.h"
#include "report/output_file.h"
#include "report/writers/table_forms.h"

namespace korv {

/// What is to be exported of a finished run, and as what.
struct ExportRequest {
  const TableForm* Form = nullptr;
  std::vector<const Column*> Columns;  ///< With a Value. Empty for all that tables can have.
  std::optional<PhraseList> Rows;      ///< Nothing: all phrases that the run lists, by rank.
  bool Described = false;              ///< A description of the table goes into a file beside it.
  PartChoice Parts;                    ///< Over which columns tell how evenly phrases are spread.
  /// Of a run that compares: what its phrases are compared by.
  ComparisonBasis ComparedBy = ComparisonBasis::Words;
};

struct ExportServices {
  FileSystem& Files;
  Messages& Dialogs;
  const ProgramText* Texts;
  korv::Yielder& Yielder;
  const korv::Clock& Clock;
  const NumberFormat& Numbers;
  Gauge<uint32_t>& Exported;  ///< Phrases so far.
};

/// All columns that a table of the run can have.
std::vector<const Column*> ColumnsOfExport(const RunSummary& facts);

/// Writes a finished run as a table into the file `path`, as ListWordsToFile() does: failures are shown, and
/// they and a stop leave a file as it was. A file that was counted is not replaced; that is shown, too. Uses
/// the frequency chain, as listings do. Cost: that of all columns, for all rows.
FileListResult ExportRun(ShownResult& result, const ExportRequest& request, const std::filesystem::path& path,
                         const ExportServices& services);

}  // namespace korv
