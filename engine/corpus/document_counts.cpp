#include "engine/corpus/document_counts.h"

#include <fmt/format.h>

#include <iterator>

namespace korv {

void DocumentCounts::Add(uint32_t fileNumber) {
  if (tallies_.size() == kMostFiles) return;
  if (tallies_.empty() || tallies_.back().FileNumber != fileNumber)
    tallies_.push_back({fileNumber, 1});
  else if (tallies_.back().Count < kMostPerFile)
    ++tallies_.back().Count;
}

std::string DocumentCounts::FileNumbers() const {
  std::string digits;
  for (const Tally& t : tallies_) fmt::format_to(std::back_inserter(digits), "{:05}", t.FileNumber);
  return digits;
}

std::string DocumentCounts::FileCounts() const {
  std::string digits;
  for (const Tally& t : tallies_) fmt::format_to(std::back_inserter(digits), "{:05}", t.Count);
  return digits;
}

}  // namespace korv
