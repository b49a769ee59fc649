#include "report/row_builder.h"

#include <algorithm>
#include <new>

#include "engine/corpus/corpus.h"

namespace korv {

RowBuilder::RowBuilder(std::span<const Column* const> columns, const ColumnSource& source) : source_(source) {
  for (const Column* column : columns) {
    (column->Value ? ofPhrase_ : inFile_).push_back(column);
    needsFiles_ = needsFiles_ || column->NeedsFiles;
    needsFileCount_ = needsFileCount_ || column->NeedsFileCount;
  }
  phraseCells_.resize(ofPhrase_.size());
  cells_.OfPhrase = phraseCells_;
}

const RowCells& RowBuilder::Cells(PhraseIndex entry, std::string_view text) {
  if (needsFiles_) files_ = source_.Table.Files(entry);
  const ListedPhrase phrase(entry, text, files_.Items(), needsFileCount_ ? FileCount(entry) : 0);
  // Each cell is constructed in place: copying a cell costs more than making it.
  for (size_t k = 0; k < ofPhrase_.size(); ++k)
    new (&phraseCells_[k]) Cell(ofPhrase_[k]->Value(source_, phrase));
  if (!inFile_.empty()) {
    fileCells_.clear();
    for (const DocumentCounts::Item& file : phrase.Files)
      for (const Column* column : inFile_) fileCells_.push_back(column->ValueInFile(source_, phrase, file));
    cells_.OfFiles = fileCells_;
  }
  return cells_;
}

uint32_t RowBuilder::FileCount(PhraseIndex entry) {
  const PhraseTable& table = source_.Table;
  if (source_.Facts.Options.SourceKind != TextSource::Folder) return 1;
  const std::span<const Place> places = table.Places(entry);
  if (places.empty()) return table.FileCount(entry);
  sources_.clear();
  for (const Place place : places) sources_.push_back(table.Corpus().SourceAt(place));
  std::sort(sources_.begin(), sources_.end());
  return static_cast<uint32_t>(std::unique(sources_.begin(), sources_.end()) - sources_.begin());
}

}  // namespace korv
