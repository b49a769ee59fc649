#include "report/writers/report_opening.h"

#include "base/line_ends.h"
#include "base/translation.h"
#include "report/filter.h"
#include "report/folder_paths.h"
#include "report/formats.h"
#include "report/summary.h"

namespace korv {

namespace {

std::string FileLine(const std::string& path) {
  return Fill(Tr("File: %1"), {ShownPath(path)}) + "\n";
}

std::string FolderLine(const std::string& path, bool subfolders) {
  return Fill(subfolders ? Tr("Folder: %1 plus any subfolders") : Tr("Folder: %1"), {ShownPath(path)}) + "\n";
}

std::string HeaderText(const RunSummary& facts) {
  if (!facts.Paths.empty()) {
    std::string text;
    for (const SourcePath& source : facts.Paths)
      text += source.What == SourcePath::Kind::Folder ? FolderLine(source.Path, facts.IncludeSubfolders)
                                                      : FileLine(source.Path);
    return text;
  }
  switch (facts.Options.SourceKind) {
    case TextSource::SingleFile:
      return facts.InputPath.empty() ? "" : FileLine(facts.InputPath);
    case TextSource::Folder:
      return FolderLine(facts.InputPath, facts.IncludeSubfolders);
    case TextSource::Clipboard:
      break;
  }
  return "";
}

std::string WithLineEnd(std::string text) {
  if (!text.empty() && !text.ends_with("\n")) text += "\n";
  return text;
}

}  // namespace

bool Filters(const ReportOptions& options) {
  return options.FilterActive && !options.FilterText.empty();
}

std::string OpeningText(const Report& report, const ReportForm& form, const ListExtent& extent) {
  std::string text;
  if (form.File) text += HeaderText(report.Facts);
  text += FilesScannedText(report.Facts, report.Numbers);
  if (form.SkippedFiles) text += SkippedFilesText(report.Facts) + NoticesText(report.Facts);
  text += SummaryText(report.Facts, extent.Phrases, extent.LongestWords);
  if (Filters(report.Options))
    text += FilterNoticeText(report.Options.FilterModeOfWords, report.Options.FilterText);
  if (report.Facts.Paths.empty() && ShowsPaths(FormatOf(report.Options.DisplayFormat)))
    text += "{Folder} = " + ShownPath(report.Facts.InputPath) + "\n";
  return WithLineEnds(text, form.LineEnd);
}

std::string EmptyReportText(const Report& report, const ReportForm& form) {
  std::string said =
      report.Table.Occurrences() == 0 ? NoResultText(report.Facts) : SummaryText(report.Facts, 0, 0);
  if (form.File)
    said = HeaderText(report.Facts) + FilesScannedText(report.Facts, report.Numbers) +
           WithLineEnd(std::move(said));
  return WithLineEnds(said, form.LineEnd);
}

}  // namespace korv
