#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "report/report_sink.h"
#include "report/writers/list_writer.h"

namespace korv {

/// A form of tables for other programs: a heading of the columns' Ids, a row per phrase, nothing else.
struct TableForm {
  std::string_view Name;       ///< "csv"
  std::string_view Extension;  ///< Of file names, without the dot.
  std::unique_ptr<ListWriter> (*Make)(ReportSink& sink);
};

/// All of them. A new one is a file of this folder with a row in table_forms.cpp.
std::span<const TableForm> TableForms();

/// The form that belongs to the extension of a file, upper or lower case; null when there is none. Forms are
/// constants.
const TableForm* TableFormOfFile(const std::filesystem::path& path);

}  // namespace korv
