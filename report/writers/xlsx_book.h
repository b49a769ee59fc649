#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace korv {

/// A workbook in the making (Office Open XML). Sheets are written one after the other, and each row by row,
/// so that memory does not grow with them: the library keeps them in temporary files. Rows and columns count
/// from 0.
///
/// After a fault nothing more is written.
class XlsxBook {
 public:
  enum class Weight { Plain, Bold };

  /// The file is written when the book is closed. Temporary files go to `folder` and leave nothing there.
  XlsxBook(const std::filesystem::path& file, const std::filesystem::path& folder);
  ~XlsxBook();
  XlsxBook(const XlsxBook&) = delete;
  XlsxBook& operator=(const XlsxBook&) = delete;

  /// `title` of the document, and when it was made, as FormatUtc() has it. Before the first sheet.
  void Describe(const std::string& title, const std::string& made);
  /// All that follows goes into this sheet. Its name must be new.
  void AddSheet(const std::string& name);
  /// In characters.
  void SetWidth(int column, double characters);
  /// The first row stays in sight and filters the others down to `lastRow`.
  void MakeHeading(uint32_t lastRow, int lastColumn);

  /// Never a formula or a link, whatever it looks like. Of at most kMostInCell units, see SheetText().
  void PutText(uint32_t row, int column, const std::string& text, Weight weight = Weight::Plain);
  void PutWhole(uint32_t row, int column, int64_t value);
  void PutReal(uint32_t row, int column, double value);

  const std::optional<FileError>& Fault() const { return fault_; }
  /// Writes the file and reads it again, for the library does not see every failure of the disk. Cost: most
  /// of the time that a book takes, without a way to stop it.
  void Close(FileSystem& files);

 private:
  struct Parts;

  void Check(int error);
  /// Whether the library's temporary file took all that the sheet has so far.
  void CheckSheet();
  void CheckWritten(FileSystem& files);

  std::filesystem::path file_;
  std::string folder_;
  std::unique_ptr<Parts> parts_;
  std::optional<FileError> fault_;
};

}  // namespace korv
