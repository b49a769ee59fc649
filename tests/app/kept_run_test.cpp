// A finished run as a file: kept and opened again it is what it was, and nothing that a file holds does harm.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/run/run_changes.h"
#include "tests/app/changed_settings.h"
#include "tests/app/kept_world.h"
#include "tests/app/run_texts.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

KeptChoice Choice(Settings settings) {
  settings.MinWords = 2;
  settings.MaxWords = 3;
  settings.MinFrequency = 1;
  settings.Words.IgnoreShortWords = false;
  Workspace work(settings);
  return {.Chosen = work.Keep()};
}
KeptChoice FileChoiceOf(const std::string& path) {
  Settings settings;
  settings.InputFile = path;
  return Choice(std::move(settings));
}
KeptChoice FolderChoiceOf(const std::string& path) {
  Settings settings;
  settings.SourceKind = TextSource::Folder;
  settings.Folder = path;
  settings.IncludeSubfolders = true;
  return Choice(std::move(settings));
}

class KeptRun : public testing::Test {
 protected:
  void CountFile(const std::string& text = kText) {
    world.World.Files.Add("/t/a.txt", text);
    ASSERT_TRUE(world.Count(FileChoiceOf("/t/a.txt")));
  }
  void KeepIt() {
    const auto kept = world.Keep();
    ASSERT_TRUE(kept);
    EXPECT_EQ(*kept, world.Kept().size());
  }
  void KeepAndOpen() {
    KeepIt();
    const auto error = world.Open();
    ASSERT_FALSE(error) << TextOf(*error);
    EXPECT_EQ(ShownTexts(world.Opened, world.World.Files).All(),
              ShownTexts(world.Result, world.World.Files).All());
  }
  OpenFault FaultOf(std::string bytes) {
    const auto error = world.OpenBytes(std::move(bytes));
    EXPECT_TRUE(error);
    EXPECT_FALSE(world.Opened.Chosen) << "nothing is left of what was read";
    return error ? error->Fault : OpenFault::Stopped;
  }

  KeptWorld world;
};

TEST_F(KeptRun, IsShownAsItWas) {
  CountFile();
  KeepAndOpen();
  EXPECT_THAT(ShownTexts(world.Opened, world.World.Files).Reports(), HasSubstr("the big cat"));
}

TEST_F(KeptRun, OfAFolderHasItsFilesAndWhatWasSkipped) {
  world.World.Files.Add("/t/a.txt", kText);
  world.World.Files.Add("/t/sub/b.txt", "The big cat ran away from the big cat.");
  world.World.Files.Add("/t/empty.txt", "");
  world.World.Files.Add("/t/c.html", "<p>The <b>big</b> cat</p> &amp; the big dog");
  ASSERT_TRUE(world.Count(FolderChoiceOf("/t")));
  KeepAndOpen();
  ASSERT_EQ(world.Opened.Run.Facts.SkippedFiles.size(), 1U);
  EXPECT_EQ(world.Opened.Run.Facts.SkippedFiles[0].Reason, world.Result.Run.Facts.SkippedFiles[0].Reason);
  EXPECT_EQ(world.Opened.Run.Table.FilePaths().size(), 3U);
}

TEST_F(KeptRun, OfTheClipboardKeepsItsText) {
  Settings settings;
  settings.SourceKind = TextSource::Clipboard;
  world.ClipboardText = kText;
  ASSERT_TRUE(world.Count(Choice(settings)));
  KeepAndOpen();
  EXPECT_EQ(world.Opened.Run.KeptText, kText);
}

TEST_F(KeptRun, OfSingleWordsIsOne) {
  world.World.Files.Add("/t/a.txt", kText);
  KeptChoice choice = FileChoiceOf("/t/a.txt");
  choice.SingleWords = true;
  ASSERT_TRUE(world.Count(std::move(choice)));
  KeepAndOpen();
  EXPECT_TRUE(IsOfSingleWords(world.Opened));
  EXPECT_EQ(world.Opened.Chosen->Chosen.MaxWords, 3) << "the lengths that were chosen stay";
}

TEST_F(KeptRun, WithoutAPhraseTellsWhyAgain) {
  CountFile("Cats. Dogs. Birds. Mice. Horses. Cows.");
  ASSERT_TRUE(world.Result.Offered);
  KeepAndOpen();
  ASSERT_TRUE(world.Opened.Offered);
  EXPECT_EQ(world.Opened.Offered->LongestRow, world.Result.Offered->LongestRow);
}

