#include "app/why/why_not_listed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/app/run_world.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A counted text about which is asked.
struct WhyWorld : RunWorld {
  WhyWorld() {
    Encodings = EncodingChooser(EncodingChoice::Utf8);
    Request.Options.KeepPlaces = true;
    UseLengths(2, 3, 2);
  }
  std::vector<std::string> Why(const std::string& typed) {
    std::vector<std::string> texts;
    for (const ResultNote& note : WhyNotListed(Run, typed, Numbers, Yielder)) {
      EXPECT_EQ(note.Kind, NoteKind::Why);
      texts.push_back(note.Text);
    }
    return texts;
  }
  void CountText(const std::string& text) {
    UseFile("/t/a.txt", text);
    ASSERT_EQ(Count(), RunEnd::Counted);
  }
};

TEST(WhyNotListed, NamesTheRuleThatKeepsAPhraseOut) {
  WhyWorld world;
  world.CountText(
      "The big cat sat. The big cat sat. The big dog ran. One mat. Cat one, not cat. One. "
      "Mmmmm big cats in 1999 big cats. The dog sat here twice.");
  struct Case {
    const char* Typed;
    std::vector<std::string> Answer;
  };
  const Case cases[] = {
      {"", {"There is no word in it."}},
      {"...", {"There is no word in it."}},
      {"the big", {"It is listed: rank 1, 3 occurrences."}},
      {"The BIG", {"It is listed: rank 1, 3 occurrences."}},
      {"big dog", {"It occurs once; the minimum frequency is 2."}},
      {"the big cat sat", {"It has 4 words; phrases of up to 3 words were counted."}},
      {"mat",
       {"It has 1 word; phrases of 2 words and more were counted.",
        "It occurs once; the minimum frequency is 2."}},
      {"big cow", {"\"cow\" is not in the text."}},
      {"mat dog", {"Its words are in the text, but nowhere one after the other."}},
      {"mat cat",
       {"Its words follow each other once, but a phrase end stands between them each time, first in "
        "a.txt."}},
      {"big. Cat", {"A phrase ends between the words that were typed: no phrase holds them both."}},
      {"cat sat",
       {"It occurs twice, as often as \"big cat sat\", which contains it: it never stands alone, so only the "
        "longer one is listed."}},
      {"mmmmm big cats",
       {"\"mmmmm\" is left out of the text: it holds one letter four times in a row.",
        "What is left of it is \"big cats\".", "It is listed: rank 3, 2 occurrences."}},
      {"is it",
       {"\"is\" is left out of the text: it is shorter than 3 letters.",
        "\"it\" is left out of the text: it is shorter than 3 letters."}},
  };
  for (const Case& c : cases) EXPECT_EQ(world.Why(c.Typed), c.Answer) << c.Typed;
  std::string many;
  for (int i = 0; i < 26; ++i) many += "big ";
  EXPECT_THAT(world.Why(many), ElementsAre("It has 26 words; no phrase has more than 25."));
}

TEST(WhyNotListed, NamesWordsToIgnoreByTheirMode) {
  struct Case {
    IgnoreRule Mode;
    const char* Typed;
    std::vector<std::string> Answer;
  };
  const Case cases[] = {
      {IgnoreRule::ExcludeAll, "the and", {"It consists of words to ignore alone."}},
      {IgnoreRule::ExcludeWith,
       "the cat",
       {"\"the\" is a word to ignore, and no phrase with such a word is counted."}},
      {IgnoreRule::ExcludeWith,
       "cat dog",
       {"Its words follow each other twice, but a phrase end or a word to ignore stands between them each "
        "time, "
        "first in a.txt."}},
      {IgnoreRule::Remove,
       "the cat",
       {"\"the\" is left out of the text: it is a word to ignore, and these are removed.",
        "What is left of it is \"cat\".", "It has 1 word; phrases of 2 words and more were counted."}},
  };
  for (const Case& c : cases) {
    WhyWorld world;
    world.Request.Options.IgnoreMode = c.Mode;
    world.Request.Lists.FileWordsToIgnore = {"the", "and"};
    world.CountText("The and big cat and dog. The and big cat and dog.");
    EXPECT_EQ(world.Why(c.Typed), c.Answer) << c.Typed;
  }
}

TEST(WhyNotListed, NamesCountOnlyEntriesLongPhrasesAndBytesBeyondAscii) {
  WhyWorld world;
  world.Request.Lists.CountOnly = {"dog"};
  world.Request.Rules.Only7bitASCII = true;
  std::string text;
  std::string phrase;
  for (const char c : {'a', 'b', 'c'}) {
    std::string word;
    for (int k = 0; k < 13; ++k) word += std::string("y") + c + "z";
    phrase += word + " ";
  }
  world.CountText("big cat big cat caf\u00E9 dog " + phrase + ". " + phrase + ".");
  EXPECT_THAT(world.Why("big cat"), ElementsAre("It matches no count-only entry."));
  EXPECT_THAT(world.Why("caf\u00E9 dog")[0],
              "\"caf\u00E9\" is left out of the text: it holds a character beyond 7-bit ASCII.");
  EXPECT_THAT(world.Why(phrase),
              ElementsAre("It has more than 100 characters, and no such phrase is counted.",
                          "It matches no count-only entry."));
}

TEST(WhyNotListed, ComesWithItsWayOut) {
  WhyWorld world;
  world.CountText("big cat big dog");
  const auto wayOut = [&](const char* typed) {
    const auto notes = WhyNotListed(world.Run, typed, world.Numbers, world.Yielder);
    return notes.at(0).WaysOut;
  };
  EXPECT_THAT(wayOut("big cat"), ElementsAre(NoteAction::MinFrequency));
  EXPECT_THAT(wayOut("dog"), ElementsAre(NoteAction::Lengths));
  EXPECT_THAT(wayOut("to dog"), ElementsAre(NoteAction::WordRules));
  EXPECT_THAT(wayOut("cow"), IsEmpty());
}

TEST(WhyNotListed, AStopEndsTheLook) {
  WhyWorld world;
  world.CountText("big cat big cat");
  world.Yielder.RequestStop();
  EXPECT_THAT(world.Why("big cat"), IsEmpty());
}

}  // namespace
}  // namespace korv
