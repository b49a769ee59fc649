#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/launcher.h"

namespace korv {

/// File and folder choosers that are answered beforehand, in order, and remember what they were asked. One
/// without an answer is cancelled.
class FakeDialogs final : public Dialogs {
 public:
  void WillChoose(std::optional<std::string> path) { answers_.push_back(std::move(path)); }

  std::optional<std::string> ChooseFileToOpen(const FileChoice& choice) override {
    Opened.push_back(choice);
    return Next();
  }
  std::optional<std::string> ChooseFileToSave(const FileChoice& choice) override {
    Saved.push_back(choice);
    return Next();
  }
  std::optional<std::string> ChooseFolder(const std::string& title, const std::string&) override {
    FolderTitles.push_back(title);
    return Next();
  }

  std::vector<FileChoice> Opened;
  std::vector<FileChoice> Saved;
  std::vector<std::string> FolderTitles;

 private:
  std::optional<std::string> Next() {
    if (answers_.empty()) return std::nullopt;
    auto answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  std::deque<std::optional<std::string>> answers_;
};

class FakeClipboard final : public Clipboard {
 public:
  std::string Text() const override { return Content; }
  std::string Content;
};

/// Launches nothing, and says what it was told to say.
class FakeLauncher final : public Launcher {
 public:
  LaunchResult Open(const std::string& target) override {
    Opened.push_back(target);
    return Result;
  }
  bool OpenClipboardViewer() override {
    ++ViewersAsked;
    return HasViewer;
  }

  LaunchResult Result;
  bool HasViewer = false;
  std::vector<std::string> Opened;
  int ViewersAsked = 0;
};

}  // namespace korv
