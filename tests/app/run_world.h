#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/run/run.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_yielder.h"

namespace korv {

/// Remembers what a run shows.
class FakeRunView final : public RunObserver {
 public:
  void Status(const std::string& text) override { statuses.push_back(text); }
  void Notice(const std::string& text) override { notices.push_back(text); }
  void ClearOutput() override { statuses.push_back("(cleared)"); }
  void InputFile(const std::string& path) override { inputFiles.push_back(path); }
  void Sizes(const std::string& fileSize, const std::string& textSize) override {
    sizes.push_back(fileSize + "|" + textSize);
  }
  void FileKind(const std::string& text) override { fileKinds.push_back(text); }
  void TextProgress(const std::string& bar) override { bars.push_back(bar); }
  std::optional<std::string> ChooseOutputFile() override {
    ++choices;
    return chosenOutput;
  }

  std::vector<std::string> statuses;
  std::vector<std::string> notices;
  std::vector<std::string> inputFiles;
  std::vector<std::string> sizes;
  std::vector<std::string> fileKinds;
  std::vector<std::string> bars;
  std::optional<std::string> chosenOutput;
  int choices = 0;
};

/// Bytes from memory in small pieces, as a pipe might give them.
class FakeStream final : public InputFile {
 public:
  explicit FakeStream(std::string bytes) : bytes_(std::move(bytes)) {}
  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    if (onRead) onRead();
    if (fail) return FileError{FileFault::Other, "Input/output error"};
    const size_t count = std::min({buffer.size(), bytes_.size() - at_, size_t{1000}});
    std::memcpy(buffer.data(), bytes_.data() + at_, count);
    at_ += count;
    return count;
  }
  uint64_t Size() const override { return 0; }

  bool fail = false;
  std::function<void()> onRead;  ///< May be empty.

 private:
  std::string bytes_;
  size_t at_ = 0;
};

/// A run with everything around it faked.
struct RunWorld {
  FakeFiles files;
  FakeMessages messages;
  FakeYielder yielder;
  FakeClock clock;
  NumberFormat numbers;
  EncodingChooser encodings;
  FakeRunView view;
  RunProgress progress;
  RunRequest request;
  CountedRun run;

  RunEnd Count() {
    return RunCount(request, {messages, yielder, files, clock, numbers, encodings, view, progress}, run);
  }

  void UseFile(const std::string& path, std::string content) {
    files.Add(path, std::move(content));
    request.InputPath = path;
    request.Options.SourceKind = TextSource::SingleFile;
  }
  void UseFolder(const std::string& path) {
    request.InputPath = path;
    request.Options.SourceKind = TextSource::Folder;
    request.SeveralFilesNeedOutput = false;
  }
  void UseClipboard(std::string text) {
    request.ClipboardText = std::move(text);
    request.Options.SourceKind = TextSource::Clipboard;
  }
  void UseLengths(int least, int most, int frequency = 2) {
    request.Options.MinWords = least;
    request.Options.MaxWords = most;
    request.Options.MinFrequency = frequency;
  }

  /// "2 big cat, 3 the cat": what is listed, by rank.
  std::string Listed() const {
    std::string text;
    for (PhraseIndex i = run.Table.ChainHead(); i != 0; i = run.Table.ChainNext(i))
      text += (text.empty() ? "" : ", ") + std::to_string(run.Table.Count(i)) + " " + run.Table.Text(i);
    return text;
  }
};

}  // namespace korv
