#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/corpus/indices.h"

namespace korv {

/// In which files a phrase occurs and how often in each, with the two limits that reports rely on.
class DocumentCounts {
 public:
  static constexpr uint32_t kMostFiles = 10000;
  static constexpr uint32_t kMostPerFile = 99999;

  struct Item {
    DocumentNumber Document;
    uint32_t Count;  ///< 1..kMostPerFile; further occurrences are not recorded.
    bool operator==(const Item&) const = default;
  };

  /// One occurrence in a file; calls come in reading order. From the moment kMostFiles files are recorded
  /// nothing more is, not even for the last of them.
  void Add(DocumentNumber document);

  uint32_t FileCount() const { return static_cast<uint32_t>(items_.size()); }
  const std::vector<Item>& Items() const { return items_; }

  /// The file numbers, five digits each.
  std::string FileNumbers() const;
  /// The counts, five digits each, parallel to FileNumbers().
  std::string FileCounts() const;

 private:
  std::vector<Item> items_;
};

}  // namespace korv
