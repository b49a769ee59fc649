#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/run/run.h"
#include "base/yielder.h"
#include "report/columns/column.h"

namespace korv {

/// A finished run prepared for the columns of a table. Data: any thread may read it.
class TableSource {
 public:
  /// Prepares ranks and paths, which costs a moment for any run. Null when stopped. `run` is not null.
  static std::shared_ptr<const TableSource> Of(std::shared_ptr<const CountedRun> run, Yielder& yielder);

  const CountedRun& Run() const { return *run_; }
  const PhraseTable& Table() const { return run_->Table; }
  /// Whether all the text is one file. Then there is nothing to say about files.
  bool IsOneFile() const { return filesWithWords_ <= 1; }
  ColumnSource View() const;
  /// The value that `column` has for an entry; a text of it lives as long as `text`, which is used for it.
  Cell ValueOf(const Column& column, PhraseIndex entry, std::string& text) const;

 private:
  explicit TableSource(std::shared_ptr<const CountedRun> run) : run_(std::move(run)) {}

  std::shared_ptr<const CountedRun> run_;
  std::vector<std::string> sourcePaths_;
  std::vector<PhraseRank> ranks_;
  uint64_t filesWithWords_ = 0;
};

}  // namespace korv
