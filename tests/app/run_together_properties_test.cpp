// Several files and folders, some met more than once, against the naive model of a run over their files.

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "engine/corpus/corpus.h"
#include "tests/app/run_world.h"
#include "tests/reference/naive_places.h"
#include "tests/reference/naive_run.h"

namespace korv {
namespace {

namespace fs = std::filesystem;
using Kind = SourcePath::Kind;

/// Folders above and below each other.
const std::vector<std::string> kFolders = {"/t", "/t/x", "/t/x/deep", "/u"};

std::string DrawText() {
  const std::vector<std::string> pieces = {"cat ", "dog ", "sat ", "a ", "\n", ". "};
  std::string text = "words ";
  for (const std::string& piece : *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces)))
    text += piece;
  return text;
}

std::map<fs::path, std::string> DrawFiles() {
  std::map<fs::path, std::string> files;
  const int count = *rc::gen::inRange(1, 7);
  for (int k = 0; k < count; ++k)
    files[fs::path(*rc::gen::elementOf(kFolders)) / ("f" + std::to_string(k) + ".txt")] = DrawText();
  return files;
}

std::vector<SourcePath> DrawPaths(const std::map<fs::path, std::string>& files) {
  std::vector<SourcePath> paths;
  const int count = *rc::gen::inRange(1, 7);
  for (int k = 0; k < count; ++k) {
    if (*rc::gen::inRange(0, 3) == 0) {
      paths.push_back({*rc::gen::elementOf(kFolders), Kind::Folder});
      continue;
    }
    auto file = files.begin();
    std::advance(file, *rc::gen::inRange<int>(0, static_cast<int>(files.size())));
    paths.push_back({PathToText(file->first), Kind::File});
  }
  return paths;
}

/// The files in the order of a walk: those of a folder before those of its subfolders.
std::vector<fs::path> FilesBelow(const std::map<fs::path, std::string>& files, const fs::path& folder,
                                 bool subfolders, std::set<fs::path>& entered) {
  entered.insert(folder);
  std::vector<fs::path> found;
  for (const auto& [path, text] : files)
    if (path.parent_path() == folder) found.push_back(path);
  for (const std::string& below : kFolders) {
    if (!subfolders || fs::path(below).parent_path() != folder) continue;
    const std::vector<fs::path> deeper = FilesBelow(files, below, true, entered);
    found.insert(found.end(), deeper.begin(), deeper.end());
  }
  return found;
}

struct Expectation {
  std::vector<fs::path> Files;
  std::set<fs::path> Folders;
};

Expectation ExpectedOf(const std::map<fs::path, std::string>& files, const std::vector<SourcePath>& paths,
                       bool subfolders) {
  Expectation expected;
  for (const SourcePath& source : paths) {
    std::vector<fs::path> named = {source.Path};
    if (source.What == Kind::Folder)
      named = FilesBelow(files, source.Path, subfolders, expected.Folders);
    else
      expected.Folders.insert(named.front().parent_path());
    for (const fs::path& file : named)
      if (std::find(expected.Files.begin(), expected.Files.end(), file) == expected.Files.end())
        expected.Files.push_back(file);
  }
  return expected;
}

/// "cat sat 3 /t/a.txt", sorted: what is listed, its count and in which files.
using Phrases = std::multiset<std::string>;

Phrases ListedBy(const RunWorld& world) {
  Phrases phrases;
  const PhraseTable& table = world.Run.Table;
  for (PhraseIndex i = table.ChainHead(); i != kNoPhrase; i = table.ChainNext(i)) {
    std::set<std::string> files;
    for (const Place place : table.Places(i))
      files.insert(table.Corpus().Sources[table.Corpus().SourceAt(place)].Path.generic_string());
    std::string text = table.Text(i) + " " + std::to_string(table.Count(i));
    for (const std::string& file : files) text += " " + file;
    phrases.insert(text);
  }
  return phrases;
}

Phrases ListedByModel(const RunWorld& world, const std::map<fs::path, std::string>& files,
                      const std::vector<fs::path>& read) {
  WordRules rules = world.Request.Rules;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  reference::CountingRun run(rules, world.Request.Options, {});
  for (const fs::path& path : read) {
    run.BeginSource(path.generic_string());
    for (const reference::WordPlace& place : reference::PlacesOfWords(files.at(path), true, rules, ""))
      place.Word.empty() ? run.ResetPhrases() : run.TakeWord(place.Word);
  }
  run.Finish();
  constexpr size_t kDigits = 5;
  Phrases phrases;
  const reference::Table& table = run.Phrases();
  for (int32_t i = 1; i <= table.PhraseCount; ++i) {
    if (!table[i].Listed) continue;
    std::string text = table[i].Text + " " + std::to_string(table[i].Count);
    std::set<std::string> in;
    for (size_t at = 0; at < table[i].FileNumbers.size(); at += kDigits)
      in.insert(table.FilePaths[std::stoul(table[i].FileNumbers.substr(at, kDigits))]);
    for (const std::string& file : in) text += " " + file;
    phrases.insert(text);
  }
  return phrases;
}

void UseFiles(RunWorld& world, const std::map<fs::path, std::string>& files) {
  for (const std::string& folder : kFolders) world.Files.AddFolder(folder);
  for (const auto& [path, text] : files) world.Files.Add(path, text);
  world.UseFolder("/t");
  world.UseLengths(2, 4);
  world.Request.Options.KeepPlaces = true;
}

RC_GTEST_PROP(RunTogether, FindsWhatTheNaiveModelFindsInTheFilesOnceEach, ()) {
  const auto files = DrawFiles();
  RunWorld world;
  UseFiles(world, files);
  world.Request.Paths = DrawPaths(files);
  world.Request.IncludeSubfolders = *rc::gen::arbitrary<bool>();
  const Expectation expected = ExpectedOf(files, world.Request.Paths, world.Request.IncludeSubfolders);
  const RunEnd end = world.Count();
  RC_ASSERT((end == RunEnd::Counted) == !expected.Files.empty());
  if (end != RunEnd::Counted) return;
  RC_ASSERT(world.Run.Facts.FilesScanned == expected.Files.size());
  RC_ASSERT(world.Run.Facts.FoldersScanned == expected.Folders.size());
  RC_ASSERT(ListedBy(world) == ListedByModel(world, files, expected.Files));
}

RC_GTEST_PROP(RunTogether, AListOfTheFilesOfAFolderIsThatFolder, ()) {
  auto files = DrawFiles();
  files["/t/first.txt"] = DrawText();
  RunWorld folder;
  UseFiles(folder, files);
  folder.Request.IncludeSubfolders = true;
  RC_ASSERT(folder.Count() == RunEnd::Counted);
  std::set<fs::path> entered;
  RunWorld list;
  UseFiles(list, files);
  for (const fs::path& file : FilesBelow(files, "/t", true, entered))
    list.Request.Paths.push_back({PathToText(file), Kind::File});
  RC_ASSERT(list.Count() == RunEnd::Counted);
  RC_ASSERT(list.Run.Facts.FilesScanned == folder.Run.Facts.FilesScanned);
  RC_ASSERT(list.Listed() == folder.Listed());
  RC_ASSERT(ListedBy(list) == ListedBy(folder));
}

}  // namespace
}  // namespace korv
