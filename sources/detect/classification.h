#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "sources/detect/text_file_code.h"

namespace korv {

/// At most this much of a file's beginning decides what it is.
inline constexpr int32_t kScannedBytes = 16384;
/// Percentage of anomalous bytes above which a counting run takes a file for no text.
inline constexpr double kRunThreshold = 1.0;
/// The same for word-list files: a single anomalous byte is one too many.
inline constexpr double kWordListThreshold = 0.0;

/// What is known of a file's text from its beginning.
struct TextFacts {
  TextFileCode Code = TextFileCode::CannotOpen;
  uint8_t FirstAnomalousByte = 32;  ///< 32, a blank, when none was found.
  int32_t AnomalyPosition = 0;      ///< 1-based; 0 when none was found.
  double AnomalyPercent = 0;
  bool IsUtf8 = false;  ///< By signature, by declared character set, or as XML.
};

/// A file opened once, for classification and for reading on.
struct OpenedText {
  TextFacts Facts;
  std::unique_ptr<InputFile> File;  ///< Null when it could not be opened. Stands right after Head.
  std::string Head;                 ///< The file's beginning, at most kScannedBytes bytes.
};

/// Opens `path` and says what it is. A failure is in Facts.Code, and nowhere else.
///
///   OpenedText source = OpenTextSource(files, path, kRunThreshold);
///   if (!IsReadableText(source.Facts.Code)) ...
///   TextReader reader(std::move(source.Head), source.File.get(), chooser.PlanFor(source.Facts, ...));
OpenedText OpenTextSource(FileSystem& files, const std::filesystem::path& path, double threshold);

/// The same of a file that is open already, from its beginning; `name` is its path, by whose extension its
/// beginning may declare a character set.
OpenedText OpenTextSource(std::unique_ptr<InputFile> file, const std::filesystem::path& name,
                          double threshold);

/// What the first five bytes say, and (for the extensions of IsPlainTextExtension) the first ten lines that
/// are not blank: "charset=UTF-8", with or without double quotes and only in this case, or the bytes E2 80.
EncodingSignature ProbeTextEncoding(FileSystem& files, const std::filesystem::path& path,
                                    bool checkDeclaredCharset = true);

/// Probes, then scans at most `maxBytes` for control bytes and line ends. Above `threshold` percent of
/// control bytes (ten times as much, once a fifth of maxBytes has been seen) a file is no text.
TextFileCode ClassifyTextFile(FileSystem& files, const std::filesystem::path& path, int32_t maxBytes,
                              uint8_t& firstAnomalousByte, int32_t& anomalyPosition, double threshold,
                              double& anomalyPercent, bool& isUtf8, bool checkDeclaredCharset);

/// A file as ANSI text, its lines joined by CR LF, up to `maxLines` of them; blank ones are neither counted
/// nor kept where `skipBlank` is set.
Expected<std::string, FileError> ReadFirstLines(FileSystem& files, const std::filesystem::path& path,
                                                int maxLines, bool skipBlank);

/// Whether the extension is one of a plain-text or mark-up type whose head may declare a character set.
bool IsPlainTextExtension(std::string_view path);

/// The part after the last "\" or "/".
std::string_view FileNamePart(std::string_view path);
/// What follows the last "." of the name; empty when it has none.
std::string FileExtension(std::string_view path, bool lowerCase);

}  // namespace korv
