#include "wordlists/read_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/questions.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/wordlists/list_world.h"
#include "wordlists/load_word_filters.h"

namespace korv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Words = std::vector<std::string>;

TEST(ReadWords, TakesWordsAsTheTextThatIsCountedIsCut) {
  struct FileCase {
    const char* Content;
    std::vector<std::string> Words;
  };
  const FileCase cases[] = {
      {"the\r\nand\r\nof\r\n", {"the", "and", "of"}},
      {"the and, of; one-two\r\n", {"the", "and", "of", "one-two"}},
      {"The THE the\r\n", {"the"}},
      {"  the  \r\n\r\n\tand\r\n", {"the", "and"}},
      // Short, letterless and repetitive words stay: those rules are for the text.
      {"a b cc aaaaa\r\n", {"a", "b", "cc", "aaaaa"}},
      {"~ing ?at c~t\r\n", {"~ing", "?at", "c~t"}},
      {"<^ing$> dog\r\n", {"ing", "dog"}},
      {"Tom's isn't don't\r\n", {"tom's", "isn't", "don", "t"}},
      {"1984 word42\r\n", {"word"}},
      {"zebra\napple\nmango\n", {"zebra", "apple", "mango"}},
      {"one\rtwo\r", {"one", "two"}},
      {"last line", {"last", "line"}},
      {"\xEF\xBB\xBF"
       "café ÉTÉ\n",
       {"café", "été"}},
  };
  for (const FileCase& c : cases) {
    ListWorld world;
    EXPECT_EQ(world.Read(c.Content).Words, c.Words) << c.Content;
    EXPECT_TRUE(world.Loaded) << c.Content;
  }
}

TEST(ReadWords, LeavesOutCommentsOfBothKinds) {
  ListWorld world;
  const WordList list = world.Read(
      "// A list of words\r\n"
      "the // and this is why\r\n"
      "and /* not\r\n"
      "these words\r\n"
      "but */ of\r\n"
      "one/*two*/three\r\n");
  EXPECT_THAT(list.Words, ElementsAre("the", "and", "of", "one", "three"));
}

TEST(ReadWords, GivesTheSystemItsTurnAfterEachLine) {
  for (const ListKind kind : {ListKind::WordsToIgnore, ListKind::CountOnly}) {
    ListWorld world;
    FakeYielder turns;
    ListReading reading{world.Check, world.Encodings, turns, {}};
    world.Files.Add("/lists/l.txt", "the of\r\n\r\nand\r\nwhale");
    WordList list;
    EXPECT_TRUE(ReadWords(reading, "/lists/l.txt", kind, world.Rules, list));
    EXPECT_EQ(turns.Calls, 4U);
  }
}

TEST(ReadWords, AFileOfBlankLinesGivesAnEmptyList) {
  ListWorld world;
  world.Files.Add("/lists/l.txt", "\r\n   \r\n\r\n\t\r\n");
  WordList list;
  std::string label;
  EXPECT_TRUE(
      AttemptToReadWords(world.Reading, "/lists/l.txt", ListKind::WordsToIgnore, world.Rules, list, label));
  EXPECT_THAT(list.Words, IsEmpty());
  EXPECT_EQ(label, "0 words-to-ignore loaded");
}

TEST(ReadWords, SaysHowManyWordsAreLoaded) {
  struct LabelCase {
    const char* Content;
    ListKind Kind;
    const char* Label;
  };
  const LabelCase cases[] = {
      {"single\r\n", ListKind::WordsToIgnore, "One word-to-ignore loaded"},
      {"one two three\r\n", ListKind::WordsToIgnore, "3 words-to-ignore loaded"},
      {"single word\r\n", ListKind::CountOnly, "One count-only word loaded"},
      {"one\r\ntwo\r\n", ListKind::CountOnly, "2 count-only words loaded"},
  };
  for (const LabelCase& c : cases) {
    ListWorld world;
    world.Files.Add("/l.txt", c.Content);
    WordList list;
    std::string label;
    EXPECT_TRUE(AttemptToReadWords(world.Reading, "/l.txt", c.Kind, world.Rules, list, label));
    EXPECT_EQ(label, c.Label);
    EXPECT_EQ(list.Path, "/l.txt");
    EXPECT_THAT(world.Messages.Shown, IsEmpty());
  }
}

