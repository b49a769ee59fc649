#include "tests/cli/count_program_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(CountProgramTest, EveryOptionSetsItsField) {
  const std::string defaults = *StateBytes(Settings{});
  struct Case {
    std::vector<std::string> Arguments;
    std::function<void(Settings&)> Change;
  };
  const std::vector<Case> cases = {
      {{}, [](Settings&) {}},
      {{"--min-words", "2"}, [](Settings& s) { s.MinWords = 2; }},
      {{"--max-words", "25"}, [](Settings& s) { s.MaxWords = 25; }},
      {{"--max-words", "3"}, [](Settings& s) { s.MinWords = s.MaxWords = 3; }},
      {{"--max-words", "5"}, [](Settings& s) { s.MaxWords = 5; }},
      {{"--allow", " hyphens,  numerals "}, [](Settings& s) { s.Words.AllowNumerals = true; }},
      {{"--terminate", "period, double-quote, tab, comma"},
       [](Settings& s) { s.Words.TerminateAtComma = true; }},
      {{"--allow", " none "}, [](Settings& s) { s.Words.AllowHyphens = false; }},
      {{"--min-frequency", "20"}, [](Settings& s) { s.MinFrequency = 20; }},
      {{"--ignore-mode", "allow"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::Allow; }},
      {{"--ignore-mode", "exclude-all"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::ExcludeAll; }},
      {{"--ignore-mode", "remove"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::Remove; }},
      {{"--ignore-mode", "exclude-with"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::ExcludeWith; }},
      {{"--ignore-file", "/program/cwds_en.txt"},
       [this](Settings& s) {
         s.WordsFiles = {PathToText(files.AbsolutePath("/program/cwds_en.txt"))};
         s.SelectedWordsFile = 0;
       }},
      {{"--common-words", "en"},
       [](Settings& s) {
         s.WordsFiles = {Below("/program", "cwds_en.txt")};
         s.SelectedWordsFile = 0;
         s.CommonWordsLanguage = CommonWords::English;
       }},
      {{"--ignore-words", "ibid viz"}, [](Settings& s) { s.ExtraWordsToIgnore = "ibid viz"; }},
      {{"--pattern-matching"}, [](Settings& s) { s.PatternMatchingInWordsToIgnoreFile = true; }},
      {{"--count-only", "cat"}, [](Settings&) {}},
      {{"--allow", "none"}, [](Settings& s) { s.Words.AllowHyphens = false; }},
      {{"--allow", "apostrophes,commas"},
       [](Settings& s) {
         s.Words.AllowHyphens = false;
         s.Words.AllowApostrophes = s.Words.AllowCommas = true;
       }},
      {{"--allow", "hyphens,underscores,colons,backslashes,forwardslashes,periods"},
       [](Settings& s) {
         s.Words.AllowUnderscores = s.Words.AllowColons = s.Words.AllowBackslashes = true;
         s.Words.AllowForwardslashes = s.Words.AllowPeriods = true;
       }},
      {{"--allow", "hyphens,at-signs,numerals,parentheses,ampersands"},
       [](Settings& s) {
         s.Words.AllowAtSigns = s.Words.AllowNumerals = true;
         s.Words.AllowParentheses = s.Words.AllowAmpersands = true;
       }},
      {{"--terminate", "none"},
       [](Settings& s) {
         s.Words.TerminateAtPeriod = s.Words.TerminateAtDoubleQuote = s.Words.TerminateAtTab = false;
       }},
      {{"--terminate", "line,comma"},
       [](Settings& s) {
         s.Words.TerminateAtPeriod = s.Words.TerminateAtDoubleQuote = s.Words.TerminateAtTab = false;
         s.Words.TerminateAtEndOfLine = s.Words.TerminateAtComma = true;
       }},
      {{"--case-significant"}, [](Settings& s) { s.Words.CaseSignificant = true; }},
      {{"--seven-bit"}, [](Settings& s) { s.Words.Only7bitASCII = true; }},
      {{"--short-words", "20"}, [](Settings& s) { s.Words.ShortWordSize = 20; }},
      {{"--short-words", "off"}, [](Settings& s) { s.Words.IgnoreShortWords = false; }},
      {{"--long-words", "80"}, [](Settings& s) { s.Words.LongWordSize = 80; }},
      {{"--keep-repetitions"}, [](Settings& s) { s.Words.IgnoreRepetitions = false; }},
      {{"--keep-letterless"}, [](Settings& s) { s.Words.IgnoreNoLetter = false; }},
      {{"--patterns", "*.txt,a*.xml  b*"}, [](Settings& s) { s.FilePatterns = "*.txt, a*.xml, b*"; }},
      {{"--exclude", "copy bak"}, [](Settings& s) { s.ExcludedTexts = "copy, bak"; }},
      {{"--reading", "letter"}, [](Settings&) {}},
      {{"--reading", "reader"}, [](Settings& s) { ApplyReading(Reading::Reader, s); }},
      {{"--allow", "hyphens", "--reading", "reader", "--terminate", "period,sentence"},
       [](Settings& s) {
         ApplyReading(Reading::Reader, s);
         s.WordsAre = WordRule::Allowed;
         s.Words.TerminateAtDoubleQuote = s.Words.TerminateAtTab = s.Words.TerminateAtBlock = false;
       }},
      {{"--reading", "reader", "--short-words", "2", "--segment", "off"},
       [](Settings& s) {
         ApplyReading(Reading::Reader, s);
         s.AnyWordLength = false;
         s.Words.ShortWordSize = 2;
         s.Words.Segment = Segmentation::Off;
       }},
      {{"--shown-markup", "on"}, [](Settings& s) { s.ShownMarkup = true; }},
      {{"--declared-encodings", "on"}, [](Settings& s) { s.DeclaredEncodings = true; }},
      {{"--notes-and-boxes", "on"}, [](Settings& s) { s.NotesAndBoxes = true; }},
      {{"--reading", "reader", "--notes-and-boxes", "off"},
       [](Settings& s) {
         ApplyReading(Reading::Reader, s);
         s.NotesAndBoxes = false;
       }},
      {{"--word-rule", "words"}, [](Settings& s) { s.WordsAre = WordRule::Words; }},
      {{"--word-rule", "unicode"}, [](Settings& s) { s.WordsAre = WordRule::Unicode; }},
      {{"--any-word-length", "on"}, [](Settings& s) { s.AnyWordLength = true; }},
      {{"--full-case-folding", "on"}, [](Settings& s) { s.Words.FoldCaseFully = true; }},
      {{"--segment", "auto"}, [](Settings& s) { s.Words.Segment = Segmentation::Auto; }},
      {{"--segment", "words"}, [](Settings& s) { s.Words.Segment = Segmentation::Words; }},
      {{"--segment", "characters"}, [](Settings& s) { s.Words.Segment = Segmentation::Characters; }},
      {{"--long-phrases", "on"}, [](Settings& s) { s.LongPhrases = true; }},
      {{"--subfolders"}, [](Settings& s) { s.IncludeSubfolders = true; }},
      {{"--format", "9"}, [](Settings& s) { s.Report.DisplayFormat = 9; }},
      {{"--order", "alphabetical"}, [](Settings& s) { s.Report.WordOrder = 1; }},
      {{"--relative"}, [](Settings& s) { s.Report.RelativeFrequency = true; }},
      // Only for a folder.
      {{"--sort-by-files"}, [](Settings&) {}},
      {{"--filter", " The  CAT, "}, [](Settings& s) { s.Report.FilterText = "the cat"; }},
      {{"--filter-mode", "subphrase"},
       [](Settings& s) { s.Report.FilterModeOfWords = FilterMode::Subphrase; }},
      {{"-o", "/out.txt"}, [](Settings& s) { s.OutputFile = Below("", "out.txt"); }},
  };
  for (const Case& c : cases) {
    files.Erase("/out.txt");
    Settings expected;
    expected.InputFile = Below("", "a.txt");
    c.Change(expected);
    std::vector<std::string> arguments = c.Arguments;
    arguments.insert(arguments.begin(), "/a.txt");
    EXPECT_EQ(*StateBytes(Resulting(arguments)), *StateBytes(expected))
        << testing::PrintToString(c.Arguments);
  }
}

