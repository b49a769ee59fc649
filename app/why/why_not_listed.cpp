#include "app/why/why_not_listed.h"

#include <algorithm>
#include <optional>
#include <string>

#include "app/contexts/context_texts.h"
#include "app/why/typed_words.h"
#include "base/translation.h"
#include "engine/analysis/phrase_fate.h"

namespace korv {

namespace {

/// Puts the answer together.
class Explanation {
 public:
  Explanation(const CountedRun& run, const NumberFormat& numbers, Yielder& yielder)
      : run_(run), corpus_(run.Table.Corpus()), numbers_(numbers), yielder_(yielder) {}

  std::vector<ResultNote> Of(std::string_view typed) {
    const std::vector<TypedWord> words = TypedWordsOf(typed, corpus_);
    if (words.empty()) Say(Tr("There is no word in it."));
    bool known = true;
    std::vector<WordNumber> phrase;
    for (const TypedWord& word : words) known = LookAt(word, phrase) && known;
    const bool parted = IsParted(words);
    if (parted) Say(Tr("A phrase ends between the words that were typed: no phrase holds them both."));
    if (!known || parted || phrase.empty()) return notes_;
    if (phrase.size() > static_cast<size_t>(kMostWords)) {
      Say(Fill(TrCount("It has %1 word; no phrase has more than 25.",
                       "It has %1 words; no phrase has more than 25.", phrase.size()),
               {Number(phrase.size())}));
      return notes_;
    }
    if (phrase.size() < words.size()) Say(Fill(Tr("What is left of it is \"%1\"."), {TextOf(phrase)}));
    PhraseFate fate;
    if (!FindPhraseFate(run_.Table, phrase, yielder_, fate)) return {};
    for (const FateCause cause : fate.Causes) SayCause(cause, fate, phrase.size());
    return notes_;
  }

 private:
  void Say(std::string text, std::optional<NoteAction> wayOut = std::nullopt) {
    const auto same = [&](const ResultNote& said) { return said.Text == text; };
    if (std::ranges::any_of(notes_, same)) return;
    notes_.push_back({NoteKind::Why, std::move(text)});
    if (wayOut) notes_.back().WaysOut = {*wayOut};
  }
  std::string Number(uint64_t number) const { return numbers_.Grouped(static_cast<int64_t>(number)); }
  std::string Times(uint64_t number) const {
    if (number == 1) return Tr("once");
    if (number == 2) return Tr("twice");
    return Fill(TrCount("%1 time", "%1 times", number), {Number(number)});
  }

  std::string TextOf(const std::vector<WordNumber>& phrase) const {
    std::string text;
    for (const WordNumber word : phrase) {
      text += text.empty() ? "" : " ";
      text += corpus_.Words.Text(word);
    }
    return text;
  }

  static bool IsParted(const std::vector<TypedWord>& words) {
    bool any = false;
    bool end = false;
    for (const TypedWord& word : words) {
      end = end || word.BehindEnd;
      if (word.Dropped) continue;
      if (any && end) return true;
      any = true;
      end = false;
    }
    return false;
  }

  /// False where no phrase can hold the word.
  bool LookAt(const TypedWord& word, std::vector<WordNumber>& phrase) {
    if (word.Dropped) {
      SayDropped(word);
      return true;
    }
    if (word.Excludes) {
      Say(Fill(Tr("\"%1\" is a word to ignore, and no phrase with such a word is counted."), {word.Text}),
          NoteAction::WordsToIgnore);
      return false;
    }
    if (word.Number == kNoWord) {
      Say(Fill(Tr("\"%1\" is not in the text."), {word.Text}));
      return false;
    }
    phrase.push_back(word.Number);
    return true;
  }

  void SayDropped(const TypedWord& word) {
    const WordRules& rules = corpus_.Rules;
    switch (*word.Dropped) {
      case DropReason::Short:
        return Say(Fill(Tr("\"%1\" is left out of the text: it is shorter than %2 letters."),
                        {word.Text, std::to_string(rules.ShortWordSize)}),
                   NoteAction::WordRules);
      case DropReason::Long:
        return Say(Fill(Tr("\"%1\" is left out of the text: it is longer than %2 letters."),
                        {word.Text, std::to_string(rules.LongWordSize)}),
                   NoteAction::WordRules);
      case DropReason::Letterless:
        return Say(Fill(Tr("\"%1\" is left out of the text: it holds no letter."), {word.Text}),
                   NoteAction::WordRules);
      case DropReason::Repetition:
        return Say(
            Fill(Tr("\"%1\" is left out of the text: it holds one letter four times in a row."), {word.Text}),
            NoteAction::WordRules);
      case DropReason::Ignored:
        return Say(Fill(Tr("\"%1\" is left out of the text: it is a word to ignore, and these are removed."),
                        {word.Text}),
                   NoteAction::WordsToIgnore);
      case DropReason::Not7bit:
        return Say(
            Fill(Tr("\"%1\" is left out of the text: it holds a character beyond 7-bit ASCII."), {word.Text}),
            NoteAction::WordRules);
    }
  }

