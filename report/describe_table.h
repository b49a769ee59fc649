#pragma once

#include <filesystem>

#include "platform/files.h"
#include "platform/messages.h"
#include "report/digest_sink.h"
#include "report/list_words.h"
#include "report/report_form.h"
#include "report/run_summary.h"

namespace korv {

/// Where the description of a table in the file `table` goes: into datapackage.json of its folder, or into
/// NAME.datapackage.json where that file is there and describes something else.
std::filesystem::path DescriptionPath(const std::filesystem::path& table, FileSystem& files);

/// A table as it was written: what its description is made of.
struct DescribedTable {
  const TableOutput& Table;  ///< With a Form.
  const RunSummary& Facts;
  const ListResult& List;
  DigestSink& Bytes;           ///< It all went through this one, which is finished here.
  std::filesystem::path Path;  ///< Empty for a table that went to a stream.
};

/// Writes the description of a table into the file `path`, in place of what it holds. A failure is shown and
/// leaves the file as it was; false then.
bool WriteDescription(const DescribedTable& described, const std::filesystem::path& path, FileSystem& files,
                      Messages& messages);

}  // namespace korv
