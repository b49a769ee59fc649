#include "report/report_rules.h"

namespace korv {

namespace {
constexpr int kFirstFolderFormat = 10;
constexpr int kSharesOfFiles = 12;

constexpr int kFirstFormatText = 51;
constexpr int kTextBetweenFormats = 61;  // Belongs to something else.
constexpr int kFirstWordOrderText = 43;
}  // namespace

ReportRules RulesOfOptions(const ReportOptions& options, TextSource source) {
  ReportRules rules;
  switch (options.DisplayFormat) {
    case 0:
    case 1:
    case 2:
    case 4:
    case 5:
    case 7:
    case 10:
    case 12:
      rules.RelativeFrequencyEnabled = true;
      break;
    default:
      break;
  }
  rules.SortByNumberOfFilesEnabled =
      source == TextSource::Folder && options.WordOrder == 0 && options.DisplayFormat == kSharesOfFiles;
  rules.FormatAvailable = source == TextSource::Folder || options.DisplayFormat < kFirstFolderFormat;
  return rules;
}

bool ApplyReportRules(ReportOptions& options, TextSource source) {
  const bool available = RulesOfOptions(options, source).FormatAvailable;
  if (!available) options.DisplayFormat = 0;
  if (!RulesOfOptions(options, source).SortByNumberOfFilesEnabled) options.SortByNumberOfFiles = false;
  return available;
}

Message UnavailableFormatMessage(const std::string& formatName) {
  return {.text = "The display format '" + formatName +
                  "' is available\r\nonly when the source of the text is a folder.",
          .title = "Unavailable display format",
          .icon = Icon::Information};
}

int DisplayFormatTextNumber(int displayFormat) {
  const int number = kFirstFormatText + displayFormat;
  return number < kTextBetweenFormats ? number : number + 1;
}

int WordOrderTextNumber(int wordOrder) {
  return kFirstWordOrderText + wordOrder;
}

}  // namespace korv