TEST_F(CountProgramTest, ThePathSetsTheSource) {
  files.Add("/t/a.txt", kText);
  EXPECT_EQ(Resulting({"/a.txt"}).SourceKind, TextSource::SingleFile);
  const Settings folder = Resulting({"/t", "--format", "12", "--sort-by-files"});
  EXPECT_EQ(folder.SourceKind, TextSource::Folder);
  EXPECT_EQ(folder.Folder, Below("", "t"));
  EXPECT_EQ(folder.Report.DisplayFormat, 12);
  EXPECT_TRUE(folder.Report.SortByNumberOfFiles);
  EXPECT_EQ(Resulting({"-"}).SourceKind, TextSource::Clipboard);
}

TEST_F(CountProgramTest, LoadsSettingsAndLetsOptionsOverrideThem) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/from-settings.txt";
  settings.MinWords = 2;
  settings.MaxWords = 3;
  settings.ExcludedTexts = "kept as it is";
  files.Add("/s.korv", *StateBytes(settings));

  EXPECT_EQ(Count({"--settings", "/s.korv", "--save-settings", "/same.korv"}), 0);
  EXPECT_EQ(files.Content("/same.korv"), files.Content("/s.korv"));
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_THAT(files.Content("/from-settings.txt").value_or(""), HasSubstr("the big cat"));

  // It exists now.
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 1);
  EXPECT_EQ(Count({"--settings", "/s.korv", "--force"}), 0);

  // A path takes the place of the source, and of the output file with it.
  EXPECT_EQ(Count({"--settings", "/s.korv", "/a.txt"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));

  const Settings overridden = Resulting({"--settings", "/s.korv", "--force", "--max-words", "5"});
  EXPECT_EQ(overridden.MinWords, 2);
  EXPECT_EQ(overridden.MaxWords, 5);
  EXPECT_EQ(overridden.ExcludedTexts, "kept as it is");
}

