// The rows of contexts as a whole, in every order, against a scan of the files that keeps the place of every
// word.

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/contexts/context_rows.h"
#include "app/contexts/context_texts.h"
#include "sources/places/phrase_cut.h"
#include "tests/app/run_world.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/native_paths.h"
#include "tests/reference/naive_places.h"
#include "tests/reference/naive_run.h"
#include "tests/reference/naive_text.h"

namespace korv {
namespace {

using Texts = std::vector<std::string>;

struct File {
  std::string Name;  ///< Below the folder.
  std::string Bytes;
};

bool Coin() {
  return *rc::gen::arbitrary<bool>();
}

/// Few words, so that there are phrases that occur often, in many neighbourhoods.
std::string DrawText() {
  const std::vector<std::string> pieces = {"a",          "b ",    "A ", "cat ", "cat ", "Cat ",
                                           "caf\u00E9 ", "cafe ", " ",  "\t",   "\n",   ". ",
                                           ", ",         "-",     "; ", "\" ",  "\n\n"};
  std::string text;
  for (const std::string& piece : *rc::gen::container<Texts>(rc::gen::elementOf(pieces))) text += piece;
  return text;
}

/// The naive run with the place of each of its tokens.
struct Model {
  struct Token {
    reference::WordPlace Place;
    size_t Source = 0;  ///< In reading order.
  };

  Model(const RunWorld& world, const std::vector<File>& files)
      : Run(Rules(world), world.Request.Options, {}) {
    Tokens.resize(1);
    for (const CorpusSource& source : world.Run.Table.Corpus().Sources) {
      const auto file = std::ranges::find_if(
          files, [&](const File& f) { return std::filesystem::path("/t/" + f.Name) == source.Path; });
      RC_ASSERT(file != files.end());
      Run.BeginSource(file->Name);
      Paths.push_back(source.Path);
      Names.push_back(Native(file->Name));
      Lines.push_back(reference::RawLines(file->Bytes, true));
      Tokens.resize(Run.Words().size());
      for (const reference::WordPlace& place :
           reference::PlacesOfWords(file->Bytes, true, Rules(world), "")) {
        place.Word.empty() ? Run.ResetPhrases() : Run.TakeWord(place.Word);
        Tokens.resize(Run.Words().size(), {place, Names.size() - 1});
      }
    }
  }

  /// What a row shows of the phrase of `words` words at a token.
  std::string Row(size_t at, size_t words, size_t around) const {
    const Token& first = Tokens[at];
    const Token& last = Tokens[at + words - 1];
    std::u32string text;
    size_t begin = 0;
    size_t end = 0;
    const std::vector<std::u32string>& lines = Lines[first.Source];
    for (size_t n = 0; n < lines.size(); ++n) {
      if (n + 1 == first.Place.Line) begin = text.size() + first.Place.Column - 1;
      if (n + 1 == last.Place.Line) end = text.size() + last.Place.LastColumn;
      text += lines[n] + U'\n';
    }
    return reference::LeftWords(text, begin, around) + " [" +
           reference::Encode(text.substr(begin, end - begin)) + "] " +
           reference::RightWords(text, end, around) + " (" + Names[first.Source] + ":" +
           std::to_string(first.Place.Line) + ")";
  }

  /// The words to one side of a token, the nearest first, up to a phrase end.
  std::vector<std::pair<std::string, std::string>> Side(size_t at, int step) const {
    std::vector<std::pair<std::string, std::string>> side;
    const Texts& words = Run.Words();
    for (; side.size() < kMostWords && at < words.size() && !words[at].empty();
         at += static_cast<size_t>(step))
      side.emplace_back(reference::FoldKey(reference::FoldAccents(words[at])), words[at]);
    return side;
  }

  Texts Rows(const Texts& phrase, const ContextQuery& query, size_t around) const {
    std::vector<size_t> places = reference::PlacesOf(Run.Words(), phrase);
    const auto path = [&](size_t at) { return Paths[Tokens[at].Source]; };
    std::ranges::stable_sort(places, [&](size_t a, size_t b) {
      if ((query.FileByFile || query.Order == PlaceOrder::File) && path(a) != path(b))
        return path(a) < path(b);
      if (query.Order == PlaceOrder::Left) return Side(a - 1, -1) < Side(b - 1, -1);
      if (query.Order == PlaceOrder::Right) return Side(a + phrase.size(), 1) < Side(b + phrase.size(), 1);
      return false;
    });
    std::map<std::filesystem::path, int> inFile;
    for (const size_t at : places) ++inFile[path(at)];
    Texts rows;
    for (size_t k = 0; k < places.size(); ++k) {
      const bool begins = k == 0 || path(places[k]) != path(places[k - 1]);
      if (query.FileByFile && begins)
        rows.push_back(Names[Tokens[places[k]].Source] + ": " + std::to_string(inFile[path(places[k])]));
      rows.push_back(Row(places[k], phrase.size(), around));
    }
    return rows;
  }

  static WordRules Rules(const RunWorld& world) {
    WordRules rules = world.Request.Rules;
    SetAllowedExtraChars(rules);
    SetAllowedExtraChars2(rules);
    return rules;
  }