TEST_F(KeptRun, KnowsWhatWasSaidOfIt) {
  CountFile();
  CountedRun& run = world.Result.Run;
  run.Interrupted = true;
  run.Facts.Options.Stopped = true;
  run.Facts.Notices = {"Folder /t/x cannot be read.", "bad \xFF byte"};
  run.Facts.LongPhrases = 7;
  world.Result.LeftOut = {PhraseIndex{3}, PhraseIndex{1}};
  KeepIt();
  ASSERT_FALSE(world.Open());
  const ShownResult& opened = world.Opened;
  EXPECT_TRUE(opened.Run.Interrupted);
  EXPECT_TRUE(opened.Run.Facts.Options.Stopped);
  EXPECT_THAT(opened.Run.Facts.Notices,
              testing::ElementsAre("Folder /t/x cannot be read.", "bad \xEF\xBF\xBD byte"));
  EXPECT_EQ(opened.Run.Facts.LongPhrases, 7U);
  EXPECT_EQ(opened.LeftOut, world.Result.LeftOut);
  EXPECT_EQ(opened.Took, world.Result.Took);
  EXPECT_EQ(opened.Ended, world.Result.Ended);
  EXPECT_EQ(opened.Run.FileKind, run.FileKind);
  EXPECT_EQ(opened.Run.Facts.Words, run.Facts.Words);
  EXPECT_EQ(opened.Run.Facts.Encodings, run.Facts.Encodings);
  EXPECT_EQ(opened.Run.Facts.InputPath, "/t/a.txt");
}

TEST_F(KeptRun, KnowsUnderWhatItWasCounted) {
  Settings settings = AllChanged();
  settings.MinWords = 3;
  settings.MinFrequency = 1;
  settings.IgnoreOption.reset();
  settings.ExtraWordsToIgnore = "a \"quoted\" word";
  world.World.Files.Add("/texts/a.txt", kText);
  Workspace work(settings);
  KeptChoice choice{.Chosen = work.Keep()};
  choice.Chosen.CountOnly = "big, <^c>";
  choice.Chosen.Lists[0].Loaded =
      WordList{.Words = {"cat", "dog"}, .HasPatterns = true, .Path = "/lists/two.txt"};
  choice.Chosen.Lists[1].Files.Restore({"/lists/only.txt"}, 0);
  choice.Chosen.Lists[1].Loaded = WordList{.Words = {"sat"}, .HasPatterns = false, .Path = "/lists/only.txt"};
  choice.Chosen.Chosen.FilePatterns = {};
  choice.Chosen.Chosen.OutputFile = {};
  ASSERT_TRUE(world.Count(std::move(choice)));
  KeepIt();
  ASSERT_FALSE(world.Open());
  const Workspace::State& was = *world.Result.Chosen;
  const Workspace::State& is = *world.Opened.Chosen;
  EXPECT_TRUE(DifferencesOf(is.Chosen, was.Chosen).none());
  EXPECT_EQ(is.CountOnly, was.CountOnly);
  for (size_t kind = 0; kind < 2; ++kind) {
    EXPECT_EQ(is.Lists[kind].Files.Paths(), was.Lists[kind].Files.Paths());
    EXPECT_EQ(is.Lists[kind].Files.Selected(), was.Lists[kind].Files.Selected());
    ASSERT_TRUE(is.Lists[kind].Loaded);
    EXPECT_EQ(is.Lists[kind].Loaded->Words, was.Lists[kind].Loaded->Words);
    EXPECT_EQ(is.Lists[kind].Loaded->HasPatterns, was.Lists[kind].Loaded->HasPatterns);
    EXPECT_EQ(is.Lists[kind].Loaded->Path, was.Lists[kind].Loaded->Path);
  }
  const RunChanges changes = ChangesBetween(world.Opened.Request, world.Result.Request);
  EXPECT_FALSE(changes.Source || changes.Rules()) << ChangedRulesText(changes);
}

