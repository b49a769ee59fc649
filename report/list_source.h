#pragma once

#include <span>
#include <string>
#include <vector>

#include "report/columns/column.h"
#include "report/report.h"

namespace korv {

/// A report as the columns of a list need it, and nothing that they do not need. Outlives the listing, and
/// the report outlives it.
class ListSource {
 public:
  ListSource(const Report& report, std::span<const Column* const> columns, const ListExtent& extent);
  ListSource(const ListSource&) = delete;
  ListSource& operator=(const ListSource&) = delete;

  const ColumnSource& View() const { return view_; }

 private:
  std::vector<std::string> filePaths_;
  std::vector<std::string> sourcePaths_;
  std::vector<PhraseRank> frequencyRanks_;
  ColumnSource view_;
};

}  // namespace korv