  reference::CountingRun Run;
  std::vector<Token> Tokens;  ///< By their index in the words of the run.
  std::vector<std::filesystem::path> Paths;
  Texts Names;
  std::vector<std::vector<std::u32string>> Lines;  ///< Of each source.
};

/// A phrase of the model's text, listed or not, or words that may stand nowhere in a row.
Texts DrawPhrase(const Model& model) {
  Texts words = model.Run.Words();
  const auto begin = *rc::gen::inRange<size_t>(0, words.size());
  const auto length = *rc::gen::inRange<size_t>(1, 4);
  Texts phrase;
  for (size_t k = begin; k < std::min(words.size(), begin + length); ++k)
    if (!words[k].empty()) phrase.push_back(words[k]);
  return phrase.empty() ? Texts{"cat"} : phrase;
}

/// Those of the program, read from the files.
Texts ReadRows(const RunWorld& world, ContextRows& rows, FakeEventLoop& loop,
               const std::shared_ptr<const ContextList>& list) {
  rows.Show(list);
  rows.Want(list->Places(), {});
  RC_ASSERT(loop.RunUntil([&] { return rows.Idle(); }));
  RC_ASSERT(rows.Changed().empty());
  Texts texts;
  for (size_t row = 0; row < list->Rows(); ++row) {
    if (const auto at = list->PlaceAt(row)) {
      RC_ASSERT(list->RowOf(*at) == row);
      const ContextText text = rows.Text(list->Places()[*at]);
      RC_ASSERT(text.FromFile);
      const size_t source = world.Run.Table.Corpus().SourceAt(list->Places()[*at]);
      texts.push_back(text.Text.Left + " [" + text.Text.Phrase + "] " + text.Text.Right + " (" +
                      PlaceName(world.Run, source, text.Text.Line) + ")");
    } else {
      const ContextList::Heading heading = list->HeadingAt(row);
      texts.push_back(NameOfText(world.Run, heading.Source) + ": " + std::to_string(heading.Count));
    }
  }
  return texts;
}

RC_GTEST_PROP(ContextsProperties, RowsAreThoseOfTheModelInEveryOrder, ()) {
  RunWorld world;
  world.Encodings = EncodingChooser(EncodingChoice::Utf8);
  world.Request.Options.KeepPlaces = true;
  world.Request.Rules.IgnoreShortWords = Coin();
  world.Request.Rules.ShortWordSize = 2;
  world.Request.Rules.TerminateAtEndOfLine = Coin();
  world.Request.Rules.CaseSignificant = Coin();
  world.Request.IncludeSubfolders = true;
  world.UseLengths(2, 3, 1);
  std::vector<File> files;
  for (const char* name : {"b.txt", "Z.txt", "sub/a.txt", "sub/b.txt"}) {
    if (!files.empty() && Coin()) continue;
    files.push_back({name, DrawText()});
    world.Files.Add("/t/" + files.back().Name, files.back().Bytes);
    RC_LOG() << name << " [" << files.back().Bytes << "]\n";
  }
  world.UseFolder("/t");
  RC_PRE(world.Count() == RunEnd::Counted);
  const Model model(world, files);
  const Texts phrase = DrawPhrase(model);
  std::vector<WordNumber> numbers;
  for (const std::string& word : phrase) numbers.push_back(world.Run.Table.Corpus().Words.Find(word));
  const std::shared_ptr<const CountedRun> run(std::shared_ptr<void>(), &world.Run);
  FakeEventLoop loop;
  ContextRows rows(loop, world.Files);
  const auto around = *rc::gen::inRange<size_t>(0, 40);
  rows.SetAround(around);
  size_t shown = 0;
  for (const PlaceOrder order : {PlaceOrder::Place, PlaceOrder::Left, PlaceOrder::Right, PlaceOrder::File}) {
    for (const bool fileByFile : {false, true}) {
      ContextQuery query{.Words = numbers, .Order = order, .FileByFile = fileByFile};
      // As few as there are, all are in the sample.
      if (Coin()) query.SampleSeed = 7;
      const auto first = *rc::gen::inRange<size_t>(0, 5);
      std::vector<std::shared_ptr<const ContextList>> told;
      RC_ASSERT(FindContexts(run, query, first, world.Yielder, [&](std::shared_ptr<const ContextList> list) {
        told.push_back(std::move(list));
      }));
      const ContextList& whole = *told.back();
      const Texts expected = model.Rows(phrase, query, around);
      RC_ASSERT(whole.Whole());
      RC_ASSERT(ReadRows(world, rows, loop, told.back()) == expected);
      // Where there are more than the first ones, these were told before.
      RC_ASSERT((told.size() == 2) == (first > 0 && whole.Places().size() > first));
      RC_ASSERT(std::equal(told[0]->Places().begin(), told[0]->Places().end(), whole.Places().begin()));
      RC_ASSERT(whole.Occurrences() == whole.Places().size());
      shown = whole.Places().size();
    }
  }
  RC_TAG(shown == 0 ? "none" : shown == 1 ? "one" : "several");
}

}  // namespace
}  // namespace korv
