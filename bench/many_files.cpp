// A folder of 100,000 small files against one file of the same text: walking alone, walking and classifying,
// and all of it down to the words. The text is the same, so the bytes per second may be compared.
//     bench_many_files

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "base/yielder.h"
#include "bench/made_text.h"
#include "engine/text/word_rules.h"
#include "platform/files.h"
#include "sources/detect/classification.h"
#include "sources/detect/comment_markers.h"
#include "sources/folders/folder_walk.h"
#include "sources/read/text_reader.h"
#include "sources/scan/line_scanner.h"

namespace {

namespace fs = std::filesystem;
using namespace korv;

constexpr size_t kFiles = 100'000;
constexpr size_t kFilesPerFolder = 500;

// A folder with the files, and beside it the one file; removed at the end of the program.
class TextOnDisk {
 public:
  TextOnDisk() : root_(*files_->CreatePrivateTemporaryFolder()) {
    const std::string text = bench::MadeText(15'000'000).AsPlainText();
    std::ofstream(OneFile(), std::ios::binary) << text;
    const size_t each = text.size() / kFiles;
    for (size_t k = 0; k < kFiles; ++k) {
      const fs::path folder = Folder() / std::to_string(k / kFilesPerFolder);
      if (k % kFilesPerFolder == 0) fs::create_directories(folder);
      std::ofstream(folder / (std::to_string(k) + ".txt"), std::ios::binary)
          << std::string_view(text).substr(k * each, each);
    }
    bytes_ = kFiles * each;
  }
  ~TextOnDisk() {
    std::error_code code;
    fs::remove_all(root_, code);
  }

  fs::path Folder() const { return root_ / "many"; }
  fs::path OneFile() const { return root_ / "one.txt"; }
  size_t Bytes() const { return bytes_; }
  FileSystem& Files() const { return *files_; }

 private:
  std::unique_ptr<FileSystem> files_ = MakeSystemFiles();
  fs::path root_;
  size_t bytes_ = 0;
};

TextOnDisk& Disk() {
  static TextOnDisk disk;
  return disk;
}

struct CountingSink final : WordSink {
  void TakeWord(std::string_view) override { ++Words; }
  void ResetPhrases() override {}
  size_t Words = 0;
};

void ReadWords(OpenedText source, const WordRules& rules, CountingSink& sink) {
  TextReader reader(std::move(source.Head), source.File.get(), TextEncoding::Ansi);
  CommentMarkers markers;
  LineScanner<WordSink> scanner(rules, markers, sink);
  scanner.BeginSource();
  while (reader.NextLine()) scanner.ScanLine(reader.Line(), reader.StartsLine());
}

template <typename EachFile>
void WalkWith(benchmark::State& state, EachFile eachFile) {
  NoYielder yielder;
  Disk();
  for (auto _ : state) {
    FolderWalk walk(Disk().Files(), yielder, {}, true);
    FolderEvents events;
    events.Wanted = eachFile;
    const FolderTotals totals = walk.ProcessFolder(Disk().Folder(), WalkMode::Reading, events);
    if (totals.Files != kFiles) state.SkipWithError("the walk missed files");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(Disk().Bytes()));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kFiles));
}

WordRules Rules() {
  WordRules rules;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  return rules;
}

void Walk(benchmark::State& state) {
  WalkWith(state, [](const fs::path&) {});
}

void WalkAndClassify(benchmark::State& state) {
  WalkWith(state, [](const fs::path& path) {
    benchmark::DoNotOptimize(OpenTextSource(Disk().Files(), path, kRunThreshold).Facts.Code);
  });
}

void WalkAndReadWords(benchmark::State& state) {
  CountingSink sink;
  const WordRules rules = Rules();
  WalkWith(state, [&](const fs::path& path) {
    ReadWords(OpenTextSource(Disk().Files(), path, kRunThreshold), rules, sink);
  });
}

void OneFileReadWords(benchmark::State& state) {
  CountingSink sink;
  const WordRules rules = Rules();
  for (auto _ : state)
    ReadWords(OpenTextSource(Disk().Files(), Disk().OneFile(), kRunThreshold), rules, sink);
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(Disk().Bytes()));
}

BENCHMARK(Walk)->Unit(benchmark::kMillisecond);
BENCHMARK(WalkAndClassify)->Unit(benchmark::kMillisecond);
BENCHMARK(WalkAndReadWords)->Unit(benchmark::kMillisecond);
BENCHMARK(OneFileReadWords)->Unit(benchmark::kMillisecond);

}  // namespace
