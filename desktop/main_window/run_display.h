#pragma once

#include <functional>

#include "app/run/run_clock.h"
#include "app/run/run_observer.h"
#include "desktop/main_window/main_panels.h"

namespace korv {

/// Shows what a run tells of itself in the panels.
class RunDisplay final : public RunObserver {
 public:
  /// `beforeStatus` is called before a status is shown. The others have to outlive this.
  RunDisplay(const MainPanels& panels, RunClock& clock, std::function<void()> beforeStatus)
      : panels_(panels), clock_(clock), beforeStatus_(std::move(beforeStatus)) {}

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
  std::function<void()> beforeStatus_;
};

}  // namespace korv