TEST_F(CountProgramTest, NamesTheFormatOfSettingsThatIsNotAvailable) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.Report.DisplayFormat = 10;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("'#10: Phrase, number of files, frequency' is available"));
}

TEST_F(CountProgramTest, DisabledOutputGoesToStandardOutput) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/r.txt";
  settings.DisableOutputToFile = true;
  settings.MinWords = 2;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));
  EXPECT_EQ(files.Content("/r.txt"), std::nullopt);
  EXPECT_EQ(Count({"--settings", "/s.korv", "-o", "/r.txt"}), 0);
  EXPECT_THAT(files.Content("/r.txt").value_or(""), HasSubstr("the big cat"));
}

TEST_F(CountProgramTest, StandardInputTakesThePlaceOfTheClipboard) {
  Settings settings;
  settings.SourceKind = TextSource::Clipboard;
  settings.MinWords = 2;
  files.Add("/s.korv", *StateBytes(settings));
  input = kText;
  EXPECT_EQ(Count({"--settings", "/s.korv", "--layout", "tabs"}), 0);
  EXPECT_THAT(out.str(), StartsWith("There is one phrase"));
  EXPECT_EQ(Count({"--settings", "/s.korv", "--list-files"}), 2);
}

TEST_F(CountProgramTest, LoadsTheSelectedListOfTheSettings) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.MinWords = 2;
  settings.WordsFiles = {"/none.txt", "/program/cwds_en.txt"};
  settings.SelectedWordsFile = 1;
  settings.IgnoreOption = IgnoreRule::ExcludeWith;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("  big cat\n"));
  settings.SelectedWordsFile = 0;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 1);
  EXPECT_EQ(err.str(), "korv-count: File for words-to-ignore not found.\nFile: /none.txt\n");
}

TEST_F(CountProgramTest, NeverReplacesTheListOfTheSettings) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/out.txt";
  settings.WordsFiles = {"/program/cwds_en.txt"};
  settings.SelectedWordsFile = 0;
  files.Add("/s.korv", *StateBytes(settings));
  files.Add("/out.txt", "a report");
  const auto list = files.Content("/program/cwds_en.txt");
  EXPECT_EQ(Count({"--settings", "/s.korv", "-o", "/program/cwds_en.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The output file cannot be the same as /program/cwds_en.txt.\n");
  for (const std::string file : {"/program/cwds_en.txt", "/out.txt"}) {
    EXPECT_EQ(Count({"--settings", "/s.korv", "--save-settings", file, "--force"}), 1);
    EXPECT_EQ(err.str(), "korv-count: The settings file cannot be the same as " + file + ".\n");
  }
  EXPECT_EQ(files.Content("/program/cwds_en.txt"), list);
  EXPECT_EQ(files.Content("/out.txt"), "a report");
}

TEST_F(CountProgramTest, CommonWordsLoadInSilence) {
  EXPECT_EQ(Count({"/a.txt", "--common-words", "en", "--min-words", "2", "--ignore-mode", "remove"}), 0);
  EXPECT_EQ(err.str(), "8 words read, 2 dropped (2 to be ignored); ASCII\n");
  EXPECT_THAT(out.str(), HasSubstr("  big cat\n"));
}

TEST_F(CountProgramTest, RefusesDamagedSettings) {
  const std::string whole = *StateBytes(Settings{});
  struct Case {
    std::string Bytes;
    const char* Message;
  };
  for (const Case& c :
       {Case{"", "Input past end of file."},
        {whole.substr(0, whole.size() / 2), "Input past end of file."},
        {"nonsense", "Type mismatch."},
        {"\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n77\r\n", "Invalid combo box index."}}) {
    files.Add("/s.korv", c.Bytes);
    EXPECT_EQ(Count({"--settings", "/s.korv", "/a.txt"}), 1);
    EXPECT_THAT(err.str(), HasSubstr(c.Message));
    EXPECT_TRUE(err.str().ends_with("\nFile: /s.korv\n")) << err.str();
  }
}

TEST_F(CountProgramTest, ReadsListsInTheEncodingOfTheOptionsToo) {
  const std::string text = "caf\u00e9 noir sucr\u00e9. caf\u00e9 noir sucr\u00e9.\n";
  files.Add("/c.txt", text);
  files.Add("/l.txt", "\uFEFFcaf\u00e9\n");
  const std::vector<std::string> arguments = {
      "/c.txt", "--min-words", "2", "--ignore-file", "/l.txt", "--ignore-mode", "remove", "--format", "8"};
  for (const char* read : {"auto", "utf-8", "ansi"}) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"--encoding", read});
    EXPECT_EQ(Count(all), 0);
    const bool ansi = read == std::string("ansi");
    EXPECT_THAT(out.str(), HasSubstr(ansi ? "\nnoir sucr\u00e3\n" : "\nnoir sucr\u00e9\n")) << read;
    EXPECT_THAT(err.str(), HasSubstr("2 to be ignored")) << read;
  }
}