TEST_F(KeptRun, KnowsSeveralSourcesThatWereCountedTogether) {
  world.World.Files.Add("/t/a.txt", kText);
  world.World.Files.Add("/u/b.txt", kText);
  KeptChoice choice = FolderChoiceOf("/elsewhere");
  choice.Chosen.Together = {{"/u/b.txt", SourcePath::Kind::File}, {"/t", SourcePath::Kind::Folder}};
  ASSERT_TRUE(world.Count(std::move(choice)));
  KeepAndOpen();
  EXPECT_EQ(world.Opened.Run.Facts.Paths, world.Result.Run.Facts.Paths);
  EXPECT_EQ(world.Opened.Run.Facts.Paths.size(), 2U);
  EXPECT_EQ(world.Opened.Chosen->Together, world.Result.Chosen->Together);
  EXPECT_FALSE(ChangesBetween(world.Opened.Request, world.Result.Request).Source);
}

// What versions added stands at the ends of the first two sections, whose sizes stand in front of them.
std::string WithoutEnds(std::string bytes, uint64_t ofSettings, uint64_t ofFacts) {
  size_t size = kKeptHeaderBytes + 4;
  for (const uint64_t less : {ofSettings, ofFacts}) {
    const auto section = NumberIn<uint64_t>(bytes.data() + size);
    bytes.erase(size + 8 + section - less, less);
    std::string shorter;
    AppendNumber(section - less, shorter);
    bytes.replace(size, shorter.size(), shorter);
    size += 8 + (section - less) + 4;
  }
  return bytes;
}

TEST_F(KeptRun, KnowsBothSidesOfAComparison) {
  world.World.Files.Add("/t/a.txt", kText);
  world.World.Files.Add("/u/b.txt", std::string(kText) + "new words here");
  KeptChoice choice = FolderChoiceOf("/t");
  choice.Compared = {{"/u/b.txt", SourcePath::Kind::File}, {"/t/a.txt", SourcePath::Kind::File}};
  choice.How = {.Basis = ComparisonBasis::Files, .SimpleMathsK = 100, .Drafts = true};
  ASSERT_TRUE(world.Count(std::move(choice)));
  KeepAndOpen();
  const RunSummary& is = world.Opened.Run.Facts;
  const RunSummary& was = world.Result.Run.Facts;
  ASSERT_TRUE(is.SecondSide);
  EXPECT_EQ(is.SecondSide->Paths, was.SecondSide->Paths);
  EXPECT_EQ(is.SecondSide->Words, was.SecondSide->Words);
  EXPECT_EQ(is.SecondSide->FilesScanned, 2U);
  EXPECT_EQ(is.SecondSide->SharedFiles, 1U);
  EXPECT_EQ(world.Opened.Run.Comparison, world.Result.Run.Comparison);
  EXPECT_EQ(world.Opened.Run.Table.Corpus().SecondSide, 1U);
  EXPECT_FALSE(ChangesBetween(world.Opened.Request, world.Result.Request).Source);
}

TEST_F(KeptRun, OfAnEarlierVersionIsOpenedToo) {
  struct Version {
    char Number;
    uint64_t NotInSettings;
    uint64_t NotInFacts;
  };
  CountFile();
  KeepIt();
  const std::string kept = world.Kept();
  constexpr uint64_t kComparison = 4 + 1 + 8 + 1;
  for (const Version& version : {Version{2, kComparison, 1}, Version{1, kComparison + 4, 1}}) {
    std::string bytes = WithoutEnds(kept, version.NotInSettings, version.NotInFacts);
    bytes[kKeptMagic.size()] = version.Number;
    ASSERT_FALSE(world.OpenBytes(WithChecksum(WithLength(bytes))));
    EXPECT_TRUE(world.Opened.Run.Facts.Paths.empty());
    EXPECT_FALSE(world.Opened.Run.Facts.SecondSide);
    EXPECT_EQ(world.Opened.Run.Facts.InputPath, "/t/a.txt");
  }
}

TEST_F(KeptRun, LeadsToItsFilesAsLongAsTheyAreAsTheyWere) {
  CountFile();
  KeepIt();
  world.World.Files.Add("/t/a.txt", std::string(kText) + " More.");
  ASSERT_FALSE(world.Open());
  const std::string places = ShownTexts(world.Opened, world.World.Files).Places();
  EXPECT_EQ(places, ShownTexts(world.Result, world.World.Files).Places());
  EXPECT_THAT(places, HasSubstr("; " + std::to_string(static_cast<int>(PlaceFault::Changed))));
}

TEST_F(KeptRun, MayHaveNamesOfFilesThatAreNoText) {
  if constexpr (std::is_same_v<std::filesystem::path::value_type, char>) {
    const std::filesystem::path odd = PathOfBytes("/t/\xFF\xFE.txt");
    world.World.Files.Add(odd, kText);
    ASSERT_TRUE(world.Count(FolderChoiceOf("/t")));
    KeepAndOpen();
    EXPECT_EQ(world.Opened.Run.Table.Corpus().Sources[0].Path, odd);
  }
}

