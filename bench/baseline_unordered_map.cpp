// The obvious program, for comparison: counts the phrases of a text in one std::unordered_map from the
// phrase's text to its count. It reads the same words by the same scanner as korv-count does, under the
// default rules, but only counts: no order, no redundant phrases, no report.
//     baseline_unordered_map TEXT [fewest words] [most words]
// Prints numbers to compare results by: words, different phrases, those that occur at least twice, and
// all occurrences.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>
#include <unordered_map>

#include "bench/word_reader.h"
#include "engine/run_options.h"

namespace {

class Counter {
 public:
  Counter(size_t minWords, size_t maxWords) : minWords_(minWords), maxWords_(maxWords) {}

  void Word(const std::string& word) {
    ++words_;
    if (last_.size() == maxWords_) last_.pop_front();
    last_.push_back(word);
    // Every phrase that ends with this word, from the shortest: words are put before it.
    std::string phrase = word;
    for (size_t n = 2; n <= last_.size(); ++n) {
      phrase.insert(0, last_[last_.size() - n] + ' ');
      if (phrase.size() > korv::kMostPhraseCharacters &&
          korv::CharacterCount(phrase) > korv::kMostPhraseCharacters) {
        break;
      }
      if (n < minWords_) continue;
      ++counts_[phrase];
      ++occurrences_;
    }
  }
  void DroppedWord() {}
  void PhraseEnd() { last_.clear(); }
  bool Line(std::string_view) { return true; }

  void Print() const {
    uint64_t repeated = 0;
    for (const auto& [phrase, count] : counts_) repeated += count >= 2;
    std::printf("words %llu\ndifferent %llu\nrepeated %llu\noccurrences %llu\n",
                static_cast<unsigned long long>(words_), static_cast<unsigned long long>(counts_.size()),
                static_cast<unsigned long long>(repeated), static_cast<unsigned long long>(occurrences_));
  }

 private:
  size_t minWords_;
  size_t maxWords_;
  std::deque<std::string> last_;
  std::unordered_map<std::string, uint32_t> counts_;
  uint64_t words_ = 0;
  uint64_t occurrences_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s TEXT [FEWEST WORDS] [MOST WORDS]\n", argv[0]);
    return 2;
  }
  const auto argument = [&](int i, size_t otherwise) {
    return argc > i ? static_cast<size_t>(std::strtoul(argv[i], nullptr, 10)) : otherwise;
  };
  // Never destroyed: giving back millions of strings is no part of counting.
  auto& counter = *new Counter(argument(2, 2), argument(3, 6));
  korv::bench::ReadWordsOf(argv[1], counter);
  counter.Print();
  std::fflush(stdout);
  std::_Exit(0);
}
