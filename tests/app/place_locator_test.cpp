#include "sources/places/place_locator.h"

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "engine/corpus/phrase_places.h"
#include "sources/places/phrase_cut.h"
#include "tests/app/run_world.h"
#include "tests/reference/naive_places.h"
#include "tests/reference/naive_run.h"
#include "tests/reference/naive_text.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

/// A run that keeps its places, with the locator of what it found.
struct PlacesWorld : RunWorld {
  explicit PlacesWorld(EncodingChoice encoding = EncodingChoice::Auto) {
    Encodings = EncodingChooser(encoding);
    Request.Options.KeepPlaces = true;
    Request.Rules.IgnoreShortWords = false;
    UseLengths(2, 3, 1);
  }

  PlaceLocator Locator() {
    return PlaceLocator(Run.Table.Corpus(), {Files, Messages, Yielder}, Run.KeptText);
  }

  /// "2:5 big cat": line, column and text of every place of the phrase, or what is wrong.
  std::string WhereIs(const std::string& phrase) {
    const Corpus& corpus = Run.Table.Corpus();
    const CutPhrase cut = CutTypedPhrase(phrase, corpus);
    PlaceLocator locator = Locator();
    std::string places;
    for (const Place place : PlacesOf(corpus, cut.Words)) {
      const auto at = locator.Locate(place, static_cast<int>(cut.Words.size()), 20);
      if (!places.empty()) places += ", ";
      if (!at)
        places += at.Error() == PlaceFault::Changed   ? "changed"
                  : at.Error() == PlaceFault::NotKept ? "not kept"
                                                      : "unreadable";
      else
        places += std::to_string(at->Line) + ":" + std::to_string(at->Column) + " " + at->Phrase;
    }
    return places;
  }
};

TEST(PlaceLocator, TellsLineAndColumnAsAnEditorShowsTheFile) {
  struct Case {
    const char* Name;
    const char* File;
    EncodingChoice Encoding;
    std::string Content;
    std::string Places;
  };
  constexpr auto kUtf8 = EncodingChoice::Utf8;
  constexpr auto kAnsi = EncodingChoice::Ansi;
  const Case cases[] = {
      {"LF", "/t/a.txt", kAnsi, "one\nbig cat\n and big cat\n", "2:1 big cat, 3:6 big cat"},
      {"CR LF", "/t/a.txt", kAnsi, "one\r\nbig cat\r\n and big cat\r\n", "2:1 big cat, 3:6 big cat"},
      {"CR", "/t/a.txt", kAnsi, "one\rbig cat\r and big cat\r", "2:1 big cat, 3:6 big cat"},
      {"line ends of all kinds", "/t/a.txt", kAnsi, "one\n\r\n\rbig cat\r\nbig cat",
       "4:1 big cat, 5:1 big cat"},
      {"no end of the last line", "/t/a.txt", kAnsi, "one\nthe big cat", "2:5 big cat"},
      {"over a line end", "/t/a.txt", kAnsi, "the big\n\n  cat sat", "1:5 big\n\n  cat"},
      {"a tab is one", "/t/a.txt", kAnsi, "\tthe\tbig cat", "1:6 big cat"},
      {"behind dropped words", "/t/a.txt", kAnsi, "aaaa 12 big 34 cat", "1:9 big 34 cat"},
      {"double hyphens", "/t/a.txt", kAnsi, "one--two--big--cat", "1:11 big--cat"},
      {"in brackets", "/t/a.txt", kAnsi, "(the (big) [cat])", "1:7 big) [cat"},
      {"characters of two bytes", "/t/a.txt", kUtf8, "\u00E9\u00E9\u00E9 the big cat", "1:9 big cat"},
      {"characters of four bytes", "/t/a.txt", kUtf8, "\U0001F600\U0001F600 big cat", "1:4 big cat"},
      {"a signature is none", "/t/a.txt", kUtf8, "\uFEFFbig cat\nbig cat", "1:1 big cat, 2:1 big cat"},
      {"a second signature is one", "/t/a.txt", kUtf8, "\uFEFF\uFEFFbig cat\n\uFEFFbig cat",
       "1:2 big cat, 2:2 big cat"},
      {"soft hyphens", "/t/a.txt", kUtf8, "a\u00ADb \u00ADbi\u00ADg ca\u00ADt\u00AD",
       "1:6 bi\u00ADg ca\u00ADt"},
      {"accents apart", "/t/a.txt", kUtf8, "e\u0301te\u0301 big cat", "1:7 big cat"},
      {"ill-formed bytes", "/t/a.txt", kUtf8, "\xFF\xE2\x82 big cat", "1:4 big cat"},
      {"ANSI", "/t/a.txt", kAnsi,
       "caf\xE9 \x93"
       "big cat\x94",
       "1:7 big cat"},
      {"an ANSI soft hyphen", "/t/a.txt", kAnsi, "b\xADig cat \xAD\xAD big cat",
       "1:1 b\u00ADig cat, 1:13 big cat"},
      {"tags", "/t/a.htm", kAnsi, "<p>the <b class=x>big</b> <i>cat</i>", "1:19 big</b> <i>cat"},
      {"a tag over lines", "/t/a.htm", kAnsi, "<p\nclass=big\n>big cat\n", "3:2 big cat"},
      {"a comment over lines", "/t/a.htm", kAnsi, "<!-- big cat\nbig cat --> big cat", "2:13 big cat"},
      {"entities", "/t/a.htm", kAnsi, "&eacute;t&eacute; &amp; big&nbsp;cat", "1:25 big&nbsp;cat"},
      {"entities in words", "/t/a.htm", kAnsi, "the &ouml;big cat", ""},
      {"entities no file of plain text has", "/t/a.txt", kAnsi, "&nbsp; big cat", "1:8 big cat"},
  };
  for (const Case& c : cases) {
    PlacesWorld world(c.Encoding);
    world.UseFile(c.File, c.Content);
    ASSERT_EQ(world.Count(), RunEnd::Counted) << c.Name;
    EXPECT_EQ(world.WhereIs("big cat"), c.Places) << c.Name;
  }
}

