#pragma once

#include <functional>
#include <utility>

#include "app/run/run_clock.h"
#include "app/run/run_observer.h"
#include "desktop/main_window/main_panels.h"

namespace korv {

/// Shows the progress of a run in the panels.
class RunDisplay final : public RunObserver {
 public:
  /// `first` is called before a count's first status is shown. The others have to outlive this.
  RunDisplay(const MainPanels& panels, RunClock& clock, std::function<void()> first)
      : panels_(panels), clock_(clock), first_(std::move(first)) {}

  /// A count begins.
  void Begin() { shown_ = false; }
  /// The count has shown a status.
  bool ShownAnything() const { return shown_; }

  void Status(const std::string& text) override;
  void Notice(const std::string& text) override;
  void ClearOutput() override;
  void InputFile(const std::string& path) override;
  void Sizes(const std::string& fileSize, const std::string& textSize) override;
  void FileKind(const std::string& text) override;
  void TextProgress(const std::string& bar) override;
  std::optional<std::string> ChooseOutputFile() override;

 private:
  const MainPanels& panels_;
  RunClock& clock_;
  std::function<void()> first_;
  bool shown_ = false;
};

}  // namespace korv
