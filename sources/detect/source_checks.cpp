#include "sources/detect/source_checks.h"

#include <algorithm>
#include <vector>

#include "base/size_text.h"
#include "base/translation.h"
#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"
#include "sources/questions.h"

namespace korv {

namespace {

using std::filesystem::path;

bool IsSeparator(char c) {
  return c == '\\' || c == '/';
}

std::string Lowered(const path& path) {
  return LowerText(PathToText(path));
}

void Complain(Messages& messages, std::string text, std::string title, Icon icon = Icon::Exclamation) {
  messages.Show({.Text = std::move(text), .Title = std::move(title), .Icon = icon});
}

// Both paths absolute.
bool LiesIn(const path& folder, const path& file, bool subfolders) {
  // A sibling whose name merely begins like the folder's is caught too: refusing it costs the user another
  // name, overlooking a path that leads inside could cost a file.
  if (subfolders) return Lowered(file).starts_with(Lowered(folder));
  return Lowered(file.parent_path()) == Lowered(folder);
}

/// "It holds 2 subfolders: letters, notes."
std::string SubfoldersText(const std::vector<path>& subfolders) {
  constexpr size_t kNamed = 5;
  std::vector<std::string> names;
  names.reserve(subfolders.size());
  for (const path& name : subfolders) names.push_back(PathToText(name));
  std::ranges::sort(names);
  std::string named;
  for (size_t i = 0; i < std::min(kNamed, names.size()); ++i) named += (i == 0 ? "" : ", ") + names[i];
  const uint64_t count = names.size();
  return Fill(count > kNamed
                  ? TrCount("It holds %1 subfolder: %2, ...", "It holds %1 subfolders: %2, ...", count)
                  : TrCount("It holds %1 subfolder: %2.", "It holds %1 subfolders: %2.", count),
              {std::to_string(count), named});
}

}  // namespace

std::string TrimmedPath(std::string_view path) {
  const size_t first = path.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(path.substr(first, path.find_last_not_of(' ') - first + 1));
}

std::string TrimmedFolderPath(std::string_view typed) {
  return WithoutEndSeparators(TrimmedPath(typed));
}

std::string WithoutEndSeparators(std::string folder) {
  const auto atDrive = [&] { return folder.size() == 3 && folder[1] == ':'; };
  while (folder.size() > 1 && IsSeparator(folder.back()) && !atDrive()) folder.pop_back();
  return folder;
}

InputFileCode ValidateInputFile(const FileSystem& files, std::string_view inputPath,
                                std::string_view outputPath) {
  const std::string input = TrimmedPath(inputPath);
  if (input.empty()) return InputFileCode::NotSpecifiedOrEmpty;
  if (IsSeparator(input.back())) return InputFileCode::InvalidSpecification;
  const path file = PathFromText(input);
  if (!files.FileExists(file)) return InputFileCode::NotFound;
  // What has no size (a pipe) shows only when it is read whether there is anything in it.
  const Expected<uint64_t, FileError> size = files.FileSize(file);
  if (size && *size == 0) return InputFileCode::NotSpecifiedOrEmpty;
  const std::string output = TrimmedPath(outputPath);
  if (!output.empty() && PathsMeetInOneFile(files, input, output)) return InputFileCode::SameAsOutput;
  return InputFileCode::Valid;
}

void ShowInputFileError(Messages& messages, InputFileCode code, std::string_view inputPath) {
  switch (code) {
    case InputFileCode::Valid:
      break;
    case InputFileCode::InvalidSpecification:
      Complain(messages, Tr("Invalid input file specification."), Tr("Invalid input"));
      break;
    case InputFileCode::NotFound:
      Complain(messages, Tr("Input file does not exist."), Tr("File not found"));
      break;
    case InputFileCode::NotSpecifiedOrEmpty:
      Complain(
          messages,
          TrimmedPath(inputPath).empty() ? Tr("Input file not specified.") : Tr("Input file is zero-length."),
          Tr("Error"));
      break;
    case InputFileCode::SameAsOutput:
      Complain(messages, Tr("The output file cannot be the same as the input file."), Tr("Error"));
      break;
  }
}

bool ValidateFolder(FileSystem& files, Messages& messages, std::string_view folderPath,
                    std::string_view outputPath, bool includeSubfolders, bool offersSubfolders) {
  const std::string folder = TrimmedFolderPath(folderPath);
  if (folder.empty()) {
    Complain(messages, Tr("Folder not specified."), Tr("Error"));
    return false;
  }
  if (!files.FolderExists(PathFromText(folder))) {
    Complain(messages, Tr("Folder does not exist"), Tr("Invalid input"));
    return false;
  }
  const Expected<FolderListing, FileError> listing = files.ListFolder(PathFromText(folder));
  if (!listing) {
    Complain(messages, Fill(Tr("Folder cannot be read (%1)."), {listing.Error().Description}),
             Tr("Invalid input"));
    return false;
  }
  if (listing->Files.empty()) {
    Message refusal{
        .Text = Tr("Folder contains no files."), .Title = Tr("Nothing to do"), .Icon = Icon::Information};
    if (offersSubfolders && !listing->Subfolders.empty()) {
      refusal.Addition = SubfoldersText(listing->Subfolders);
      if (includeSubfolders) {
        refusal.Question = questions::kOnlySubfolders;
        refusal.ExtraButton = Tr("Count the subfolders");
      }
    }
    if (messages.Show(refusal) != Answer::Extra) return false;
  }
  if (OutputIsInFolder(files, folder, outputPath, includeSubfolders)) {
    ShowOutputInFolder(messages);
    return false;
  }
  return true;
}

bool OutputIsInFolder(const FileSystem& files, std::string_view folderPath, std::string_view outputPath,
                      bool includeSubfolders) {
  const std::string outputText = TrimmedPath(outputPath);
  if (outputText.empty()) return false;
  const path folder = PathFromText(TrimmedFolderPath(folderPath));
  const path output = PathFromText(outputText);
  return LiesIn(files.AbsolutePath(folder), files.AbsolutePath(output), includeSubfolders) ||
         LiesIn(files.CanonicalPath(folder), files.CanonicalPath(output), includeSubfolders);
}

bool ValidateOutputBeside(const FileSystem& files, Messages& messages, std::span<const SourcePath> paths,
                          std::string_view outputPath, bool includeSubfolders) {
  const std::string output = TrimmedPath(outputPath);
  if (output.empty()) return true;
  for (const SourcePath& source : paths) {
    if (source.What == SourcePath::Kind::File && PathsMeetInOneFile(files, source.Path, output)) {
      ShowInputFileError(messages, InputFileCode::SameAsOutput, source.Path);
      return false;
    }
    if (source.What == SourcePath::Kind::Folder &&
        OutputIsInFolder(files, source.Path, output, includeSubfolders)) {
      ShowOutputInFolder(messages);
      return false;
    }
  }
  return true;
}

void ShowOutputInFolder(Messages& messages) {
  Complain(messages, Tr("The output file cannot be in the folder or a subfolder."), Tr("Invalid output file"),
           Icon::Information);
}

bool ShowMultipleFilesNeedOutput(Messages& messages, bool offersWindow) {
  Message refusal{.Text = Tr("When scanning multiple files or folders\n"
                             "you must specify an output file in case\n"
                             "the text window will not hold the result."),
                  .Title = Tr("Multiple files/folders"),
                  .Icon = Icon::Exclamation};
  if (offersWindow) {
    refusal.Question = questions::kSeveralFiles;
    refusal.ExtraButton = Tr("Show in the window only");
  }
  return messages.Show(refusal) == Answer::Extra;
}

bool PathsMeetInOneFile(const FileSystem& files, std::string_view a, std::string_view b) {
  const path first = PathFromText(a);
  const path second = PathFromText(b);
  return Lowered(files.AbsolutePath(first)) == Lowered(files.AbsolutePath(second)) ||
         files.SameFile(first, second);
}

bool CheckClipboardText(std::string_view text, Messages& messages, const NumberFormat& format,
                        int64_t limit) {
  const auto length = static_cast<int64_t>(CharacterCount(text));
  if (length <= limit) return true;
  Complain(messages,
           Fill(TrCount("There is %1 character in the text on the clipboard.",
                        "There are %1 characters in the text on the clipboard.", CharacterCount(text)),
                {format.Grouped(length)}) +
               "\n" +
               Fill(Tr("The maximum permitted is %1.  If possible,\n"
                       "count word frequencies for this text using an input file."),
                    {format.Grouped(limit)}),
           Tr("Too much clipboard text"), Icon::None);
  return false;
}

bool IsNaturalLanguage(std::string_view text, size_t characters) {
  size_t seen = 0;
  size_t controls = 0;
  bool letter = false;
  for (size_t at = 0; at < text.size() && seen < characters; ++seen) {
    const char32_t ch = NextCharacter(text, at);
    const bool layout = ch == '\n' || ch == '\r' || ch == '\f' || ch == '\t' || ch == '\b';
    if (ch < 32 && !layout) ++controls;
    letter = letter || KindOf(ch) == CharKind::Letter;
  }
  return letter && controls * 100 <= seen;
}

bool CheckNaturalLanguage(std::string_view text, Messages& messages, size_t characters, TextPlace place,
                          std::string addition) {
  const bool copied = place == TextPlace::Clipboard;
  if (text.empty()) {
    Complain(messages,
             copied ? Tr("There is no text on the clipboard.") : Tr("There is no text on standard input."),
             Tr("Invalid input"));
    return false;
  }
  if (IsNaturalLanguage(text, characters)) return true;
  messages.Show({.Text = copied ? Tr("The text on the clipboard does not consist\n"
                                     "solely of natural language words.")
                                : Tr("The text on standard input does not consist\n"
                                     "solely of natural language words."),
                 .Title = Tr("Invalid input"),
                 .Icon = Icon::Exclamation,
                 .Addition = std::move(addition)});
  return false;
}

Answer AskLargeInput(Messages& messages) {
  return messages.Show(
      {.Text = Tr("The input file is quite large.  It is advisable to specify an output file "
                  "before continuing, in case the text window will not hold the result. "
                  "Do you wish to specify an output file?"),
       .Title = Tr("Large input file"),
       .Icon = Icon::Question,
       .Buttons = Buttons::YesNoCancel,
       .DefaultAnswer = Answer::Yes,
       .Question = questions::kLargeInput});
}

std::string FileKindWhileReading(bool isUtf8) {
  return isUtf8 ? Tr("This is a UTF8 file.") : "";
}

std::string FileKindAfterRun(bool isUtf8, TextFileCode code) {
  if (isUtf8) return TrLater("This is a UTF-8 text file.");
  if (code == TextFileCode::UnixText) return TrLater("This is a Unix-type file.");
  if (code == TextFileCode::MacText) return TrLater("This is a Macintosh-type file.");
  return {};
}

std::string FileSizeLabel(uint64_t bytes, const NumberFormat& format) {
  return Fill(Tr("Filesize: %1"), {FormatByteCount(bytes, format)});
}

std::string TextSizeLabel(uint64_t bytes, const NumberFormat& format) {
  return Fill(Tr("Text: %1"), {FormatByteCount(bytes, format)});
}

}  // namespace korv
