#include "engine/counting/count_rule.h"

#include <algorithm>

#include "base/workers.h"

namespace korv {

CountRule::CountRule(const PhraseTableData& data, Yielder& yielder, bool& stopped)
    : data_(data),
      excludeAll_(data.Corpus.Options.IgnoreMode == IgnoreRule::ExcludeAll &&
                  data.Corpus.Lists->HasWordsToIgnore()),
      countOnly_(data.Corpus.Lists->HasCountOnly()),
      byPhrase_(data.Corpus.Lists->HasCountOnlyPhrases()) {
  stopped = false;
  if (AcceptsAll()) return;
  const uint32_t words = data.Corpus.Words.Size();
  marks_.resize(words + 1);
  constexpr uint32_t kTask = 256;
  stopped = !RunTasks((words + kTask - 1) / kTask, words <= kTask, yielder, [&](size_t task, size_t) {
    const auto first = static_cast<uint32_t>(task * kTask + 1);
    for (const WordNumber w : IndexRange(WordNumber{first}, WordNumber{std::min(words, first + kTask - 1)})) {
      if (yielder.Stopped()) return;
      const std::string_view text = data.Corpus.Words.Text(w);
      uint8_t mark = 0;
      if (excludeAll_ && data.Corpus.Lists->IsWordToIgnore(text)) mark |= kIgnored;
      if (countOnly_ && data.Corpus.Lists->IsCountOnlyWord(text)) mark |= kCountOnly;
      marks_[ValueOf(w)] = mark;
    }
  });
}

int CountRule::FirstLength(const WordNumber* first, int most) const {
  int length = 1;
  if (excludeAll_) {
    int ignored = 0;
    while (ignored < most && first[ignored] != kNoWord && IsWordToIgnore(first[ignored])) ++ignored;
    length = ignored + 1;
  }
  if (countOnly_) {
    int before = 0;
    while (before < most && first[before] != kNoWord && !IsCountOnlyWord(first[before])) ++before;
    length = std::max(length, before + 1);
  }
  return length;
}

bool CountRule::Accepts(const WordNumber* first, int words, std::string& scratch) const {
  if (AcceptsAll() || FirstLength(first, words) <= words) return true;
  if (!byPhrase_) return false;
  if (excludeAll_ && std::all_of(first, first + words, [this](WordNumber w) { return IsWordToIgnore(w); }))
    return false;
  scratch = data_.Corpus.Words.Text(first[0]);
  for (int k = 1; k < words; ++k) {
    scratch += '+';
    scratch += data_.Corpus.Words.Text(first[k]);
  }
  return data_.Corpus.Lists->IsCountOnlyPhrase(scratch);
}

}  // namespace korv
