#pragma once

#include <filesystem>
#include <optional>

#include "platform/files.h"
#include "report/report_sink.h"

namespace korv {

/// The file that a library makes of a table before it goes to a sink: alone in a fresh folder that only the
/// user can enter. Both go with it.
class TableFile {
 public:
  explicit TableFile(FileSystem& files);
  ~TableFile();
  TableFile(const TableFile&) = delete;
  TableFile& operator=(const TableFile&) = delete;

  /// Only without a Fault().
  const std::filesystem::path& Path() const { return path_; }
  /// Where the library may put files of its own; none of them may be left when this goes.
  const std::filesystem::path& Folder() const { return folder_; }

  const std::optional<FileError>& Fault() const { return fault_; }
  /// Hands all of the file to the sink, in large pieces. False when it takes no more or there is a fault.
  bool HandOver(ReportSink& sink);

 private:
  void Fail(FileError error);

  FileSystem& files_;
  std::filesystem::path folder_;  ///< Empty where there is none.
  std::filesystem::path path_;    ///< Empty where there is none.
  std::optional<FileError> fault_;
};

}  // namespace korv
