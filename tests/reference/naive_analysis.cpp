#include "tests/reference/naive_analysis.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <utility>
#include <vector>

namespace korv::reference {
namespace {

/// A part of the text: words [Begin, End) of those taken.
struct Part {
  int64_t Begin;
  int64_t End;
};

std::vector<Part> EqualParts(int64_t words, int64_t parts) {
  std::vector<Part> cut;
  if (words < 200) return cut;
  for (int64_t j = 0; j < parts; ++j) cut.push_back({j * words / parts, (j + 1) * words / parts});
  return cut;
}

// Every word says which part of its file it is in; a part is a stretch of words that say the same.
std::vector<Part> PartsOfEachFile(const CountingRun& run, int64_t parts) {
  std::vector<Part> cut;
  if (run.WordsTaken() < 200) return cut;
  int64_t begin = 0;
  for (const int64_t words : run.WordsOfSources()) {
    const int64_t k = std::min(parts, words);
    for (int64_t word = 0, last = -1; word < words; ++word) {
      int64_t part = k - 1;
      while (part * words / k > word) --part;
      if (part != last) cut.push_back({begin + word, begin + word});
      ++cut.back().End;
      last = part;
    }
    begin += words;
  }
  return cut;
}

std::vector<Part> PartsOfText(const CountingRun& run, Parts parts) {
  const int64_t n = run.WordsTaken();
  if (parts.Equal > 0)
    return parts.OfEachFile ? PartsOfEachFile(run, parts.Equal) : EqualParts(n, parts.Equal);
  std::vector<Part> files;
  int64_t begin = 0;
  for (const int64_t words : run.WordsOfSources()) {
    if (words > 0) files.push_back({begin, begin + words});
    begin += words;
  }
  if (files.size() >= 2) return files;
  return EqualParts(n, n >= 1000 ? 10 : std::max<int64_t>(2, n / 100));
}

class Model {
 public:
  Model(const CountingRun& run, Parts parts, int minFrequency) : run_(run), parts_(PartsOfText(run, parts)) {
    const Table& table = run.Phrases();
    for (int32_t i = 1; i <= table.PhraseCount; ++i) {
      if (table[i].Count < minFrequency) continue;
      const std::vector<std::string> words = SplitWords(table[i].Text);
      for (const size_t at : PlacesOf(run.Words(), words)) counted_.insert({at, words.size()});
    }
  }

  Measures Of(const Phrase& phrase) const {
    Measures measures;
    const std::vector<std::string> words = SplitWords(phrase.Text);
    const std::vector<size_t> places = PlacesOf(run_.Words(), words);
    AddNet(places, words.size(), measures);
    AddReducedFrequency(places, measures);
    AddDispersion(places, measures);
    AddAssociation(words, places.size(), measures);
    measures["c_value"] = CValue(phrase);
    return measures;
  }

  std::optional<double> DispersionOf(const std::string& phrase) const {
    Measures measures;
    AddDispersion(PlacesOf(run_.Words(), SplitWords(phrase)), measures);
    return measures["dispersion"];
  }

 private:
  void AddNet(const std::vector<size_t>& places, size_t words, Measures& measures) const {
    const auto free =
        std::count_if(places.begin(), places.end(), [&](size_t at) { return !StandsInAnother(at, words); });
    measures["net_frequency"] = static_cast<double>(free);
    measures["net_percent"] = 100.0 * static_cast<double>(free) / static_cast<double>(places.size());
  }

  bool StandsInAnother(size_t at, size_t words) const {
    constexpr size_t kMost = 25;
    for (size_t other = at < kMost ? 0 : at - kMost; other <= at; ++other)
      for (size_t otherWords = at + words - other; otherWords <= kMost; ++otherWords)
        if (std::pair(other, otherWords) != std::pair(at, words) && counted_.contains({other, otherWords}))
          return true;
    return false;
  }

