#include "app/run/empty_result.h"

#include <algorithm>

#include <utility>

namespace korv {

namespace {

/// Collects the causes.
class Causes {
 public:
  Causes(const ShownResult& result, const NumberFormat& numbers) : result_(result), numbers_(numbers) {}

  std::vector<ResultNote> All() {
    const WordCounts& words = result_.Run.Facts.Words;
    if (result_.Run.Table.Occurrences() > 0)
      TooRare();
    else if (words.Read() == 0)
      Add("There is no word in this text.");
    else if (words.Taken == 0)
      Add("All words were left out.", {NoteAction::WordRules});
    else if (result_.Offered)
      Offered(*result_.Offered);
    return std::move(causes_);
  }

 private:
  void Add(std::string text, std::vector<NoteAction> waysOut = {}) {
    causes_.push_back({NoteKind::Empty, std::move(text), std::move(waysOut)});
  }

  std::string Number(uint64_t number) const { return numbers_.Grouped(static_cast<int64_t>(number)); }

  void TooRare() {
    const uint64_t phrases = result_.Run.Table.PhraseCount();
    const std::string times = std::to_string(result_.Run.Facts.Options.MinFrequency);
    Add((phrases == 1 ? "The only phrase occurs less often than "
                      : "All " + Number(phrases) + " different phrases occur less often than ") +
            times + " times.",
        {NoteAction::MinFrequency});
  }

  void Offered(const OfferedPhrases& offered) {
    const RunOptions& options = result_.Run.Facts.Options;
    if (offered.Offered == 0)
      Add("Nowhere do " + std::to_string(options.MinWords) + " words stand in a row: the longest row has " +
              std::to_string(offered.LongestRow) + ".",
          {NoteAction::Lengths});
    const uint64_t taken = result_.Run.Facts.Words.Taken;
    const uint64_t ends = taken - std::min(taken, offered.WordsInRows);
    if (options.IgnoreMode == IgnoreRule::ExcludeWith && ends > 0)
      Add(Number(ends) + " of " + Number(taken) + (taken == 1 ? " word is" : " words are") +
              " to be ignored, and no phrase with such a word is counted.",
          {NoteAction::WordsToIgnore});
    Share(offered, offered.AllIgnored, "consists of words to ignore alone",
          "consist of words to ignore alone", {NoteAction::WordsToIgnore});
    Share(offered, offered.NotCountOnly, "matches no count-only entry", "match no count-only entry",
          {NoteAction::CountOnly});
    Share(offered, offered.TooLong, "has more than 100 characters", "have more than 100 characters", {});
  }

  void Share(const OfferedPhrases& offered, uint64_t phrases, const char* one, const char* many,
             std::vector<NoteAction> waysOut) {
    if (phrases == 0) return;
    const bool all = phrases == offered.Offered;
    const std::string which = phrases == 1 ? (all ? "The only phrase " : "1 phrase ")
                                           : (all ? "All " : "") + Number(phrases) + " phrases ";
    Add(which + (phrases == 1 ? one : many) + ".", std::move(waysOut));
  }

  const ShownResult& result_;
  const NumberFormat& numbers_;
  std::vector<ResultNote> causes_;
};

}  // namespace

std::vector<ResultNote> CausesOfNothing(const ShownResult& result, const NumberFormat& numbers) {
  return Causes(result, numbers).All();
}

}  // namespace korv
