#pragma once

#include <string>
#include <vector>

#include "report/writers/table_description.h"

namespace korv {

class FileSystem;
struct Column;
struct TableForm;

/// How the columns of a line stand beside each other.
enum class Layout {
  Columns,  ///< A blank, then padded columns with two blanks between them: for reading.
  Tabs,     ///< One tab between columns, one after every phrase: for other programs.
};

/// A table for other programs instead of a report as text.
struct TableOutput {
  const TableForm* Form = nullptr;          ///< Null for the report as text; the rest has no effect then.
  std::vector<const Column*> Columns = {};  ///< Empty for the usual ones.
  TableDescription About = {};              ///< For forms that describe themselves.
};

/// The outer form of a report.
struct ReportForm {
  Layout LineLayout = Layout::Columns;
  /// Whole report file: its header, and notices on lines of their own. Otherwise what the text box gets.
  bool File = false;
  /// The files and folders that could not be counted are named behind the files-scanned text.
  bool SkippedFiles = false;
  std::string LineEnd = "\r\n";
  TableOutput Table = {};       ///< Where it asks for one, without all of the above.
  FileSystem* Files = nullptr;  ///< For what is temporary. Binary tables need it.
};

}  // namespace korv
