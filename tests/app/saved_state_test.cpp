#include "app/settings/saved_state.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "app/settings/questions.h"
#include "tests/app/changed_settings.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string BytesOf(const Settings& settings) {
  const auto bytes = StateBytes(settings);
  return bytes ? *bytes : "fault: " + bytes.Error().Description;
}

std::vector<std::string> LinesOf(const std::string& bytes) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < bytes.size();) {
    const size_t end = bytes.find("\r\n", at);
    lines.push_back(bytes.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

/// The default file with line `number` (from 1) replaced.
std::string WithLine(size_t number, const std::string& line) {
  std::vector<std::string> lines = LinesOf(BytesOf(Settings{}));
  lines[number - 1] = line;
  return Joined(lines);
}

/// The lines of settings in which every field differs from its default, without those that have names.
std::vector<std::string> ChangedLinesWithPlaces() {
  std::vector<SettingRow> rows;
  std::ranges::copy_if(Schema(), std::back_inserter(rows),
                       [](const SettingRow& row) { return row.Places.front() != 0; });
  return LinesOf(*StateBytes(AllChanged(), rows));
}

TEST(StateBytes, OfFreshSettingsHaveEveryFieldInItsPlace) {
  const std::vector<std::string> expected = {
      R"("")", R"("")", R"("")", R"("")", R"("")", R"("")",       // Paths and texts.
      "1",     "3",     "1",     "1",     "0",     "1",     "0",  // Sizes and word rules.
      "1",     "0",     "0",     "0",     "0",     "0",     "0",
      "0",     "0",     "0",     "0",     "0",  // Extra characters.
      "0",     "0",     "0",     "0",           // Behaviour.
      "0",     "0",     "0",                    // Order, format, 7-bit.
      "0",     "-1",                            // The empty list, and nothing selected.
      "1",                                      // The source.
      "0",     "1",     "1",     "1",     "0",  // Terminators.
      "2",     "4",     "1",                    // Lengths and frequency.
      "1",     "0",     "0",     "0",     "0",  // The tab once more, patterns, report.
      R"("")", "0",                             // Filter.
      "0",     "-1",    "0",     "0"};          // Words to ignore.
  EXPECT_EQ(LinesOf(BytesOf(Settings{})), expected);
}

TEST(StateBytes, OfChangedSettingsHaveEveryFieldInItsPlace) {
  const std::vector<std::string> expected = {R"("/texts")",
                                             R"("ibid vide größer")",
                                             R"("/texts/a.txt")",
                                             R"("*.txt, a*.htm*")",
                                             R"("/out/report.txt")",
                                             R"("copy, bak")",
                                             "18",
                                             "6",
                                             "0",
                                             "0",
                                             "1",
                                             "0",
                                             "1",
                                             "0",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "1",
                                             "12",
                                             "1",
                                             "2",
                                             R"("/lists/one.txt")",
                                             R"("/lists/two.txt")",
                                             "1",
                                             "2",
                                             "1",
                                             "0",
                                             "0",
                                             "0",
                                             "1",
                                             "0",
                                             "23",
                                             "19",
                                             "0",
                                             "1",
                                             "1",
                                             "1",
                                             "7",
                                             R"("the cat")",
                                             "2",
                                             "0",
                                             "0",
                                             "-1",
                                             "0"};
  EXPECT_EQ(ChangedLinesWithPlaces(), expected);
}

/// A field of the settings, its lines in the file, and what is written there for another value.
struct Field {
  std::vector<size_t> Lines;
  std::string Written;
  std::function<void(Settings&)> Change;
  std::function<bool(const Settings&)> IsChanged;
};

/// The settings themselves, or the part of them that a member belongs to.
template <typename Part, typename AnySettings>
auto& PartOf(AnySettings& settings) {
  if constexpr (std::is_same_v<Part, WordRules>)
    return settings.Words;
  else if constexpr (std::is_same_v<Part, ReportOptions>)
    return settings.Report;
  else
    return settings;
}

template <typename Part, typename T>
Field FieldAt(std::vector<size_t> lines, std::string written, T Part::*member, T changed) {
  return {std::move(lines), std::move(written), [=](Settings& s) { PartOf<Part>(s).*member = changed; },
          [=](const Settings& s) { return PartOf<Part>(s).*member == changed; }};
}

std::vector<Field> Fields() {
  const std::string text = "x";
  std::vector<Field> fields = {
      FieldAt({1}, R"("x")", &Settings::Folder, text),
      FieldAt({2}, R"("x")", &Settings::ExtraWordsToIgnore, text),
      FieldAt({3}, R"("x")", &Settings::InputFile, text),
      FieldAt({4}, R"("x")", &Settings::FilePatterns, text),
      FieldAt({5}, R"("x")", &Settings::OutputFile, text),
      FieldAt({6}, R"("x")", &Settings::ExcludedTexts, text),
      FieldAt({7}, "3", &WordRules::ShortWordSize, 5),
      FieldAt({8}, "1", &WordRules::LongWordSize, 30),
      FieldAt({30}, "1", &ReportOptions::WordOrder, 1),
      FieldAt({31}, "7", &ReportOptions::DisplayFormat, 7),
      FieldAt({35}, "2", &Settings::SourceKind, TextSource::Folder),
      FieldAt({41}, "6", &Settings::MinWords, 8),
      FieldAt({42}, "6", &Settings::MaxWords, 8),
      FieldAt({43}, "6", &Settings::MinFrequency, 7),
      FieldAt({48}, "5", &Settings::CommonWordsLanguage, CommonWords::French),
      FieldAt({49}, R"("x")", &ReportOptions::FilterText, text),
      FieldAt({50}, "1", &ReportOptions::FilterModeOfWords, FilterMode::AllWordsInSameOrder)};
  const auto addCheck = [&]<typename Part>(std::vector<size_t> lines, bool Part::*member) {
    const Settings fresh;
    const bool changed = !(PartOf<Part>(fresh).*member);
    fields.push_back(FieldAt(std::move(lines), changed ? "1" : "0", member, changed));
  };
  addCheck({9}, &WordRules::IgnoreShortWords);
  addCheck({10}, &WordRules::IgnoreRepetitions);
  addCheck({11}, &Settings::ExtractTextFromDocx);
  addCheck({12}, &WordRules::IgnoreNoLetter);
  addCheck({13}, &WordRules::CaseSignificant);
  addCheck({14}, &WordRules::AllowHyphens);
  addCheck({15}, &WordRules::AllowApostrophes);
  addCheck({16}, &WordRules::AllowUnderscores);
  addCheck({17}, &WordRules::AllowColons);
  addCheck({18}, &WordRules::AllowBackslashes);
  addCheck({19}, &WordRules::AllowForwardslashes);
  addCheck({20}, &WordRules::AllowParentheses);
  addCheck({21}, &WordRules::AllowPeriods);
  addCheck({22}, &WordRules::AllowCommas);
  addCheck({23}, &WordRules::AllowAtSigns);
  addCheck({24}, &WordRules::AllowNumerals);
  addCheck({25}, &WordRules::AllowAmpersands);
  addCheck({26}, &Settings::WarnOnOverwrite);
  addCheck({27}, &Settings::SaveStateOnQuit);
  addCheck({28}, &Settings::DisableOutputToFile);
  addCheck({29}, &Settings::IncludeSubfolders);
  addCheck({32}, &WordRules::Only7bitASCII);
  addCheck({36}, &WordRules::TerminateAtEndOfLine);
  addCheck({37}, &WordRules::TerminateAtPeriod);
  addCheck({38}, &WordRules::TerminateAtDoubleQuote);
  addCheck({39, 44}, &WordRules::TerminateAtTab);
  addCheck({40}, &WordRules::TerminateAtComma);
  addCheck({45}, &Settings::PatternMatchingInWordsToIgnoreFile);
  addCheck({46}, &ReportOptions::RelativeFrequency);
  addCheck({47}, &ReportOptions::SortByNumberOfFiles);
  return fields;
}

TEST(StateBytes, HaveALineForEachFieldAndGiveItBackAlone) {
  const std::vector<Field> fields = Fields();
  for (const Field& field : fields) {
    std::vector<std::string> lines = LinesOf(BytesOf(Settings{}));
    for (const size_t line : field.Lines) lines[line - 1] = field.Written;
    Settings changed;
    field.Change(changed);
    EXPECT_EQ(LinesOf(BytesOf(changed)), lines) << field.Lines[0];
    Settings restored;
    EXPECT_TRUE(ReadStateBytes(Joined(lines), restored).Complete());
    for (const Field& other : fields)
      EXPECT_EQ(other.IsChanged(restored), &other == &field) << field.Lines[0] << " " << other.Lines[0];
  }
}

TEST(StateBytes, HaveALineForEachOptionOfTheWordsToIgnore) {
  const IgnoreRule rules[] = {IgnoreRule::Allow, IgnoreRule::ExcludeAll, IgnoreRule::Remove,
                              IgnoreRule::ExcludeWith};
  for (size_t k = 0; k < std::size(rules); ++k) {
    Settings settings;
    settings.IgnoreOption = rules[k];
    std::vector<std::string> lines = LinesOf(BytesOf(Settings{}));
    for (size_t option = 0; option < std::size(rules); ++option)
      lines[50 + option] = option == k ? "-1" : "0";
    EXPECT_EQ(LinesOf(BytesOf(settings)), lines) << k;
    Settings restored;
    EXPECT_TRUE(ReadStateBytes(Joined(lines), restored).Complete());
    EXPECT_EQ(restored.IgnoreOption, rules[k]);
  }
}

TEST(StateBytes, EndWithTheLineEndOfTheLastOption) {
  EXPECT_TRUE(BytesOf(Settings{}).ends_with("\r\n0\r\n"));
}

TEST(StateBytes, RefuseTextsThatCannotBeRepresented) {
  for (const char* text : {"a\"b", "a\nb", "a\rb",
                           "a\xFF"
                           "b"}) {
    Settings settings;
    settings.InputFile = text;
    EXPECT_FALSE(StateBytes(settings)) << text;
  }
}

TEST(ReadStateBytes, GivesBackEveryField) {
  const std::string bytes = BytesOf(AllChanged());
  Settings restored;
  EXPECT_TRUE(ReadStateBytes(bytes, restored).Complete());
  EXPECT_EQ(BytesOf(restored), bytes);
  EXPECT_EQ(restored.Words.LongWordSize, 80);
  EXPECT_EQ(restored.IgnoreOption, IgnoreRule::Remove);
  EXPECT_EQ(restored.WordsFiles, AllChanged().WordsFiles);
}

TEST(ReadStateBytes, GivesTheSameBytesAgainForEachOption) {
  for (const std::optional<IgnoreRule> option :
       {std::optional<IgnoreRule>(), std::optional(IgnoreRule::Allow), std::optional(IgnoreRule::ExcludeAll),
        std::optional(IgnoreRule::Remove), std::optional(IgnoreRule::ExcludeWith)}) {
    Settings settings;
    settings.IgnoreOption = option;
    Settings restored;
    EXPECT_TRUE(ReadStateBytes(BytesOf(settings), restored).Complete());
    EXPECT_EQ(restored.IgnoreOption, option);
  }
}

TEST(ReadStateBytes, TakesTheSecondCopyOfTheTab) {
  constexpr size_t kFirstTab = 39;
  constexpr size_t kSecondTab = 44;
  for (const auto& [first, second] : {std::pair{"0", "1"}, {"1", "0"}}) {
    std::vector<std::string> lines = LinesOf(BytesOf(Settings{}));
    lines[kFirstTab - 1] = first;
    lines[kSecondTab - 1] = second;
    Settings settings;
    EXPECT_TRUE(ReadStateBytes(Joined(lines), settings).Complete());
    EXPECT_EQ(settings.Words.TerminateAtTab, std::string(second) == "1");
  }
}

TEST(ReadStateBytes, TakesWhatOtherHandsWrote) {
  std::string bytes = BytesOf(AllChanged());
  std::string linux = bytes;
  std::erase(linux, '\r');
  std::string spaced = bytes;
  spaced.replace(spaced.find("18\r\n"), 4, " 18 \r\n");
  for (const std::string& variant :
       {"\xEF\xBB\xBF" + bytes, linux, spaced, bytes + "\"more\"\r\n",
        bytes + "\"name=value\"\r\n\"other=2\"\r\n", bytes.substr(0, bytes.size() - 2)}) {
    Settings settings;
    EXPECT_TRUE(ReadStateBytes(variant, settings).Complete());
    EXPECT_EQ(BytesOf(settings), bytes);
  }
}

TEST(ReadStateBytes, StopsAtTheEndOfAShortFileWithTheFieldsBeforeItApplied) {
  const std::vector<std::string> lines = ChangedLinesWithPlaces();
  for (size_t kept = 0; kept < lines.size(); ++kept) {
    Settings settings;
    const RestoreOutcome outcome =
        ReadStateBytes(Joined({lines.begin(), lines.begin() + static_cast<ptrdiff_t>(kept)}), settings);
    EXPECT_TRUE(outcome.EndedEarly) << kept;
    EXPECT_EQ(outcome.Result, kRestored);
    EXPECT_EQ(settings.Folder, kept > 0 ? "/texts" : "");
    EXPECT_EQ(settings.Words.ShortWordSize, kept > 6 ? 20 : 3);
    EXPECT_EQ(settings.WordsFiles.size(), kept < 34 ? 0u : kept < 35 ? 1u : 2u) << kept;
    EXPECT_EQ(settings.SelectedWordsFile, kept < 36 ? -1 : 1);
    // The default option is switched off before the saved one is switched on.
    std::optional<IgnoreRule> option = IgnoreRule::ExcludeAll;
    if (kept == 54) option.reset();
    if (kept > 54) option = IgnoreRule::Remove;
    EXPECT_EQ(settings.IgnoreOption, option) << kept;
  }
}

TEST(ReadStateBytes, NeverPutsAValueOutOfItsRange) {
  struct Case {
    size_t Line;
    const char* Value;
  };
  for (const Case c : {Case{7, "19"},
                       {7, "-1"},
                       {8, "7"},
                       {9, "2"},
                       {9, "-1"},
                       {30, "2"},
                       {31, "13"},
                       {31, "-1"},
                       {33, "-1"},
                       {33, "100"},
                       {34, "0"},
                       {34, "-2"},
                       {35, "3"},
                       {35, "-1"},
                       {41, "24"},
                       {42, "24"},
                       {43, "20"},
                       {48, "8"},
                       {50, "3"},
                       {51, "1"},
                       {51, "-2"},
                       {7, "99999999999999999999"},
                       {7, "-99999999999999999999"}}) {
    Settings settings;
    const RestoreOutcome outcome = ReadStateBytes(WithLine(c.Line, c.Value), settings);
    EXPECT_EQ(outcome.Result, kInvalidIndex) << c.Line << " " << c.Value;
    EXPECT_EQ(outcome.ErrorText, "Invalid data");
    EXPECT_FALSE(outcome.EndedEarly);
    EXPECT_EQ(BytesOf(settings), BytesOf(Settings{})) << c.Line << " " << c.Value;
  }
}

TEST(ReadStateBytes, RefusesWhatIsNoRecordOfItsKind) {
  struct Case {
    size_t Line;
    std::string Value;
  };
  for (const Case& c : {Case{1, "text"},
                        {1, "7"},
                        {1, ""},
                        {7, "\"1\""},
                        {7, "one"},
                        {7, "1x"},
                        {7, "1.5"},
                        {1, "\"a\"b"},
                        {1, "\"a\r\nb\""},
                        {1, std::string("\"a\0b\"", 5)},
                        {1, "\"\xC3\""},
                        {7, ""},
                        {7, "+1"},
                        {7, "0x1"}}) {
    Settings settings;
    const RestoreOutcome outcome = ReadStateBytes(WithLine(c.Line, c.Value), settings);
    EXPECT_EQ(outcome.Result, kCannotRestore) << c.Line << " " << c.Value;
    EXPECT_THAT(outcome.ErrorText, testing::Not(IsEmpty()));
    EXPECT_EQ(BytesOf(settings), BytesOf(Settings{}));
  }
}

TEST(ReadStateBytes, ATextThatNeverEndsEndsTheFile) {
  Settings settings;
  EXPECT_TRUE(ReadStateBytes("\"/texts\"\r\n\"ibid", settings).EndedEarly);
  EXPECT_EQ(settings.Folder, "/texts");
  EXPECT_EQ(settings.ExtraWordsToIgnore, "");
}

TEST(ReadStateBytes, ReplacesTheListOfFiles) {
  Settings settings = AllChanged();
  EXPECT_TRUE(ReadStateBytes(BytesOf(Settings{}), settings).Complete());
  EXPECT_THAT(settings.WordsFiles, IsEmpty());
  EXPECT_EQ(settings.SelectedWordsFile, -1);
}

class SavedStateTest : public testing::Test {
 protected:
  FakeFiles files;
  FakeMessages messages;
  SavedState state{files, messages, "/home/me/.config/Korv/korv.usr"};
};

TEST_F(SavedStateTest, SavesToTheStateFileAndRestoresFromIt) {
  files.AddFolder("/home/me/.config");
  EXPECT_EQ(state.SaveState("", AllChanged()), "");
  EXPECT_EQ(files.Content("/home/me/.config/Korv/korv.usr"), BytesOf(AllChanged()));
  Settings restored;
  EXPECT_TRUE(state.RestoreSavedState("", restored).Complete());
  EXPECT_EQ(BytesOf(restored), BytesOf(AllChanged()));
  EXPECT_THAT(messages.Shown, IsEmpty());
}

TEST(SavedState, MakesTheFoldersThatANewUserLacks) {
  FakeFiles files;
  FakeMessages messages;
  SavedState state(files, messages, "/home/new/.config/Korv/korv.usr");
  EXPECT_EQ(state.SaveState({}, Settings{}), "");
  EXPECT_EQ(files.Content("/home/new/.config/Korv/korv.usr"), BytesOf(Settings{}));
  EXPECT_NE(state.SaveState("/nowhere/x.korv", Settings{}), "")
      << "a folder that the user named is the user's";
}

TEST_F(SavedStateTest, SavesToANamedFileInPlaceOfWhatItHeld) {
  files.Add("/mine.korv", "old");
  EXPECT_EQ(state.SaveState("/mine.korv", Settings{}), "");
  EXPECT_EQ(files.Content("/mine.korv"), BytesOf(Settings{}));
}

TEST_F(SavedStateTest, KeepsTheOldFileWhenSavingFailsAnywhere) {
  for (int call = 1;; ++call) {
    FakeFiles disk;
    disk.AddFolder("/home/me/.config");
    disk.Add("/mine.korv", "old");
    SavedState onDisk(disk, messages, "/home/me/.config/Korv/korv.usr");
    disk.FailCall(call, FileFault::NoSpace);
    const std::string error = onDisk.SaveState("/mine.korv", Settings{});
    if (!disk.FailureHappened()) break;
    EXPECT_THAT(error, testing::StartsWith("Error when attempting to save state: "));
    EXPECT_EQ(disk.Content("/mine.korv"), "old");
  }
}

TEST_F(SavedStateTest, KeepsTheOldFileWhenAValueCannotBeRepresented) {
  files.Add("/mine.korv", "old");
  Settings settings;
  settings.Folder = "say \"hello\"";
  EXPECT_EQ(state.SaveState("/mine.korv", settings),
            "Error when attempting to save state: A text holds a double quote or a line break.");
  EXPECT_EQ(files.Content("/mine.korv"), "old");
}

TEST_F(SavedStateTest, AsksAboutDefaultsWhenTheFileEndsEarly) {
  files.Add("/short.korv", "\"/texts\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n5\r\n");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    messages.Forget();
    messages.WillAnswer(questions::kSetDefaults, answer);
    Settings settings;
    const RestoreOutcome outcome = state.RestoreSavedState("/short.korv", settings);
    EXPECT_TRUE(outcome.EndedEarly);
    EXPECT_FALSE(outcome.Complete());
    EXPECT_EQ(settings.Folder, "/texts");
    EXPECT_EQ(settings.Words.ShortWordSize, answer == Answer::Yes ? 3 : 7);
    ASSERT_EQ(messages.Shown.size(), 2u);
    EXPECT_EQ(messages.Shown[0].Text, "Input past end of file.  Set default values?");
    EXPECT_EQ(messages.Shown[0].Title, "Error restoring saved state");
    EXPECT_EQ(messages.Shown[0].Buttons, Buttons::YesNo);
    EXPECT_EQ(messages.Shown[0].DefaultAnswer, Answer::No);
    EXPECT_EQ(messages.Shown[1].Text, "Saving the settings should fix the 'Input past end of file' error.");
    EXPECT_EQ(messages.Shown[1].Title, "Input past end of file");
    EXPECT_EQ(messages.Shown[1].Icon, Icon::Information);
  }
}

TEST_F(SavedStateTest, TellsWhyAFileCannotBeRestored) {
  files.Add("/bad.korv", WithLine(31, "13"));
  files.Add("/worse.korv", WithLine(1, "none"));
  files.Add("/huge.korv", std::string(kMostStateBytes + 1, '\n'));
  Settings settings;
  EXPECT_EQ(LoadFailureText(state.RestoreSavedState("/bad.korv", settings)), "Invalid combo box index.");
  EXPECT_EQ(LoadFailureText(state.RestoreSavedState("/worse.korv", settings)),
            "Error when attempting to load settings: Type mismatch.");
  for (const char* path : {"/none.korv", "/huge.korv", "/"})
    EXPECT_THAT(LoadFailureText(state.RestoreSavedState(path, settings)),
                testing::StartsWith("Error when attempting to load settings: "));
  EXPECT_EQ(LoadFailureText({}), "");
  EXPECT_EQ(BytesOf(settings), BytesOf(Settings{}));
}

TEST_F(SavedStateTest, ReadingThatFailsAnywhereLeavesTheSettings) {
  files.Add("/mine.korv", BytesOf(AllChanged()));
  for (int call = 1;; ++call) {
    files.FailCall(call);
    Settings settings;
    const RestoreOutcome outcome = state.RestoreSavedState("/mine.korv", settings);
    if (!files.FailureHappened()) break;
    EXPECT_EQ(outcome.Result, kCannotRestore);
    EXPECT_EQ(BytesOf(settings), BytesOf(Settings{}));
  }
}

TEST(AskToLoadWordFile, NamesTheFile) {
  FakeMessages messages;
  messages.WillAnswer(questions::kLoadWordFile, Answer::No);
  EXPECT_FALSE(AskToLoadWordFile("/lists/one.txt", messages));
  EXPECT_EQ(messages.Only().Text, "Do you wish to load the words-to-ignore file\n/lists/one.txt ?");
  EXPECT_EQ(messages.Only().Title, "Load file?");
  EXPECT_EQ(messages.Only().Buttons, Buttons::YesNo);
}

// ---- Settings without a place

/// The rows of another version: two settings have no place, and one is unknown to it.
std::vector<SettingRow> RowsWithNames() {
  std::vector<SettingRow> rows;
  for (const char* name :
       {"MinWords", "FilterText", "ExtraWordsToIgnore", "FilterModeOfWords", "WarnOnOverwrite"})
    rows.push_back(RowOf(name));
  rows[0].Places = {1};
  for (size_t k = 1; k < rows.size(); ++k) rows[k].Places = {};
  return rows;
}

TEST(NamedSettings, AreWrittenOnlyWhereTheyDifferFromTheirDefault) {
  Settings settings;
  settings.MinWords = 3;
  EXPECT_EQ(*StateBytes(settings, RowsWithNames()), "1\r\n");
  settings.ExtraWordsToIgnore = "a=b größer";
  settings.Report.FilterModeOfWords = FilterMode::Subphrase;
  settings.WarnOnOverwrite = true;
  EXPECT_EQ(*StateBytes(settings, RowsWithNames()),
            "1\r\n\"ExtraWordsToIgnore=a=b größer\"\r\n\"FilterModeOfWords=2\"\r\n\"WarnOnOverwrite=1\"\r\n");
}

TEST(NamedSettings, AreWrittenWhereTheyDifferFromWhatTheReadingSets) {
  Settings settings;
  const std::string letter = *StateBytes(settings);
  ApplyReading(Reading::Reader, settings);
  EXPECT_EQ(*StateBytes(settings), letter + "\"Reading=1\"\r\n");
  settings.ShownMarkup = false;
  settings.Words.Segment = Segmentation::Words;
  EXPECT_EQ(*StateBytes(settings), letter + "\"Reading=1\"\r\n\"ShownMarkup=0\"\r\n\"Segmentation=2\"\r\n");
  Settings read;
  EXPECT_TRUE(ReadStateBytes(*StateBytes(settings), read).Complete());
  EXPECT_EQ(DifferencesOf(read, settings), SettingSet());
  EXPECT_TRUE(ReadStateBytes(letter, read).Complete());
  EXPECT_EQ(DifferencesOf(read, Settings{}), SettingSet());
  EXPECT_TRUE(
      ReadStateBytes(letter + "\"Segmentation=2\"\r\n\"ShownMarkup=0\"\r\n\"Reading=1\"", read).Complete());
  EXPECT_EQ(DifferencesOf(read, settings), SettingSet()) << "lines stand in any order";
}

TEST(NamedSettings, AreReadInAnyOrderAndAreTheirDefaultsWhereTheyAreMissing) {
  Settings settings = AllChanged();
  EXPECT_TRUE(ReadStateBytes("3\r\n\"WarnOnOverwrite=0\"\r\n\"ExtraWordsToIgnore=a=b größer\"\r\n", settings,
                             RowsWithNames())
                  .Complete());
  EXPECT_EQ(settings.MinWords, 5);
  EXPECT_EQ(settings.ExtraWordsToIgnore, "a=b größer");
  EXPECT_FALSE(settings.WarnOnOverwrite);
  EXPECT_EQ(settings.Report.FilterText, "");
  EXPECT_EQ(settings.Report.FilterModeOfWords, FilterMode::AllWords);
  EXPECT_EQ(settings.MaxWords, 25) << "no row of these";
}

TEST(NamedSettings, OfLaterVersionsArePassedOver) {
  Settings settings;
  EXPECT_TRUE(
      ReadStateBytes("3\r\n\"Later=1\"\r\n\"no name\"\r\n\"WarnOnOverwrite=1\"\r\n7\r\n\"FilterText=a\"\r\n",
                     settings, RowsWithNames())
          .Complete());
  EXPECT_TRUE(settings.WarnOnOverwrite);
  EXPECT_EQ(settings.Report.FilterText, "") << "behind what is no name";
}

TEST(NamedSettings, DoNotLeaveTheirRange) {
  for (const char* line : {"\"FilterModeOfWords=3\"", "\"FilterModeOfWords=-1\"", "\"FilterModeOfWords=\"",
                           "\"WarnOnOverwrite=2\"", "\"WarnOnOverwrite=yes\""}) {
    Settings settings;
    EXPECT_EQ(ReadStateBytes("3\r\n" + std::string(line) + "\r\n", settings, RowsWithNames()).Result,
              kInvalidIndex)
        << line;
    EXPECT_EQ(*StateBytes(settings, RowsWithNames()), "3\r\n") << line;
  }
}

TEST(NamedSettings, ThatCannotBeSavedAreNot) {
  Settings settings;
  settings.ExtraWordsToIgnore = "a \"quoted\" word";
  EXPECT_FALSE(StateBytes(settings, RowsWithNames()));
}

}  // namespace
}  // namespace korv
