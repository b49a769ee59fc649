#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "app/run/run_observer.h"
#include "base/loop_calls.h"

namespace korv {

/// What a run on a worker tells a window. Keeps what was told until the window's thread takes it: of the file
/// that is being read, its size and its kind only the last, so that a folder of many small files does not
/// drown the window. Tells them in the order in which they came.
class RunUpdates final : public RunObserver {
 public:
  /// `window` is used on the thread of `calls`; both outlive this.
  RunUpdates(LoopCalls& calls, RunObserver& window) : calls_(calls), window_(window) {}

  // On the worker. What goes into the text box is on its way at once, the rest with the next Flush().
  void Status(const std::string& text) override { Add({Kind::Status, text, {}}); }
  void Notice(const std::string& text) override { Add({Kind::Notice, text, {}}); }
  void ClearOutput() override { Add({Kind::ClearOutput, {}, {}}); }
  void InputFile(const std::string& path) override { Replace({Kind::InputFile, path, {}}); }
  void Sizes(const std::string& fileSize, const std::string& textSize) override {
    Replace({Kind::Sizes, fileSize, textSize});
  }
  void FileKind(const std::string& text) override { Replace({Kind::FileKind, text, {}}); }
  void TextProgress(const std::string& bar) override { Replace({Kind::TextProgress, bar, {}}); }
  std::optional<std::string> ChooseOutputFile() override;

  /// Has the window's thread take what is here. Cheap when there is nothing.
  void Flush();

 private:
  enum class Kind { Status, Notice, ClearOutput, InputFile, Sizes, FileKind, TextProgress };
  struct Update {
    Kind What;
    std::string Text;
    std::string Second;
  };

  void Add(Update update);
  void Replace(Update update);
  void Deliver();
  void Tell(const Update& update);

  LoopCalls& calls_;
  RunObserver& window_;
  std::mutex mutex_;
  std::vector<Update> updates_;
  bool onItsWay_ = false;  ///< Deliver() has been posted and has not begun.
};

}  // namespace korv
