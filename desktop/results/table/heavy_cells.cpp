#include "desktop/results/table/heavy_cells.h"

#include <string>
#include <utility>
#include <vector>

#include "desktop/results/table/table_columns.h"

namespace korv {

namespace {

/// A look at so many occurrences takes some 50 microseconds.
constexpr uint32_t kManyOccurrences = 4096;

}  // namespace

bool HeavyCells::Holds(const TableSource& source, const Column& column, PhraseIndex entry) {
  return IsComputed(column) && source.Table().Count(entry) > kManyOccurrences;
}

void HeavyCells::Use(std::shared_ptr<const TableSource> source) {
  job_.Stop();
  const bool sameRun = source_ && source && &source_->Run() == &source->Run();
  if (sameRun)
    found_.merge(before_);
  else
    found_.clear();
  before_ = std::exchange(found_, {});
  source_ = std::move(source);
  wanted_.clear();
}

std::optional<Cell> HeavyCells::Find(const Column& column, PhraseIndex entry) {
  const Key key(&column, entry);
  const auto found = found_.find(key);
  if (found != found_.end()) return found->second;
  // All that one round of painting asks for is found together.
  if (wanted_.empty()) loop_.Post([this] { Start(); });
  wanted_.insert(key);
  const auto before = before_.find(key);
  return before != before_.end() ? std::optional(before->second) : std::nullopt;
}

void HeavyCells::Start() {
  if (source_ == nullptr || wanted_.empty()) return;
  job_.Start([this, source = source_,
              wanted = std::vector<Key>(wanted_.begin(), wanted_.end())](NewestJob::Turn& turn) {
    Found found;
    std::string text;
    for (const Key& key : wanted) {
      if (turn.Yielder().Stopped()) return;
      found.emplace(key, source->ValueOf(*key.first, key.second, text));
    }
    turn.Tell([this, found = std::move(found)] {
      for (const auto& [key, cell] : found) wanted_.erase(key);
      found_.insert(found.begin(), found.end());
      came_();
      if (!wanted_.empty()) loop_.Post([this] { Start(); });
    });
  });
}

}  // namespace korv