TEST(PlaceLocator, AnEntityBelongsToItsWord) {
  PlacesWorld world(EncodingChoice::Ansi);
  world.UseFile("/t/a.htm", "an &eacute;t&eacute; &amp; <b>caf&eacute;</b>s");
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.WhereIs("\u00E9t\u00E9 caf\u00E9"), "1:4 &eacute;t&eacute; &amp; <b>caf&eacute;");
}

TEST(PlaceLocator, ShowsWholeWordsAroundThePhraseButNotOfAnotherFile) {
  PlacesWorld world(EncodingChoice::Ansi);
  world.Files.Add("/t/a.txt", "one two, three.\n\n  Four\tfive  big cat; six seven\neight");
  world.Files.Add("/t/b.txt", "the big cat");
  world.UseFolder("/t");
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  const Corpus& corpus = world.Run.Table.Corpus();
  const std::vector<Place> places = PlacesOf(corpus, CutTypedPhrase("big cat", corpus).Words);
  ASSERT_EQ(places.size(), 2u);
  struct Case {
    size_t Around;
    const char* Left;
    const char* Right;
  };
  const Case cases[] = {{0, "", ""},
                        {1, "", ";"},
                        {3, "", ";"},
                        {4, "five", ";"},
                        {5, "five", "; six"},
                        {8, "five", "; six"},
                        {9, "Four five", "; six"},
                        {10, "Four five", "; six"},
                        {11, "Four five", "; six seven"},
                        {16, "three. Four five", "; six seven"},
                        {17, "three. Four five", "; six seven eight"},
                        {1000, "one two, three. Four five", "; six seven eight"}};
  PlaceLocator locator = world.Locator();
  for (const Case& c : cases) {
    const auto at = locator.Locate(places[0], 2, c.Around);
    ASSERT_TRUE(at) << c.Around;
    EXPECT_EQ(at->Left, c.Left) << c.Around;
    EXPECT_EQ(at->Right, c.Right) << c.Around;
  }
  const auto other = locator.Locate(places[1], 2, 1000);
  ASSERT_TRUE(other);
  EXPECT_EQ(other->Left, "the");
  EXPECT_EQ(other->Right, "");
  // And back again.
  EXPECT_EQ(locator.Locate(places[0], 2, 4)->Left, "five");
}

/// Words of equal length, so that the place of each is known.
std::string NumberedWord(size_t number) {
  const std::string digits = std::to_string(number);
  return "w" + std::string(7 - digits.size(), '0') + digits;
}

