#include "wordlists/word_file_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/native_paths.h"
#include "wordlists/common_words.h"
#include "wordlists/questions.h"

namespace korv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(WordFileList, TheNewestEntryIsOnTopAndSelected) {
  WordFileList list(ListKind::WordsToIgnore);
  FakeMessages messages;
  EXPECT_EQ(list.Selected(), WordFileList::kNone);
  EXPECT_EQ(list.SelectedPath(), "");
  EXPECT_TRUE(list.Add("/a.txt", messages));
  EXPECT_TRUE(list.Add("  /b.txt ", messages));
  EXPECT_THAT(list.Paths(), ElementsAre("/b.txt", "/a.txt"));
  EXPECT_EQ(list.SelectedPath(), "/b.txt");
  EXPECT_FALSE(list.Add("   ", messages));
  EXPECT_THAT(messages.Shown, IsEmpty());
}

TEST(WordFileList, ASortedListKeepsItsOrder) {
  WordFileList list(ListKind::WordsToIgnore, true);
  FakeMessages messages;
  for (const char* path : {"/m", "/B", "/z", "/a"}) list.Add(path, messages);
  EXPECT_THAT(list.Paths(), ElementsAre("/a", "/B", "/m", "/z"));
  EXPECT_EQ(list.SelectedPath(), "/a");
}

TEST(WordFileList, APathThatIsListedIsNotAddedAgain) {
  WordFileList list(ListKind::WordsToIgnore);
  FakeMessages messages;
  list.Add("/lists/a.txt", messages);
  list.Add("/lists/b.txt", messages);
  EXPECT_FALSE(list.Add("/Lists/A.txt", messages));
  EXPECT_EQ(list.SelectedPath(), "/lists/b.txt");
  EXPECT_EQ(list.Paths().size(), 2u);
  EXPECT_EQ(messages.Only().Title, "Already present");
  EXPECT_EQ(messages.Only().Icon, Icon::Information);
  EXPECT_EQ(messages.Only().Text,
            "/Lists/A.txt\nis already in this list. If the file has changed\n"
            "select it from the drop-down list and reload it.");
  EXPECT_TRUE(list.AddOrSelect("/lists/a.txt", messages));
  EXPECT_EQ(list.SelectedPath(), "/lists/a.txt");
  EXPECT_EQ(messages.Shown.size(), 1u);
}

TEST(WordFileList, TheHundredthFileIsRefused) {
  WordFileList list(ListKind::WordsToIgnore);
  FakeMessages messages;
  for (int i = 0; i < 99; ++i) {
    EXPECT_TRUE(list.MayGrow(messages));
    EXPECT_TRUE(list.Add("/" + std::to_string(i), messages));
  }
  EXPECT_THAT(messages.Shown, IsEmpty());
  EXPECT_EQ(FilesButtonCaption(list.Kind(), list.Paths().size()), "Words-to-ignore files (99)");
  EXPECT_FALSE(list.MayGrow(messages));
  EXPECT_EQ(messages.Only().Text, "No more files may be added to this list.");
  messages.Forget();
  EXPECT_FALSE(list.Add("/99", messages));
  EXPECT_EQ(messages.Only().Text, "No more files may be added to this list.");
  EXPECT_EQ(list.Paths().size(), 99u);
  EXPECT_EQ(list.SelectedPath(), "/98");
}

TEST(WordFileList, RemovesTheSelectedEntryAndClears) {
  WordFileList list(ListKind::CountOnly);
  FakeMessages messages;
  list.Restore({"/a", "/b", "/c"}, 1);
  EXPECT_EQ(list.SelectedPath(), "/b");
  list.RemoveSelected();
  EXPECT_THAT(list.Paths(), ElementsAre("/a", "/c"));
  EXPECT_EQ(list.Selected(), WordFileList::kNone);
  list.RemoveSelected();
  EXPECT_EQ(list.Paths().size(), 2u);

  messages.WillAnswer(questions::kClearWordFiles, Answer::No);
  EXPECT_FALSE(list.AskToClear(messages));
  EXPECT_EQ(list.Paths().size(), 2u);
  EXPECT_EQ(messages.Only().Text, "Do you wish to remove ALL files from this list?");
  EXPECT_EQ(messages.Only().Title, "Clear count-only words files");
  EXPECT_EQ(messages.Only().Buttons, Buttons::YesNo);
  messages.WillAnswer(questions::kClearWordFiles, Answer::Yes);
  EXPECT_TRUE(list.AskToClear(messages));
  EXPECT_THAT(list.Paths(), IsEmpty());

  WordFileList ignoring(ListKind::WordsToIgnore);
  messages.Forget();
  ignoring.AskToClear(messages);
  EXPECT_EQ(messages.Only().Title, "Clear words-to-ignore files");
}

TEST(WordFileList, RestoresNoMoreThanItHolds) {
  WordFileList list(ListKind::WordsToIgnore);
  list.Restore(std::vector<std::string>(150, "/x"), 120);
  EXPECT_EQ(list.Paths().size(), 99u);
  EXPECT_EQ(list.Selected(), WordFileList::kNone);
  list.Select(98);
  EXPECT_EQ(list.Selected(), 98);
  for (const int none : {-5, 99, 100}) {
    list.Select(none);
    EXPECT_EQ(list.Selected(), WordFileList::kNone) << none;
  }
}

