#include "app/run/source_survey.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "app/run/counted.h"
#include "app/run/encoding_tally.h"
#include "base/size_text.h"
#include "base/translation.h"
#include "sources/detect/comment_markers.h"
#include "sources/detect/encoding_sample.h"
#include "sources/detect/source_checks.h"
#include "sources/detect/text_file_check.h"
#include "sources/documents/other_readers.h"
#include "sources/folders/folder_walk.h"
#include "sources/read/docx.h"
#include "sources/read/read_plan.h"
#include "sources/read/text_reader.h"

namespace korv {
namespace {

/// What the beginning of one file tells.
struct FileLook {
  std::string_view Kind;
  std::string_view Refusal;
  std::optional<ReadAs> Encoding;  ///< Empty where that comes later, or is no matter.
};

std::string_view KindOfName(std::string_view extension) {
  switch (MarkersOfExtension(extension).Language) {
    case MarkupLanguage::Html:
      return "HTML";
    case MarkupLanguage::Xml:
      return "XML";
    case MarkupLanguage::Php:
      return "PHP";
    case MarkupLanguage::C:
      return TrLater("Program text");
    case MarkupLanguage::None:
      break;
  }
  return TrLater("Plain text");
}

/// The same bytes decide as in a run: those from the first one above 127.
std::optional<ReadAs> EncodingOf(OpenedText& opened) {
  if (opened.Facts.IsUtf8) return ReadAs::Utf8;
  const std::string& head = opened.Head;
  const auto first = std::find_if(head.begin(), head.end(),
                                  [](char byte) { return static_cast<unsigned char>(byte) > 127; });
  if (first == head.end())
    return head.size() >= opened.File->Size() ? std::optional(ReadAs::Ascii) : std::nullopt;
  std::string sample(first, head.end());
  const size_t known = sample.size();
  sample.resize(kEncodingSample);
  size_t length = known;
  while (length < sample.size()) {
    const auto read = opened.File->Read({sample.data() + length, sample.size() - length});
    if (!read || *read == 0) break;
    length += *read;
  }
  return LooksLikeUtf8({sample.data(), length}) ? ReadAs::Utf8 : ReadAs::Ansi;
}

FileLook LookInto(FileSystem& files, const std::filesystem::path& path, bool others) {
  OpenedText opened = OpenTextSource(files, path, kRunThreshold);
  const std::string extension = FileExtension(PathToText(path), true);
  if (opened.File && extension == kDocxExtension && BeginsAsDocx(opened.Head))
    return {.Kind = TrLater("Word document"), .Refusal = {}, .Encoding = ReadAs::Utf8};
  if (others && OtherReaderOf(extension, opened.Head, /*isTyped=*/false) != nullptr)
    return {.Kind = KindOfOther(extension), .Refusal = {}, .Encoding = ReadAs::Utf8};
  if (!IsReadableText(opened.Facts.Code))
    return {.Kind = {}, .Refusal = SkipReason(opened.Facts.Code), .Encoding = {}};
  return {.Kind = KindOfName(extension), .Refusal = {}, .Encoding = EncodingOf(opened)};
}

void SurveyFile(const SurveyRequest& request, FileSystem& files, SourceSurvey& survey) {
  const std::filesystem::path path = PathFromText(TrimmedPath(request.Path));
  survey.Found = files.FileExists(path);
  // Opening a pipe would wait for whoever writes into it; it has no size.
  const auto size = files.FileSize(path);
  if (!survey.Found || !size) return;
  survey.Files = 1;
  survey.Bytes = *size;
  const FileLook look = LookInto(files, path, request.Selection.OtherDocuments);
  survey.LookedInto = true;
  survey.FileKind = look.Kind;
  survey.Refusal = look.Refusal;
  if (look.Encoding) CountReading(*look.Encoding, survey.Encodings);
}

void SurveyFileOfMany(FileSystem& files, const std::filesystem::path& path, bool others,
                      SourceSurvey& survey) {
  const auto size = files.FileSize(path);
  if (size) survey.Bytes += *size;
  if (++survey.Files > kMostLookedInto) survey.LookedInto = false;
  if (!survey.LookedInto) return;
  // Opening a pipe would wait for whoever writes into it.
  if (!size && files.FileExists(path)) return;
  const FileLook look = LookInto(files, path, others);
  if (!look.Refusal.empty()) ++survey.Refused;
  if (look.Encoding) CountReading(*look.Encoding, survey.Encodings);
}

void SurveyFolder(const SurveyRequest& request, FileSystem& files, Yielder& yielder, SourceSurvey& survey) {
  FolderWalk walk(files, yielder, request.Selection, request.IncludeSubfolders);
  FolderEvents events;
  events.Wanted = [&](const std::filesystem::path& path) {
    SurveyFileOfMany(files, path, request.Selection.OtherDocuments, survey);
  };
  survey.LookedInto = true;
  if (!request.Together.empty()) {
    survey.Found = true;
    ReadPlan plan;
    plan.AddTogether(request.Together, files, walk, events);
    survey.Folders = plan.Folders();
    return;
  }
  const std::filesystem::path folder = PathFromText(TrimmedFolderPath(request.Path));
  survey.Found = files.FolderExists(folder);
  survey.LookedInto = survey.Found;
  if (survey.Found) survey.Folders = walk.ProcessFolder(folder, WalkMode::Reading, events).Folders;
}

/// "UTF-8 and ANSI". What is ASCII reads the same in both, and is named only where it is all there is.
std::string EncodingsText(const EncodingCounts& counts) {
  if (counts.Utf8 > 0) return counts.Ansi > 0 ? Tr("UTF-8 and ANSI") : "UTF-8";
  if (counts.Ansi > 0) return "ANSI";
  return counts.Ascii > 0 ? "ASCII" : "";
}

std::string FolderText(const SourceSurvey& survey, const NumberFormat& numbers) {
  if (!survey.Found) return Tr("There is no such folder.");
  if (survey.Files == 0) return Tr("No file in it is to be counted.");
  std::string text = Counted(TrCount("%1 file", "%1 files", survey.Files), survey.Files, numbers);
  if (survey.Folders > 1)
    text = Fill(Tr("%1 in %2"),
                {text, Counted(TrCount("%1 folder", "%1 folders", survey.Folders), survey.Folders, numbers)});
  text += ", " + FormatSize(survey.Bytes, numbers);
  if (!survey.LookedInto) return text;
  const uint64_t told = survey.Encodings.Ascii + survey.Encodings.Ansi + survey.Encodings.Utf8;
  // Of files that are ASCII as far as they were read, nothing is known.
  const bool asciiAlone = survey.Encodings.Ansi + survey.Encodings.Utf8 == 0;
  const bool known = !asciiAlone || told + survey.Refused == survey.Files;
  if (const std::string encodings = EncodingsText(survey.Encodings); known && !encodings.empty())
    text += ", " + encodings;
  if (survey.Refused > 0) text += "; " + Counted(Tr("%1 of them cannot be counted"), survey.Refused, numbers);
  return text;
}

std::string FileText(const SourceSurvey& survey) {
  if (!survey.Found) return Tr("There is no such file.");
  if (!survey.Refusal.empty()) return Fill(Tr("This file %1."), {Tr(std::string(survey.Refusal).c_str())});
  const std::string encoding = EncodingsText(survey.Encodings);
  return Tr(std::string(survey.FileKind).c_str()) + (encoding.empty() ? "" : ", " + encoding);
}

}  // namespace

SourceSurvey SurveySource(const SurveyRequest& request, FileSystem& files, Yielder& yielder) {
  SourceSurvey survey;
  survey.Kind = request.Kind;
  if (request.Kind == TextSource::SingleFile) SurveyFile(request, files, survey);
  if (request.Kind == TextSource::Folder) SurveyFolder(request, files, yielder, survey);
  return survey;
}

std::string SurveyText(const SourceSurvey& survey, const NumberFormat& numbers) {
  switch (survey.Kind) {
    case TextSource::Clipboard:
      return {};
    case TextSource::SingleFile:
      return FileText(survey);
    case TextSource::Folder:
      return FolderText(survey, numbers);
  }
  return {};
}

}  // namespace korv
