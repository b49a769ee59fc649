#pragma once

#include <string>
#include <vector>

#include "report/writers/json_text.h"
#include "report/writers/list_writer.h"
#include "report/writers/number_text.h"
#include "report/writers/pieces.h"
#include "report/writers/table_description.h"

namespace korv {

/// Phrases as JSON objects (RFC 8259), a line each, with the columns' Ids as names. Numbers are those of the
/// TsvWriter; a value that is not defined is null.
class JsonRows {
 public:
  void Begin(std::span<const Column* const> columns);
  void Append(const RowCells& cells, Pieces& pieces);

 private:
  void AppendValue(const Cell& cell, Pieces& pieces);

  std::vector<std::string> names_;  ///< With all that stands before the value.
  JsonText text_;
  NumberText number_;
};

/// One JSON object: how the list came about, what the columns mean, and "phrases", an array with an object
/// for each. `about` is copied.
class JsonWriter final : public ListWriter {
 public:
  JsonWriter(ReportSink& sink, TableDescription about) : pieces_(sink), about_(std::move(about)) {}

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;

 private:
  Pieces pieces_;
  TableDescription about_;
  JsonRows rows_;
  bool first_ = true;
};

/// A JSON object for each phrase, a line each, and nothing else (newline-delimited JSON).
class NdjsonWriter final : public ListWriter {
 public:
  explicit NdjsonWriter(ReportSink& sink) : pieces_(sink) {}

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;

 private:
  Pieces pieces_;
  JsonRows rows_;
};

}  // namespace korv
