#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/number_format.h"
#include "engine/source_path.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "sources/detect/text_file_code.h"

namespace korv {

enum class InputFileCode : int16_t {
  Valid = 0,
  InvalidSpecification = 1,  ///< Ends with a separator. The caller empties the input box.
  NotFound = 2,
  NotSpecifiedOrEmpty = 3,  ///< No path, or a file of no length.
  SameAsOutput = 4,         ///< Both names may differ; the file is the same.
};

/// The longest text that is taken from the clipboard, in characters.
inline constexpr int64_t kClipboardLimit = 100000;
/// The size in bytes from which on a single file without an output file is asked about.
inline constexpr uint64_t kLargeInputBytes = 200001;
/// The number of characters that are checked in a text of unknown length, such as standard input.
inline constexpr size_t kLookedAtCharacters = 16384;

/// The path without the blanks around it.
std::string TrimmedPath(std::string_view path);
/// The path without the blanks around it and without separators at its end. "/" and "C:\" stay.
std::string TrimmedFolderPath(std::string_view path);
/// The path as it is but without separators at its end. "/" and "C:\" stay.
std::string WithoutEndSeparators(std::string path);

/// Checks the path of a single input file. Trims both paths. An empty `outputPath` means no output file.
InputFileCode ValidateInputFile(const FileSystem& files, std::string_view inputPath,
                                std::string_view outputPath);
/// Shows the message for a code; nothing for Valid.
void ShowInputFileError(Messages& messages, InputFileCode code, std::string_view inputPath);

/// Whether the folder source may be counted; if not, the user has been told why.
/// `offersSubfolders`: a folder that holds nothing but subfolders is refused with their names, and where
/// they are included the user may have them counted all the same.
bool ValidateFolder(FileSystem& files, Messages& messages, std::string_view folderPath,
                    std::string_view outputPath, bool includeSubfolders, bool offersSubfolders = false);
/// Whether an output file would lie where a folder run reads. Also guards the choice of an output file.
bool OutputIsInFolder(const FileSystem& files, std::string_view folderPath, std::string_view outputPath,
                      bool includeSubfolders);
void ShowOutputInFolder(Messages& messages);
/// Whether an output file would be none of the files of `paths` and lie in none of the folders, as these are
/// read; if not, the user has been told. An empty `outputPath` means no output file.
bool ValidateOutputBeside(const FileSystem& files, Messages& messages, std::span<const SourcePath> paths,
                          std::string_view outputPath, bool includeSubfolders);
/// Several files need an output file. True where the user has the result shown in the window instead, which
/// is possible only if `offersWindow`.
bool ShowMultipleFilesNeedOutput(Messages& messages, bool offersWindow = false);

/// Whether both paths name one file: equal when made absolute and lower-cased, or the same file on disk.
bool PathsMeetInOneFile(const FileSystem& files, std::string_view a, std::string_view b);

/// Refuses a text above the limit with a message. An empty text passes: the run reports it.
bool CheckClipboardText(std::string_view text, Messages& messages, const NumberFormat& format,
                        int64_t limit = kClipboardLimit);
/// Whether the text consists of words: among its first `characters` there is at least one letter, and at most
/// 1 % of them are control characters other than line ends, tabs, form feeds and backspaces.
bool IsNaturalLanguage(std::string_view text, size_t characters);
/// Where a text comes from that is no file.
enum class TextPlace { Clipboard, StandardInput };
/// The same of a text that must not be empty. If not, shows a message that names `place`. `addition` is a
/// line below the message for text that is no words.
bool CheckNaturalLanguage(std::string_view text, Messages& messages,
                          size_t characters = std::string_view::npos, TextPlace place = TextPlace::Clipboard,
                          std::string addition = {});

/// Asks whether to name an output file for a large input: Yes, No (go on without) or Cancel.
Answer AskLargeInput(Messages& messages);

/// What the label of the file's kind says while it is read.
std::string FileKindWhileReading(bool isUtf8);
/// And after the run. In English: runs are kept with it, and whoever shows it gives it to Tr().
std::string FileKindAfterRun(bool isUtf8, TextFileCode code);
/// The labels of a file's size, and of the size of the text in it.
std::string FileSizeLabel(uint64_t bytes, const NumberFormat& format);
std::string TextSizeLabel(uint64_t bytes, const NumberFormat& format);

}  // namespace korv
