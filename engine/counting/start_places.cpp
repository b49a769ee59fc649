#include "engine/counting/start_places.h"

#include <algorithm>
#include <numeric>

namespace korv {

namespace {

/// Tokens between two calls of Yield().
constexpr size_t kYieldEvery = 4096;

bool GoesOn(Yielder& yielder) {
  yielder.Yield();
  return !yielder.Stopped();
}

/// The phrases that start at one place of a text. The place moves from the last token to the first, because
/// everything that bounds a phrase stands behind its start.
class PhraseWindow {
 public:
  PhraseWindow(const Corpus& corpus, const CountRule& rule)
      : tokens_(corpus.Tokens.data()),
        vocabulary_(corpus.Words),
        rule_(rule),
        minWords_(corpus.Options.MinWords),
        maxWords_(static_cast<size_t>(corpus.Options.MaxWords)),
        mostCharacters_(corpus.Options.MostCharacters),
        end_(corpus.Tokens.size()),
        phraseEnd_(corpus.Tokens.size()) {}

  /// To a token where no phrase goes on.
  void MoveToPhraseEnd(size_t place) {
    end_ = phraseEnd_ = place_ = place;
    characters_ = 0;
    ignored_ = 0;
    beforeCountOnly_ = kMostWords;
  }

  void MoveToWord(size_t place, WordNumber word) {
    place_ = place;
    characters_ += vocabulary_.Characters(word) + 1;
    while (end_ - place > maxWords_ || characters_ - 1 > mostCharacters_)
      characters_ -= vocabulary_.Characters(tokens_[--end_]) + 1;
    if (rule_.ExcludesAllIgnored())
      ignored_ = rule_.IsWordToIgnore(word) ? std::min(ignored_ + 1, kMostWords) : 0;
    if (rule_.HasCountOnly())
      beforeCountOnly_ = rule_.IsCountOnlyWord(word) ? 0 : std::min(beforeCountOnly_ + 1, kMostWords);
  }

  /// Most words of a phrase that starts here.
  int MostWords() const { return static_cast<int>(end_ - place_); }
  /// Whether it is the characters that allow no more.
  bool Cut() const { return end_ < std::min(phraseEnd_, place_ + maxWords_); }

  /// Fewest words of a phrase that counts for its words; may be more than MostWords(). With entries for whole
  /// phrases only these can tell.
  int FewestWords() const {
    if (rule_.ByPhrase()) return minWords_;
    int fewest = minWords_;
    if (rule_.ExcludesAllIgnored()) fewest = std::max(fewest, ignored_ + 1);
    if (rule_.HasCountOnly()) fewest = std::max(fewest, beforeCountOnly_ + 1);
    return fewest;
  }

  /// Phrases that start here and would count, had they no more than MostCharacters.
  uint64_t TooLong() const {
    const int most = MostWords();
    const auto reach = static_cast<int>(std::min(phraseEnd_ - place_, maxWords_));
    if (reach <= most) return 0;
    return static_cast<uint64_t>(std::max(0, reach - std::max(FewestWords(), most + 1) + 1));
  }

 private:
  const WordNumber* tokens_;
  const Vocabulary& vocabulary_;
  const CountRule& rule_;
  int minWords_;
  size_t maxWords_;
  int mostCharacters_;

  size_t place_ = 0;
  size_t end_;                        ///< Of the longest phrase.
  size_t phraseEnd_;                  ///< The next token where no phrase goes on.
  int characters_ = 0;                ///< Of the longest phrase, and a blank behind each word.
  int ignored_ = 0;                   ///< Words to ignore in a row from here.
  int beforeCountOnly_ = kMostWords;  ///< Words before the next count-only word.
};

class StartFinder {
 public:
  StartFinder(const Corpus& corpus, const CountRule& rule, Yielder& yielder, StartPlaces& starts)
      : corpus_(corpus), rule_(rule), yielder_(yielder), starts_(starts) {}

  bool Find() { return MeasurePlaces() && SetUpBuckets() && FillBuckets(); }

 private:
  /// Sets Lengths, and counts for each word the places and the occurrences that start with it.
  bool MeasurePlaces() {
    const size_t n = corpus_.Tokens.size();
    starts_.Lengths = PhraseLengths(n);
    starts_.Occurrences = ZeroedArray<uint64_t>(size_t{corpus_.Words.Size()} + 1);
    starts_.BucketEnds = ZeroedArray<uint64_t>(size_t{corpus_.Words.Size()} + 2);
    starts_.SourceHasPhrase.assign(corpus_.Sources.size(), 0);
    size_t source = corpus_.Sources.size();
    PhraseWindow window(corpus_, rule_);
    for (size_t place = n; place-- > 0;) {
      if (place % kYieldEvery == 0 && !GoesOn(yielder_)) return false;
      while (source > 0 && corpus_.Sources[source - 1].Begin > place) --source;
      const WordNumber word = corpus_.Tokens[place];
      if (word == kNoWord) {
        window.MoveToPhraseEnd(place);
        continue;
      }
      window.MoveToWord(place, word);
      const int most = window.MostWords();
      const int fewest = window.FewestWords();
      starts_.Lengths.Set(place, most, window.Cut());
      starts_.LongPhrases += window.TooLong();
      if (most < fewest) continue;
      ++starts_.BucketEnds[ValueOf(word) + 1];
      starts_.Occurrences[ValueOf(word)] += static_cast<uint64_t>(most - fewest + 1);
      if (source > 0) starts_.SourceHasPhrase[source - 1] = 1;
    }
    return true;
  }

  /// Turns the sizes of buckets, each at the index behind its word, into their begins at the index of the
  /// word.
  bool SetUpBuckets() {
    uint64_t begin = 0;
    ZeroedArray<uint64_t>& ends = starts_.BucketEnds;
    for (size_t word = 0; word < ends.Size(); ++word) {
      if (word % kYieldEvery == 0 && !GoesOn(yielder_)) return false;
      begin += ends[word];
      ends[word] = begin;
    }
    starts_.Places.resize(begin);
    return true;
  }

  /// Puts every place at the begin of what is left of its bucket, which moves the begins to the ends.
  bool FillBuckets() {
    const WordNumber* tokens = corpus_.Tokens.data();
    for (size_t place = 0; place < corpus_.Tokens.size(); ++place) {
      if (place % kYieldEvery == 0 && !GoesOn(yielder_)) return false;
      const Place start{static_cast<uint32_t>(place)};
      if (PhraseCounts(tokens + place, starts_.Lengths.Most(start)))
        starts_.Places[starts_.BucketEnds[ValueOf(tokens[place])]++] = start;
    }
    return true;
  }

  /// Whether one of the phrases that start here counts, as MeasurePlaces found.
  bool PhraseCounts(const WordNumber* first, int mostWords) const {
    if (mostWords < corpus_.Options.MinWords) return false;
    return rule_.AcceptsAll() || rule_.ByPhrase() || rule_.FirstLength(first, mostWords) <= mostWords;
  }

  const Corpus& corpus_;
  const CountRule& rule_;
  Yielder& yielder_;
  StartPlaces& starts_;
};

}  // namespace

bool FindStartPlaces(const Corpus& corpus, const CountRule& rule, Yielder& yielder, StartPlaces& starts) {
  return StartFinder(corpus, rule, yielder, starts).Find();
}

}  // namespace korv
