#pragma once

#include <functional>
#include <memory>

#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/table/copied_rows.h"

namespace korv {

/// Copies rows of a table to the clipboard, as text and as a table. They are made beside the window; the last
/// ones that were asked for are those that the clipboard gets.
class RowCopier {
 public:
  /// The desktop outlives this.
  explicit RowCopier(const Desktop& desktop) : desktop_(desktop), job_(desktop.Loop) {}

  static constexpr uint64_t kMostUnasked = 200'000;
  /// The user would rather export the table. Not offered where it is not set.
  std::function<void()> ExportWanted;
  /// Asks before it copies more rows than those. No source or no row: nothing happens.
  void Copy(std::shared_ptr<const TableSource> source, CopyRequest request);
  bool Idle() const { return job_.Idle(); }

 private:
  bool Confirm(CopyRequest& request);

  const Desktop& desktop_;
  NewestJob job_;
};

}  // namespace korv
