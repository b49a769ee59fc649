#include "report/columns/registry.h"

#include "base/translation.h"

// How strongly the words of a phrase hold together. In the definitions w1..wn are the words of a phrase and T
// all words taken.

namespace korv {

namespace {

Cell Real(const std::optional<double>& value) {
  return value ? Cell(*value) : Cell();
}

template <double (*Measure)(const PhraseWords&)>
Cell Association(const ColumnSource& source, const ListedPhrase& phrase) {
  return source.Analysis ? Real(source.Analysis->Association(phrase.Entry, Measure)) : Cell();
}

template <std::optional<double> (PhraseAnalysis::*Measure)(PhraseIndex) const>
Cell Prepared(const ColumnSource& source, const ListedPhrase& phrase) {
  return source.Analysis ? Real((source.Analysis->*Measure)(phrase.Entry)) : Cell();
}

constexpr AnalysisNeeds kWords{.Positions = true, .Words = true};

constexpr Column kAssociationColumns[] = {
    {.Id = "c_value",
     .Heading = TrLater("C-value"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "log2(words) * (f - t / c), where c is the number of longer listed phrases that contain the phrase "
         "and t the sum of f - t over these; log2(words) * f where there are none. High for terms that occur "
         "in many phrases and by themselves (Frantzi, Ananiadou and Mima 2000)."),
     .Formula = "log2(words) * (f - t / c)",
     .Value = Prepared<&PhraseAnalysis::CValue>,
     .Needs = {.CValues = true},
     .Decimals = 2},
    {.Id = "mi",
     .Heading = TrLater("MI"),
     .Type = ColumnType::Real,
     .Unit = "bits",
     .Definition = TrLater(
         "Mutual information: log2(f / E), where E = f(w1) * ... * f(wn) / T^(n-1) is the frequency that the "
         "phrase would have if its n words were independent, and T the number of words taken. It favours "
         "rare "
         "words and grows with n: compare phrases of one length."),
     .Formula = "log2(f * T^(n-1) / (f(w1) * ... * f(wn)))",
     .Value = Association<MutualInformation>,
     .Needs = kWords,
     .Decimals = 2},
    {.Id = "t_score",
     .Heading = TrLater("t"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "(f - E) / sqrt(f), where E = f(w1) * ... * f(wn) / T^(n-1) is the frequency that the phrase "
         "would have if its n words were independent, and T the number of words taken. It favours "
         "frequent phrases."),
     .Formula = "(f - E) / sqrt(f), E = f(w1) * ... * f(wn) / T^(n-1)",
     .Value = Association<TScore>,
     .Needs = kWords,
     .Decimals = 2},
    {.Id = "mi3",
     .Heading = TrLater("MI3"),
     .Type = ColumnType::Real,
     .Unit = "bits",
     .Definition =
         TrLater("log2(f^3 / E), where E = f(w1) * ... * f(wn) / T^(n-1) and T is the number of words taken: "
                 "mutual information that does not favour rare words."),
     .Formula = "log2(f^3 * T^(n-1) / (f(w1) * ... * f(wn)))",
     .Value = Association<MutualInformation3>,
     .Needs = kWords,
     .Decimals = 2},
    {.Id = "log_dice",
     .Heading = TrLater("logDice"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("14 + log2(n * f / (f(w1) + ... + f(wn))), where n is the number of words: at most 14, "
                 "whatever the size of the text (Rychly 2008)."),
     .Formula = "14 + log2(n * f / (f(w1) + ... + f(wn)))",
     .Value = Association<LogDice>,
     .Needs = kWords,
     .Decimals = 2},
    {.Id = "npmi",
     .Heading = TrLater("NPMI"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("MI / (-(n - 1) * log2(f / T)), where T is the number of words taken: 1 where the words "
                 "occur nowhere else, 0 where they are independent. Phrases of different lengths compare "
                 "(Bouma 2009)."),
     .Formula = "MI / (-(n - 1) * log2(f / T))",
     .Value = Association<NormalisedMutualInformation>,
     .Needs = kWords,
     .Decimals = 2},
    {.Id = "mi_min",
     .Heading = TrLater("MI (weakest joint)"),
     .Type = ColumnType::Real,
     .Unit = "bits",
     .Definition = TrLater(
         "The least value of log2(f * T / (f(w1..wi) * f(wi+1..wn))) over the joints i between two words, "
         "where "
         "T is the number of words taken: a phrase is as strong as its weakest joint. Phrases of different "
         "lengths compare."),
     .Formula = "min over i of log2(f * T / (f(w1..wi) * f(wi+1..wn)))",
     .Value = Prepared<&PhraseAnalysis::WeakestJoint>,
     .Needs = {.Positions = true, .Joints = true},
     .Decimals = 2},
    {.Id = "forward",
     .Heading = TrLater("Forward"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "f / f(w1..wn-1): the probability that the last word follows where the words before it stand."),
     .Formula = "f / f(w1..wn-1)",
     .Value = Prepared<&PhraseAnalysis::ForwardProbability>,
     .Needs = {.Joints = true},
     .Decimals = 3},
    {.Id = "backward",
     .Heading = TrLater("Backward"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("f / f(w2..wn): the probability that the first word stands before where the words after it "
                 "stand."),
     .Formula = "f / f(w2..wn)",
     .Value = Prepared<&PhraseAnalysis::BackwardProbability>,
     .Needs = {.Joints = true},
     .Decimals = 3},
};

}  // namespace

std::span<const Column> AssociationColumns() {
  return kAssociationColumns;
}

}  // namespace korv
