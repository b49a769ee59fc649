#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/run/run.h"
#include "base/yielder.h"
#include "report/columns/column.h"

namespace korv {

/// What the values of a table depend on, beside the run.
struct ValueChoice {
  PartChoice Parts;  ///< Over which phrases are spread.
  // Of a run that compares.
  ComparisonBasis ComparedBy = ComparisonBasis::Words;
  double SimpleMathsK = 1;

  bool operator==(const ValueChoice&) const = default;
};

/// A finished run prepared for the columns of a table. Data: any thread may read it.
class TableSource {
 public:
  /// Prepares ranks, which costs a moment for any run. Null when stopped. `run` is not null.
  static std::shared_ptr<const TableSource> Of(std::shared_ptr<const CountedRun> run, Yielder& yielder);
  /// The same run with what `needs` asks for, too, for values by `choice`. Null when stopped.
  std::shared_ptr<const TableSource> With(const AnalysisNeeds& needs, const ValueChoice& choice,
                                          Yielder& yielder) const;

  const CountedRun& Run() const { return *base_->Run; }
  const std::shared_ptr<const CountedRun>& SharedRun() const { return base_->Run; }
  const PhraseTable& Table() const { return base_->Run->Table; }
  /// Whether all the text is one file. Then there is nothing to say about files.
  bool IsOneFile() const { return base_->FilesWithWords <= 1; }
  uint64_t FilesWithWords() const { return base_->FilesWithWords; }
  /// Whether what the needs ask for has been prepared.
  bool Has(const AnalysisNeeds& needs) const;
  const ValueChoice& Choice() const { return choice_; }
  ColumnSource View() const;
  /// The value that `column` has for an entry; a text of it lives as long as `text`, which is used for it.
  Cell ValueOf(const Column& column, PhraseIndex entry, std::string& text) const;

 private:
  struct Base {
    std::shared_ptr<const CountedRun> Run;
    std::vector<PhraseRank> Ranks;
    uint64_t FilesWithWords = 0;
  };

  explicit TableSource(std::shared_ptr<const Base> base) : base_(std::move(base)) {}

  std::shared_ptr<const Base> base_;
  std::shared_ptr<const PhraseAnalysis> analysis_;  ///< Null where nothing was needed.
  AnalysisNeeds prepared_;
  ValueChoice choice_;
};

}  // namespace korv
