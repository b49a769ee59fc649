#include "tests/reference/naive_comparison.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

namespace korv::reference {
namespace {

int64_t RunningWords(const CountingRun& run) {
  int64_t words = run.WordsTaken();
  for (const auto& [reason, dropped] : run.WordsDropped()) words += dropped;
  return words;
}

/// The source in which a word of the run stands.
size_t SourceOf(const CountingRun& run, size_t word) {
  int64_t end = 0;
  for (size_t s = 0; s < run.WordsOfSources().size(); ++s) {
    end += run.WordsOfSources()[s];
    if (run.TakenBefore()[word] < end) return s;
  }
  return run.WordsOfSources().size();
}

double FilesWith(const CountingRun& run, const std::vector<size_t>& places) {
  std::set<size_t> files;
  for (const size_t place : places) files.insert(SourceOf(run, place));
  return static_cast<double>(files.size());
}

double FilesWithWords(const CountingRun& run) {
  double files = 0;
  for (const int64_t words : run.WordsOfSources()) files += words > 0 ? 1 : 0;
  return files;
}

class Comparison {
 public:
  Comparison(const ComparedRuns& runs, std::string basis, Parts parts, double k, int minFrequency,
             bool keepRedundant)
      : runs_(runs), basis_(std::move(basis)), parts_(parts), k_(k), keepRedundant_(keepRedundant) {
    for (int32_t i = 1; i <= runs.Both.Phrases().PhraseCount; ++i)
      if (const Phrase& phrase = runs.Both.Phrases()[i]; phrase.Count >= minFrequency)
        frequent_.push_back(&phrase);
  }

  std::map<std::string, Measures> Values() const {
    std::map<std::string, Measures> values;
    for (const Phrase* phrase : frequent_)
      if (keepRedundant_ || !IsRedundant(*phrase)) values[phrase->Text] = Of(phrase->Text);
    return values;
  }

 private:
  bool IsRedundant(const Phrase& phrase) const {
    return phrase.Text.find(' ') != std::string::npos &&
           std::any_of(frequent_.begin(), frequent_.end(), [&](const Phrase* other) {
             return other->Count == phrase.Count && other->Text.size() > phrase.Text.size() &&
                    (" " + other->Text + " ").find(" " + phrase.Text + " ") != std::string::npos;
           });
  }

  /// Those in no occurrence of another frequent phrase.
  double Net(const CountingRun& run, const std::vector<std::string>& words) const {
    double net = 0;
    for (const size_t at : PlacesOf(run.Words(), words)) {
      const auto holds = [&](const Phrase* other) {
        const std::vector<std::string> theirs = SplitWords(other->Text);
        if (theirs.size() <= words.size()) return false;
        for (const size_t begin : PlacesOf(run.Words(), theirs))
          if (begin <= at && begin + theirs.size() >= at + words.size()) return true;
        return false;
      };
      if (std::none_of(frequent_.begin(), frequent_.end(), holds)) ++net;
    }
    return net;
  }

  Measures Of(const std::string& phrase) const {
    const std::vector<std::string> words = SplitWords(phrase);
    const std::vector<size_t> inA = PlacesOf(runs_.A.Words(), words);
    const std::vector<size_t> inB = PlacesOf(runs_.B.Words(), words);
    const auto c = static_cast<double>(RunningWords(runs_.A));
    const auto d = static_cast<double>(RunningWords(runs_.B));
    const auto a = static_cast<double>(inA.size());
    const auto b = static_cast<double>(inB.size());
    Measures m;
    m["frequency_a"] = a;
    m["frequency_b"] = b;
    m["per_million_a"] = a * 1e6 / c;
    m["per_million_b"] = b * 1e6 / d;
    m["files_a"] = FilesWith(runs_.A, inA);
    m["files_b"] = FilesWith(runs_.B, inB);
    m["dispersion_a"] = DispersionOf(runs_.A, parts_, phrase);
    m["dispersion_b"] = DispersionOf(runs_.B, parts_, phrase);
    m["change"] = a == 0 ? 0 : b == 0 ? 4 : a * d < b * c ? 1 : a * d > b * c ? 3 : 2;
    if (basis_ == "words") AddMeasures(a, b, c, d, m);
    if (basis_ == "files")
      AddMeasures(*m["files_a"], *m["files_b"], FilesWithWords(runs_.A), FilesWithWords(runs_.B), m);
    if (basis_ == "net") AddMeasures(Net(runs_.A, words), Net(runs_.B, words), c, d, m);
    return m;
  }

  void AddMeasures(double a, double b, double c, double d, Measures& m) const {
    for (const char* name : {"log_ratio", "g2", "bic", "percent_difference", "simple_maths"})
      m[name] = std::nullopt;
    if (a + b == 0 || c == 0 || d == 0) return;
    m["log_ratio"] = std::log2(((a == 0 ? 0.5 : a) / c) / ((b == 0 ? 0.5 : b) / d));
    m["g2"] = NaiveG2(a, b, c, d);
    m["bic"] = std::abs(NaiveG2(a, b, c, d)) - std::log(c + d);
    if (b > 0) m["percent_difference"] = 100 * (a / c - b / d) / (b / d);
    m["simple_maths"] = (a / c * 1e6 + k_) / (b / d * 1e6 + k_);
  }

  const ComparedRuns& runs_;
  std::string basis_;
  Parts parts_;
  double k_;
  bool keepRedundant_;
  std::vector<const Phrase*> frequent_;
};

}  // namespace

double NaiveG2(double a, double b, double c, double d) {
  const auto cell = [](long double observed, long double expected) {
    return observed == 0 ? 0 : observed * std::log(observed / expected);
  };
  const long double n = c + d;
  const long double e1 = c * (a + b) / n;
  const long double e2 = d * (a + b) / n;
  const long double g2 = 2 * (cell(a, e1) + cell(b, e2) + cell(c - a, c - e1) + cell(d - b, d - e2));
  return static_cast<double>(a / c < b / d ? -g2 : g2);
}

std::map<std::string, Measures> ComparePhrases(const ComparedRuns& runs, const std::string& basis,
                                               Parts parts, double k, int minFrequency, bool keepRedundant) {
  return Comparison(runs, basis, parts, k, minFrequency, keepRedundant).Values();
}

}  // namespace korv::reference
