#include "cli/options.h"
#include "tests/cli/count_program_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST_F(CountProgramTest, ListsFiles) {
  files.Add("/t/b.txt", kText);
  files.Add("/t/A.txt", kText);
  files.Add("/t/page.js", kText);
  files.Add("/t/sub/c.txt", kText);
  EXPECT_EQ(Count({"/a.txt", "--list-files"}), 0);
  EXPECT_EQ(out.str(), "/a.txt\n");
  EXPECT_EQ(Count({"/t/", "--list-files"}), 0);
  EXPECT_EQ(out.str(), WithNativePaths("{Folder} = /t\n{Folder}/A.txt\n{Folder}/b.txt\n"));
  EXPECT_EQ(Count({"/t", "--list-files", "--subfolders", "--exclude", "b"}), 0);
  EXPECT_EQ(out.str(), WithNativePaths("{Folder} = /t\n{Folder}/A.txt\n{Folder}/sub/c.txt\n"));
  EXPECT_EQ(Count({"/t", "--list-files", "--patterns", "*.none"}), 0);
  EXPECT_EQ(out.str(), "{Folder} = /t\n");
  EXPECT_EQ(Count({"/none", "--list-files"}), 1);
  EXPECT_EQ(Count({"/t", "--list-files", "--patterns", "a<b"}), 1);
}

TEST_F(CountProgramTest, SaysWhenAListOfFilesWasStopped) {
  files.Add("/t/a.txt", kText);
  files.BeforeListing = [this](const std::filesystem::path&) { yielder->RequestStop(); };
  EXPECT_EQ(Count({"/t", "--list-files"}), 130);
  EXPECT_EQ(err.str(), "Stopped: these are not all files.\n");
  EXPECT_EQ(Count({"/t", "--list-files", "--quiet"}), 130);
  EXPECT_EQ(err.str(), "");
}

TEST_F(CountProgramTest, TellsOfSkippedFilesUnlessQuiet) {
  files.Add("/t/a.txt", kText);
  files.Add("/t/empty.txt", "");
  EXPECT_EQ(Count({"/t", "--min-words", "2"}), 0);
  const std::string told = "1 file was skipped:\n" + Below("{Folder}", "empty.txt") + ": is zero-length\n" +
                           "8 words read, none dropped; 1 file ASCII\n";
  EXPECT_EQ(err.str(), told);
  EXPECT_THAT(out.str(), StartsWith("1 file (in 1 folder) was scanned.\n"));
  EXPECT_EQ(Count({"/t", "-o", "/r.txt"}), 0);
  EXPECT_EQ(err.str(), told);
  EXPECT_EQ(Count({"/t", "--quiet"}), 0);
  EXPECT_THAT(err.str(), IsEmpty());
}

TEST_F(CountProgramTest, AnswersQuestionsByItself) {
  // No to a higher minimum frequency, No to an output file for a large input, Yes to the filter.
  std::string text;
  while (text.size() < 300000) text += "The big cat sat with the small dog. ";
  files.Add("/large.txt", text + "one single phrase");
  EXPECT_EQ(Count({"/large.txt", "--min-words", "2", "--max-words", "2", "--min-frequency", "1", "--filter",
                   "single"}),
            0);
  EXPECT_THAT(out.str(), HasSubstr("one single\n"));
  EXPECT_THAT(out.str(), Not(HasSubstr("big cat")));
  EXPECT_THAT(err.str(), Not(HasSubstr("korv-count:")));
}

TEST_F(CountProgramTest, ReadsUtf8WithoutASignatureAsTheEncodingSays) {
  files.Add("/u.txt", "größer größer größer größer");
  EXPECT_EQ(Count({"/u.txt", "--min-words", "2"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("größer größer"));
  EXPECT_EQ(Count({"/u.txt", "--min-words", "2", "--encoding", "ansi"}), 0);
  EXPECT_THAT(out.str(), Not(HasSubstr("größer")));
}

TEST_F(CountProgramTest, AnInterruptListsWhatWasReadWithStatus130) {
  input = std::string(2000, ' ') + kText + std::string(200000, ' ') + "the end of it";
  int reads = 0;
  onRead = [&] {
    if (++reads == 4) yielder->RequestStop();
  };
  EXPECT_EQ(Count({"-", "--min-words", "2"}), 130);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));
  EXPECT_EQ(err.str(), "Stopped: the report covers the first 8 words.\n" + std::string(kTextLine));
  reads = 0;
  EXPECT_EQ(Count({"-", "--min-words", "2", "--quiet"}), 130);
  EXPECT_THAT(err.str(), IsEmpty());
}

