#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "base/translation.h"
#include "report/report_sink.h"
#include "report/writers/list_writer.h"
#include "report/writers/table_description.h"

namespace korv {

/// What a reader must know of a form with a line for each row.
struct TableDialect {
  std::string_view Delimiter;
  std::string_view LineEnd;
  bool Quotes = false;  ///< Around cells that need them; quotes in these are doubled.
  std::string_view DecimalPoint = ".";
};

/// A form of tables for other programs: a row per phrase with the columns that are asked for.
struct TableForm {
  std::string_view Name;  ///< "csv"
  /// Of file names, without the dot; a second one may be empty.
  std::string_view Extension;
  std::string_view OtherExtension = {};
  std::string_view Title = {};  ///< For people, in English: "Comma-separated values".
  /// Null where this program was built without the library that the form takes. `files` is for what is
  /// temporary; only binary forms need it.
  std::unique_ptr<ListWriter> (*Make)(ReportSink& sink, const TableDescription& about,
                                      FileSystem* files) = nullptr;
  bool Binary = false;  ///< No text, and thus for files alone.

  // For descriptions of tables.
  std::string_view MediaType = {};
  /// Readers of tables find a heading and a row per phrase in it, and nothing that is in their way.
  bool Tabular = false;
  TableDialect (*Dialect)(const TableDescription& about) = nullptr;  ///< Null where it needs no telling.
};

/// Its title in the user's language.
inline const char* TitleText(const TableForm& form) {
  return Tr(form.Title.data());
}

/// All of them, also those that this program was built without. A new one is a file of this folder with a row
/// in table_forms.cpp.
std::span<const TableForm> TableForms();

/// The form of this name, which exists.
const TableForm& TableFormOf(std::string_view name);

/// The form that belongs to the extension of a file, upper or lower case; null when there is none. Forms are
/// constants.
const TableForm* TableFormOfFile(const std::filesystem::path& path);

/// Comma-separated values as spreadsheets want them: with a signature, with what begins like a formula made a
/// text, and with a semicolon and a decimal comma where `about.Numbers` has one.
const TableForm& SpreadsheetCsv();

}  // namespace korv
