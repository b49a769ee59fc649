#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace korv::bench {

/// Text for benchmarks of single parts, the same on every machine: made-up words whose frequencies fall as
/// those of real words do (the n-th most frequent word is about 1/n as frequent as the first), with
/// stretches of 3 to 20 words taken over from earlier, for real text repeats itself. Sentences of 8 to 25
/// words end with a period.
class MadeText {
 public:
  explicit MadeText(size_t words, uint64_t seed = 1) : random_(seed) {
    std::vector<std::string> vocabulary;
    for (size_t i = 0; i < kVocabulary; ++i) vocabulary.push_back(MakeWord());
    std::vector<double> weights(kVocabulary);
    for (size_t i = 0; i < kVocabulary; ++i) weights[i] = 1.0 / (static_cast<double>(i) + 2.7);
    std::discrete_distribution<size_t> pick(weights.begin(), weights.end());

    words_.reserve(words);
    std::vector<uint32_t> numbers;
    numbers.reserve(words);
    while (numbers.size() < words) {
      if (numbers.size() > 1000 && random_() % 12 == 0) {
        const size_t length = 3 + random_() % 18;
        const size_t from = random_() % (numbers.size() - length);
        for (size_t i = 0; i < length; ++i) numbers.push_back(numbers[from + i]);
      } else {
        numbers.push_back(static_cast<uint32_t>(pick(random_)));
      }
    }
    numbers.resize(words);
    size_t left = 12;
    for (const uint32_t number : numbers) {
      words_.push_back(vocabulary[number]);
      if (--left == 0) {
        sentenceEnds_.push_back(words_.size());
        left = 8 + random_() % 18;
      }
    }
  }

  const std::vector<std::string>& Words() const { return words_; }
  /// Numbers of words after which a sentence ends, ascending.
  const std::vector<size_t>& SentenceEnds() const { return sentenceEnds_; }

  /// As lines of about 80 characters.
  std::string AsPlainText() const {
    std::string text;
    size_t lineBegin = 0;
    auto end = sentenceEnds_.begin();
    for (size_t i = 0; i < words_.size(); ++i) {
      text += words_[i];
      if (end != sentenceEnds_.end() && *end == i + 1) {
        text += '.';
        ++end;
      }
      if (text.size() - lineBegin > 75) {
        text += '\n';
        lineBegin = text.size();
      } else {
        text += ' ';
      }
    }
    return text;
  }

 private:
  static constexpr size_t kVocabulary = 60000;

  std::string MakeWord() {
    static constexpr const char* kSyllables[] = {"ra", "ten", "lo", "mis", "ar",  "ve", "on", "tri",
                                                 "sa", "cul", "ne", "per", "ing", "do", "ul", "est"};
    std::string word;
    const size_t syllables = 2 + random_() % 3;
    for (size_t i = 0; i < syllables; ++i) word += kSyllables[random_() % std::size(kSyllables)];
    word += static_cast<char>('a' + random_() % 26);
    return word;
  }

  std::mt19937_64 random_;
  std::vector<std::string> words_;
  std::vector<size_t> sentenceEnds_;
};

}  // namespace korv::bench
