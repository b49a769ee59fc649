#include <array>
#include <string_view>

#include "base/translation.h"
#include "engine/analysis/keyness.h"
#include "report/columns/registry.h"

// What tells two sides of a run apart. Not defined for a run that does not compare.

namespace korv {

namespace {

/// N of a side: all words that were cut from its texts, dropped or not.
uint64_t RunningWords(const RunSummary& facts, Side side) {
  return facts.SecondSide ? SizeOf(facts, side).Words.Read() : 0;
}

std::optional<FrequencyPair> PairOf(std::optional<uint32_t> a, std::optional<uint32_t> b, uint64_t c,
                                    uint64_t d) {
  if (!a || !b || c == 0 || d == 0) return std::nullopt;
  return FrequencyPair{*a, *b, c, d};
}

/// The occurrences of a phrase, whatever it is compared by.
std::optional<FrequencyPair> OccurrencesOf(const ColumnSource& source, PhraseIndex entry) {
  if (source.Analysis == nullptr) return std::nullopt;
  return PairOf(source.Analysis->FrequencyOn(entry, Side::A), source.Analysis->FrequencyOn(entry, Side::B),
                RunningWords(source.Facts, Side::A), RunningWords(source.Facts, Side::B));
}

std::optional<FrequencyPair> ComparedOf(const ColumnSource& source, PhraseIndex entry) {
  const PhraseAnalysis* const analysis = source.Analysis;
  if (analysis == nullptr) return std::nullopt;
  const auto a = analysis->Compared(entry, Side::A);
  const auto b = analysis->Compared(entry, Side::B);
  if (analysis->ComparedBy() == ComparisonBasis::Files)
    return PairOf(a, b, analysis->FilesWithWords(Side::A).value_or(0),
                  analysis->FilesWithWords(Side::B).value_or(0));
  return PairOf(a, b, RunningWords(source.Facts, Side::A), RunningWords(source.Facts, Side::B));
}

Cell CellOf(std::optional<uint32_t> value) {
  return value ? Cell(int64_t{*value}) : Cell();
}

Cell CellOf(std::optional<double> value) {
  return value ? Cell(*value) : Cell();
}

template <Side Of>
Cell Frequency(const ColumnSource& source, const ListedPhrase& phrase) {
  return source.Analysis ? CellOf(source.Analysis->FrequencyOn(phrase.Entry, Of)) : Cell();
}

template <Side Of>
Cell PerMillion(const ColumnSource& source, const ListedPhrase& phrase) {
  const auto pair = OccurrencesOf(source, phrase.Entry);
  if (!pair) return {};
  return Of == Side::A ? 1e6 * static_cast<double>(pair->A) / static_cast<double>(pair->C)
                       : 1e6 * static_cast<double>(pair->B) / static_cast<double>(pair->D);
}

template <Side Of>
Cell Files(const ColumnSource& source, const ListedPhrase& phrase) {
  return source.Analysis ? CellOf(source.Analysis->FilesOn(phrase.Entry, Of)) : Cell();
}

template <Side Of>
Cell DispersionOnSide(const ColumnSource& source, const ListedPhrase& phrase) {
  return source.Analysis ? CellOf(source.Analysis->DispersionOn(phrase.Entry, Of, DispersionP)) : Cell();
}

template <std::optional<double> (*Measure)(const FrequencyPair&)>
Cell Keyness(const ColumnSource& source, const ListedPhrase& phrase) {
  const auto pair = ComparedOf(source, phrase.Entry);
  return pair ? CellOf(Measure(*pair)) : Cell();
}

// By how much more it is in A.
constexpr std::array<std::string_view, 5> kChanges = {"gone", "less", "same", "more", "new"};

std::optional<size_t> ChangeOf(const ColumnSource& source, PhraseIndex entry) {
  const auto pair = OccurrencesOf(source, entry);
  if (!pair) return std::nullopt;
  if (pair->A == 0) return 0;
  if (pair->B == 0) return 4;
  const uint64_t inA = pair->A * pair->D;
  const uint64_t inB = pair->B * pair->C;
  return inA < inB ? 1 : inA > inB ? 3 : 2;
}

constexpr Column kComparisonColumns[] = {
    {.Id = "frequency_a",
     .Heading = TrLater("A"),
     .Type = ColumnType::Integer,
     .Unit = "occurrences",
     .Definition = TrLater("a, the number of times that the phrase occurs in the texts of A."),
     .Formula = "a",
     .Value = Frequency<Side::A>,
     .Needs = {.Sides = true}},
    {.Id = "frequency_b",
     .Heading = TrLater("B"),
     .Type = ColumnType::Integer,
     .Unit = "occurrences",
     .Definition = TrLater("b, the number of times that the phrase occurs in the texts of B."),
     .Formula = "b",
     .Value = Frequency<Side::B>,
     .Needs = {.Sides = true}},
    {.Id = "per_million_a",
     .Heading = TrLater("Per million A"),
     .Type = ColumnType::Real,
     .Unit = "occurrences per million words",
     .Definition =
         TrLater("1,000,000 * a / c, where c is the number of running words of A: all words of its texts, "
                 "dropped by a rule or not."),
     .Formula = "1000000 * a / c",
     .Value = PerMillion<Side::A>,
     .Needs = {.Sides = true},
     .Decimals = 2,
     .RoundsLarge = true},
    {.Id = "per_million_b",
     .Heading = TrLater("Per million B"),
     .Type = ColumnType::Real,
     .Unit = "occurrences per million words",
     .Definition =
         TrLater("1,000,000 * b / d, where d is the number of running words of B: all words of its texts, "
                 "dropped by a rule or not."),
     .Formula = "1000000 * b / d",
     .Value = PerMillion<Side::B>,
     .Needs = {.Sides = true},
     .Decimals = 2,
     .RoundsLarge = true},
    {.Id = "log_ratio",
     .Heading = TrLater("Log ratio"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "How much more frequent the phrase is in A than in B: log2((a / c) / (b / d)), where a or b counts "
         "as "
         "0.5 if it is 0. Each 1 more is twice as often: 3 is eight times as frequent in A, -1 half as "
         "frequent, 0 no difference (Hardie 2014). "
         "Where files are compared, a and b are the files with the phrase, c and d those with words; "
         "where occurrences in no longer phrase are, a and b are these."),
     .Formula = "log2((a / c) / (b / d))",
     .Value = Keyness<LogRatio>,
     .Needs = {.Sides = true},
     .Decimals = 2},
    {.Id = "g2",
     .Heading = TrLater("G2"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "How sure it is that there is a difference, not how large it is: the log likelihood ratio 2 * sum "
         "of "
         "o * ln(o / e) over the four cells a, b, c - a and d - b, with e = c * (a + b) / (c + d) for a and "
         "so on; with a minus where the phrase is rarer in A. Beyond 15.13 one phrase in 10,000 would get "
         "there by chance. Phrases stand in each other and depend on each other, so this sorts out rather "
         "than proves (Dunning 1993)."),
     .Formula =
         "2 * (a * ln(a / E1) + b * ln(b / E2) + (c - a) * ln((c - a) / (c - E1)) + (d - b) * ln((d - b) "
         "/ (d - E2))), E1 = c * (a + b) / (c + d), E2 = d * (a + b) / (c + d)",
     .Value = Keyness<SignedG2>,
     .Needs = {.Sides = true},
     .Decimals = 2},
    {.Id = "bic",
     .Heading = TrLater("BIC"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("|G2| - ln(c + d): how strong the evidence for a difference is, whatever the size of the "
                 "texts. 0 to "
                 "2 weak, 2 to 6 positive, 6 to 10 strong, above 10 very strong; below 0 it speaks for "
                 "there being no "
                 "difference (Wilson 2013)."),
     .Formula = "|G2| - ln(c + d)",
     .Value = Keyness<DifferenceBic>,
     .Needs = {.Sides = true},
     .Decimals = 2},
    {.Id = "percent_difference",
     .Heading = TrLater("% difference"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition = TrLater(
         "100 * (a / c - b / d) / (b / d): by how many per cent more frequent the phrase is in A than "
         "in B. Not defined for a phrase that B does not have (Gabrielatos and Marchi 2011)."),
     .Formula = "100 * (a / c - b / d) / (b / d)",
     .Value = Keyness<PercentDifference>,
     .Needs = {.Sides = true},
     .Decimals = 2},
    {.Id = "simple_maths",
     .Heading = TrLater("Simple maths"),
     .Type = ColumnType::Real,
     .Definition = TrLater(
         "(1,000,000 * a / c + k) / (1,000,000 * b / d + k): how many times as frequent the phrase is in A. "
         "k, usually 1, keeps rare phrases down: the greater it is, the more frequent are those on top "
         "(Kilgarriff 2009)."),
     .Formula = "(1000000 * a / c + k) / (1000000 * b / d + k)",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       const auto pair = ComparedOf(source, phrase.Entry);
       return pair ? CellOf(SimpleMaths(*pair, source.SimpleMathsK)) : Cell();
     },
     .Needs = {.Sides = true},
     .Decimals = 2},
    {.Id = "files_a",
     .Heading = TrLater("Files A"),
     .Type = ColumnType::Integer,
     .Unit = "files",
     .Definition = TrLater("The number of files of A in which the phrase occurs at least once."),
     .Value = Files<Side::A>,
     .Needs = {.SideFiles = true}},
    {.Id = "files_b",
     .Heading = TrLater("Files B"),
     .Type = ColumnType::Integer,
     .Unit = "files",
     .Definition = TrLater("The number of files of B in which the phrase occurs at least once."),
     .Value = Files<Side::B>,
     .Needs = {.SideFiles = true}},
    {.Id = "dispersion_a",
     .Heading = TrLater("Dispersion A"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("How evenly the phrase is spread over the texts of A: the dispersion D_P of its occurrences "
                 "there over the files of A, or equal parts of a single text. 1 for an even spread, 0 where "
                 "all stand in one part."),
     .Formula = "1 - DP / (1 - min(w_i : t_i > 0)), DP = 0.5 * sum |t_i - w_i|",
     .Value = DispersionOnSide<Side::A>,
     .Needs = {.SideParts = true},
     .Decimals = 2},
    {.Id = "dispersion_b",
     .Heading = TrLater("Dispersion B"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("How evenly the phrase is spread over the texts of B: the dispersion D_P of its occurrences "
                 "there over the files of B, or equal parts of a single text. 1 for an even spread, 0 where "
                 "all stand in one part."),
     .Formula = "1 - DP / (1 - min(w_i : t_i > 0)), DP = 0.5 * sum |t_i - w_i|",
     .Value = DispersionOnSide<Side::B>,
     .Needs = {.SideParts = true},
     .Decimals = 2},
    {.Id = "change",
     .Heading = TrLater("Change"),
     .Type = ColumnType::Text,
     .Align = Alignment::Left,
     .Definition = TrLater(
         "What became of the phrase where A is a new version of B: \"new\" if only A has it, \"gone\" if "
         "only B has it, else \"more\", \"less\" or \"same\" by its occurrences per running word."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       const auto change = ChangeOf(source, phrase.Entry);
       return change ? Cell(kChanges[*change]) : Cell();
     },
     .OrderKey = [](const ColumnSource& source, PhraseIndex entry) -> double {
       return static_cast<double>(ChangeOf(source, entry).value_or(0));
     },
     .Needs = {.Sides = true}},
};

}  // namespace

std::span<const Column> ComparisonColumns() {
  return kComparisonColumns;
}

}  // namespace korv
