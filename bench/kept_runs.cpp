// What keeping a run and opening it again cost, beside counting it, all in one process: the settings are
// those of the window, with places kept.
//     bench_kept_runs [TEXT]      without a text some 20 MB of a made one
// Prints bytes and seconds, the best of three.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "app/contexts/quiet_messages.h"
#include "app/kept/keep_run.h"
#include "app/kept/kept_choice.h"
#include "app/kept/open_kept_run.h"
#include "bench/made_text.h"

namespace {

using namespace korv;

class SilentObserver final : public RunObserver {
 public:
  void Status(const std::string&) override {}
  void Notice(const std::string&) override {}
  void ClearOutput() override {}
  void InputFile(const std::string&) override {}
  void Sizes(const std::string&, const std::string&) override {}
  void FileKind(const std::string&) override {}
  void TextProgress(const std::string&) override {}
  std::optional<std::string> ChooseOutputFile() override { return std::nullopt; }
};

/// The seconds of the fastest of three runs of `work`.
template <typename Work>
double Best(const Work& work) {
  double best = std::numeric_limits<double>::max();
  for (int k = 0; k < 3; ++k) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
  }
  return best;
}

class KeptRunsBench {
 public:
  KeptRunsBench(FileSystem& files, std::filesystem::path text, std::filesystem::path kept)
      : files_(files), text_(std::move(text)), kept_(std::move(kept)) {}

  bool Measure(int minWords, int maxWords, int minFrequency) {
    Settings settings;
    settings.InputFile = PathToText(text_);
    settings.MinWords = minWords;
    settings.MaxWords = maxWords;
    settings.MinFrequency = minFrequency;
    const Workspace work(settings);
    const KeptChoice choice{.Chosen = work.Keep()};
    bool fine = true;
    const double counting = Best([&] { fine = fine && Count(choice); });
    uint64_t bytes = 0;
    const double keeping = Best([&] {
      const auto written = KeepRun(ToKeep(*run_), kept_, {files_, yielder_, progress_});
      fine = fine && written;
      if (written) bytes = *written;
    });
    const uint64_t phrases = run_->Run.Table.EntryCount();
    const double opening = Best([&] {
      fine = fine && !OpenKeptRun(kept_, {files_, yielder_, progress_}, *run_);
    });
    if (!fine || run_->Run.Table.EntryCount() != phrases) return false;
    std::printf(
        "%2d to %2d words, from %d: %9llu words, %8llu entries; file %6.1f MB; counted %.3f s, kept %.3f s, "
        "opened %.3f s\n",
        minWords, maxWords, minFrequency, static_cast<unsigned long long>(run_->Run.Facts.Words.Taken),
        static_cast<unsigned long long>(phrases), static_cast<double>(bytes) / 1e6, counting, keeping,
        opening);
    return true;
  }

 private:
  bool Count(const KeptChoice& choice) {
    run_ = std::make_unique<ShownResult>();
    run_->Request = RequestOf(choice);
    run_->Chosen = choice.Chosen;
    EncodingChooser encodings(EncodingChoice::Utf8);
    RunProgress progress;
    const SystemClock clock;
    const NumberFormat numbers;
    return RunCount(run_->Request,
                    {.Messages = messages_,
                     .Yielder = yielder_,
                     .Files = files_,
                     .Clock = clock,
                     .Numbers = numbers,
                     .Encodings = encodings,
                     .View = observer_,
                     .Progress = progress},
                    run_->Run) == RunEnd::Counted;
  }

  FileSystem& files_;
  std::filesystem::path text_;
  std::filesystem::path kept_;
  QuietMessages messages_;
  SilentObserver observer_;
  NoYielder yielder_;
  KeptProgress progress_;
  std::unique_ptr<ShownResult> run_ = std::make_unique<ShownResult>();
};

}  // namespace

int main(int argc, char** argv) {
  const std::unique_ptr<FileSystem> files = MakeSystemFiles();
  const auto folder = files->CreatePrivateTemporaryFolder();
  if (!folder) return 1;
  std::filesystem::path text = *folder / "made.txt";
  if (argc > 1)
    text = argv[1];
  else
    std::ofstream(text, std::ios::binary) << bench::MadeText(3'000'000).AsPlainText();
  std::printf("text: %.1f MB\n", static_cast<double>(std::filesystem::file_size(text)) / 1e6);
  KeptRunsBench bench(*files, text, *folder / "run.korvrun");
  const bool fine = bench.Measure(4, 6, 2) && bench.Measure(2, 25, 2) && bench.Measure(2, 25, 1);
  std::error_code code;
  std::filesystem::remove_all(*folder, code);
  if (!fine) std::fprintf(stderr, "something was refused\n");
  return fine ? 0 : 1;
}
