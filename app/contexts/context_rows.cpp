#include "app/contexts/context_rows.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "sources/places/words_around.h"

namespace korv {

namespace {

/// Texts are told about that often, so that those in sight do not wait for the others.
constexpr std::chrono::milliseconds kBetweenTells{20};

}  // namespace

void ContextRows::Show(std::shared_ptr<const ContextList> list) {
  const bool sameRun = list != nullptr && list_ != nullptr && list->SharedRun() == list_->SharedRun();
  const bool samePhrase = sameRun && list->Query().Words == list_->Query().Words;
  list_ = std::move(list);
  if (!sameRun) changed_.clear();
  if (!samePhrase) Forget();
  if (list_ == nullptr) reader_.Start([reading = reading_](NewestJob::Turn&) { reading->Forget(); });
}

void ContextRows::SetAround(size_t around) {
  if (around == around_) return;
  around_ = around;
  Forget();
}

void ContextRows::Forget() {
  reader_.Stop();
  wanted_.clear();
  kept_.clear();
  where_.clear();
}

ContextText ContextRows::Text(Place place) {
  if (const auto found = where_.find(place); found != where_.end()) {
    kept_.splice(kept_.begin(), kept_, found->second);
    if (found->second->second) return {*found->second->second, true};
  }
  return {WordsAround(list_->Run().Table.Corpus(), place, list_->Words(), around_), false};
}

void ContextRows::Want(std::vector<Place> inSight, std::vector<Place> near) {
  const auto isKept = [this](Place place) { return where_.contains(place); };
  std::erase_if(inSight, isKept);
  std::erase_if(near, isKept);
  // Files are read from their beginnings to their ends.
  std::ranges::sort(inSight);
  std::ranges::sort(near);
  inSight.insert(inSight.end(), near.begin(), near.end());
  if (inSight.empty() || std::ranges::includes(wanted_, inSight)) return;
  wanted_ = inSight;
  std::ranges::sort(wanted_);
  reader_.Start([this, reading = reading_, run = list_->SharedRun(), words = list_->Words(), around = around_,
                 places = std::move(inSight)](NewestJob::Turn& turn) {
    reading->Do(run, turn.Yielder(), [&](PlaceLocator& locator) {
      auto read = std::make_shared<std::vector<Read>>();
      auto told = std::chrono::steady_clock::now();
      for (const Place place : places) {
        if (turn.Yielder().Stopped()) return;
        read->emplace_back(place, locator.Locate(place, words, around));
        const auto now = std::chrono::steady_clock::now();
        if (place != places.back() && now - told < kBetweenTells) continue;
        told = now;
        turn.Tell([this, read] { Keep(*read); });
        read = std::make_shared<std::vector<Read>>();
      }
    });
  });
}

void ContextRows::Keep(const std::vector<Read>& read) {
  for (const auto& [place, text] : read) {
    std::erase(wanted_, place);
    if (where_.contains(place)) continue;
    std::optional<PlaceInText> found;
    if (text)
      found = *text;
    else
      changed_.emplace(list_->Run().Table.Corpus().SourceAt(place), text.Error());
    kept_.emplace_front(place, std::move(found));
    where_[place] = kept_.begin();
  }
  while (kept_.size() > kMostKept) {
    where_.erase(kept_.back().first);
    kept_.pop_back();
  }
  Came();
}

}  // namespace korv
