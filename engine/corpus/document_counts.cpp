#include "engine/corpus/document_counts.h"

#include <fmt/format.h>

#include <iterator>

namespace korv {

void DocumentCounts::Add(DocumentNumber document) {
  if (items_.size() == kMostFiles) return;
  if (items_.empty() || items_.back().Document != document)
    items_.push_back({document, 1});
  else if (items_.back().Count < kMostPerFile)
    ++items_.back().Count;
}

std::string DocumentCounts::FileNumbers() const {
  std::string digits;
  for (const Item& item : items_) fmt::format_to(std::back_inserter(digits), "{:05}", ValueOf(item.Document));
  return digits;
}

std::string DocumentCounts::FileCounts() const {
  std::string digits;
  for (const Item& item : items_) fmt::format_to(std::back_inserter(digits), "{:05}", item.Count);
  return digits;
}

}  // namespace korv