TEST_F(CountProgramTest, AnInterruptBeforeAPhraseWasReadMakesNoReport) {
  input = kText;
  onRead = [&] { yielder->RequestStop(); };
  EXPECT_EQ(Count({"-", "--min-words", "20", "--max-words", "20"}), 130);
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(err.str(), "Stopped before a phrase was read: there is no report.\n");
}

TEST_F(CountProgramTest, ShowsProgressOnATerminalAndTakesItAway) {
  terminal = true;
  clock.Step = std::chrono::seconds(1);
  for (int k = 0; k < 30; ++k) input += kText;
  onRead = [] {};
  EXPECT_EQ(Count({"-", "--min-words", "2"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("\r\x1b[KReading: "));
  EXPECT_TRUE(err.str().ends_with("\r\x1b[K240 words read, none dropped; ASCII\n")) << err.str();
  EXPECT_EQ(Count({"-", "--quiet"}), 0);
  EXPECT_THAT(err.str(), IsEmpty());
  terminal = false;
  EXPECT_EQ(Count({"-"}), 0);
  EXPECT_EQ(err.str(), "240 words read, none dropped; ASCII\n");
  EXPECT_EQ(Count({"-", "--progress"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("Reading: 0 words\n"));
}

TEST_F(CountProgramTest, TellsTheTimesOfItsStagesWhenAsked) {
  EXPECT_EQ(Count({"/a.txt", "--stages"}), 0);
  for (const char* stage : {"reading and cutting\t", "counting\t", "sorting\t", "exclusion\t", "chain\t",
                            "writing\t", "words\t8\n"})
    EXPECT_THAT(err.str(), HasSubstr(stage));
}

TEST_F(CountProgramTest, TellsWhatBecameOfTheWords) {
  const std::string w40(40, 'w');
  std::string thousands;
  for (int k = 0; k < 1000; ++k) thousands += "to be ";
  struct Case {
    const char* Name;
    std::string Text;
    std::vector<std::string> Options;
    std::string Line;
  };
  for (const Case& c : std::vector<Case>{
           {"one of each",
            "a " + std::string(81, 'x') + " 123 hmmmm the caf\u00e9 cat big dog",
            {"--long-words", "80", "--allow", "numerals", "--ignore-words", "the", "--ignore-mode", "remove",
             "--seven-bit"},
            "9 words read, 6 dropped (1 shorter than 3 characters, 1 longer than 80 characters, "
            "1 without a letter, 1 with a letter four times in a row, 1 to be ignored, 1 not 7-bit); UTF-8"},
           {"phrases that are too long",
            w40 + " " + w40 + " " + w40,
            {"--keep-repetitions", "--min-words", "2", "--max-words", "3"},
            "3 words read, none dropped; 1 phrase of more than 100 characters not counted; ASCII"},
           {"thousands",
            thousands,
            {},
            "2,000 words read, 2,000 dropped (2,000 shorter than 3 characters); ASCII"},
           {"one word", "words, 1 2", {}, "1 word read, none dropped; ASCII"},
           {"bytes above 127 as ANSI",
            "caf\xE9 cat dog",
            {},
            "3 words read, none dropped; ANSI with bytes above 127"},
           {"ill-formed sequences",
            "\u00e9t\u00e9 caf\xE9 cat \xFF dog",
            {"--encoding", "utf-8"},
            "4 words read, none dropped; UTF-8, 2 ill-formed sequences replaced"}}) {
    files.Add("/c.txt", c.Text);
    std::vector<std::string> arguments = {"/c.txt"};
    arguments.insert(arguments.end(), c.Options.begin(), c.Options.end());
    EXPECT_EQ(Count(arguments), 0) << c.Name;
    EXPECT_EQ(err.str(), c.Line + "\n") << c.Name;
  }
  files.Add("/t/a.txt", kText);
  files.Add("/t/b.txt", kText);
  files.Add("/t/c.txt", "\u00e9t\u00e9 caf\u00e9");
  files.Add("/t/d.txt", "caf\xE9 cat dog");
  EXPECT_EQ(Count({"/t"}), 0);
  EXPECT_EQ(err.str(),
            "21 words read, none dropped; 1 file UTF-8, 1 file ANSI with bytes above 127, 2 files ASCII\n");
}

TEST_F(CountProgramTest, WordsSetsBothLengths) {
  files.Add("/w.txt", "one two three four five. one two three four five.");
  struct Case {
    const char* Words;
    std::vector<std::string> Phrases;
  };
  const Case cases[] = {{"2", {"four five", "one two", "three four", "two three"}},
                        {"4-5", {"one two three four five"}},
                        {"5", {"one two three four five"}},
                        {"2-25", {"one two three four five"}}};
  for (const Case& c : cases) {
    EXPECT_EQ(Count({"/w.txt", "--words", c.Words, "--columns", "phrase", "--quiet"}), kExitReport);
    for (const std::string& phrase : c.Phrases)
      EXPECT_THAT(out.str(), HasSubstr("\n" + phrase + "\n")) << c.Words;
  }
  ExpectWrongUsage("/w.txt", {{{"--words", "1"}, "--words"},
                              {{"--words", "26"}, "--words"},
                              {{"--words", "4-3"}, "--words: 3 is not between 4 and 25"},
                              {{"--words", "3-"}, "--words"},
                              {{"--words", "-3"}, "--words"},
                              {{"--words", "2-3-4"}, "--words"},
                              {{"--words", "x"}, "--words: 'x' is no number"},
                              {{"--words", "3", "--min-words", "2"}, "--min-words excludes --words"},
                              {{"--words", "3", "--max-words", "4"}, "--max-words excludes --words"}});
}

TEST_F(CountProgramTest, RedundantPhrasesAreListedWhereTheyAreWished) {
  files.Add("/r.txt", "the big cat. the big cat. a big dog.");
  const std::vector<std::string> arguments = {"/r.txt", "--words", "2-3", "--columns",
                                              "phrase,frequency,net_frequency"};
  EXPECT_EQ(Count(arguments), kExitReport);
  EXPECT_EQ(out.str(), "phrase\tfrequency\tnet_frequency\nthe big cat\t2\t2\n");
  std::vector<std::string> all = arguments;
  all.emplace_back("--keep-redundant");
  EXPECT_EQ(Count(all), kExitReport);
  EXPECT_EQ(out.str(), "phrase\tfrequency\tnet_frequency\nbig cat\t2\t0\nthe big\t2\t0\nthe big cat\t2\t2\n");
  EXPECT_EQ(Count({"/r.txt", "--words", "2-3", "--keep-redundant", "--quiet"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("the big\n"));
}

TEST_F(CountProgramTest, AnEmptyListIsAFailureWhereThatIsWished) {
  struct Case {
    std::vector<std::string> Arguments;
    int Status;
  };
  const Case cases[] = {{{}, kExitReport},
                        {{"--filter", "dog"}, kExitEmpty},
                        {{"--min-frequency", "20"}, kExitEmpty},
                        {{"--match", "dog"}, kExitEmpty},
                        {{"--match", "cat"}, kExitReport},
                        {{"--columns", "phrase"}, kExitReport},
                        {{"--columns", "phrase", "--min-frequency", "20"}, kExitEmpty},
                        {{"--columns", "phrase", "--match", "dog"}, kExitEmpty},
                        {{"--context-of", "big cat"}, kExitReport},
                        {{"--context-of", "big dog"}, kExitEmpty}};
  int files_written = 0;
  for (const Case& c : cases) {
    std::vector<std::string> arguments{"/a.txt", "--min-words", "2"};
    arguments.insert(arguments.end(), c.Arguments.begin(), c.Arguments.end());
    EXPECT_EQ(Count(arguments), kExitReport) << c.Arguments.back();
    const std::string listed = out.str();
    arguments.emplace_back("--fail-if-empty");
    EXPECT_EQ(Count(arguments), c.Status) << testing::PrintToString(arguments);
    EXPECT_EQ(out.str(), listed) << "the list is the same";
    if (!c.Arguments.empty() && c.Arguments.front() == "--context-of") continue;
    const std::string path = "/o" + std::to_string(++files_written) + ".txt";
    arguments.insert(arguments.end(), {"-o", path});
    EXPECT_EQ(Count(arguments), c.Status);
    EXPECT_TRUE(files.Content(path)) << "written all the same";
  }
  EXPECT_EQ(Count({"/none.txt", "--fail-if-empty"}), kExitRefused);
}

TEST_F(CountProgramTest, ReadsTextsAsTheTypeSays) {
  const std::string page = "<p class='the big cat'>The big cat &amp; dog</p>\n<p>the big cat</p>\n";
  files.Add("/page.tmpl", page);
  files.Add("/page.html", page);
  const std::vector<std::string> rest = {"--words", "3", "--layout", "tabs", "--format", "7"};
  const auto report = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    EXPECT_EQ(Count(arguments), 0) << err.str();
    return out.str().substr(out.str().find("There"));
  };
  const std::string byName = report({"/page.html"});
  EXPECT_THAT(byName, HasSubstr("the big cat\t2\n"));
  EXPECT_EQ(report({"/page.tmpl", "--type", "html"}), byName);
  EXPECT_EQ(report({"/page.html", "--type", "html"}), byName);
  input = page;
  EXPECT_EQ(report({"-", "--type", "html"}), byName);
  const std::string asText = report({"/page.tmpl"});
  EXPECT_THAT(asText, HasSubstr("the big cat\t3\n"));
  EXPECT_EQ(report({"/page.html", "--type", "text"}), asText);
  EXPECT_EQ(report({"-"}), asText);
  EXPECT_EQ(report({"/page.tmpl", "/page.tmpl", "--type", "xml"}), report({"/page.tmpl", "--type", "xml"}));
}

TEST_F(CountProgramTest, ContextsAreReadAsTheTypeSaysToo) {
  const std::string page = "<p title='big cat'>The <b>big</b> cat &amp; dog</p>\n";
  files.Add("/page.html", page);
  files.Add("/page.tmpl", page);
  input = page;
  ASSERT_EQ(Count({"/page.html", "--context-of", "big cat"}), 0);
  const std::string rows = out.str().substr(out.str().find('\n'));
  EXPECT_THAT(rows, HasSubstr("\t1\t"));
  ASSERT_EQ(Count({"/page.tmpl", "--context-of", "big cat", "--type", "html"}), 0);
  const std::string typed = out.str().substr(out.str().find('\n'));
  EXPECT_EQ(typed.substr(typed.find('\t')), rows.substr(rows.find('\t')));
  ASSERT_EQ(Count({"-", "--context-of", "big cat", "--type", "html"}), 0);
  const std::string streamed = out.str().substr(out.str().find('\n'));
  EXPECT_EQ(streamed.substr(streamed.find('\t')), rows.substr(rows.find('\t')));
}

TEST_F(CountProgramTest, ProgramsOnStandardInputWantTheirMarkersToBeNoWords) {
  input = "<?php // the big cat ?> the big cat";
  EXPECT_EQ(Count({"-", "--type", "php", "--words", "3", "--min-frequency", "1"}), 0) << err.str();
  EXPECT_EQ(Count({"-", "--type", "php", "--allow", "forwardslashes"}), 1);
  files.Add("/a.php", input);
  const std::string said = err.str();
  EXPECT_EQ(Count({"/a.php", "--allow", "forwardslashes"}), 1);
  EXPECT_EQ(err.str().substr(0, said.find("Source:")), said.substr(0, said.find("Source:")));
}

}  // namespace
}  // namespace korv
