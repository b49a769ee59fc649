#include "base/translation.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <string_view>
#include <utility>

#include "cli/option_rows.h"
#include "engine/text/unicode.h"
#include "report/formats.h"
#include "report/writers/table_forms.h"
#include "tests/cli/count_program_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using Arguments = std::vector<std::string>;

// What the pseudo-translation has around each line of a text.
constexpr std::string_view kBegin = "⟦";
constexpr std::string_view kEnd = "⟧";

/// What stands outside of all translated texts, with a line end in place of each of them.
std::string OutsideOfTexts(std::string_view shown) {
  std::string outside;
  int depth = 0;
  while (!shown.empty()) {
    if (shown.starts_with(kBegin)) {
      ++depth;
      shown.remove_prefix(kBegin.size());
    } else if (shown.starts_with(kEnd)) {
      --depth;
      EXPECT_GE(depth, 0) << "a text ends that has not begun";
      outside += '\n';
      shown.remove_prefix(kEnd.size());
    } else {
      if (depth == 0) outside += shown.front();
      shown.remove_prefix(1);
    }
  }
  EXPECT_EQ(depth, 0) << "a text was cut off";
  return outside;
}

bool HasLetters(std::string_view text) {
  return std::ranges::any_of(text, [](unsigned char c) { return c >= 0x80 || std::isalpha(c) != 0; });
}

/// The lines outside of translated texts that hold letters after all of `data` has been taken out.
std::string Untranslated(std::string_view shown, Arguments data) {
  std::string outside = OutsideOfTexts(shown);
  // Of two the longer one first, as the other may be a part of it.
  std::ranges::sort(data, [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
  for (const std::string& name : data) {
    if (name.empty()) continue;
    for (size_t at = outside.find(name); at != outside.npos; at = outside.find(name, at))
      outside.replace(at, name.size(), " ");
  }
  std::string lines;
  std::istringstream rest(outside);
  for (std::string line; std::getline(rest, line);)
    if (HasLetters(line)) lines += line + '\n';
  return lines;
}

/// Names that are the same in all languages, whatever is done.
const Arguments kNames = {"korv-count", "{Folder}", "PATH", "UTF-8", "ASCII"};

class TranslatedTest : public CountProgramTest {
 protected:
  TranslatedTest() { UseTranslations(KORV_PSEUDO_LOCALE); }
  ~TranslatedTest() override { UseTranslations(KORV_PSEUDO_LOCALE); }
  TranslatedTest(const TranslatedTest&) = delete;
  TranslatedTest& operator=(const TranslatedTest&) = delete;

  /// All that the last run said is translated but kNames, what the user typed and `data`.
  void ExpectTranslated(const Arguments& arguments, const Arguments& data = {}) {
    Arguments known = kNames;
    known.insert(known.end(), arguments.begin(), arguments.end());
    known.insert(known.end(), data.begin(), data.end());
    EXPECT_EQ(Untranslated(err.str(), known), "") << testing::PrintToString(arguments) << '\n' << err.str();
    EXPECT_EQ(Untranslated(out.str(), known), "") << testing::PrintToString(arguments) << '\n' << out.str();
  }

  void ExpectTranslatedRuns(int status, std::span<const Arguments> runs, const Arguments& data = {}) {
    for (const Arguments& arguments : runs) {
      EXPECT_EQ(Count(arguments), status) << testing::PrintToString(arguments) << '\n' << err.str();
      EXPECT_THAT(err.str(), HasSubstr(kBegin)) << testing::PrintToString(arguments);
      ExpectTranslated(arguments, data);
    }
  }

  /// A folder with a file of each kind that a run tells of.
  void AddTexts() {
    files.AddFolder("/t");
    files.AddFolder("/t/sub");
    files.AddFolder("/t/shut");
    files.Add("/t/1.txt", kText);
    files.Add("/t/2.txt", "The bíg cat sat. The bíg cat ran.\n");
    files.Add("/t/3.rtf", "{\\rtf1");
    files.Add("/t/4.txt", "");
    files.Add("/t/5.docx", "PK\x03\x04 nothing");
    files.Add("/t/sub/6.txt", std::string(100, '\x01'));
    files.Refuse("/t/shut", FileFault::PermissionDenied);
    files.Add("/c.tsv", "phrase\tfrequency\nthe big cat\t3\nthe dog\t2\n");
  }
};

/// The words of the texts and the names of their files.
const Arguments kTextData = {"the",    "big",    "bíg",    "cat",    "sat",     "ran",  "dog",    "/t",
                             "/1.txt", "/2.txt", "/3.rtf", "/4.txt", "/5.docx", "/sub", "/6.txt", "/shut"};

TEST_F(TranslatedTest, HelpExplainsEachOptionInTheUsersLanguage) {
  Arguments data = {"korv-count [OPTIONS] PATH...",
                    "korv-count [OPTIONS] -",
                    "korv-count --settings FILE [OPTIONS]",
                    "korv-count book.txt",
                    "korv-count --words 2-8 -o phrases.csv texts/",
                    "korv-count --context-of \"in the end\" book.txt",
                    "-h, --help",
                    "--version"};
  columns = 120;
  ASSERT_EQ(Count({"--help"}), kExitReport);
  std::string unwrapped;
  std::istringstream words(out.str());
  for (std::string word; words >> word;) unwrapped += word + ' ';
  for (const OptionRow& row : OptionRows()) {
    EXPECT_THAT(row.Help, AllOf(StartsWith(kBegin), EndsWith(kEnd))) << row.Name;
    const size_t comma = row.Name.find(',');
    const std::string names =
        comma == row.Name.npos ? row.Name : row.Name.substr(comma + 1) + ", " + row.Name.substr(0, comma);
    const std::string heading = names + (row.ValueName.empty() ? "" : " " + row.ValueName);
    EXPECT_THAT(unwrapped, HasSubstr(' ' + heading + ' ' + row.Help + ' '));
    data.push_back(heading);
  }
  EXPECT_EQ(Untranslated(out.str(), data), "") << out.str();
}

TEST_F(TranslatedTest, LinesOfHelpAreMeasuredInCharacters) {
  columns = 60;
  ASSERT_EQ(Count({"--help"}), kExitReport);
  std::istringstream lines(out.str());
  size_t mostBytes = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.find(kBegin) == line.npos && line.find(kEnd) == line.npos) continue;
    EXPECT_LE(CharacterCount(line), columns) << line;
    mostBytes = std::max(mostBytes, line.size());
  }
  EXPECT_GT(mostBytes, columns);
}