// ---- Keeping

TEST_F(KeptRun, IsNotWrittenOverATextThatWasCounted) {
  CountFile();
  world.World.Files.AddAlias("/kept/run.korvrun", "/t/a.txt");
  const auto kept = world.Keep();
  ASSERT_FALSE(kept);
  EXPECT_EQ(kept.Error().Fault, KeepFault::IsSource);
  EXPECT_EQ(TextOf(kept.Error()), "This file is one of those that were counted. Please choose another one.");
  EXPECT_EQ(world.Kept(), kText);
}

TEST_F(KeptRun, LeavesTheOldFileWhenTheDiskFails) {
  CountFile();
  world.World.Files.Add(KeptWorld::kPath, "what was there");
  for (int call = 1;; ++call) {
    world.World.Files.FailCall(call, FileFault::NoSpace);
    const auto kept = world.Keep();
    if (!world.World.Files.FailureHappened()) break;
    ASSERT_FALSE(kept) << call;
    EXPECT_EQ(kept.Error().Fault, KeepFault::Unwritable);
    EXPECT_EQ(TextOf(kept.Error()), "The run cannot be kept there: Input/output error.");
    EXPECT_EQ(world.Kept(), "what was there") << call;
    ASSERT_LT(call, 100);
  }
  EXPECT_EQ(world.Kept().substr(0, 7), "KORVRUN");
}

TEST_F(KeptRun, LeavesTheOldFileWhenItIsStopped) {
  CountFile();
  world.World.Files.Add(KeptWorld::kPath, "what was there");
  world.World.Yielder.StopAtCall(1);
  const auto kept = world.Keep();
  ASSERT_FALSE(kept);
  EXPECT_EQ(kept.Error().Fault, KeepFault::Stopped);
  EXPECT_EQ(world.Kept(), "what was there");
}

TEST_F(KeptRun, TellsHowFarItIs) {
  CountFile();
  KeepIt();
  EXPECT_EQ(uint64_t{world.Progress.Total}, world.Kept().size());
  EXPECT_EQ(uint64_t{world.Progress.Done}, world.Kept().size());
  world.Progress = {};
  ASSERT_FALSE(world.Open());
  EXPECT_EQ(uint64_t{world.Progress.Total}, world.Kept().size());
  EXPECT_EQ(uint64_t{world.Progress.Done}, world.Kept().size());
}

// ---- Opening

TEST_F(KeptRun, IsToldByItsName) {
  for (const char* name : {"a.korvrun", "/x/A.KorvRun"}) EXPECT_TRUE(NamesKeptRun(name)) << name;
  for (const char* name : {"a.korv", "korvrun", "a.korvrun.txt", ""})
    EXPECT_FALSE(NamesKeptRun(name)) << name;
}

TEST_F(KeptRun, FaultsAreToldInWords) {
  struct Case {
    OpenFault Fault;
    const char* Text;
  };
  const Case cases[] = {
      {OpenFault::NoKeptRun, "This is no kept run."},
      {OpenFault::Newer, "This run was kept by a later version of Korv, which is needed to open it."},
      {OpenFault::CutShort, "The end of this kept run is missing: it was not copied or written wholly."},
      {OpenFault::Damaged, "This kept run is damaged: what it holds is not what was written."},
      {OpenFault::Unreadable, "This kept run cannot be read: why."},
      {OpenFault::NoMemory, "There is not enough memory for this kept run."},
      {OpenFault::Stopped, ""},
  };
  for (const Case& c : cases) EXPECT_EQ(TextOf(OpenError{c.Fault, "why"}), c.Text);
}

TEST_F(KeptRun, IsNotTakenFromAnotherFile) {
  for (const char* bytes : {"", "K", "The big cat sat on the mat.", "KORVRUN", "KORVRUN text"})
    EXPECT_EQ(FaultOf(bytes), OpenFault::NoKeptRun) << bytes;
}

TEST_F(KeptRun, ThatIsNotThereCannotBeRead) {
  const auto error = world.Open();
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Fault, OpenFault::Unreadable);
}

