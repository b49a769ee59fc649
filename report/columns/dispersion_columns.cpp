#include "report/columns/registry.h"

#include "base/translation.h"

// How evenly the occurrences of a phrase are spread over the text. Their values cost a look at each
// occurrence.

namespace korv {

namespace {

template <double (*Measure)(const PhraseSpread&)>
Cell Dispersion(const ColumnSource& source, const ListedPhrase& phrase) {
  if (source.Analysis == nullptr) return {};
  const auto value = source.Analysis->Dispersion(phrase.Entry, Measure);
  return value ? Cell(*value) : Cell();
}

constexpr Column kDispersionColumns[] = {
    {.Id = "dispersion",
     .Heading = TrLater("Dispersion"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "D_P = 1 - DP / (1 - the least w_i of the parts with the phrase), DP = 0.5 * sum |t_i - w_i|, where "
         "w_i is the share of part i of all words and t_i its share of the phrase's occurrences: 1 for an "
         "even spread, 0 where all stand in one part (Egbert, Burch and Biber 2020). Parts are the files, or "
         "equal parts of a single text. Few occurrences cannot reach 1."),
     .Formula = "1 - DP / (1 - min(w_i : t_i > 0)), DP = 0.5 * sum |t_i - w_i|",
     .Value = Dispersion<DispersionP>,
     .Needs = {.Parts = true},
     .Decimals = 2},
    {.Id = "dp",
     .Heading = TrLater("DP"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("DP = 0.5 * sum |t_i - w_i|, where w_i is the share of part i of all words and t_i its "
                 "share of the phrase's occurrences: 0 for an even spread (Gries 2008)."),
     .Formula = "0.5 * sum |t_i - w_i|",
     .Value = Dispersion<DeviationOfProportions>,
     .Needs = {.Parts = true},
     .Decimals = 2},
    {.Id = "dp_norm",
     .Heading = TrLater("DPnorm"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("DP / (1 - the least w_i), where w_i is the share of part i of all words: 0 for an even "
                 "spread, 1 where all stand in the smallest part (Lijffijt and Gries 2012)."),
     .Formula = "DP / (1 - min w_i)",
     .Value = Dispersion<NormalisedDeviation>,
     .Needs = {.Parts = true},
     .Decimals = 2},
    {.Id = "juilland_d",
     .Heading = TrLater("Juilland's D"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("D = 1 - V / sqrt(k - 1), where V is the standard deviation of the phrase's rates per word "
                 "in the k parts divided by their mean; not below 0. 1 for an even spread, 0 where all "
                 "stand in one part (Juilland and Chang-Rodriguez 1964)."),
     .Formula = "max(0, 1 - (sd(R) / mean(R)) / sqrt(k - 1))",
     .Value = Dispersion<JuillandD>,
     .Needs = {.Parts = true},
     .Decimals = 2},
    {.Id = "d_a",
     .Heading = TrLater("D_A"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("D_A = 2 * (sum of i * r_i - 1) / (k - 1), where r_i are the phrase's rates per word in the "
                 "k parts, each divided by the sum of all, in descending order: 1 for an even spread, 0 "
                 "where all stand in one part (Burch, Egbert and Biber 2017)."),
     .Formula = "2 * (sum i * r_(i) - 1) / (k - 1)",
     .Value = Dispersion<DispersionA>,
     .Needs = {.Parts = true},
     .Decimals = 2},
    {.Id = "d_kl",
     .Heading = TrLater("D_KL"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("D_KL = K / (1 + K), K = sum of t_i * log2(t_i / w_i), where w_i is the share of part i of "
                 "all words and t_i its share of the phrase's occurrences: 0 for an even spread (Gries "
                 "2024)."),
     .Formula = "K / (1 + K), K = sum t_i * log2(t_i / w_i)",
     .Value = Dispersion<KullbackLeiblerD>,
     .Needs = {.Parts = true},
     .Decimals = 2},
    {.Id = "range",
     .Heading = TrLater("Range"),
     .Type = ColumnType::Integer,
     .Unit = "parts",
     .Definition =
         TrLater("The number of parts of the text in which the phrase occurs. Parts are the files, or equal "
                 "parts of a single text."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       if (source.Analysis == nullptr) return {};
       const auto range = source.Analysis->Range(phrase.Entry);
       return range ? Cell(int64_t{*range}) : Cell();
     },
     .Needs = {.Parts = true}},
    {.Id = "arf",
     .Heading = TrLater("ARF"),
     .Type = ColumnType::Real,
     .Unit = "occurrences",
     .Definition = TrLater(
         "Average reduced frequency: (1 / v) * the sum of min(d, v) over the distances d in words from each "
         "occurrence to the next, the last one to the first round the end of the text; v = n / f, n the "
         "number of words taken. f for an even spread, near 1 for a heap (Savicky and Hlavacova 2002)."),
     .Formula = "(1 / v) * sum min(d_j, v), v = n / f",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       if (source.Analysis == nullptr) return {};
       const auto value = source.Analysis->ReducedFrequency(phrase.Entry);
       return value ? Cell(*value) : Cell();
     },
     .Needs = {.Positions = true},
     .Decimals = 2},
};

}  // namespace

std::span<const Column> DispersionColumns() {
  return kDispersionColumns;
}

}  // namespace korv