TEST_F(TranslatedTest, TheVersionTellsWhatItIsBuiltWith) {
  ASSERT_EQ(Count({"--version"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("\n⟦Built with "));
}

TEST_F(TranslatedTest, WrongUsageIsExplained) {
  files.Add("/l.txt", "words");
  const Arguments runs[] = {
      {},
      {"--nonsense"},
      {"/a.txt", "--subfolder"},
      {"/a.txt", "-q"},
      {"/a.txt", "--quiet=false"},
      {"/a.txt", "--max-words", "3", "--max-words", "4"},
      {"/a.txt", "--order"},
      {"/a.txt", "--order="},
      {"/a.txt", "--words", "3", "--min-words", "2"},
      {"/a.txt", "--common-words", "en", "--ignore-file", "/l.txt"},
      {"/a.txt", "--min-words", "two"},
      {"/a.txt", "--min-words", "1"},
      {"/a.txt", "--long-words", "45"},
      {"/a.txt", "--order", "rank"},
      {"/a.txt", "--allow", "dashes"},
      {"/a.txt", "--locale", "xx_YY"},
      {"/a.txt", "--common-words", "nl"},
      {"/a.txt", "--min-per-million", "-1"},
      {"/a.txt", "-o", ""},
      {"/a.txt", "-o", "-"},
      {"/a.txt", ""},
      {"-", "-"},
      {"-", "--list-files"},
      {"/a.txt", "--contexts", "4"},
      {"/a.txt", "--match-mode", "words"},
      {"/a.txt", "--match", "a(", "--match-mode", "regex"},
      {"/a.txt", "--sort", "left"},
      {"/a.txt", "--sort", "fequency"},
      {"/a.txt", "--sort", "frequency:down"},
      {"/a.txt", "--sort", "phrase", "--output-format", "text"},
      {"/a.txt", "--columns", "rank,rank"},
      {"/a.txt", "--columns", ""},
      {"/a.txt", "--csv-for", "excel", "--output-format", "tsv"},
      {"/a.txt", "--output-format", "xlsx"},
      {"/a.txt", "--parts", "1"},
      {"/a.txt", "--describe"},
      {"/a.txt", "--describe-to", "-", "--columns", "phrase"},
      {"/a.txt", "--describe-to", "/d.json"},
      {"/a.txt", "--context-of", "big cat", "-o", "/o.txt"},
      {"/a.txt", "--context-of", "big cat", "--output-format", "text"},
      {"/a.txt", "--context-of", "big cat", "--top", "1"},
      {"/a.txt", "--context-of", "big cat", "--ignore-words", "big cat", "--ignore-mode", "remove"},
      {"--from-counts", "/c.tsv", "/a.txt"},
      {"--from-counts", "/c.tsv", "--format", "10"},
      {"/a.txt", "/b.txt", "--save-settings", "/s.korv"},
      {"/a.txt", "-", "--list-files"},
  };
  // "-o" is named in full.
  ExpectTranslatedRuns(kExitUsage, runs, {"--output"});
}

TEST_F(TranslatedTest, RefusalsAreExplained) {
  AddTexts();
  files.AddFolder("/empty");
  files.AddFolder("/nest");
  files.AddFolder("/nest/a");
  files.Add("/binary.txt", std::string(50, '\x01'));
  files.Add("/a.pdf", "%PDF-1.7\n" + std::string(100, '\x01'));
  files.Add("/l.txt", "words");
  files.Add("/nothing.txt", "\n\n");
  files.Add("/c.c", kText);
  files.Add("/bad.tsv", "a b\t1\nc d\tx\n");
  files.Add("/zip.docx", "PK\x03\x04 nothing");
  files.Add("/shut.txt", kText);
  files.Refuse("/shut.txt", FileFault::PermissionDenied);
  const Arguments runs[] = {
      {"/none.txt"},
      {"/none.txt", "--list-files"},
      {"/none/"},
      {"/a.txt", "--min-words", "9"},
      {"/empty"},
      {"/empty", "--list-files"},
      {"/nest", "--subfolders"},
      {"/t", "--patterns", "*.none"},
      {"/t", "--patterns", "a;b"},
      {"/shut.txt"},
      {"/binary.txt"},
      {"/a.pdf"},
      {"/zip.docx"},
      {"/c.c", "--allow", "forwardslashes"},
      {"/a.txt", "-o", "/empty"},
      {"/a.txt", "-o", "/a.txt"},
      {"/a.txt", "-o", "/l.txt"},
      {"/t", "-o", "/t/1.txt"},
      {"/a.txt", "--ignore-file", "/l.txt", "-o", "/l.txt", "--force"},
      {"/a.txt", "--ignore-file", "/none.txt"},
      {"/a.txt", "--ignore-file", "/a.pdf"},
      {"/a.txt", "--count-only-file", "/none.txt"},
      {"/a.txt", "--common-words", "de"},
      {"/a.txt", "--save-settings", "/a.txt"},
      {"/a.txt", "--save-settings", "/l.txt"},
      {"/t", "--save-settings", "/t/1.txt"},
      {"--settings", "/none.korv"},
      {"--settings", "/l.txt"},
      {"/none.txt", "/nowhere.txt"},
      {"--files-from", "/nothing.txt"},
      {"--files-from", "/none.txt"},
      {"--from-counts", "/bad.tsv"},
      {"--from-counts", "/none.tsv"},
      {"/a.txt", "-o", "/o.csv", "--describe-to", "/o.csv"},
      {"/a.txt", "-o", "/o.csv", "--describe-to", "/empty"},
      {"/a.txt", "-o", "/o.csv", "--describe-to", "/l.txt"},
      {"-"},
  };
  ExpectTranslatedRuns(kExitRefused, runs);
  input = std::string(50, '\x01');
  ExpectTranslatedRuns(kExitRefused, std::span(&runs[std::size(runs) - 1], 1));
  unreadable = true;
  const Arguments unread[] = {{"-"}, {"--files-from", "-"}, {"--from-counts", "-"}};
  ExpectTranslatedRuns(kExitRefused, unread);
}

TEST_F(TranslatedTest, ReportsAreTranslatedInEachFormat) {
  AddTexts();
  for (int format = 0; format < kDisplayFormats; ++format) {
    for (const char* const order : {"frequency", "alphabetical"}) {
      const Arguments usual = {"--subfolders", "--words", "2-3", "--order", order, "--format"};
      for (const char* const source : {"/t", "/a.txt"}) {
        if (FormatOf(format).NeedsFolder && std::string_view(source) != "/t") continue;
        for (const char* const extra : {"--quiet", "--relative", "--layout=tabs", "--filter=cat"}) {
          Arguments arguments = usual;
          arguments.insert(arguments.end(), {std::to_string(format), source, extra});
          ASSERT_EQ(Count(arguments), kExitReport) << err.str();
          EXPECT_THAT(out.str(), HasSubstr(kBegin)) << testing::PrintToString(arguments);
          ExpectTranslated(arguments, kTextData);
        }
      }
    }
  }
}

TEST_F(TranslatedTest, RunsTellWhatTheyReadAndLeftOut) {
  AddTexts();
  const Arguments runs[] = {
      {"/a.txt", "--words", "2-3"},
      {"/a.txt", "--words", "20"},
      {"/a.txt", "--words", "2", "--match", "nowhere"},
      {"/a.txt", "--words", "2", "--ignore-words", "sat ran", "--short-words", "4"},
      {"/t", "--words", "2", "--subfolders"},
      {"/t", "--words", "2", "--subfolders", "--layout", "tabs"},
      {"/t", "--words", "2", "--subfolders", "-o", "/report.txt"},
      {"/a.txt", "/t/2.txt", "/none.txt", "--words", "2"},
      {"/a.txt", "--format", "12"},
      {"/t", "--list-files", "--subfolders", "/none.txt"},
      {"--from-counts", "/c.tsv", "--words", "2"},
  };
  for (const Arguments& arguments : runs) {
    ASSERT_EQ(Count(arguments), kExitReport) << testing::PrintToString(arguments) << '\n' << err.str();
    EXPECT_THAT(err.str() + out.str(), HasSubstr(kBegin)) << testing::PrintToString(arguments);
    ExpectTranslated(arguments, kTextData);
  }
  Arguments data = kTextData;
  data.insert(data.end(), kNames.begin(), kNames.end());
  EXPECT_EQ(Untranslated(files.Content("/report.txt").value_or("no report"), data), "");
}

TEST_F(TranslatedTest, ProgressAndStopsAreTold) {
  input = std::string(2000, ' ') + kText + std::string(200000, ' ') + "the end of it";
  int reads = 0;
  onRead = [&] {
    if (++reads == 4) yielder->RequestStop();
  };
  clock.Step = std::chrono::seconds(1);
  ASSERT_EQ(Count({"-", "--words", "2", "--progress"}), kExitInterrupted);
  EXPECT_THAT(err.str(), AllOf(HasSubstr("⟦Reading: "), HasSubstr("⟦Stopped: the report covers the first ")));
  ExpectTranslated({"-"}, kTextData);
  input = kText;
  onRead = [&] { yielder->RequestStop(); };
  ASSERT_EQ(Count({"-", "--words", "20"}), kExitInterrupted);
  ExpectTranslated({"-"});
  onRead = nullptr;
  AddTexts();
  ASSERT_EQ(Count({"/t", "--words", "2", "--progress"}), kExitReport);
  ExpectTranslated({"/t"}, kTextData);
  files.BeforeListing = [this](const std::filesystem::path&) { yielder->RequestStop(); };
  ASSERT_EQ(Count({"/t", "--list-files"}), kExitInterrupted);
  ExpectTranslated({"/t"});
}

TEST_F(TranslatedTest, StagesKeepTheirNames) {
  ASSERT_EQ(Count({"/a.txt", "--words", "2", "--stages"}), kExitReport);
  Arguments data = kTextData;
  data.insert(data.end(), {"reading and cutting\t", "counting\t", "sorting\t", "exclusion\t", "chain\t",
                           "writing\t", " s\n", "words\t", "words dropped\t", "different phrases\t"});
  EXPECT_THAT(err.str(), HasSubstr("reading and cutting\t"));
  ExpectTranslated({"/a.txt"}, data);
}

TEST_F(TranslatedTest, ContextsHaveNamesForProgramsAndNoticesForPeople) {
  files.Add("/t/1.txt", kText);
  size_t openings = 0;
  files.BeforeOpening = [&](const std::filesystem::path& path) {
    if (path == "/t/1.txt" && ++openings == 2) files.Add("/t/1.txt", "The big cat");
  };
  ASSERT_EQ(Count({"/t", "--context-of", "big cat"}), kExitReport);
  EXPECT_THAT(out.str(), StartsWith("file\tline\tcolumn\tleft\tphrase\tright\n"));
  EXPECT_THAT(out.str(), Not(HasSubstr(kBegin)));
  EXPECT_THAT(err.str(), HasSubstr("has changed since it was counted"));
  EXPECT_EQ(Untranslated(err.str(), kNames), "") << err.str();
}

TEST_F(TranslatedTest, WhatProgramsReadIsTheSameInAllLanguages) {
  AddTexts();
  std::vector<Arguments> runs = {
      {"--print-settings"},
      {"--list-files"},
      {"--context-of", "big cat"},
      {"--output-format", "csv", "--csv-for", "excel"},
      {"--output-format", "tsv", "--describe-to", "/d.json"},
      {"--output-format", "json", "/none.txt"},
  };
  for (const char* const form : {"csv", "tsv", "json", "ndjson"}) {
    runs.push_back({"--output-format", form});
    runs.push_back({"--output-format", form, "--columns",
                    "rank,phrase,frequency,files,dispersion,first_file,log_dice,c_value", "--sort",
                    "phrase"});
    runs.push_back({"-o", std::string("/o.") + form, "--describe"});
  }
  const auto written = [this](Arguments arguments) {
    for (const char* const name :
         {"/d.json", "/o.csv", "/o.tsv", "/o.json", "/o.ndjson", "/datapackage.json"})
      files.Erase(name);
    arguments.insert(arguments.end(), {"/t", "--words", "2-3"});
    EXPECT_EQ(Count(arguments), kExitReport) << testing::PrintToString(arguments) << '\n' << err.str();
    std::string all = out.str();
    for (const char* const name :
         {"/d.json", "/o.csv", "/o.tsv", "/o.json", "/o.ndjson", "/datapackage.json"})
      all += files.Content(name).value_or("");
    return all;
  };
  for (const Arguments& arguments : runs) {
    UseTranslations("/no translations");
    ASSERT_STREQ(Tr("Words to ignore"), "Words to ignore");
    const std::string english = written(arguments);
    UseTranslations(KORV_PSEUDO_LOCALE);
    ASSERT_STREQ(Tr("Words to ignore"), "⟦Words to ignore⟧");
    EXPECT_THAT(english, Not(IsEmpty()));
    EXPECT_EQ(written(arguments), english) << testing::PrintToString(arguments);
  }
}

}  // namespace
}  // namespace korv