TEST(CommonWords, EveryLanguageHasItsFile) {
  struct LanguageCase {
    const char* Code;
    const char* Item;
    const char* File;
  };
  const LanguageCase cases[] = {
      {"en", "English", "cwds_en.txt"},
      {"de", "German", "cwds_de.txt"},
      {"es", "Spanish", "cwds_es.txt"},
      {"pt", "Portuguese", "cwds_pt.txt"},
      {"it", "Italian", "cwds_it.txt"},
      {"fr", "French", "cwds_fr.txt"},
      {"all", "All six languages", "cwds_en_de_es_pt_it_fr.txt"},
  };
  for (const LanguageCase& c : cases) {
    const CommonWordsLanguage* language = FindCommonWordsLanguage(c.Code);
    ASSERT_NE(language, nullptr) << c.Code;
    EXPECT_EQ(language->Item, c.Item);
    EXPECT_EQ(language->File, c.File);
  }
  EXPECT_EQ(FindCommonWordsLanguage("xx"), nullptr);
  EXPECT_EQ(FindCommonWordsLanguage(""), nullptr);
}

TEST(CommonWords, AskBeforeTheFileIsListedAndSelected) {
  FakeFiles files;
  files.Add(Below("/korv", "cwds_de.txt"), "der\n");
  FakeMessages messages;
  WordFileList list(ListKind::WordsToIgnore);
  const CommonWordsLanguage& german = *FindCommonWordsLanguage("de");

  messages.WillAnswer(questions::kLoadCommonWords, Answer::No);
  EXPECT_FALSE(AddCommonWords(german, "/korv", files, list, messages));
  EXPECT_EQ(messages.Only().Text, "Load common words file for German?");
  EXPECT_EQ(messages.Only().Title, "Load common words file");
  EXPECT_EQ(messages.Only().Buttons, Buttons::YesNo);
  EXPECT_THAT(list.Paths(), IsEmpty());

  messages.WillAnswer(questions::kLoadCommonWords, Answer::Yes);
  EXPECT_TRUE(AddCommonWords(german, "/korv", files, list, messages));
  list.Add("/other.txt", messages);
  EXPECT_TRUE(AddCommonWords(german, "/korv", files, list, messages)) << "chosen anew, loaded anew";
  EXPECT_THAT(list.Paths(), ElementsAre("/other.txt", Below("/korv", "cwds_de.txt")));
  EXPECT_EQ(list.SelectedPath(), Below("/korv", "cwds_de.txt"));

  messages.Forget();
  EXPECT_FALSE(AddCommonWords(kCommonWordsLanguages.back(), "/korv", files, list, messages));
  EXPECT_THAT(messages.Shown, IsEmpty());
}

TEST(CommonWords, AMissingFileIsReported) {
  FakeFiles files;
  FakeMessages messages;
  WordFileList list(ListKind::WordsToIgnore);
  EXPECT_FALSE(AddCommonWords(*FindCommonWordsLanguage("fr"), "/korv", files, list, messages));
  ASSERT_EQ(messages.Shown.size(), 2u);
  EXPECT_EQ(messages.Shown[1].Text, Below("/korv", "cwds_fr.txt") + " not found.");
  EXPECT_EQ(messages.Shown[1].Title, "Error");
  EXPECT_THAT(list.Paths(), IsEmpty());
}

TEST(CommonWords, SetPathToEnglishPutsItIntoTheList) {
  FakeMessages messages;
  WordFileList list(ListKind::WordsToIgnore);
  SetPathToCWDs_Eng("/korv", list, messages);
  EXPECT_EQ(list.SelectedPath(), Below("/korv", "cwds_en.txt"));
}

TEST(SetWordsToIgnoreNotice, TellsWhetherWordsToIgnoreAreInForce) {
  EXPECT_EQ(SetWordsToIgnoreNotice(IgnoreRule::Allow, true), "");
  for (const IgnoreRule mode : {IgnoreRule::ExcludeAll, IgnoreRule::Remove, IgnoreRule::ExcludeWith}) {
    EXPECT_EQ(SetWordsToIgnoreNotice(mode, true),
              "This operation uses the words-to-ignore specifications in the 'Settings' window.");
    EXPECT_EQ(SetWordsToIgnoreNotice(mode, false),
              "No words-to-ignore are specified in the 'Settings' window.");
  }
}

TEST(ListTexts, TellTheTwoUsesApart) {
  EXPECT_EQ(SelectFileTitle(ListKind::WordsToIgnore), "Specify a file containing words to ignore");
  EXPECT_EQ(SelectFileTitle(ListKind::CountOnly), "Specify a file containing count-only words/phrases");
  EXPECT_EQ(ReadingNotice(ListKind::WordsToIgnore), "Now reading words to ignore . . . ");
  EXPECT_EQ(FilesButtonCaption(ListKind::CountOnly, 2), "Count-only words files (2)");
}

}  // namespace
}  // namespace korv
