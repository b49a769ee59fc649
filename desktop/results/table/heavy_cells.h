#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

#include "base/newest_job.h"
#include "desktop/results/table/table_source.h"

namespace korv {

/// Cells that cost a look at many occurrences: they are found beside the window and kept. There are few,
/// since a text has few phrases that occur so often.
class HeavyCells {
 public:
  /// `came` is called on the loop's thread when some have been found.
  HeavyCells(EventLoop& loop, std::function<void()> came) : came_(std::move(came)), loop_(loop), job_(loop) {}

  /// Whether the value of `column` for the entry belongs here.
  static bool Holds(const TableSource& source, const Column& column, PhraseIndex entry);

  /// From here on cells are those of this source; null for none. Values of the same run under another source
  /// stay until theirs are found.
  void Use(std::shared_ptr<const TableSource> source);
  /// The value; while it is being found, the one before, or nothing.
  std::optional<Cell> Find(const Column& column, PhraseIndex entry);
  bool Idle() const { return wanted_.empty() && job_.Idle(); }

 private:
  using Key = std::pair<const Column*, PhraseIndex>;
  struct HashOfKey {
    size_t operator()(const Key& key) const {
      return std::hash<const void*>()(key.first) * 31 + ValueOf(key.second);
    }
  };
  using Found = std::unordered_map<Key, Cell, HashOfKey>;

  void Start();

  std::function<void()> came_;
  std::shared_ptr<const TableSource> source_;
  Found found_;
  Found before_;  ///< Of the sources before, of the same run.
  std::set<Key> wanted_;
  LoopCalls loop_;
  NewestJob job_;  ///< Last: its jobs use the above.
};

}  // namespace korv