TEST_F(CountProgramTest, SavesSettingsBeforeTheRun) {
  files.Add("/short.txt", "abc");
  EXPECT_EQ(Count({"/short.txt", "--save-settings", "/s.korv"}), 1);
  Settings saved;
  EXPECT_TRUE(ReadStateBytes(files.Content("/s.korv").value_or(""), saved).Complete());
  EXPECT_EQ(saved.InputFile, Below("", "short.txt"));
}

TEST_F(CountProgramTest, SavesThePathsOfTheCommandLineInFull) {
  files.Add("/t/b.txt", kText);
  files.Add(files.AbsolutePath("x.txt"), kText);
  const Settings file = Resulting({"x.txt", "-o", "r.txt"});
  EXPECT_EQ(file.InputFile, PathToText(files.AbsolutePath("x.txt")));
  EXPECT_EQ(file.OutputFile, PathToText(files.AbsolutePath("r.txt")));
  EXPECT_EQ(Resulting({"/t/"}).Folder, PathToText(files.AbsolutePath("/t")));
}

TEST_F(CountProgramTest, ReplacesWhatIsNoSettingsFileOnlyByForce) {
  for (const char* content : {"my notes", "\"quoted\"\r\n1\r\n"}) {
    files.Add("/s.korv", content);
    EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv"}), 1);
    EXPECT_EQ(files.Content("/s.korv"), content);
    EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv", "--force"}), 0);
    EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv"}), 0) << "it holds settings now";
  }
  files.Add("/s.korv", "");
  EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv"}), 0) << "there is nothing to lose";
}

TEST_F(CountProgramTest, KeepsTheFileThatStandardInputReads) {
  files.Add("/in.txt", kText);
  inputPath = "/in.txt";
  input = kText;
  EXPECT_EQ(Count({"-", "-o", "/in.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The output file cannot be the same as the input file.\n");
  EXPECT_EQ(Count({"-", "--save-settings", "/in.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The settings file cannot be the same as the input file.\n");
  EXPECT_EQ(files.Content("/in.txt"), kText);
  EXPECT_EQ(Count({"-", "-o", "/r.txt"}), 0);
}

TEST_F(CountProgramTest, PrintsTheSettingsInForceAndCountsNothing) {
  EXPECT_EQ(Count({"/a.txt", "--print-settings", "--max-words", "3", "--case-significant", "--ignore-words",
                   "a\tb\\c", "--order", "alphabetical"}),
            0);
  EXPECT_EQ(err.str(), "");
  for (const char* line :
       {"\nInputFile=/a.txt\n", "MinWords=3\n", "\nMaxWords=3\n", "\nCaseSignificant=true\n",
        "\nIncludeSubfolders=false\n", "\nExtraWordsToIgnore=a\\tb\\\\c\n", "\nWordOrder=alphabetical\n",
        "\nIgnoreOption=exclude-all\n"})
    EXPECT_THAT(out.str(), testing::HasSubstr(line));
  std::vector<std::string> names;
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) names.push_back(line.substr(0, line.find('=')));
  ASSERT_EQ(names.size(), Schema().size());
  for (size_t i = 0; i < names.size(); ++i) EXPECT_EQ(names[i], Schema()[i].Name);
}

TEST_F(CountProgramTest, PrintsSettingsWithoutASourceToo) {
  EXPECT_EQ(Count({"--print-settings"}), 0) << err.str();
  EXPECT_THAT(out.str(), testing::HasSubstr("MinWords=4\n"));
  EXPECT_EQ(Count({"/a.txt", "--min-words", "5", "--save-settings", "/s.korv", "--print-settings"}), 0);
  EXPECT_EQ(Count({"--settings", "/s.korv", "--print-settings"}), 0) << err.str();
  EXPECT_THAT(out.str(), testing::HasSubstr("MinWords=5\n"));
}

}  // namespace
}  // namespace korv
