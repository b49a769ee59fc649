#include "engine/analysis/offered_phrases.h"

#include <algorithm>
#include <string>

#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

/// Examines the phrases that begin at one word.
class PhrasesFrom {
 public:
  PhrasesFrom(const PhraseTableData& data, const CountRule& accepted, OfferedPhrases& offered)
      : data_(data),
        accepted_(accepted),
        offered_(offered),
        mostCharacters_(data.Corpus.Options.MostCharacters) {}

  void Look(const WordNumber* first) {
    int characters = -1;
    bool ignored = accepted_.ExcludesAllIgnored();
    for (int words = 1; words <= data_.Corpus.Options.MaxWords && first[words - 1] != kNoWord; ++words) {
      const WordNumber last = first[words - 1];
      characters += data_.Corpus.Words.Characters(last) + 1;
      ignored = ignored && accepted_.IsWordToIgnore(last);
      offered_.LongestRow = std::max(offered_.LongestRow, words);
      if (words >= data_.Corpus.Options.MinWords) Classify(first, words, characters, ignored);
    }
  }

 private:
  void Classify(const WordNumber* first, int words, int characters, bool ignored) {
    ++offered_.Offered;
    if (characters > mostCharacters_)
      ++offered_.TooLong;
    else if (ignored)
      ++offered_.AllIgnored;
    else if (!accepted_.Accepts(first, words, scratch_))
      ++offered_.NotCountOnly;
  }

  const PhraseTableData& data_;
  const CountRule& accepted_;
  OfferedPhrases& offered_;
  int mostCharacters_;
  std::string scratch_;
};

}  // namespace

bool FindOfferedPhrases(const PhraseTable& table, Yielder& yielder, OfferedPhrases& offered) {
  offered = {};
  const PhraseTableData& data = table.Data();
  if (data.Corpus.Lists == nullptr) return true;
  bool stopped = false;
  const CountRule accepted(data, yielder, stopped);
  if (stopped) return false;
  PhrasesFrom phrases(data, accepted, offered);
  for (const WordNumber& word : data.Corpus.Tokens) {
    yielder.Yield();
    if (yielder.Stopped()) return false;
    if (word == kNoWord) continue;
    ++offered.WordsInRows;
    phrases.Look(&word);
  }
  return true;
}

}  // namespace korv
