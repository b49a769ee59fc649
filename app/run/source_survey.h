#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_format.h"
#include "base/yielder.h"
#include "engine/source_path.h"
#include "platform/files.h"
#include "report/run_summary.h"
#include "sources/folders/file_selection.h"

namespace korv {

/// A source to be looked at before it is counted. Paths as in RunRequest.
struct SurveyRequest {
  TextSource Kind = TextSource::SingleFile;
  std::string Path{};                  ///< UTF-8, as typed.
  std::vector<SourcePath> Together{};  ///< Of a folder source: several paths in its place.
  FileSelection Selection{};           ///< Of a single file only whether further documents are read.
  bool IncludeSubfolders = false;

  bool operator==(const SurveyRequest&) const = default;
};

/// What a look at a source has found.
struct SourceSurvey {
  TextSource Kind = TextSource::SingleFile;
  bool Found = false;         ///< There is such a file or folder.
  uint64_t Files = 0;         ///< Of a folder: those that are wanted.
  uint64_t Folders = 0;       ///< Of a folder: those entered, the chosen one included.
  uint64_t Bytes = 0;         ///< Of all files together.
  std::string_view FileKind;  ///< Of a single file, in English: "Plain text", "HTML".
  std::string_view Refusal;   ///< Why a single file cannot be counted, as SkipReason(); empty where it can.
  bool LookedInto = false;    ///< The beginnings of all files were read; what follows holds then.
  uint64_t Refused = 0;       ///< Of a folder: files that a run would skip.
  EncodingCounts Encodings;   ///< Of those whose beginning tells.
};

/// The most files of a folder whose beginnings are read: more take longer than anybody looks at the line.
inline constexpr uint64_t kMostLookedInto = 1000;

/// Looks at a source: walks its folder, reads at most 32 KB of the beginning of each file, and asks nothing.
/// A clipboard is not looked at. Linear in the number of files. What a stop leaves is to be thrown away.
SourceSurvey SurveySource(const SurveyRequest& request, FileSystem& files, Yielder& yielder);

/// "206 files, 31.0 Mb, UTF-8"; of a single file, whose size stands elsewhere, "HTML, UTF-8". Empty where
/// there is nothing to tell.
std::string SurveyText(const SourceSurvey& survey, const NumberFormat& numbers);

}  // namespace korv
