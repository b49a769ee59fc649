#include "desktop/results/table/first_column.h"

#include "app/contexts/context_texts.h"
#include "base/translation.h"
#include "engine/corpus/corpus.h"

namespace korv {

const Column& FirstColumn() {
  static constexpr Column kFirst{
      .Id = "first",
      .Heading = TrLater("First"),
      .Type = ColumnType::Text,
      .Align = Alignment::Left,
      .Definition =
          TrLater("The file and the line of the earliest occurrence, files in the order in which they were "
                  "read; in a document, the line of the text that was extracted from it."),
      .OrderKey = [](const ColumnSource& source, PhraseIndex entry) -> double {
        return ValueOf(source.Table.First(entry));
      },
      .NeedsPlaces = true};
  return kFirst;
}

std::string FirstPlace(const CountedRun& run, PhraseIndex entry) {
  const Corpus& corpus = run.Table.Corpus();
  const Place first = run.Table.First(entry);
  const size_t source = corpus.SourceAt(first);
  const uint32_t line = corpus.Lines.LineNumber(first);
  return line == 0 ? NameOfText(run, source) : PlaceName(run, source, line);
}

}  // namespace korv
