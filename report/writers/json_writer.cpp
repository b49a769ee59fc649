#include "report/writers/json_writer.h"

#include "report/writers/json_description.h"

namespace korv {

void JsonRows::Begin(std::span<const Column* const> columns) {
  names_.clear();
  for (const Column* column : columns) {
    std::string name = names_.empty() ? "{" : ",";
    name += text_.Of(column->Id);
    names_.push_back(name + ':');
  }
}

void JsonRows::Append(const RowCells& cells, Pieces& pieces) {
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) {
    pieces.Append(names_[k]);
    AppendValue(cells.OfPhrase[k], pieces);
  }
  pieces.Append('}');
}

void JsonRows::AppendValue(const Cell& cell, Pieces& pieces) {
  if (const auto* text = std::get_if<std::string_view>(&cell))
    pieces.Append(text_.Of(*text));
  else if (std::holds_alternative<std::monostate>(cell))
    pieces.Append("null");
  else
    pieces.Append(number_.Of(cell));
}

void JsonWriter::Begin(std::span<const Column* const> columns, const ColumnSource& source) {
  JsonBuilder json;
  json.BeginObject();
  json.Key("korv").BeginObject();
  AddProgram(about_, json);
  json.End();
  AddSource(source.Facts, about_, json);
  AddSettings(about_, json);
  AddColumns(columns, json);
  json.Key("phrases").BeginArray();
  pieces_.Append(json.Text());
  rows_.Begin(columns);
}

bool JsonWriter::Row(const RowCells& cells) {
  pieces_.Append(first_ ? "\n" : ",\n");
  first_ = false;
  rows_.Append(cells, pieces_);
  return pieces_.HandOverWhenLarge();
}

bool JsonWriter::End(bool stopped) {
  pieces_.Append("\n]");
  // A part must not pass for the whole.
  if (stopped) pieces_.Append(",\"stopped\":true");
  pieces_.Append("}\n");
  return pieces_.HandOverRest();
}

void NdjsonWriter::Begin(std::span<const Column* const> columns, const ColumnSource&) {
  rows_.Begin(columns);
}

bool NdjsonWriter::Row(const RowCells& cells) {
  rows_.Append(cells, pieces_);
  pieces_.Append('\n');
  return pieces_.HandOverWhenLarge();
}

bool NdjsonWriter::End(bool) {
  return pieces_.HandOverRest();
}

}  // namespace korv
