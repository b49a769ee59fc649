#include "report/writers/report_opening.h"

#include "report/filter.h"
#include "report/folder_paths.h"
#include "report/formats.h"
#include "report/summary.h"

namespace korv {

namespace {

std::string HeaderText(const RunSummary& facts) {
  switch (facts.Options.SourceKind) {
    case TextSource::SingleFile:
      return facts.InputPath.empty() ? "" : "File: " + ShownPath(facts.InputPath) + "\r\n";
    case TextSource::Folder:
      return "Folder: " + ShownPath(facts.InputPath) +
             (facts.IncludeSubfolders ? " plus any subfolders" : "") + "\r\n";
    case TextSource::Clipboard:
      break;
  }
  return "";
}

std::string WithLineEnd(std::string text) {
  if (!text.empty() && !text.ends_with("\r\n")) text += "\r\n";
  return text;
}

std::string WithLineEndsOf(const ReportForm& form, std::string text) {
  const std::string& lineEnd = form.LineEnd;
  if (lineEnd == "\r\n") return text;
  for (size_t at = text.find("\r\n"); at != text.npos; at = text.find("\r\n", at + lineEnd.size()))
    text.replace(at, 2, lineEnd);
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
  if (ShowsPaths(FormatOf(report.Options.DisplayFormat)))
    text += "{Folder} = " + ShownPath(report.Facts.InputPath) + "\r\n";
  return WithLineEndsOf(form, std::move(text));
}

std::string EmptyReportText(const Report& report, const ReportForm& form) {
  std::string said =
      report.Table.Occurrences() == 0 ? NoResultText(report.Facts) : SummaryText(report.Facts, 0, 0);
  if (form.File)
    said = HeaderText(report.Facts) + FilesScannedText(report.Facts, report.Numbers) +
           WithLineEnd(std::move(said));
  return WithLineEndsOf(form, std::move(said));
}

}  // namespace korv
