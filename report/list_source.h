#pragma once

#include <span>
#include <string>
#include <vector>

#include "report/columns/column.h"
#include "report/report.h"

namespace korv {

/// How many files of a counted run have a word that was taken. A single file and the clipboard are one;
/// of counts no file is known.
uint64_t FilesWithWords(const PhraseTable& table, const RunSummary& facts);

/// Prepares what the columns of a list read of a report, and nothing that none of them reads. Outlives the
/// listing; the report outlives it.
class ListSource {
 public:
  ListSource(const Report& report, std::span<const Column* const> columns, const ListExtent& extent);
  ListSource(const ListSource&) = delete;
  ListSource& operator=(const ListSource&) = delete;

  /// Prepares the analysis and the ranks that the columns need, which View() has from then on. Call it before
  /// that. False when stopped.
  bool Prepare(Yielder& yielder);

  const ColumnSource& View() const { return view_; }

 private:
  AnalysisNeeds needs_;
  bool needsRanks_ = false;
  PhraseAnalysis analysis_;
  std::vector<std::string> filePaths_;
  std::vector<std::string> sourcePaths_;
  std::vector<PhraseRank> frequencyRanks_;
  ColumnSource view_;
};

}  // namespace korv
