#pragma once

#include <span>
#include <string_view>

#include "report/columns/column.h"
#include "report/writers/json_builder.h"
#include "report/writers/table_description.h"

namespace korv {

// Members of a JSON object that say how a table came about. The builder is within that object.

/// "version", "created" and "command" of the program that wrote it.
void AddProgram(const TableDescription& about, JsonBuilder& json);
/// "source": paths, files, words, words_taken, skipped; of counts paths, counts, skipped.
void AddSource(const RunSummary& facts, const TableDescription& about, JsonBuilder& json);
/// "settings": those of the run by their names.
void AddSettings(const TableDescription& about, JsonBuilder& json);

/// The type that values of such a column have in JSON: "integer", "number", "string".
std::string_view JsonTypeName(ColumnType type);

/// The member "columns": an array of what a reader must know of each (name, type, unit, title, description,
/// formula).
void AddColumns(std::span<const Column* const> columns, JsonBuilder& json);

}  // namespace korv