TEST(PlaceLocator, LeadsIntoLongLinesAsIntoShortOnes) {
  struct Case {
    const char* Name;
    const char* File;
    size_t WordsALine;
    std::string Between;
    EncodingChoice Encoding;
  };
  const Case cases[] = {
      {"short lines", "/t/a.txt", 7, " ", EncodingChoice::Ansi},
      {"one line in pieces", "/t/a.txt", SIZE_MAX, " ", EncodingChoice::Ansi},
      {"lines in pieces", "/t/a.txt", 130'000, " ", EncodingChoice::Ansi},
      {"a line in pieces, in UTF-8", "/t/a.txt", SIZE_MAX, " \u2014 ", EncodingChoice::Utf8},
      {"a line without blanks, in UTF-8", "/t/a.txt", SIZE_MAX, "\u3001", EncodingChoice::Utf8},
      {"lines of mark-up, whole", "/t/a.htm", 130'000, "<b> ", EncodingChoice::Ansi},
      {"a line of mark-up without blanks", "/t/a.htm", SIZE_MAX, "<b>", EncodingChoice::Ansi}};
  constexpr size_t kWords = 250'000;
  for (const Case& c : cases) {
    PlacesWorld world(c.Encoding);
    world.Request.Rules.AllowNumerals = true;
    world.Request.Options.MinFrequency = 2;
    std::string content;
    for (size_t i = 0; i < kWords; ++i) {
      content += NumberedWord(i);
      content += (i + 1) % c.WordsALine == 0 ? "\n" : c.Between;
    }
    world.UseFile(c.File, content);
    ASSERT_EQ(world.Count(), RunEnd::Counted) << c.Name;
    const Corpus& corpus = world.Run.Table.Corpus();
    EXPECT_LE(corpus.Lines.Anchors().size(), kWords / LineIndex::kAnchorEvery + 10) << c.Name;
    PlaceLocator locator = world.Locator();
    const size_t width = 8 + static_cast<size_t>(reference::CharacterCount(c.Between));
    for (const size_t i : {size_t{0}, size_t{129'999}, size_t{130'000}, size_t{200'000}, size_t{200'001},
                           size_t{249'990}, size_t{249'999}, size_t{210'000}, size_t{5}}) {
      const auto at = locator.Locate(Place{static_cast<uint32_t>(corpus.Sources[0].Begin + i)}, 1, 18);
      ASSERT_TRUE(at) << c.Name << ' ' << i;
      EXPECT_EQ(at->Phrase, NumberedWord(i)) << c.Name;
      EXPECT_EQ(at->Line, i / c.WordsALine + 1) << c.Name << ' ' << i;
      EXPECT_EQ(at->Column, i % c.WordsALine * width + 1) << c.Name << ' ' << i;
      const std::string left = (i > 1 ? NumberedWord(i - 2) + " " : "") + (i > 0 ? NumberedWord(i - 1) : "");
      if (c.Between == " ") {
        EXPECT_EQ(at->Left, left) << c.Name;
      }
    }
  }
}

TEST(PlaceLocator, TellsWhereTheFileIsNotTheOneThatWasCounted) {
  struct Case {
    const char* Name;
    void (*Change)(FakeFiles& files);
    const char* Places;
  };
  const Case cases[] = {
      {"as it was", [](FakeFiles&) {}, "2:1 big cat"},
      {"gone", [](FakeFiles& files) { files.Erase("/t/a.txt"); }, "unreadable"},
      {"forbidden", [](FakeFiles& files) { files.Refuse("/t/a.txt", FileFault::PermissionDenied); },
       "unreadable"},
      {"longer", [](FakeFiles& files) { files.ChangeUnnoticed("/t/a.txt", "the\nbig cat sat\nmat\n"); },
       "changed"},
      {"written anew", [](FakeFiles& files) { files.Add("/t/a.txt", "the\nbig cat sat\n"); }, "changed"},
      {"another word before",
       [](FakeFiles& files) { files.ChangeUnnoticed("/t/a.txt", "one\nbig cat sat\n"); }, "changed"},
      {"another word", [](FakeFiles& files) { files.ChangeUnnoticed("/t/a.txt", "the\nbig rat sat\n"); },
       "changed"},
      {"no words", [](FakeFiles& files) { files.ChangeUnnoticed("/t/a.txt", "    \n           \n"); },
       "changed"},
  };
  for (const Case& c : cases) {
    PlacesWorld world;
    world.UseFile("/t/a.txt", "the\nbig cat sat\n");
    ASSERT_EQ(world.Count(), RunEnd::Counted) << c.Name;
    c.Change(world.Files);
    EXPECT_EQ(world.WhereIs("big cat"), c.Places) << c.Name;
  }
}

TEST(PlaceLocator, ReadsDocumentsClipboardAndStreamsAgain) {
  const std::string xml = Paragraphs({"One", "the big cat", "and a big cat"});
  {
    PlacesWorld world;
    world.Files.Add("/t/a.docx", BuildDocx(xml));
    world.Files.Add("/t/b.docx", BuildDocx(Paragraphs({"big cat"})));
    world.UseFolder("/t");
    ASSERT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.WhereIs("big cat"), "2:5 big cat, 3:7 big cat, 1:1 big cat");
    world.Files.Add("/t/a.docx", BuildDocx(xml));
    EXPECT_EQ(world.WhereIs("big cat"), "changed, changed, 1:1 big cat");
    EXPECT_TRUE(world.Files.TemporaryIsClean());
  }
  {
    PlacesWorld world;
    world.UseClipboard("the\r\nbig cat \u00E9 big cat");
    ASSERT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.WhereIs("big cat"), "2:1 big cat, 2:11 big cat");
    world.Run.KeptText.clear();
    EXPECT_EQ(world.WhereIs("big cat"), "not kept, not kept");
  }
  for (const char* signature : {"", "\uFEFF"}) {
    PlacesWorld world;
    std::string text = signature;
    for (int i = 0; i < 40'000; ++i) text += "\u00E9t\u00E9 the sun\n";
    FakeStream stream(text + "the big cat");
    world.Request.Options.SourceKind = TextSource::Clipboard;
    world.Request.Stream = &stream;
    ASSERT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_EQ(world.WhereIs("big cat"), "40001:5 big cat");
  }
}

TEST(PlaceLocator, FindsPlacesOfARunThatWasStopped) {
  PlacesWorld world(EncodingChoice::Ansi);
  std::string text;
  for (int i = 0; i < 5000; ++i) text += "the big cat sat " + NumberedWord(static_cast<size_t>(i)) + "\n";
  world.UseFile("/t/a.txt", text);
  world.Yielder.StopAtCall(2000);
  ASSERT_EQ(world.Count(), RunEnd::Counted);
  const Corpus& corpus = world.Run.Table.Corpus();
  const std::vector<Place> places = PlacesOf(corpus, CutTypedPhrase("big cat", corpus).Words);
  ASSERT_GT(places.size(), 10u);
  ASSERT_LT(places.size(), 5000u);
  const auto last = world.Locator().Locate(places.back(), 2, 80);
  ASSERT_TRUE(last);
  EXPECT_EQ(last->Line, places.size());
  EXPECT_EQ(last->Column, 5u);
}

TEST(CutTypedPhrase, TreatsAPhraseAsTheRunTreatsItsText) {
  struct Case {
    const char* Name;
    const char* Typed;
    IgnoreRule Mode;
    size_t Length;
    const char* Words;  ///< "?" for a word that makes the phrase be nowhere.
  };
  constexpr auto kAllow = IgnoreRule::Allow;
  const Case cases[] = {
      {"as it stands", "big cat", kAllow, 2, "big cat"},
      {"case and signs", " Big (CAT),", kAllow, 2, "big cat"},
      {"decomposed, with a typographic apostrophe", "cafe\u0301\u2019s", kAllow, 1, "caf\u00E9's"},
      {"dropped words", "big 12 aaaa cat", kAllow, 2, "big cat"},
      {"nothing left", "12 aaaa", kAllow, 0, ""},
      {"nothing at all", "", kAllow, 0, ""},
      {"phrase ends around it", "\"big cat.\"", kAllow, 2, "big cat"},
      {"a phrase end inside it", "big. Cat", kAllow, 2, "big ? cat"},
      {"a word that the text does not have", "big dog", kAllow, 2, "big ?"},
      {"a word to ignore", "the big cat", kAllow, 3, "the big cat"},
      {"a word to ignore that is removed", "big the cat", IgnoreRule::Remove, 2, "big cat"},
      {"a word that excludes phrases", "the big cat", IgnoreRule::ExcludeWith, 3, "big cat ?"},
  };
  for (const Case& c : cases) {
    PlacesWorld world(EncodingChoice::Utf8);
    world.Request.Options.IgnoreMode = c.Mode;
    world.Request.Lists.FileWordsToIgnore = {"the"};
    world.UseFile("/t/a.txt", "the big cat and caf\u00E9's big cat");
    ASSERT_EQ(world.Count(), RunEnd::Counted) << c.Name;
    const Corpus& corpus = world.Run.Table.Corpus();
    const CutPhrase cut = CutTypedPhrase(c.Typed, corpus);
    std::string words;
    for (const WordNumber word : cut.Words) {
      words += words.empty() ? "" : " ";
      words += word == kNoWord ? "?" : corpus.Words.Text(word);
    }
    EXPECT_EQ(cut.Length, c.Length) << c.Name;
    EXPECT_EQ(words, c.Words) << c.Name;
  }
}

// ---- Against the model.

constexpr std::string_view kPieces[] = {"a",
                                        "b",
                                        "cat",
                                        "isn",
                                        "caf\u00E9",
                                        "\u043A\u043E\u0448\u043A\u0430",
                                        "e\u0301",
                                        "\u6F22\u5B57",
                                        "x1y",
                                        "s",
                                        "t",
                                        " ",
                                        " ",
                                        " ",
                                        " ",
                                        "  ",
                                        "\t",
                                        "\"",
                                        "'",
                                        "'s",
                                        "'t ",
                                        "-",
                                        "--",
                                        "---",
                                        ".",
                                        ",",
                                        "(",
                                        ")",
                                        "\u0301",
                                        "\u200D",
                                        "\u00AD",
                                        "\u2060",
                                        "\uFEFF",
                                        "\u2011",
                                        "\u2018",
                                        "\u2019",
                                        "\u201D",
                                        "\u00A0",
                                        "\u212B",
                                        "\u0958",
                                        "\u03B1\u0301",
                                        "\u1100\u1161",
                                        "\U0001D160",
                                        "\xFF",
                                        "\xE2\x82",
                                        "\x92",
                                        "\xAD",
                                        "7",
                                        "aaaa",
                                        "<",
                                        ">",
                                        "<b>",
                                        "</b>",
                                        "<!--",
                                        "-->",
                                        "<!-",
                                        "/*",
                                        "*/",
                                        "&amp;",
                                        "&eacute;",
                                        "&amp;lt;",
                                        "&nbsp;",
                                        "&quot;",
                                        "&#8212;",
                                        "&lt;",
                                        "&",
                                        ";",
                                        "\n",
                                        "\n",
                                        "\r",
                                        "\r\n",
                                        "\n\n"};

std::string DrawText() {
  const auto piece =
      rc::gen::elementOf(std::vector<std::string_view>(std::begin(kPieces), std::end(kPieces)));
  std::string text;
  for (const std::string_view p : *rc::gen::container<std::vector<std::string_view>>(piece)) text += p;
  return text;
}

bool Coin() {
  return *rc::gen::arbitrary<bool>();
}

struct ModelFile {
  std::string Path;
  std::string Bytes;
  const char* Language;
};

/// For each token of the run the place of its word, and the file.
struct ModelToken {
  reference::WordPlace Place;
  size_t File = 0;
};

RC_GTEST_PROP(PlaceLocatorProperties, EveryWordIsWhereTheModelSays, ()) {
  const bool isUtf8 = Coin();
  PlacesWorld world(isUtf8 ? EncodingChoice::Utf8 : EncodingChoice::Ansi);
  WordRules& rules = world.Request.Rules;
  rules.AllowHyphens = Coin();
  rules.AllowApostrophes = Coin();
  rules.AllowPeriods = Coin();
  rules.AllowNumerals = Coin();
  rules.AllowParentheses = Coin();
  rules.AllowAmpersands = Coin();
  rules.CaseSignificant = Coin();
  rules.Only7bitASCII = *rc::gen::inRange(0, 4) == 0;
  rules.IgnoreShortWords = Coin();
  rules.ShortWordSize = 2;
  rules.TerminateAtEndOfLine = Coin();
  rules.TerminateAtPeriod = Coin();
  rules.TerminateAtTab = Coin();
  world.Request.Options.IgnoreMode = Coin() ? IgnoreRule::Remove : IgnoreRule::ExcludeWith;
  if (Coin()) world.Request.Lists.FileWordsToIgnore = {"cat"};

  constexpr std::pair<const char*, const char*> kKinds[] = {{".txt", ""}, {".htm", "HTML"}, {".xml", "XML"}};
  std::vector<ModelFile> files;
  for (int k = 0; k < *rc::gen::inRange(1, 4); ++k) {
    const auto [extension, language] = kKinds[*rc::gen::inRange(0, 3)];
    std::string bytes = isUtf8 && *rc::gen::inRange(0, 4) == 0 ? "\uFEFF" : "";
    bytes += DrawText();
    files.push_back({"/t/" + std::to_string(k) + extension, bytes, language});
    world.Files.Add(files.back().Path, bytes);
    RC_LOG() << files.back().Path << " [" << bytes << "]\n";
  }
  world.UseFolder("/t");
  RC_PRE(world.Count() == RunEnd::Counted);
  const Corpus& corpus = world.Run.Table.Corpus();

  WordRules modelRules = rules;
  SetAllowedExtraChars(modelRules);
  SetAllowedExtraChars2(modelRules);
  WordFilterSpec entries = world.Request.Lists;
  entries.CaseSignificant = rules.CaseSignificant;
  reference::CountingRun model(modelRules, world.Request.Options, entries);
  std::vector<ModelToken> tokens(1);
  for (const CorpusSource& source : corpus.Sources) {
    const auto file = std::ranges::find_if(
        files, [&](const ModelFile& f) { return std::filesystem::path(f.Path) == source.Path; });
    model.BeginSource(file->Path);
    tokens.resize(model.Words().size());
    for (const reference::WordPlace& place :
         reference::PlacesOfWords(file->Bytes, isUtf8, modelRules, file->Language)) {
      place.Word.empty() ? model.ResetPhrases() : model.TakeWord(place.Word);
      tokens.resize(model.Words().size(), {place, static_cast<size_t>(file - files.begin())});
    }
  }
  RC_ASSERT(corpus.Tokens.size() == tokens.size() + kTrailingEnds);

  PlaceLocator locator = world.Locator();
  for (size_t i = 0; i < std::min<size_t>(tokens.size(), 60); ++i) {
    if (model.Words()[i].empty()) continue;
    // In order at first, then anywhere.
    const size_t place = i < 30 ? i : i * 7919 % tokens.size();
    if (model.Words()[place].empty()) continue;
    const size_t last =
        place + 1 < tokens.size() && !model.Words()[place + 1].empty() && Coin() ? place + 1 : place;
    const size_t around = *rc::gen::inRange<size_t>(0, 30);
    const auto found =
        locator.Locate(Place{static_cast<uint32_t>(place)}, static_cast<int>(last - place) + 1, around);
    const ModelToken& word = tokens[place];
    RC_LOG() << "word " << word.Place.Word << " at " << word.Place.Line << ":" << word.Place.Column << '\n';
    RC_ASSERT(found.HasValue());
    RC_ASSERT(found->Line == word.Place.Line);
    RC_ASSERT(corpus.Lines.LineNumber(Place{static_cast<uint32_t>(place)}) == word.Place.Line);
    RC_ASSERT(found->Column == word.Place.Column);

    // The text as one, to look at what is shown of it.
    std::u32string text;
    size_t begin = 0;
    size_t lastCharacter = 0;
    const auto lines = reference::RawLines(files[word.File].Bytes, isUtf8);
    for (size_t n = 0; n < lines.size(); ++n) {
      if (n + 1 == word.Place.Line) begin = text.size() + word.Place.Column - 1;
      if (n + 1 == tokens[last].Place.Line) lastCharacter = text.size() + tokens[last].Place.LastColumn - 1;
      text += lines[n] + U'\n';
    }
    const std::u32string phrase = reference::Decode(found->Phrase);
    RC_ASSERT(text.substr(begin, phrase.size()) == phrase);
    RC_ASSERT(begin + phrase.size() > lastCharacter);
    RC_ASSERT(found->Left == reference::LeftWords(text, begin, around));
    RC_ASSERT(found->Right == reference::RightWords(text, begin + phrase.size(), around));
  }
}

}  // namespace
}  // namespace korv
