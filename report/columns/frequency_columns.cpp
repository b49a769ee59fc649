#include "report/columns/registry.h"

#include "base/translation.h"

// How often a phrase occurs.

namespace korv {

namespace {

/// parts * f / N; not defined for a run without words.
Cell PartsOfWords(double parts, const ColumnSource& source, const ListedPhrase& phrase) {
  const uint64_t words = source.Facts.Words.Read();
  if (words == 0) return {};
  return parts * source.Table.Count(phrase.Entry) / static_cast<double>(words);
}

std::optional<uint32_t> NetFrequency(const ColumnSource& source, const ListedPhrase& phrase) {
  return source.Analysis ? source.Analysis->NetFrequency(phrase.Entry) : std::nullopt;
}

constexpr Column kFrequencyColumns[] = {
    {.Id = "frequency",
     .Heading = TrLater("Freq"),
     .Type = ColumnType::Integer,
     .Unit = "occurrences",
     .Definition = TrLater("f, the number of times that the phrase occurs."),
     .Formula = "f",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return int64_t{source.Table.Count(phrase.Entry)};
     },
     .Greatest = [](const ColumnSource& source) -> Cell { return int64_t{source.Extent.HighestCount}; }},
    {.Id = "per_million",
     .Heading = TrLater("Per million"),
     .Type = ColumnType::Real,
     .Unit = "occurrences per million words",
     .Definition =
         TrLater("1,000,000 * f / N, where N is the number of running words: all words of the text, dropped "
                 "by a rule or not."),
     .Formula = "1000000 * f / N",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return PartsOfWords(1e6, source, phrase);
     },
     .Decimals = 2,
     .RoundsLarge = true},
    {.Id = "percent",
     .Heading = TrLater("Percent"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition =
         TrLater("100 * f / N, where N is the number of running words: all words of the text, dropped by a "
                 "rule or not."),
     .Formula = "100 * f / N",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return PartsOfWords(100, source, phrase);
     },
     .Decimals = 4},
    {.Id = "net_frequency",
     .Heading = TrLater("Alone"),
     .Type = ColumnType::Integer,
     .Unit = "occurrences",
     .Definition = TrLater(
         "The occurrences of the phrase that stand in no occurrence of a longer phrase, where phrases are "
         "all "
         "those counted that reach the minimum frequency. Phrases of the greatest length never stand in "
         "longer ones; where many of them overlap, count longer phrases, up to 25 words."),
     .Formula = TrLater("the occurrences (p, w) without another (q, v), q <= p and q + v >= p + w"),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       const auto net = NetFrequency(source, phrase);
       return net ? Cell(int64_t{*net}) : Cell();
     },
     .Needs = {.Positions = true, .FreeOccurrences = true}},
    {.Id = "net_percent",
     .Heading = TrLater("Alone %"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition = TrLater("100 * the occurrences of the phrase that stand in no longer phrase / f."),
     .Formula = "100 * net_frequency / f",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       const auto net = NetFrequency(source, phrase);
       return net ? Cell(100.0 * *net / source.Table.Count(phrase.Entry)) : Cell();
     },
     .Needs = {.Positions = true, .FreeOccurrences = true},
     .Decimals = 2},
};

}  // namespace

std::span<const Column> FrequencyColumns() {
  return kFrequencyColumns;
}

}  // namespace korv
