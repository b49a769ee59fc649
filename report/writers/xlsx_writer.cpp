#include "report/writers/xlsx_writer.h"

#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

/// In characters. A heading has the arrow of its filter beside it.
double WidthOf(const Column& column) {
  constexpr double kPhrase = 40;
  constexpr double kText = 30;
  constexpr double kNumber = 10;
  constexpr double kArrow = 4;
  if (column.Type == ColumnType::Text) return column.Id == "phrase" ? kPhrase : kText;
  return std::max(kNumber, static_cast<double>(CharacterCount(HeadingText(column))) + kArrow);
}

}  // namespace

XlsxWriter::XlsxWriter(ReportSink& sink, TableDescription about, FileSystem& files, const SheetLimits& limits)
    : sink_(sink), about_(std::move(about)), limits_(limits), files_(files), file_(files) {
  if (!file_.Fault()) book_.emplace(file_.Path(), file_.Folder());
}

void XlsxWriter::Begin(std::span<const Column* const> columns, const ColumnSource& source) {
  columns_.assign(columns.begin(), columns.end());
  facts_ = FactsOf(source, about_);
  if (!book_) return;
  book_->Describe(Tr("Phrases"), about_.Created);
  BeginSheet();
}

bool XlsxWriter::Row(const RowCells& cells) {
  if (!book_) return false;
  if (row_ == limits_.Rows) {
    EndSheet();
    BeginSheet();
  }
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) Put(static_cast<int>(k), cells.OfPhrase[k]);
  ++row_;
  return !Fault();
}

bool XlsxWriter::End(bool stopped) {
  // Who stops does not want to wait for it.
  if (!book_ || stopped) return false;
  EndSheet();
  WriteAbout();
  book_->Close(files_);
  return !Fault() && file_.HandOver(sink_);
}

std::optional<FileError> XlsxWriter::Fault() const {
  return book_ && book_->Fault() ? book_->Fault() : file_.Fault();
}

void XlsxWriter::BeginSheet() {
  ++sheets_;
  // Formulas and programs name sheets.
  book_->AddSheet(sheets_ == 1 ? "Phrases" : "Phrases " + std::to_string(sheets_));
  for (size_t k = 0; k < columns_.size(); ++k) {
    const int column = static_cast<int>(k);
    book_->SetWidth(column, WidthOf(*columns_[k]));
    book_->PutText(0, column, HeadingText(*columns_[k]), XlsxBook::Weight::Bold);
  }
  row_ = 1;
}

void XlsxWriter::EndSheet() {
  book_->MakeHeading(row_ - 1, static_cast<int>(columns_.size()) - 1);
}

void XlsxWriter::Put(int column, const Cell& cell) {
  if (const auto* text = std::get_if<std::string_view>(&cell))
    book_->PutText(row_, column, SheetText(*text, limits_.Characters));
  else if (const auto* whole = std::get_if<int64_t>(&cell))
    book_->PutWhole(row_, column, *whole);
  else if (const auto* real = std::get_if<double>(&cell))
    book_->PutReal(row_, column, *real);
}

void XlsxWriter::Tell(const std::string& name, std::string_view value) {
  book_->PutText(row_, 0, SheetText(name, limits_.Characters), XlsxBook::Weight::Bold);
  do {
    book_->PutText(row_++, 1, TakeSheetText(value, limits_.Characters));
  } while (!value.empty());
}

void XlsxWriter::WriteAbout() {
  constexpr double kWidths[] = {30, 30, 80, 50};
  book_->AddSheet("About");
  row_ = 0;
  for (int k = 0; k < static_cast<int>(std::size(kWidths)); ++k) book_->SetWidth(k, kWidths[k]);
  for (const TableFact& fact : facts_) Tell(fact.Name, fact.Value);
  ++row_;
  constexpr const char* kHeadings[] = {TrLater("Column"), TrLater("Name"), TrLater("Meaning"),
                                       TrLater("Formula")};
  for (int k = 0; k < static_cast<int>(std::size(kHeadings)); ++k)
    book_->PutText(row_, k, Tr(kHeadings[k]), XlsxBook::Weight::Bold);
  for (const Column* column : columns_) {
    ++row_;
    const std::string_view texts[] = {HeadingText(*column), column->Id, DefinitionText(*column),
                                      column->Formula.empty() ? "" : Tr(column->Formula.data())};
    for (int k = 0; k < static_cast<int>(std::size(texts)); ++k)
      book_->PutText(row_, k, SheetText(texts[k], limits_.Characters));
  }
}

}  // namespace korv
