#pragma once

#include <string>
#include <vector>

namespace korv {

struct Column;
struct TableForm;

/// How the columns of a line stand beside each other.
enum class Layout {
  Columns,  ///< A blank, then padded columns with two blanks between them: for reading.
  Tabs,     ///< One tab between columns, one after every phrase: for other programs.
};

/// The outer form of a report.
struct ReportForm {
  Layout LineLayout = Layout::Columns;
  /// Whole report file: its header, and notices on lines of their own. Otherwise what the text box gets.
  bool File = false;
  /// The files and folders that could not be counted are named behind the files-scanned text.
  bool SkippedFiles = false;
  std::string LineEnd = "\r\n";
  /// A table for other programs instead, without all of the above. Null for the report as text.
  const TableForm* Table = nullptr;
  /// Of the table; empty for the usual ones.
  std::vector<const Column*> Columns = {};
};

}  // namespace korv