TEST_F(KeptRun, OfALaterVersionIsRefusedAsSuch) {
  CountFile();
  KeepIt();
  std::string bytes = world.Kept();
  bytes[8] = static_cast<char>(kKeptVersion + 1);
  EXPECT_EQ(FaultOf(bytes), OpenFault::Newer);
  EXPECT_EQ(FaultOf(bytes.substr(0, 30)), OpenFault::Newer);
  bytes[8] = 0;
  EXPECT_EQ(FaultOf(WithChecksum(bytes)), OpenFault::Damaged);
}

TEST_F(KeptRun, ThatIsCutShortAnywhereIsRefusedAsSuch) {
  CountFile();
  KeepIt();
  const std::string bytes = world.Kept();
  for (size_t length = 0; length < bytes.size(); ++length)
    ASSERT_EQ(FaultOf(bytes.substr(0, length)), length < 8 ? OpenFault::NoKeptRun : OpenFault::CutShort)
        << length;
  EXPECT_EQ(FaultOf(bytes + "x"), OpenFault::Damaged);
}

TEST_F(KeptRun, ThatIsCutShortAndClaimsToBeWholeIsRefused) {
  CountFile();
  KeepIt();
  const std::string bytes = world.Kept();
  for (size_t length = kKeptHeaderBytes; length < bytes.size(); ++length)
    ASSERT_EQ(FaultOf(WithChecksum(WithLength(bytes.substr(0, length)))), OpenFault::Damaged) << length;
}

TEST_F(KeptRun, WithAnyByteChangedIsRefused) {
  CountFile();
  KeepIt();
  const std::string bytes = world.Kept();
  for (size_t at = kKeptHeaderBytes; at < bytes.size(); ++at) {
    std::string changed = bytes;
    changed[at] = static_cast<char>(changed[at] ^ 0x10);
    ASSERT_EQ(FaultOf(changed), OpenFault::Damaged) << at;
  }
}

TEST_F(KeptRun, WithAnyByteChangedAndItsChecksumMendedIsRefusedOrARun) {
  CountFile();
  KeepIt();
  const std::string bytes = world.Kept();
  int runs = 0;
  for (size_t at = kKeptHeaderBytes; at < bytes.size() - kKeptChecksumBytes; ++at) {
    for (const int flip : {0x01, 0x80, 0xFF}) {
      std::string changed = bytes;
      changed[at] = static_cast<char>(changed[at] ^ flip);
      if (const auto error = world.OpenBytes(WithChecksum(changed))) {
        ASSERT_EQ(error->Fault, OpenFault::Damaged) << at;
        continue;
      }
      ++runs;
      ASSERT_FALSE(ShownTexts(world.Opened, world.World.Files).All().empty()) << at;
    }
  }
  EXPECT_GT(runs, 0) << "names of settings that are unknown are passed over";
}

TEST_F(KeptRun, IsRefusedWhenTheDiskFails) {
  CountFile();
  KeepIt();
  for (int call = 1;; ++call) {
    world.World.Files.FailCall(call);
    const auto error = world.Open();
    if (!world.World.Files.FailureHappened()) break;
    ASSERT_TRUE(error) << call;
    EXPECT_EQ(error->Fault, OpenFault::Unreadable);
    EXPECT_EQ(error->Description, "Input/output error");
    ASSERT_LT(call, 100);
  }
}

TEST_F(KeptRun, IsReadInAnyPieces) {
  CountFile();
  KeepIt();
  for (const size_t piece : {1, 2, 3, 7, 64}) {
    world.World.Files.ReadInPiecesOf(piece);
    ASSERT_FALSE(world.Open()) << piece;
    EXPECT_EQ(world.Opened.Run.Table.PhraseCount(), world.Result.Run.Table.PhraseCount());
  }
}

TEST_F(KeptRun, CanBeStoppedWhileItIsOpenedAtAnyTurn) {
  CountFile();
  KeepIt();
  world.World.Files.ReadInPiecesOf(512);
  for (uint64_t call = 1;; ++call) {
    world.World.Yielder.ClearStop();
    world.World.Yielder.StopAtCall(call);
    const auto error = world.Open();
    if (!world.World.Yielder.Stopped()) {
      EXPECT_FALSE(error);
      EXPECT_GT(call, 5U);
      break;
    }
    ASSERT_TRUE(error) << call;
    EXPECT_EQ(error->Fault, OpenFault::Stopped) << call;
    EXPECT_FALSE(world.Opened.Chosen);
  }
}

}  // namespace
}  // namespace korv
