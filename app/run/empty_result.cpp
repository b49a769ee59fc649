#include "app/run/empty_result.h"

#include <algorithm>

#include <utility>

#include "base/translation.h"

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
      Add(Tr("There is no word in this text."));
    else if (words.Taken == 0)
      Add(Tr("All words were left out."), {NoteAction::WordRules});
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
    Add(phrases == 1 ? Fill(Tr("The only phrase occurs less often than %1 times."), {times})
                     : Fill(TrCount("%1 phrase occurs less often than %2 times.",
                                    "All %1 different phrases occur less often than %2 times.", phrases),
                            {Number(phrases), times}),
        {NoteAction::MinFrequency});
  }

  void Offered(const OfferedPhrases& offered) {
    const RunOptions& options = result_.Run.Facts.Options;
    if (offered.Offered == 0)
      Add(Fill(Tr("Nowhere do %1 words stand in a row: the longest row has %2."),
               {std::to_string(options.MinWords), std::to_string(offered.LongestRow)}),
          {NoteAction::Lengths});
    const uint64_t taken = result_.Run.Facts.Words.Taken;
    const uint64_t ends = taken - std::min(taken, offered.WordsInRows);
    if (options.IgnoreMode == IgnoreRule::ExcludeWith && ends > 0)
      Add(Fill(TrCount("%1 of %2 word is to be ignored, and no phrase with such a word is counted.",
                       "%1 of %2 words are to be ignored, and no phrase with such a word is counted.", taken),
               {Number(ends), Number(taken)}),
          {NoteAction::WordsToIgnore});
    Share(offered, offered.AllIgnored,
          {Tr("The only phrase consists of words to ignore alone."),
           TrCount("%1 phrase consists of words to ignore alone.",
                   "%1 phrases consist of words to ignore alone.", offered.AllIgnored),
           TrCount("All %1 phrases consist of words to ignore alone.",
                   "All %1 phrases consist of words to ignore alone.", offered.AllIgnored)},
          {NoteAction::WordsToIgnore});
    Share(offered, offered.NotCountOnly,
          {Tr("The only phrase matches no count-only entry."),
           TrCount("%1 phrase matches no count-only entry.", "%1 phrases match no count-only entry.",
                   offered.NotCountOnly),
           TrCount("All %1 phrases match no count-only entry.", "All %1 phrases match no count-only entry.",
                   offered.NotCountOnly)},
          {NoteAction::CountOnly});
    Share(offered, offered.TooLong,
          {Tr("The only phrase has more than %2 characters."),
           TrCount("%1 phrase has more than %2 characters.", "%1 phrases have more than %2 characters.",
                   offered.TooLong),
           TrCount("All %1 phrases have more than %2 characters.",
                   "All %1 phrases have more than %2 characters.", offered.TooLong)},
          {});
  }

  /// What is told of the only phrase, of some phrases, and of all of several.
  struct ShareTexts {
    const char* Only;
    const char* Some;
    const char* All;
  };

  void Share(const OfferedPhrases& offered, uint64_t phrases, const ShareTexts& texts,
             std::vector<NoteAction> waysOut) {
    if (phrases == 0) return;
    const bool all = phrases == offered.Offered;
    const char* const text = !all ? texts.Some : phrases == 1 ? texts.Only : texts.All;
    const auto most = static_cast<uint64_t>(result_.Run.Facts.Options.MostCharacters);
    Add(Fill(text, {Number(phrases), Number(most)}), std::move(waysOut));
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
