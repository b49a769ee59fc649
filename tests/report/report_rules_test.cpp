#include "report/report_rules.h"

#include <gtest/gtest.h>

#include <set>

namespace korv {
namespace {

TEST(ReportRules, RelativeFrequencyIsForFormatsThatShowFrequencies) {
  const std::set<int> enabled = {0, 1, 2, 4, 5, 7, 10, 12};
  for (int format = 0; format < kDisplayFormats; ++format)
    EXPECT_EQ(RulesOfOptions({.DisplayFormat = format}, TextSource::Folder).RelativeFrequencyEnabled,
              enabled.contains(format))
        << format;
}

TEST(ReportRules, SortByNumberOfFilesIsForFormatTwelveByFrequencyOfAFolder) {
  for (const TextSource source : {TextSource::Clipboard, TextSource::SingleFile, TextSource::Folder})
    for (int order = 0; order <= 1; ++order)
      for (int format = 0; format < kDisplayFormats; ++format) {
        ReportOptions options{.DisplayFormat = format, .WordOrder = order, .SortByNumberOfFiles = true};
        const bool enabled = source == TextSource::Folder && order == 0 && format == 12;
        EXPECT_EQ(RulesOfOptions(options, source).SortByNumberOfFilesEnabled, enabled);
        ApplyReportRules(options, source);
        EXPECT_EQ(options.SortByNumberOfFiles, enabled);
      }
}

TEST(ReportRules, FormatsWithFilesNeedAFolder) {
  for (const TextSource source : {TextSource::Clipboard, TextSource::SingleFile, TextSource::Folder})
    for (int format = 0; format < kDisplayFormats; ++format) {
      ReportOptions options{.DisplayFormat = format};
      const bool available = source == TextSource::Folder || format < 10;
      EXPECT_EQ(ApplyReportRules(options, source), available);
      EXPECT_EQ(options.DisplayFormat, available ? format : 0);
    }
}

TEST(ReportRules, TheMessageNamesTheFormat) {
  const Message message = UnavailableFormatMessage("#11: Phrase, files that contain it");
  EXPECT_EQ(message.Text,
            "The display format '#11: Phrase, files that contain it' is available\n"
            "only when the source of the text is a folder.");
  EXPECT_EQ(message.Title, "Unavailable display format");
  EXPECT_EQ(message.Icon, Icon::Information);
  EXPECT_EQ(message.Buttons, Buttons::Ok);
}

TEST(ReportRules, ListTextsAreNumberedWithAGap) {
  EXPECT_EQ(DisplayFormatTextNumber(0), 51);
  EXPECT_EQ(DisplayFormatTextNumber(9), 60);
  EXPECT_EQ(DisplayFormatTextNumber(10), 62);
  EXPECT_EQ(DisplayFormatTextNumber(12), 64);
  EXPECT_EQ(WordOrderTextNumber(0), 43);
  EXPECT_EQ(WordOrderTextNumber(1), 44);
}

}  // namespace
}  // namespace korv
