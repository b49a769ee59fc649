#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/counting/phrase_table_data.h"
#include "tests/app/kept_world.h"
#include "tests/engine/counting_world.h"

// Runs of random worlds, kept as files: opened again they are what they were, part by part and in everything
// that is shown of them.

namespace korv {
namespace {

constexpr const char* kEnds[] = {". ", "\n", ", ", "\t", "\n\n"};

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

KeptChoice ChoiceOf(const CountingWorld& world, TextSource source) {
  Settings settings;
  settings.Words = world.Rules;
  settings.Words.AllowedExtraChars.clear();
  const bool words = world.Options.MaxWords == 1;
  if (!words) {
    settings.MinWords = world.Options.MinWords;
    settings.MaxWords = world.Options.MaxWords;
  }
  settings.MinFrequency = world.Options.MinFrequency;
  settings.IgnoreOption = world.Options.IgnoreMode;
  settings.SourceKind = source;
  settings.InputFile = "/t/0.txt";
  settings.Folder = "/t";
  settings.PatternMatchingInWordsToIgnoreFile = world.Entries.PatternMatchingInWordsToIgnoreFile;
  settings.ExtraWordsToIgnore = Joined(world.Entries.TypedWordsToIgnore);
  Workspace work(settings);
  KeptChoice choice{.Chosen = work.Keep(), .SingleWords = words};
  choice.Chosen.Lists[0].Loaded = WordList{.Words = world.Entries.FileWordsToIgnore, .Path = "/lists/a.txt"};
  choice.Chosen.Lists[1].Loaded = WordList{.Words = world.Entries.CountOnly, .Path = "/lists/b.txt"};
  return choice;
}

/// The texts of the world, as files or as the text of a clipboard.
void WriteTexts(const CountingWorld& world, KeptWorld& kept) {
  std::vector<std::string> texts{"the "};
  size_t ends = 0;
  for (const CountingWorld::Step& step : world.Steps) {
    switch (step.What) {
      case CountingWorld::Step::Kind::Word:
        texts.back() += step.Text + " ";
        break;
      case CountingWorld::Step::Kind::EndOfPhrase:
        texts.back() += kEnds[ends++ % std::size(kEnds)];
        break;
      case CountingWorld::Step::Kind::NextFile:
        texts.emplace_back(ends % 3 == 0 ? "" : "the ");
        break;
    }
  }
  kept.ClipboardText = texts[0];
  for (size_t i = 0; i < texts.size(); ++i)
    kept.World.Files.Add("/t/" + std::to_string(i) + ".txt", texts[i]);
}

template <typename Array>
bool SameElements(const Array& a, const Array& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

void CompareCorpora(const Corpus& is, const Corpus& was) {
  RC_ASSERT(is.Rules == was.Rules);
  RC_ASSERT(is.Words.Size() == was.Words.Size());
  RC_ASSERT(is.Words.KeysDiffer() == was.Words.KeysDiffer());
  for (const WordNumber w : was.Words.All()) {
    RC_ASSERT(is.Words.Text(w) == was.Words.Text(w));
    RC_ASSERT(is.Words.Characters(w) == was.Words.Characters(w));
    RC_ASSERT(is.Words.KeyClass(w) == was.Words.KeyClass(w));
  }
  RC_ASSERT(SameElements(is.Tokens, was.Tokens));
  RC_ASSERT(SameElements(is.WordsAtEnds, was.WordsAtEnds));
  RC_ASSERT(SameElements(is.Places, was.Places));
  RC_ASSERT(SameElements(is.PlacesOfWord, was.PlacesOfWord));
  RC_ASSERT(SameElements(is.SourceOfBlock, was.SourceOfBlock));
  RC_ASSERT(is.Sources.size() == was.Sources.size());
  for (size_t s = 0; s < was.Sources.size(); ++s) {
    RC_ASSERT(is.Sources[s].Path == was.Sources[s].Path);
    RC_ASSERT(is.Sources[s].Begin == was.Sources[s].Begin);
    RC_ASSERT(is.Sources[s].WordsBefore == was.Sources[s].WordsBefore);
    RC_ASSERT(is.Sources[s].Origin.Size == was.Sources[s].Origin.Size);
    RC_ASSERT(is.Sources[s].Origin.Modified == was.Sources[s].Origin.Modified);
    RC_ASSERT(is.Sources[s].Origin.IsUtf8 == was.Sources[s].Origin.IsUtf8);
  }
  RC_ASSERT(std::ranges::equal(is.Lines.Anchors(), was.Lines.Anchors(),
                               [](const LineAnchor& a, const LineAnchor& b) {
                                 return a.Offset() == b.Offset() && a.StartsLine() == b.StartsLine() &&
                                        a.Token() == b.Token() && a.Line() == b.Line();
                               }));
}

void CompareTables(const PhraseTableData& is, const PhraseTableData& was) {
  RC_ASSERT(is.PhraseCount == was.PhraseCount);
  RC_ASSERT(is.Occurrences == was.Occurrences);
  RC_ASSERT(is.LongPhrases == was.LongPhrases);
  RC_ASSERT(is.OnlyMaximal == was.OnlyMaximal);
  RC_ASSERT(is.FileNumberOfSource == was.FileNumberOfSource);
  RC_ASSERT(is.FilePaths == was.FilePaths);
  RC_ASSERT(is.Entries.size() == was.Entries.size());
  for (size_t i = 0; i < was.Entries.size(); ++i) {
    RC_ASSERT(is.Entries[i].First == was.Entries[i].First);
    RC_ASSERT(is.Entries[i].Count == was.Entries[i].Count);
    RC_ASSERT(is.Entries[i].Slice == was.Entries[i].Slice);
    RC_ASSERT(is.Entries[i].Words == was.Entries[i].Words);
    RC_ASSERT(is.Entries[i].Listed == was.Entries[i].Listed);
  }
}

void KeepAndCompare(const WorldKind& kind, TextSource source, std::vector<SourcePath> together = {},
                    std::vector<SourcePath> compared = {}) {
  const CountingWorld world = DrawWorld(kind);
  RC_LOG() << world;
  KeptWorld kept;
  WriteTexts(world, kept);
  KeptChoice choice = ChoiceOf(world, source);
  choice.Chosen.Together = std::move(together);
  choice.Compared = std::move(compared);
  RC_PRE(kept.Count(std::move(choice)));
  RC_ASSERT(kept.Keep().HasValue());
  const auto error = kept.Open();
  RC_LOG() << (error ? TextOf(*error) : "");
  RC_ASSERT(!error);
  CompareCorpora(kept.Opened.Run.Table.Corpus(), kept.Result.Run.Table.Corpus());
  CompareTables(kept.Opened.Run.Table.Data(), kept.Result.Run.Table.Data());
  RC_ASSERT(kept.Opened.Run.Facts.Paths == kept.Result.Run.Facts.Paths);
  RC_ASSERT(kept.Opened.Run.Table.Corpus().SecondSide == kept.Result.Run.Table.Corpus().SecondSide);
  FileSystem& files = kept.World.Files;
  RC_ASSERT(ShownTexts(kept.Opened, files).All() == ShownTexts(kept.Result, files).All());
  const std::string bytes = kept.Kept();
  std::swap(kept.Opened, kept.Result);
  RC_ASSERT(kept.Keep().HasValue());
  RC_ASSERT(kept.Kept() == bytes);
}

RC_GTEST_PROP(KeptRunProperties, AFileIsWhatItWas, ()) {
  KeepAndCompare({.Lists = true, .Rules = true}, TextSource::SingleFile);
}
RC_GTEST_PROP(KeptRunProperties, AFolderIsWhatItWas, ()) {
  KeepAndCompare({.Lists = true, .Rules = true, .Folder = true}, TextSource::Folder);
}
RC_GTEST_PROP(KeptRunProperties, SeveralFilesAndFoldersAreWhatTheyWere, ()) {
  using Kind = SourcePath::Kind;
  const std::vector<SourcePath> sources = {
      {"/t/0.txt", Kind::File}, {"/t/1.txt", Kind::File}, {"/none.txt", Kind::File}, {"/t", Kind::Folder}};
  std::vector<SourcePath> together;
  const auto count = *rc::gen::inRange(1, 5);
  for (int k = 0; k < count; ++k) together.push_back(sources[*rc::gen::inRange<size_t>(0, sources.size())]);
  KeepAndCompare({.Lists = true, .Rules = true, .Folder = true}, TextSource::Folder, std::move(together));
}
RC_GTEST_PROP(KeptRunProperties, AComparisonIsWhatItWas, ()) {
  using Kind = SourcePath::Kind;
  const bool clipboard = *rc::gen::arbitrary<bool>();
  KeepAndCompare({.Lists = true, .Rules = true, .Folder = true},
                 clipboard ? TextSource::Clipboard : TextSource::SingleFile, {}, {{"/t", Kind::Folder}});
}
RC_GTEST_PROP(KeptRunProperties, AClipboardIsWhatItWas, ()) {
  KeepAndCompare({.Lists = true}, TextSource::Clipboard);
}
RC_GTEST_PROP(KeptRunProperties, AListOfWordsIsWhatItWas, ()) {
  KeepAndCompare({.Lists = true, .SingleWords = true}, TextSource::SingleFile);
}

RC_GTEST_PROP(KeptRunProperties, ADamagedOneWhoseChecksumIsMendedIsRefusedOrARun, ()) {
  const bool folder = *rc::gen::arbitrary<bool>();
  const CountingWorld world = DrawWorld({.Lists = true, .Rules = true, .Folder = folder});
  KeptWorld kept;
  WriteTexts(world, kept);
  KeptChoice choice = ChoiceOf(world, folder ? TextSource::Folder : TextSource::SingleFile);
  if (*rc::gen::arbitrary<bool>()) choice.Compared = {{"/t", SourcePath::Kind::Folder}};
  RC_PRE(kept.Count(std::move(choice)));
  RC_ASSERT(kept.Keep().HasValue());
  const std::string whole = kept.Kept();
  // The settings at the beginning are most of so small a file.
  const size_t begin = *rc::gen::arbitrary<bool>() ? kKeptHeaderBytes : whole.find("FACT");
  for (int k = 0; k < 20; ++k) {
    std::string bytes = whole;
    const auto flips = *rc::gen::inRange(1, 4);
    for (int flip = 0; flip < flips; ++flip)
      bytes[*rc::gen::inRange(begin, bytes.size())] = static_cast<char>(*rc::gen::inRange(0, 256));
    const auto error = kept.OpenBytes(WithChecksum(bytes));
    if (error)
      RC_ASSERT(error->Fault == OpenFault::Damaged);
    else
      RC_ASSERT(!ShownTexts(kept.Opened, kept.World.Files).All().empty());
  }
}

}  // namespace
}  // namespace korv
