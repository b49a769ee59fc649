#pragma once

#include <ostream>
#include <string>

#include "app/run/run_observer.h"
#include "base/number_format.h"
#include "engine/counting/phrase_table.h"
#include "platform/console/progress_line.h"

namespace korv {

/// What korv-count shows of a run: progress, and notices.
class CountView final : public RunObserver {
 public:
  /// `table` is the run's own. Notices are left out when `quiet`.
  CountView(std::ostream& err, ProgressLine& line, const RunProgress& progress, const PhraseTable& table,
            const NumberFormat& numbers, bool quiet)
      : err_(err), line_(line), progress_(progress), table_(table), numbers_(numbers), quiet_(quiet) {}

  /// Brings the progress line up to date, when that is due.
  void ShowProgress();

  void Status(const std::string&) override {}
  void Notice(const std::string& text) override;
  void ClearOutput() override {}
  void InputFile(const std::string&) override {}
  void Sizes(const std::string&, const std::string&) override {}
  void FileKind(const std::string&) override {}
  void TextProgress(const std::string&) override {}
  std::optional<std::string> ChooseOutputFile() override { return std::nullopt; }

 private:
  std::string ProgressText() const;

  std::ostream& err_;
  ProgressLine& line_;
  const RunProgress& progress_;
  const PhraseTable& table_;
  const NumberFormat& numbers_;
  bool quiet_;
};

}  // namespace korv
