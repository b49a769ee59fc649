// Whole reports of a folder, from the bytes of its files to the bytes of the report, compared with ones that
// were read by eye. After a change that is meant, run once with KORV_UPDATE_GOLDEN=1 in the environment and
// read the differences before they are committed.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "app/run/run.h"
#include "base/clock.h"
#include "platform/files.h"
#include "report/report_rules.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_observer.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

/// The texts as the tree has them, under the relative name that reports show.
class Golden : public testing::Test {
 protected:
  Golden() { std::filesystem::current_path(kFolder); }
  ~Golden() override { std::filesystem::current_path(before_); }

  /// Counts phrases of two to four words that occur at least `minFrequency` times.
  void Count(int minFrequency, ChainOrder chain = ChainOrder::ByCount) {
    RunRequest request;
    request.Options.MinWords = 2;
    request.Options.MaxWords = 4;
    request.Options.MinFrequency = minFrequency;
    request.Options.SourceKind = TextSource::Folder;
    request.Chain = chain;
    request.InputPath = "texts";
    request.IncludeSubfolders = true;
    request.SeveralFilesNeedOutput = false;
    const auto files = MakeSystemFiles();
    const SystemClock clock;
    EncodingChooser encodings(EncodingChoice::Utf8);
    NoYielder yielder;
    FakeObserver observer;
    RunProgress progress;
    ASSERT_EQ(RunCount(request,
                       {.Messages = messages_,
                        .Yielder = yielder,
                        .Files = *files,
                        .Clock = clock,
                        .Numbers = numbers_,
                        .Encodings = encodings,
                        .View = observer,
                        .Progress = progress},
                       run_),
              RunEnd::Counted);
    ASSERT_TRUE(messages_.Shown.empty());
  }

  /// The report with a title, both forms of it.
  void Add(const std::string& title, ReportOptions options) {
    ApplyReportRules(options, TextSource::Folder);
    const Report report{run_.Table, run_.Facts, options, numbers_};
    box_ += "== " + title + "\r\n" + TextOf(report, kBoxForm);
    if (!box_.ends_with('\n')) box_ += "\r\n";
    file_ += "== " + title + "\r\n" + TextOf(report, kFileForm);
  }

  void Compare(const std::string& name) {
    CompareWith(name + ".columns.txt", WithSlashes(box_));
    CompareWith(name + ".tabs.txt", WithSlashes(file_));
  }

 private:
  static void CompareWith(const std::string& name, const std::string& text) {
    if (std::getenv("KORV_UPDATE_GOLDEN")) {
      std::ofstream(name, std::ios::binary) << text;
      return;
    }
    std::ifstream file(name, std::ios::binary);
    const std::string golden{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(text, golden) << name;
  }

  /// Paths have the system's separator.
  static std::string WithSlashes(std::string text) {
    if constexpr (std::filesystem::path::preferred_separator != '/')
      for (char& c : text)
        if (c == std::filesystem::path::preferred_separator) c = '/';
    return text;
  }

  static constexpr const char* kFolder = KORV_TEST_DATA "/golden";
  const std::filesystem::path before_ = std::filesystem::current_path();
  FakeMessages messages_;
  NumberFormat numbers_;
  CountedRun run_;
  std::string box_;
  std::string file_;
};

TEST_F(Golden, AllFormats) {
  Count(2);
  for (int format = 0; format < kDisplayFormats; ++format)
    Add("format " + std::to_string(format), {.DisplayFormat = format});
  Compare("formats");
}

TEST_F(Golden, OtherOptions) {
  Count(2);
  Add("alphabetical", {.DisplayFormat = 1, .WordOrder = 1});
  for (const int format : {0, 4, 10, 12})
    Add("relative, format " + std::to_string(format), {.DisplayFormat = format, .RelativeFrequency = true});
  Add("filter", {.FilterText = "café the", .FilterActive = true});
  Add("filter in order",
      {.FilterText = "café the", .FilterModeOfWords = FilterMode::AllWordsInSameOrder, .FilterActive = true});
  Add("filter as subphrase, format 9", {.DisplayFormat = 9,
                                        .FilterText = "the sea",
                                        .FilterModeOfWords = FilterMode::Subphrase,
                                        .FilterActive = true});
  Add("no match", {.WordOrder = 1,
                   .FilterText = "sea the",
                   .FilterModeOfWords = FilterMode::Subphrase,
                   .FilterActive = true});
  Count(2, ChainOrder::ByFiles);
  Add("sorted by number of files", {.DisplayFormat = 12, .SortByNumberOfFiles = true});
  Count(20);
  Add("nothing listed", {.DisplayFormat = 11});
  Compare("options");
}

}  // namespace
}  // namespace korv