  void SayCause(FateCause cause, const PhraseFate& fate, size_t words) {
    const RunOptions& options = corpus_.Options;
    const std::string times = Times(fate.Occurrences);
    switch (cause) {
      case FateCause::ApartByEnds:
        return SayApart(fate);
      case FateCause::NeverInARow:
        return Say(words == 1 ? Tr("It is not in the text.")
                              : Tr("Its words are in the text, but nowhere one after the other."));
      case FateCause::TooFewWords:
        return Say(Fill(TrCount("It has %1 word; phrases of %2 words and more were counted.",
                                "It has %1 words; phrases of %2 words and more were counted.", words),
                        {Number(words), Number(static_cast<uint64_t>(options.MinWords))}),
                   NoteAction::Lengths);
      case FateCause::TooManyWords:
        return SayTooManyWords(words, static_cast<uint64_t>(options.MaxWords));
      case FateCause::TooLong:
        return Say(Fill(Tr("It has more than %1 characters, and no such phrase is counted."),
                        {Number(static_cast<uint64_t>(options.MostCharacters))}));
      case FateCause::AllIgnored:
        return Say(Tr("It consists of words to ignore alone."), NoteAction::WordsToIgnore);
      case FateCause::NotCountOnly:
        return Say(Tr("It matches no count-only entry."), NoteAction::CountOnly);
      case FateCause::TooRare:
        return Say(Fill(Tr("It occurs %1; the minimum frequency is %2."),
                        {times, Number(static_cast<uint64_t>(options.MinFrequency))}),
                   NoteAction::MinFrequency);
      case FateCause::Redundant:
        if (fate.Within == kNoPhrase)
          return Say(Fill(Tr("It occurs %1, as often as a longer phrase, which contains it: it never stands "
                             "alone, so only the longer one is listed."),
                          {times}));
        return Say(Fill(Tr("It occurs %1, as often as \"%2\", which contains it: it never stands alone, so "
                           "only the longer one is listed."),
                        {times, run_.Table.Text(fate.Within)}));
      case FateCause::Listed:
        return Say(Fill(TrCount("It is listed: rank %1, %2 occurrence.",
                                "It is listed: rank %1, %2 occurrences.", fate.Occurrences),
                        {Number(fate.Rank), Number(fate.Occurrences)}));
    }
  }

  void SayTooManyWords(size_t words, uint64_t most) {
    const char* const pattern =
        most == 1 ? TrCount("It has %1 word; phrases of up to %2 word were counted.",
                            "It has %1 words; phrases of up to %2 word were counted.", words)
                  : TrCount("It has %1 word; phrases of up to %2 words were counted.",
                            "It has %1 words; phrases of up to %2 words were counted.", words);
    Say(Fill(pattern, {Number(words), Number(most)}), NoteAction::Lengths);
  }

  void SayApart(const PhraseFate& fate) {
    const char* const pattern = corpus_.Options.IgnoreMode == IgnoreRule::ExcludeWith
                                    ? Tr("Its words follow each other %1, but a phrase end or a word to "
                                         "ignore stands between them each "
                                         "time, first in %2.")
                                    : Tr("Its words follow each other %1, but a phrase end stands between "
                                         "them each time, first in %2.");
    Say(Fill(pattern, {Times(fate.Apart), NameOfText(run_, corpus_.SourceAt(fate.FirstApart))}),
        NoteAction::WordRules);
  }

  const CountedRun& run_;
  const Corpus& corpus_;
  const NumberFormat& numbers_;
  Yielder& yielder_;
  std::vector<ResultNote> notes_;
};

}  // namespace

std::vector<ResultNote> WhyNotListed(const CountedRun& run, std::string_view typed,
                                     const NumberFormat& numbers, Yielder& yielder) {
  return Explanation(run, numbers, yielder).Of(typed);
}

}  // namespace korv
