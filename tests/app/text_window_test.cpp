#include "sources/places/text_window.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

#include "engine/corpus/phrase_places.h"
#include "sources/places/phrase_cut.h"
#include "tests/app/run_world.h"
#include "tests/reference/naive_places.h"
#include "tests/reference/naive_text.h"

namespace korv {
namespace {

/// A run whose text is looked at around its phrases.
struct WindowWorld : RunWorld {
  explicit WindowWorld(EncodingChoice encoding) {
    Encodings = EncodingChooser(encoding);
    Request.Options.KeepPlaces = true;
    Request.Rules.IgnoreShortWords = false;
    Request.Rules.TerminateAtPeriod = false;
    UseLengths(2, 3, 1);
  }

  Expected<TextWindow, PlaceFault> Around(Place place, uint64_t around) {
    const Corpus& corpus = Run.Table.Corpus();
    PlaceLocator locator(corpus, {Files, Messages, Yielder}, Run.KeptText);
    const auto at = locator.Locate(place, 2, 0);
    if (!at) return at.Error();
    return ReadTextWindow(corpus, locator,
                          {.Source = corpus.SourceAt(place),
                           .Offset = at->Begin,
                           .Line = at->Line,
                           .Around = around,
                           .PhraseBegin = at->Begin,
                           .PhraseEnd = at->End});
  }
  Place FirstOf(const std::string& phrase) {
    const Corpus& corpus = Run.Table.Corpus();
    return PlacesOf(corpus, CutTypedPhrase(phrase, corpus).Words).at(0);
  }
};

TEST(TextWindow, ShowsTheTextAsTheFileHasItWithThePhraseMarked) {
  struct Case {
    const char* Name;
    EncodingChoice Encoding;
    const char* File;
    std::string Content;
    std::string Text;  ///< With the phrase in brackets.
    uint64_t FirstLine;
  };
  const Case cases[] = {
      {"all of it", EncodingChoice::Utf8, "/t/a.txt", "One.\r\nThe Big\rCat!\n", "One.\nThe [Big\nCat]!\n",
       1},
      {"behind a signature", EncodingChoice::Utf8, "/t/a.txt", "\uFEFFbig cat", "[big cat]", 1},
      {"ANSI", EncodingChoice::Ansi, "/t/a.txt", "\xE9t\xE9 big cat", "\u00E9t\u00E9 [big cat]", 1},
      {"mark-up as it stands", EncodingChoice::Utf8, "/t/a.htm", "<p>a <b>big</b> cat</p>",
       "<p>a <b>[big</b> cat]</p>", 1},
      {"parts of lines", EncodingChoice::Utf8, "/t/a.txt",
       std::string(50, 'x') + " big cat " + std::string(50, 'y'),
       std::string(19, 'x') + " [big cat] " + std::string(12, 'y'), 1},
      {"whole lines where they are short", EncodingChoice::Utf8, "/t/a.txt",
       "one\ntwo\nthree\nfour\nfive\nbig cat\nsix\nseven\neight\nnine\n",
       "three\nfour\nfive\n[big cat]\nsix\nseven\n", 3},
  };
  for (const Case& c : cases) {
    WindowWorld world(c.Encoding);
    world.UseFile(c.File, c.Content);
    ASSERT_EQ(world.Count(), RunEnd::Counted) << c.Name;
    const auto window = world.Around(world.FirstOf("big cat"), 20);
    ASSERT_TRUE(window) << c.Name;
    std::string text = window->Text;
    text.insert(window->PhraseEnd, "]");
    text.insert(window->PhraseBegin, "[");
    EXPECT_EQ(text, c.Text) << c.Name;
    EXPECT_EQ(window->FirstLine, c.FirstLine) << c.Name;
  }
}

TEST(TextWindow, TellsThatTheFileIsNotTheOneThatWasCounted) {
  WindowWorld world(EncodingChoice::Utf8);
  world.UseFile("/t/a.txt", "a big cat");
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  const Place place = world.FirstOf("big cat");
  world.Files.Add("/t/a.txt", "a big cat and more");
  EXPECT_EQ(world.Around(place, 20).Error(), PlaceFault::Changed);
  world.Files.Erase("/t/a.txt");
  EXPECT_EQ(world.Around(place, 20).Error(), PlaceFault::Unreadable);
}

constexpr std::string_view kPieces[] = {"a",  "big cat", "caf\u00E9", " ",  "\n",         "\r\n", "\r",
                                        ", ", "\xFF",    "\xE2\x82",  "\t", "\U0001F600", "b ",   "\n\n"};

/// Going on from window to window shows the whole text once, and every line with its number.
RC_GTEST_PROP(TextWindow, LeadsThroughTheWholeText, ()) {
  const auto number = [](size_t least, size_t end) {
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(least, end));
  };
  const bool isUtf8 = number(0, 2) == 0;
  std::string content = isUtf8 && number(0, 4) == 0 ? "\uFEFF" : "";
  const size_t pieces = number(1, 80);
  for (size_t k = 0; k < pieces; ++k) content += kPieces[number(0, std::size(kPieces))];
  content += " big cat ";
  WindowWorld world(isUtf8 ? EncodingChoice::Utf8 : EncodingChoice::Ansi);
  world.UseFile("/t/a.txt", content);
  RC_PRE(world.Count() == RunEnd::Counted);
  RC_LOG() << '[' << content << "]\n";
  const Corpus& corpus = world.Run.Table.Corpus();
  std::u32string whole;
  for (const std::u32string& line : reference::RawLines(content, isUtf8)) whole += line + U'\n';

  const uint64_t around = number(6, 60);
  const auto window = world.Around(world.FirstOf("big cat"), around);
  RC_ASSERT(window.HasValue());
  RC_ASSERT(window->End - window->Begin <= 2 * around);
  const auto holds = [&](const TextWindow& part) {
    // A line end that is cut in two, and a sequence that is ill-formed, may look different at the edge.
    const std::u32string text = reference::Decode(part.Text);
    size_t at = 0;
    for (uint64_t line = 1; line < part.FirstLine; ++line) at = whole.find(U'\n', at) + 1;
    const size_t end = std::min(whole.find(U'\n', at), whole.size());
    const std::u32string firstLine = text.substr(0, text.find(U'\n'));
    return whole.substr(at, end - at).find(firstLine.substr(firstLine.size() > 2 ? 1 : 0, 3)) !=
           std::u32string::npos;
  };
  RC_ASSERT(holds(*window));
  PlaceLocator locator(corpus, {world.Files, world.Messages, world.Yielder}, {});
  TextWindow part = *window;
  for (int step = 0; !part.ToEnd; ++step) {
    RC_ASSERT(step < 1000);
    const auto next = ReadTextWindow(
        corpus, locator, {.Source = 0, .Offset = part.End, .Line = part.LastLine(), .Around = around});
    RC_ASSERT(next.HasValue());
    RC_ASSERT(next->Begin <= part.End);
    RC_ASSERT(next->End > part.End);
    RC_ASSERT(holds(*next));
    part = *next;
  }
  RC_ASSERT(part.End == content.size());
  for (int step = 0; part.Begin > 0; ++step) {
    RC_ASSERT(step < 1000);
    const auto before = ReadTextWindow(
        corpus, locator, {.Source = 0, .Offset = part.Begin, .Line = part.FirstLine, .Around = around});
    RC_ASSERT(before.HasValue());
    RC_ASSERT(before->Begin < part.Begin);
    RC_ASSERT(before->End >= part.Begin);
    part = *before;
  }
  RC_ASSERT(part.FirstLine == 1U);
}

}  // namespace
}  // namespace korv
