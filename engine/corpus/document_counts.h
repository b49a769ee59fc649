#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/corpus/indices.h"

namespace korv {

/// How often a phrase occurs in each document of a folder run, within two limits that reports rely on.
class DocumentCounts {
 public:
  static constexpr uint32_t kMostFiles = 10000;
  static constexpr uint32_t kMostPerFile = 99999;

  struct Item {
    DocumentNumber Document;
    uint32_t Count;  ///< 1..kMostPerFile. Further occurrences are not counted.
    bool operator==(const Item&) const = default;
  };

  /// Counts one occurrence. Calls come in reading order. When kMostFiles documents have been counted, further
  /// calls have no effect, not even those for the last document.
  void Add(DocumentNumber document);

  uint32_t FileCount() const { return static_cast<uint32_t>(items_.size()); }
  const std::vector<Item>& Items() const { return items_; }

  /// The numbers of the documents, five digits each.
  std::string FileNumbers() const;
  /// The counts, five digits each, parallel to FileNumbers().
  std::string FileCounts() const;

 private:
  std::vector<Item> items_;
};

}  // namespace korv