TEST(ReadWords, NotesWhetherAnyWordHoldsAWildcard) {
  ListWorld world;
  EXPECT_FALSE(world.Read("plain words\r\n").HasPatterns);
  EXPECT_TRUE(world.Read("plain ~ing\r\n").HasPatterns);
  EXPECT_TRUE(world.Read("plain ?at\r\n").HasPatterns);
  EXPECT_FALSE(world.Read("<plain>\r\n").HasPatterns);
  EXPECT_TRUE(world.Read("<plain>\r\n", ListKind::CountOnly).HasPatterns);
}

TEST(ReadWords, GoesByTheAllowedCharactersOfTheMoment) {
  ListWorld world;
  world.Rules.AllowHyphens = false;
  world.Rules.AllowApostrophes = true;
  world.Rules.AllowNumerals = true;
  EXPECT_THAT(world.Read("well-known don't word42\r\n").Words,
              ElementsAre("well", "known", "don't", "word42"));
  // A comment begins even where slashes may stand in words.
  world.Rules.AllowForwardslashes = true;
  EXPECT_THAT(world.Read("and/or not//this\r\n").Words, ElementsAre("and/or", "not"));
}

TEST(ReadWords, SaysEveryTenWordsHowManyThereAre) {
  ListWorld world;
  std::string content;
  for (char a = 'a'; a <= 'b'; ++a)
    for (char b = 'a'; b <= 'l'; ++b) content += std::string{a, b, 'x'} + " again\r\n";
  EXPECT_EQ(world.Read(content).Words.size(), 25u);
  EXPECT_THAT(world.Progress,
              ElementsAre("Number of words read so far: 10", "Number of words read so far: 20"));
}

TEST(ReadWords, AMissingFileLeavesTheListInForce) {
  ListWorld world;
  for (const ListKind kind : {ListKind::WordsToIgnore, ListKind::CountOnly}) {
    WordList list{{"kept"}, false, "/old.txt"};
    std::string label = "as it was";
    world.Messages.Forget();
    EXPECT_FALSE(AttemptToReadWords(world.Reading, "/none.txt", kind, world.Rules, list, label));
    EXPECT_EQ(world.Messages.Only().Title, "File not found");
    EXPECT_EQ(world.Messages.Only().Text, kind == ListKind::WordsToIgnore
                                              ? "File for words-to-ignore not found."
                                              : "File for count-only words not found.");
    EXPECT_THAT(list.Words, ElementsAre("kept"));
    EXPECT_EQ(list.Path, "/old.txt");
    EXPECT_EQ(label, "as it was");
  }
}

TEST(ReadWords, RefusesWhatIsNoText) {
  struct RefusalCase {
    std::string Content;
    const char* Title;
  };
  const RefusalCase cases[] = {
      {"abc", "Fatal error"},
      {"", "Fatal error"},
      {"{\\rtf1 words}", "Fatal error"},
      {"\xFF\xFEw\0o\0", "Fatal error"},
      // One control byte is one too many.
      {"words\x01words and more words", "Not a text file"},
  };
  for (const RefusalCase& c : cases) {
    ListWorld world;
    world.Read(c.Content);
    EXPECT_FALSE(world.Loaded);
    EXPECT_EQ(world.Messages.Only().Title, c.Title) << c.Content;
  }
}