  void AddReducedFrequency(const std::vector<size_t>& places, Measures& measures) const {
    const auto n = static_cast<double>(run_.WordsTaken());
    const auto f = static_cast<double>(places.size());
    double sum = 0;
    for (size_t j = 0; j < places.size(); ++j) {
      const auto here = static_cast<double>(run_.TakenBefore()[places[j]]);
      const auto before = static_cast<double>(run_.TakenBefore()[j == 0 ? places.back() : places[j - 1]]);
      sum += std::min(j == 0 ? here + n - before : here - before, n / f);
    }
    measures["arf"] = sum / (n / f);
  }

  std::vector<double> OccurrencesInParts(const std::vector<size_t>& places) const {
    std::vector<double> occurrences(parts_.size());
    for (const size_t at : places)
      for (size_t i = 0; i < parts_.size(); ++i)
        if (run_.TakenBefore()[at] >= parts_[i].Begin && run_.TakenBefore()[at] < parts_[i].End)
          ++occurrences[i];
    return occurrences;
  }

  void AddDispersion(const std::vector<size_t>& places, Measures& measures) const {
    for (const char* name : {"range", "dispersion", "dp", "dp_norm", "juilland_d", "d_a", "d_kl"})
      measures[name] = std::nullopt;
    if (parts_.empty()) return;
    const std::vector<double> T = OccurrencesInParts(places);
    const size_t k = T.size();
    measures["range"] = static_cast<double>(k) - static_cast<double>(std::count(T.begin(), T.end(), 0.0));
    if (places.size() < 2) return;

    double leastShare = 1;
    double leastShareWithPhrase = 1;
    double deviation = 0;
    double divergence = 0;
    double mean = 0;
    std::vector<double> rates;
    for (size_t i = 0; i < k; ++i) {
      const auto words = static_cast<double>(parts_[i].End - parts_[i].Begin);
      const double w = words / static_cast<double>(run_.WordsTaken());
      const double t = T[i] / static_cast<double>(places.size());
      leastShare = std::min(leastShare, w);
      if (t > 0) leastShareWithPhrase = std::min(leastShareWithPhrase, w);
      deviation += std::abs(t - w) / 2;
      if (t > 0) divergence += t * std::log2(t / w);
      rates.push_back(T[i] / words);
      mean += rates.back() / static_cast<double>(k);
    }
    measures["dp"] = deviation;
    measures["dp_norm"] = deviation / (1 - leastShare);
    measures["dispersion"] = 1 - deviation / (1 - leastShareWithPhrase);
    measures["d_kl"] = divergence / (1 + divergence);

    double variance = 0;
    for (const double rate : rates) variance += (rate - mean) * (rate - mean) / static_cast<double>(k);
    const auto parts = static_cast<double>(k);
    measures["juilland_d"] = std::max(0.0, 1 - std::sqrt(variance) / mean / std::sqrt(parts - 1));
    std::sort(rates.begin(), rates.end(), std::greater());
    double weighted = 0;
    for (size_t i = 0; i < k; ++i) weighted += static_cast<double>(i + 1) * rates[i] / (mean * parts);
    measures["d_a"] = 2 * (weighted - 1) / (parts - 1);
  }

  /// How often the words [begin, end) of a phrase stand in the text.
  double CountOfRun(const std::vector<std::string>& words, size_t begin, size_t end) const {
    const std::vector<std::string> run(words.begin() + static_cast<std::ptrdiff_t>(begin),
                                       words.begin() + static_cast<std::ptrdiff_t>(end));
    return static_cast<double>(PlacesOf(run_.Words(), run).size());
  }

