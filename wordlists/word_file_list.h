#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/messages.h"
#include "wordlists/list_kind.h"

namespace korv {

/// The list of word-list files that the user chose (`CB_Man` keeps it): full paths, UTF-8, at most
/// kMostFiles of them, one of them selected.
class WordFileList {
 public:
  static constexpr size_t kMostFiles = 99;
  static constexpr int kNone = -1;

  explicit WordFileList(ListKind kind, bool sorted = false) : kind_(kind), sorted_(sorted) {}

  ListKind Kind() const { return kind_; }
  const std::vector<std::string>& Paths() const { return paths_; }
  /// Index of the selected path, or kNone.
  int Selected() const { return selected_; }
  /// Empty when none is selected.
  std::string SelectedPath() const;
  /// An index outside the list selects none.
  void Select(int index);

  /// Whether another file may be added; if not, says so.
  bool MayGrow(Messages& messages) const;
  /// Adds `path` (trimmed) on top, or at its place in a sorted list, and selects it. Refuses an empty path
  /// in silence, one that is listed already (case aside) and the 100th with a message.
  bool Add(std::string_view path, Messages& messages);
  /// The same, but selects a listed path without a word.
  bool AddOrSelect(std::string_view path, Messages& messages);
  void RemoveSelected();
  void Clear();
  /// Asks first; true when the list is empty now, and its loaded words are to be forgotten.
  bool AskToClear(Messages& messages);
  /// Takes over a saved list; paths beyond the 99th are dropped.
  void Restore(std::vector<std::string> paths, int selected);

 private:
  int Find(std::string_view path) const;

  ListKind kind_;
  bool sorted_;
  std::vector<std::string> paths_;
  int selected_ = kNone;
};

}  // namespace korv
