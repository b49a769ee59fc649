#include "app/why/why_not_listed.h"

#include <algorithm>
#include <optional>
#include <string>

#include "app/contexts/context_texts.h"
#include "app/why/typed_words.h"
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
    if (words.empty()) Say("There is no word in it.");
    bool known = true;
    std::vector<WordNumber> phrase;
    for (const TypedWord& word : words) known = LookAt(word, phrase) && known;
    const bool parted = IsParted(words);
    if (parted) Say("A phrase ends between the words that were typed: no phrase holds them both.");
    if (!known || parted || phrase.empty()) return notes_;
    if (phrase.size() > static_cast<size_t>(kMostWords)) {
      Say("It has " + Number(phrase.size()) + " words; no phrase has more than 25.");
      return notes_;
    }
    if (phrase.size() < words.size()) Say("What is left of it is " + Quoted(TextOf(phrase)) + ".");
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
  static std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }
  std::string Number(uint64_t number) const { return numbers_.Grouped(static_cast<int64_t>(number)); }
  std::string Times(uint64_t number) const {
    return number == 1 ? "once" : number == 2 ? "twice" : Number(number) + " times";
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
      Say(Quoted(word.Text) + " is a word to ignore, and no phrase with such a word is counted.",
          NoteAction::WordsToIgnore);
      return false;
    }
    if (word.Number == kNoWord) {
      Say(Quoted(word.Text) + " is not in the text.");
      return false;
    }
    phrase.push_back(word.Number);
    return true;
  }

  void SayDropped(const TypedWord& word) {
    const WordRules& rules = corpus_.Rules;
    const std::string out = Quoted(word.Text) + " is left out of the text: ";
    switch (*word.Dropped) {
      case DropReason::Short:
        return Say(out + "it is shorter than " + std::to_string(rules.ShortWordSize) + " letters.",
                   NoteAction::WordRules);
      case DropReason::Long:
        return Say(out + "it is longer than " + std::to_string(rules.LongWordSize) + " letters.",
                   NoteAction::WordRules);
      case DropReason::Letterless:
        return Say(out + "it holds no letter.", NoteAction::WordRules);
      case DropReason::Repetition:
        return Say(out + "it holds one letter four times in a row.", NoteAction::WordRules);
      case DropReason::Ignored:
        return Say(out + "it is a word to ignore, and these are removed.", NoteAction::WordsToIgnore);
      case DropReason::Not7bit:
        return Say(out + "it holds a character beyond 7-bit ASCII.", NoteAction::WordRules);
    }
  }

  void SayCause(FateCause cause, const PhraseFate& fate, size_t words) {
    const RunOptions& options = corpus_.Options;
    const std::string occurs = "It occurs " + Times(fate.Occurrences);
    const std::string itHas = "It has " + Number(words) + (words == 1 ? " word" : " words");
    switch (cause) {
      case FateCause::ApartByEnds:
        return SayApart(fate);
      case FateCause::NeverInARow:
        return Say(words == 1 ? "It is not in the text."
                              : "Its words are in the text, but nowhere one after the other.");
      case FateCause::TooFewWords:
        return Say(itHas + "; phrases of " + Number(static_cast<uint64_t>(options.MinWords)) +
                       " words and more were counted.",
                   NoteAction::Lengths);
      case FateCause::TooManyWords:
        return Say(itHas + "; phrases of up to " + Number(static_cast<uint64_t>(options.MaxWords)) +
                       (options.MaxWords == 1 ? " word" : " words") + " were counted.",
                   NoteAction::Lengths);
      case FateCause::TooLong:
        return Say("It has more than 100 characters, and no such phrase is counted.");
      case FateCause::AllIgnored:
        return Say("It consists of words to ignore alone.", NoteAction::WordsToIgnore);
      case FateCause::NotCountOnly:
        return Say("It matches no count-only entry.", NoteAction::CountOnly);
      case FateCause::TooRare:
        return Say(occurs + "; the minimum frequency is " +
                       Number(static_cast<uint64_t>(options.MinFrequency)) + ".",
                   NoteAction::MinFrequency);
      case FateCause::Redundant:
        return Say(occurs + ", as often as " +
                   (fate.Within == kNoPhrase ? "a longer phrase" : Quoted(run_.Table.Text(fate.Within))) +
                   ", which contains it: it never stands alone, so only the longer one is listed.");
      case FateCause::Listed:
        return Say("It is listed: rank " + Number(fate.Rank) + ", " + Number(fate.Occurrences) +
                   (fate.Occurrences == 1 ? " occurrence." : " occurrences."));
    }
  }

  void SayApart(const PhraseFate& fate) {
    const std::string between = corpus_.Options.IgnoreMode == IgnoreRule::ExcludeWith
                                    ? "a phrase end or a word to ignore stands between them"
                                    : "a phrase end stands between them";
    Say("Its words follow each other " + Times(fate.Apart) + ", but " + between + " each time, first in " +
            NameOfText(run_, corpus_.SourceAt(fate.FirstApart)) + ".",
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