  void AddAssociation(const std::vector<std::string>& words, size_t frequency, Measures& measures) const {
    for (const char* name : {"mi", "mi3", "npmi", "t_score", "log_dice", "mi_min", "forward", "backward"})
      measures[name] = std::nullopt;
    if (words.size() < 2) return;
    const auto n = static_cast<double>(words.size());
    const auto f = static_cast<double>(frequency);
    const auto all = static_cast<double>(run_.WordsTaken());
    double product = 1;
    double sum = 0;
    for (size_t i = 0; i < words.size(); ++i) {
      product *= CountOfRun(words, i, i + 1);
      sum += CountOfRun(words, i, i + 1);
    }
    const double expected = product / std::pow(all, n - 1);
    measures["mi"] = std::log2(f / expected);
    measures["mi3"] = std::log2(f * f * f / expected);
    measures["npmi"] = std::log2(f / expected) / (-(n - 1) * std::log2(f / all));
    measures["t_score"] = (f - expected) / std::sqrt(f);
    measures["log_dice"] = 14 + std::log2(n * f / sum);

    std::optional<double> weakest;
    for (size_t i = 1; i < words.size(); ++i) {
      const double parts = CountOfRun(words, 0, i) * CountOfRun(words, i, words.size());
      weakest = std::min(weakest.value_or(HUGE_VAL), std::log2(f * all / parts));
    }
    measures["mi_min"] = weakest;
    measures["forward"] = f / CountOfRun(words, 0, words.size() - 1);
    measures["backward"] = f / CountOfRun(words, 1, words.size());
  }

  double CValue(const Phrase& phrase) const {
    const auto [sum, containers] = Nested(phrase);
    const double nested = containers > 0 ? sum / containers : 0;
    return std::log2(static_cast<double>(SplitWords(phrase.Text).size())) * (phrase.Count - nested);
  }

  /// Over the longer candidates that contain the phrase: the sum of their f - t, and their number.
  std::pair<double, double> Nested(const Phrase& phrase) const {
    if (const auto known = nested_.find(phrase.Text); known != nested_.end()) return known->second;
    double sum = 0;
    double containers = 0;
    for (int32_t i = 1; i <= run_.Phrases().PhraseCount; ++i) {
      const Phrase& other = run_.Phrases()[i];
      if (!other.Listed || other.Text.size() <= phrase.Text.size() ||
          (" " + other.Text + " ").find(" " + phrase.Text + " ") == std::string::npos)
        continue;
      sum += other.Count - Nested(other).first;
      ++containers;
    }
    return nested_[phrase.Text] = {sum, containers};
  }

  const CountingRun& run_;
  std::vector<Part> parts_;
  mutable std::map<std::string, std::pair<double, double>> nested_;  ///< By text, as far as it was asked for.
  std::set<std::pair<size_t, size_t>> counted_;  ///< Place and words of each occurrence of a phrase.
};

}  // namespace

std::vector<std::string> SplitWords(const std::string& phrase) {
  std::vector<std::string> words{""};
  for (const char c : phrase) {
    if (c == ' ')
      words.emplace_back();
    else
      words.back() += c;
  }
  return words;
}

std::optional<double> DispersionOf(const CountingRun& run, Parts parts, const std::string& phrase) {
  constexpr int kNone = std::numeric_limits<int>::max();
  return Model(run, parts, kNone).DispersionOf(phrase);
}

double Coverage(const CountingRun& run, int minFrequency) {
  std::set<size_t> covered;
  for (int32_t i = 1; i <= run.Phrases().PhraseCount; ++i) {
    if (run.Phrases()[i].Count < minFrequency) continue;
    const std::vector<std::string> words = SplitWords(run.Phrases()[i].Text);
    for (const size_t at : PlacesOf(run.Words(), words))
      for (size_t k = 0; k < words.size(); ++k) covered.insert(at + k);
  }
  return static_cast<double>(covered.size()) / static_cast<double>(run.WordsTaken());
}

std::map<std::string, Measures> MeasuresOfPhrases(const CountingRun& run, Parts parts, int minFrequency) {
  const Model model(run, parts, minFrequency);
  std::map<std::string, Measures> measures;
  for (int32_t i = 1; i <= run.Phrases().PhraseCount; ++i)
    if (const Phrase& phrase = run.Phrases()[i]; phrase.Listed) measures[phrase.Text] = model.Of(phrase);
  return measures;
}

}  // namespace korv::reference
