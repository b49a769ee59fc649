#include "report/columns/registry.h"

#include "base/translation.h"

// What a phrase is: its place in the list, its text and its size.

namespace korv {

namespace {

constexpr Column kPhraseColumns[] = {
    {.Id = "rank",
     .Heading = TrLater("Rank"),
     .Type = ColumnType::Integer,
     .Definition =
         TrLater("The place of the phrase when all listed phrases are ordered by frequency, whatever the "
                 "order of the list and its filter: 1 for the most frequent one; phrases of the same "
                 "frequency stand in alphabetical order."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return int64_t{ValueOf(source.FrequencyRanks.empty() ? source.Table.ChainPosition(phrase.Entry)
                                                            : source.FrequencyRanks[ValueOf(phrase.Entry)])};
     },
     .NeedsFrequencyRanks = true},
    {.Id = "phrase",
     .Heading = TrLater("Phrase"),
     .Type = ColumnType::Text,
     .Align = Alignment::Left,
     .Definition = TrLater("The words of the phrase as they were counted, with single blanks between them."),
     .Value = [](const ColumnSource&, const ListedPhrase& phrase) -> Cell { return phrase.Text(); },
     // Entries are in alphabetical order.
     .OrderKey = [](const ColumnSource&, PhraseIndex entry) -> double { return ValueOf(entry); }},
    {.Id = "words",
     .Heading = TrLater("Words"),
     .Type = ColumnType::Integer,
     .Unit = "words",
     .Definition = TrLater("The number of words of the phrase."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return int64_t{source.Table.Words(phrase.Entry)};
     }},
    {.Id = "characters",
     .Heading = TrLater("Characters"),
     .Type = ColumnType::Integer,
     .Unit = "characters",
     .Definition = TrLater("The number of characters of the phrase, with the blanks between its words."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return int64_t{source.Table.Characters(phrase.Entry)};
     }},
};

}  // namespace

std::span<const Column> PhraseColumns() {
  return kPhraseColumns;
}

}  // namespace korv
