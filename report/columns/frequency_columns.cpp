#include "report/columns/registry.h"

// How often a phrase occurs.

namespace korv {

namespace {

constexpr Column kFrequencyColumns[] = {
    {.Id = "frequency",
     .Heading = "Freq",
     .Type = ColumnType::Integer,
     .Unit = "occurrences",
     .Definition = "f, the number of times that the phrase occurs.",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return int64_t{source.Table.Count(phrase.Entry)};
     },
     .Greatest = [](const ColumnSource& source) -> Cell { return int64_t{source.Extent.HighestCount}; }},
};

}  // namespace

std::span<const Column> FrequencyColumns() {
  return kFrequencyColumns;
}

}  // namespace korv
