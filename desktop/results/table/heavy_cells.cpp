#include "desktop/results/table/heavy_cells.h"

#include <string>
#include <vector>

namespace korv {

namespace {

/// A look at so many occurrences takes some 50 microseconds.
constexpr uint32_t kManyOccurrences = 4096;

}  // namespace

bool HeavyCells::Holds(const TableSource& source, const Column& column, PhraseIndex entry) {
  return column.Type != ColumnType::Text && (column.NeedsFileCount || column.Needs.Any()) &&
         source.Table().Count(entry) > kManyOccurrences;
}

void HeavyCells::Use(std::shared_ptr<const TableSource> source) {
  job_.Stop();
  source_ = std::move(source);
  found_.clear();
  wanted_.clear();
}

std::optional<Cell> HeavyCells::Find(const Column& column, PhraseIndex entry) {
  const Key key(&column, entry);
  const auto found = found_.find(key);
  if (found != found_.end()) return found->second;
  // All that one round of painting asks for is found together.
  if (wanted_.empty()) loop_.Post([this] { Start(); });
  wanted_.insert(key);
  return std::nullopt;
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
