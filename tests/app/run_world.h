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
  void Status(const std::string& text) override { Statuses.push_back(text); }
  void Notice(const std::string& text) override { Notices.push_back(text); }
  void ClearOutput() override { Statuses.push_back("(cleared)"); }
  void InputFile(const std::string& path) override { InputFiles.push_back(path); }
  void Sizes(const std::string& fileSize, const std::string& textSize) override {
    ShownSizes.push_back(fileSize + "|" + textSize);
  }
  void FileKind(const std::string& text) override { FileKinds.push_back(text); }
  void TextProgress(const std::string& bar) override { Bars.push_back(bar); }
  std::optional<std::string> ChooseOutputFile() override {
    ++Choices;
    return ChosenOutput;
  }

  std::vector<std::string> Statuses;
  std::vector<std::string> Notices;
  std::vector<std::string> InputFiles;
  std::vector<std::string> ShownSizes;
  std::vector<std::string> FileKinds;
  std::vector<std::string> Bars;
  std::optional<std::string> ChosenOutput;
  int Choices = 0;
};

/// Bytes from memory in small pieces, as a pipe might give them.
class FakeStream final : public InputFile {
 public:
  explicit FakeStream(std::string bytes) : bytes_(std::move(bytes)) {}
  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    if (OnRead) OnRead();
    if (Fail) return FileError{FileFault::Other, "Input/output error"};
    const size_t count = std::min({buffer.size(), bytes_.size() - at_, size_t{1000}});
    std::memcpy(buffer.data(), bytes_.data() + at_, count);
    at_ += count;
    return count;
  }
  uint64_t Size() const override { return 0; }

  bool Fail = false;
  std::function<void()> OnRead;  ///< May be empty.

 private:
  std::string bytes_;
  size_t at_ = 0;
};

/// A run with everything around it faked.
struct RunWorld {
  FakeFiles Files;
  FakeMessages Messages;
  FakeYielder Yielder;
  FakeClock Clock;
  NumberFormat Numbers;
  EncodingChooser Encodings;
  FakeRunView View;
  RunProgress Progress;
  RunRequest Request;
  CountedRun Run;

  RunEnd Count() { return CountWith(Yielder); }
  RunEnd CountWith(korv::Yielder& yielder) {
    return RunCount(Request, {Messages, yielder, Files, Clock, Numbers, Encodings, View, Progress}, Run);
  }

  void UseFile(const std::string& path, std::string content) {
    Files.Add(path, std::move(content));
    Request.InputPath = path;
    Request.Options.SourceKind = TextSource::SingleFile;
  }
  void UseFolder(const std::string& path) {
    Request.InputPath = path;
    Request.Options.SourceKind = TextSource::Folder;
    Request.SeveralFilesNeedOutput = false;
  }
  void UseClipboard(std::string text) {
    Request.ClipboardText = std::move(text);
    Request.Options.SourceKind = TextSource::Clipboard;
  }
  void UseLengths(int least, int most, int frequency = 2) {
    Request.Options.MinWords = least;
    Request.Options.MaxWords = most;
    Request.Options.MinFrequency = frequency;
  }

  /// "2 big cat, 3 the cat": what is listed, by rank.
  std::string Listed() const {
    std::string text;
    for (PhraseIndex i = Run.Table.ChainHead(); i != kNoPhrase; i = Run.Table.ChainNext(i))
      text += (text.empty() ? "" : ", ") + std::to_string(Run.Table.Count(i)) + " " + Run.Table.Text(i);
    return text;
  }
};

}  // namespace korv