TEST(ReadWords, EveryFailureOfTheDiskIsReportedAndLeavesTheListInForce) {
  for (int call = 1;; ++call) {
    ListWorld world;
    std::string content;
    for (int i = 0; i < 20'000; ++i) content += "word\r\n";
    world.Files.Add("/l.txt", content);
    world.Files.FailCall(call);
    WordList list{{"kept"}, false, "/old.txt"};
    const bool loaded = ReadWords(world.Reading, "/l.txt", ListKind::WordsToIgnore, world.Rules, list);
    if (!world.Files.FailureHappened()) {
      EXPECT_GT(call, 3);
      EXPECT_TRUE(loaded);
      break;
    }
    EXPECT_FALSE(loaded) << call;
    EXPECT_EQ(world.Messages.Shown.size(), 1u) << call;
    EXPECT_THAT(list.Words, ElementsAre("kept")) << call;
  }
}

TEST(ReadWords, OpensItsFileOnceEvenToRefuseIt) {
  for (const char* content : {"words\r\n", "abc", "words\x01"}) {
    for (const ListKind kind : {ListKind::WordsToIgnore, ListKind::CountOnly}) {
      ListWorld world;
      world.Read(content, kind);
      EXPECT_EQ(world.Files.Openings(), 1) << content;
    }
  }
}

TEST(ReadWords, TakesALineWithoutBlanksInPieces) {
  ListWorld world;
  std::string content = "one,";
  while (content.size() < 3'000'000) content += "two,three,";
  EXPECT_THAT(world.Read("\t " + content + "four").Words, ElementsAre("one", "two", "three", "four"));
}

TEST(ReadWords, AFileThatBreaksOffWhileItIsReadIsReportedAsAnError) {
  bool seen = false;
  for (int call = 1; call < 40 && !seen; ++call) {
    ListWorld world;
    world.Files.Add("/l.txt", std::string(100'000, 'w') + "\r\n");
    world.Files.FailCall(call);
    WordList list;
    if (ReadWords(world.Reading, "/l.txt", ListKind::WordsToIgnore, world.Rules, list)) continue;
    seen = world.Messages.Only().Text.starts_with("At ReadWords error # 57.\nDescription: ");
  }
  EXPECT_TRUE(seen);
}

TEST(ReadWords, GoesByTheChosenEncoding) {
  const std::string utf8 = "caf\xC3\xA9 words\r\n";
  const std::string ansi = "caf\xE9 words\r\n";
  {
    ListWorld world;
    EXPECT_THAT(world.Read(utf8).Words, ElementsAre("café", "words"));
    EXPECT_EQ(world.Messages.Only().Title, "Text encoding");
    EXPECT_THAT(world.Read(utf8).Words, ElementsAre("café", "words"));
    EXPECT_EQ(world.Messages.Shown.size(), 1u) << "asked once per path";
    EXPECT_THAT(world.Read(ansi).Words, ElementsAre("café", "words"));
  }
  {
    ListWorld world;
    world.Messages.WillAnswer(questions::kTextEncoding, Answer::No);
    EXPECT_THAT(world.Read(utf8).Words, ElementsAre("cafã", "words"));
  }
  EXPECT_THAT(ListWorld(EncodingChoice::Ansi).Read(utf8).Words, ElementsAre("cafã", "words"));
  EXPECT_THAT(ListWorld(EncodingChoice::Utf8).Read(ansi).Words, ElementsAre("caf", "words"));
}

TEST(ReadWords, FoldsCaseIntoNfcAndKeepsJoiners) {
  ListWorld world(EncodingChoice::Utf8);
  EXPECT_THAT(world.Read("T\u0308op co\u00ADop\r\n\u0645\u06CC\u200C\u062E \u2764\uFE0F\r\n").Words,
              ElementsAre("\u1E97op", "coop", "\u0645\u06CC\u200C\u062E"));
}

TEST(ReadWords, AsksAboutTheEncodingOnlyWhereAByteAbove127Comes) {
  ListWorld world;
  std::string plain;
  while (plain.size() < 40'000) plain += "words\r\n";
  EXPECT_THAT(world.Read(plain).Words, ElementsAre("words"));
  EXPECT_TRUE(world.Messages.Shown.empty());
  EXPECT_THAT(world.Read(plain + "caf\xC3\xA9\r\n").Words, ElementsAre("words", "caf\u00E9"));
  EXPECT_EQ(world.Messages.Only().Title, "Text encoding");
}

TEST(ReadWords, CountOnlyFilesHoldOneEntryALine) {
  ListWorld world;
  const WordList list = world.Read(
      "// entries\r\n"
      "  Big hat  \r\n"
      "cat, dog\r\n"
      "<^A  b,c$>\r\n"
      "\r\n"
      "red/* and */nose\r\n"
      "one /* two\r\n"
      "three */ four // five\r\n"
      "tab\tbed\r\n"
      "Big hat\r\n",
      ListKind::CountOnly);
  EXPECT_THAT(list.Words,
              ElementsAre("Big hat", "cat, dog", "<^A  b,c$>", "red nose", "one", "four", "tab bed"));
}

TEST(ReadWords, WarnsOfCountOnlyEntriesThatNoWordCanMatch) {
  ListWorld world;
  EXPECT_THAT(world.Read("cat\r\n~t <a.b> ?ed\r\nU.S. army\r\n", ListKind::CountOnly).Words.size(), 3u);
  EXPECT_TRUE(world.Loaded);
  EXPECT_EQ(world.Messages.Only().Title, "Character not allowed");
  EXPECT_EQ(world.Messages.Only().Text,
            "The character '.' occurs in the count-only word\nU.S. army\n"
            "but is not currently set as a character allowed in a word.");
  EXPECT_TRUE(world.Messages.Only().Addition.starts_with("File: "));
}

TEST(LoadWordFilters, PutsFilesAndTypedTextTogether) {
  ListWorld world;
  world.Files.Add("/i.txt", "the ~ing\r\n");
  world.Files.Add("/c.txt", "Big hat\r\ncat\r\n");
  ListRequest request;
  request.IgnoreFile = "/i.txt";
  request.IgnoreWords = "Ibid <a b> viz";
  request.PatternMatching = true;
  request.CountOnlyFile = "/c.txt";
  request.CountOnly = "dog, <x, y>";
  world.Rules.CaseSignificant = true;
  const auto lists = LoadWordFilters(request, world.Rules, world.Reading);
  ASSERT_TRUE(lists.has_value());
  EXPECT_THAT(lists->FileWordsToIgnore, ElementsAre("the", "~ing"));
  EXPECT_THAT(lists->TypedWordsToIgnore, ElementsAre("Ibid", "<a b>", "viz"));
  EXPECT_TRUE(lists->PatternMatchingInWordsToIgnoreFile);
  EXPECT_THAT(lists->CountOnly, ElementsAre("Big hat", "cat", "dog", "<x, y>"));
  EXPECT_TRUE(lists->CaseSignificant);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(LoadWordFilters, WithoutAnyListNothingIsInForce) {
  ListWorld world;
  const auto lists = LoadWordFilters({}, world.Rules, world.Reading);
  ASSERT_TRUE(lists.has_value());
  EXPECT_FALSE(WordFilters(*lists).HasWordsToIgnore());
  EXPECT_FALSE(WordFilters(*lists).HasCountOnly());
}

TEST(LoadWordFilters, AMissingFileEndsIt) {
  ListWorld world;
  ListRequest request;
  request.IgnoreFile = "/none.txt";
  EXPECT_FALSE(LoadWordFilters(request, world.Rules, world.Reading).has_value());
  EXPECT_EQ(world.Messages.Only().Text, "File for words-to-ignore not found.");
  world.Messages.Forget();
  request = {};
  request.CountOnlyFile = "/none.txt";
  EXPECT_FALSE(LoadWordFilters(request, world.Rules, world.Reading).has_value());
  EXPECT_EQ(world.Messages.Only().Text, "File for count-only words not found.");
}

TEST(LoadWordFilters, TypedTextWithAFaultDrawsItsMessageAndIsUsedAsTyped) {
  ListWorld world;
  ListRequest request;
  request.IgnoreWords = "U.S. the";
  request.CountOnly = "cat,dog";
  const auto lists = LoadWordFilters(request, world.Rules, world.Reading);
  ASSERT_TRUE(lists.has_value());
  EXPECT_EQ(world.Messages.Shown.size(), 2u);
  EXPECT_THAT(lists->TypedWordsToIgnore, ElementsAre("U.S.", "the"));
  EXPECT_THAT(lists->CountOnly, ElementsAre("cat,dog"));
}

}  // namespace
}  // namespace korv
