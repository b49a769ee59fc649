#include "app/run/shown_result.h"

#include "report/report_rules.h"

namespace korv {

namespace {

bool ShowsRelativeFrequency(const ReportOptions& options) {
  return options.RelativeFrequency && RulesOfOptions(options, TextSource::Folder).RelativeFrequencyEnabled;
}

}  // namespace

bool SameForm(const ReportOptions& a, const ReportOptions& b) {
  return a.DisplayFormat == b.DisplayFormat && a.WordOrder == b.WordOrder &&
         ShowsRelativeFrequency(a) == ShowsRelativeFrequency(b) &&
         a.SortByNumberOfFiles == b.SortByNumberOfFiles;
}

bool SameFilter(const ReportOptions& a, const ReportOptions& b) {
  const bool filtersA = a.FilterActive && !a.FilterText.empty();
  const bool filtersB = b.FilterActive && !b.FilterText.empty();
  if (!filtersA || !filtersB) return filtersA == filtersB;
  return a.FilterText == b.FilterText && a.FilterModeOfWords == b.FilterModeOfWords;
}

}  // namespace korv
