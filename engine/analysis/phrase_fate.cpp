#include "engine/analysis/phrase_fate.h"

#include <algorithm>
#include <string>

#include "engine/corpus/phrase_places.h"

namespace korv {

namespace {

/// Looks at one phrase of a counted table.
class FateSearch {
 public:
  FateSearch(const PhraseTable& table, std::span<const WordNumber> phrase, PhraseFate& fate)
      : table_(table), corpus_(table.Corpus()), phrase_(phrase), fate_(fate) {
    for (const WordNumber word : phrase) {
      text_ += text_.empty() ? "" : " ";
      text_ += corpus_.Words.Text(word);
    }
  }

  bool Find(Yielder& yielder) {
    fate_ = {};
    fate_.Occurrences = CountPlaces();
    if (fate_.Occurrences == 0) return LookApart(yielder);
    const RunOptions& options = corpus_.Options;
    const auto words = static_cast<int>(phrase_.size());
    AddIf(words < options.MinWords, FateCause::TooFewWords);
    AddIf(words > options.MaxWords, FateCause::TooManyWords);
    AddIf(Characters() > options.MostCharacters, FateCause::TooLong);
    AddIf(AllIgnored(), FateCause::AllIgnored);
    AddIf(!CountOnlyAdmits(), FateCause::NotCountOnly);
    AddIf(fate_.Occurrences < static_cast<uint64_t>(options.MinFrequency), FateCause::TooRare);
    return !fate_.Causes.empty() || LookInTable(yielder);
  }

 private:
  void AddIf(bool holds, FateCause cause) {
    if (holds) fate_.Causes.push_back(cause);
  }

  uint64_t CountPlaces() const {
    const auto sorted = SortedPlaces(corpus_, phrase_);
    return sorted ? sorted->size() : ScanForPlaces(corpus_, phrase_).size();
  }

  int Characters() const {
    int characters = static_cast<int>(phrase_.size()) - 1;
    for (const WordNumber word : phrase_) characters += corpus_.Words.Characters(word);
    return characters;
  }

  bool AllIgnored() const {
    return corpus_.Options.IgnoreMode == IgnoreRule::ExcludeAll && corpus_.Lists->HasWordsToIgnore() &&
           std::ranges::all_of(phrase_, [&](WordNumber word) {
             return corpus_.Lists->IsWordToIgnore(corpus_.Words.Text(word));
           });
  }

  bool CountOnlyAdmits() const {
    const WordFilters& lists = *corpus_.Lists;
    if (!lists.HasCountOnly()) return true;
    if (std::ranges::any_of(phrase_,
                            [&](WordNumber word) { return lists.IsCountOnlyWord(corpus_.Words.Text(word)); }))
      return true;
    std::string joined = text_;
    std::ranges::replace(joined, ' ', '+');
    return lists.HasCountOnlyPhrases() && lists.IsCountOnlyPhrase(joined);
  }

  /// Where the words follow each other over phrase ends.
  bool LookApart(Yielder& yielder) {
    for (const WordNumber& token : corpus_.Tokens) {
      yielder.Yield();
      if (yielder.Stopped()) return false;
      if (token != phrase_[0]) continue;
      const Place place{static_cast<uint32_t>(&token - corpus_.Tokens.data())};
      if (FollowApart(place) && fate_.Apart++ == 0) fate_.FirstApart = place;
    }
    fate_.Causes.push_back(fate_.Apart > 0 ? FateCause::ApartByEnds : FateCause::NeverInARow);
    return true;
  }

  bool FollowApart(Place place) const {
    const WordNumber* at = corpus_.From(place);
    for (const WordNumber word : phrase_.subspan(1)) {
      if (*++at == kNoWord) ++at;
      if (*at != word) return false;
    }
    const Place last = place + static_cast<uint32_t>(at - corpus_.From(place));
    return corpus_.SourceAt(place) == corpus_.SourceAt(last);
  }

  bool LookInTable(Yielder& yielder) {
    bool listed = false;
    uint32_t before = 0;  // Listed phrases that come before this one by frequency.
    std::string text;
    for (const PhraseIndex i : table_.All()) {
      yielder.Yield();
      if (yielder.Stopped()) return false;
      const uint32_t count = table_.Count(i);
      if (!table_.Listed(i) || count < fate_.Occurrences) continue;
      if (count > fate_.Occurrences) {
        ++before;
        continue;
      }
      text.clear();
      table_.AppendText(i, text);
      if (text == text_)
        listed = true;
      else if (!listed)
        ++before;
      if (text.size() <= text_.size() || text.find(text_) == std::string::npos) continue;
      if (fate_.Within != kNoPhrase && table_.Characters(i) >= table_.Characters(fate_.Within)) continue;
      fate_.Within = i;
    }
    fate_.Causes.push_back(listed ? FateCause::Listed : FateCause::Redundant);
    fate_.Rank = listed ? before + 1 : 0;
    if (listed) fate_.Within = kNoPhrase;
    return true;
  }

  const PhraseTable& table_;
  const Corpus& corpus_;
  std::span<const WordNumber> phrase_;
  PhraseFate& fate_;
  std::string text_;
};

}  // namespace

bool FindPhraseFate(const PhraseTable& table, std::span<const WordNumber> phrase, Yielder& yielder,
                    PhraseFate& fate) {
  return FateSearch(table, phrase, fate).Find(yielder);
}

}  // namespace korv
