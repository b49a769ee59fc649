#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/program_text.h"
#include "report/list_words.h"
#include "report/text_output.h"

namespace korv {

/// Carries a report into a file that is being written. Where writing fails it takes no more and keeps the
/// error. `encoding` may be null: UTF-8.
class FileReportSink final : public ReportSink {
 public:
  explicit FileReportSink(OutputFile& file, CodePage* encoding = nullptr,
                          std::function<void(uint32_t)> progress = {})
      : file_(file), encoding_(encoding), progress_(std::move(progress)) {}
  bool Write(std::string_view piece) override;
  size_t PieceSize() const override { return size_t{1} << 19; }
  void PhraseEnds(size_t) override { ++phrases_; }
  uint64_t Bytes() const { return bytes_; }
  const std::optional<FileError>& Error() const { return error_; }

 private:
  OutputFile& file_;
  CodePage* encoding_;
  std::function<void(uint32_t)> progress_;
  uint32_t phrases_ = 0;
  uint64_t bytes_ = 0;
  std::string encoded_;
  std::optional<FileError> error_;
};

/// What listing into files needs of the program. `Texts` may be null (no advice), `Box` too (no notices
/// of progress), and so may `Encoding` (UTF-8).
struct FileListingServices {
  FileSystem& Files;
  Messages& Dialogs;
  const ProgramText* Texts = nullptr;
  TextOutput* Box = nullptr;
  CodePage* Encoding = nullptr;
  TableOutput Table = {};  ///< Tables are UTF-8 whatever `Encoding` is.
  /// The file that gets a description of the table (DescriptionPath()); empty for none.
  std::filesystem::path DescribeTo = {};
  /// Told now and then how many phrases have been written so far; may be empty.
  std::function<void(uint32_t)> Progress = {};
};

struct FileListResult {
  ListResult List;
  bool Written = false;    ///< The file holds the report; after a stop, its lines up to there.
  bool Described = false;  ///< A description was asked for, and is there.
  uint64_t Bytes = 0;      ///< What was written; the length of the file where Written.
};

/// "3,999 phrases were written to out.txt."
std::string WrittenText(uint32_t phrases, const std::string& path, const NumberFormat& numbers);

/// Lists into the file `path`, in place of what it holds. Every failure is shown here and leaves the file
/// as it was. So does a stop, which keeps the lines written so far only where there was no file before, and
/// nothing of a table that a library makes only in the end.
FileListResult ListWordsToFile(const Report& report, const std::filesystem::path& path,
                               const FileListingServices& services, Yielder& yielder);

/// After a stop: what the file holds now. One sentence.
std::string StoppedFileText(const FileListResult& result, const NumberFormat& numbers);

/// Which file a listing may replace: asks before it writes over one, and remembers those that it need not
/// ask for again because this program wrote them.
class OverwriteGuard {
 public:
  OverwriteGuard(const FileSystem& files, Messages& messages) : files_(files), messages_(messages) {}

  /// The path to write to, perhaps another one than `path`, as the user edited it; empty when output to a
  /// file is to be disabled (cancelled, or a folder that does not exist, which is shown). An edited path
  /// has yet to pass the checks that protect the input. `always`: ask for files that this program wrote,
  /// too.
  std::optional<std::string> Confirm(std::string path, bool always);
  void Written(const std::filesystem::path& path);

 private:
  bool WrittenBefore(const std::filesystem::path& path) const;

  const FileSystem& files_;
  Messages& messages_;
  std::vector<std::filesystem::path> written_;
};

/// Before a count: whether the output file can be opened. It is left as it is. Where it cannot, says so
/// and returns false; the run then goes on without it.
bool CanOpenOutputFile(const std::filesystem::path& path, FileSystem& files, Messages& messages);

}  // namespace korv
