#include "report/report_rules.h"

#include "base/translation.h"
#include "report/formats.h"

namespace korv {

namespace {
constexpr int kFirstFormatText = 51;
constexpr int kTextBetweenFormats = 61;  // No name of a format.
constexpr int kFirstWordOrderText = 43;
}  // namespace

ReportRules RulesOfOptions(const ReportOptions& options, TextSource source) {
  const Format& format = FormatOf(options.DisplayFormat);
  const bool folder = source == TextSource::Folder;
  return {.RelativeFrequencyEnabled = ShowsFrequencies(format),
          .SortByNumberOfFilesEnabled = folder && options.WordOrder != kAlphabetical && format.SortsByFiles,
          .FormatAvailable = folder || !format.NeedsFolder};
}

bool ApplyReportRules(ReportOptions& options, TextSource source) {
  const bool available = RulesOfOptions(options, source).FormatAvailable;
  if (!available) options.DisplayFormat = 0;
  if (!RulesOfOptions(options, source).SortByNumberOfFilesEnabled) options.SortByNumberOfFiles = false;
  return available;
}

Message UnavailableFormatMessage(const std::string& formatName) {
  return {.Text = Fill(Tr("The display format '%1' is available\n"
                          "only when the source of the text is a folder."),
                       {formatName}),
          .Title = Tr("Unavailable display format"),
          .Icon = Icon::Information};
}

int DisplayFormatTextNumber(int displayFormat) {
  const int number = kFirstFormatText + displayFormat;
  return number < kTextBetweenFormats ? number : number + 1;
}

int WordOrderTextNumber(int wordOrder) {
  return kFirstWordOrderText + wordOrder;
}

}  // namespace korv
