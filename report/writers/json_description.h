#pragma once

#include <span>
#include <string>

#include "report/columns/column.h"
#include "report/writers/json_builder.h"
#include "report/writers/table_description.h"

namespace korv {

/// Members of a JSON object that say how a table came about: "korv" (version, created, command), "source"
/// (paths, files, words, words_taken, skipped) and "settings". The builder is within that object.
void AddOrigin(const ColumnSource& source, const TableDescription& about, JsonBuilder& json);

/// The member "columns": an array of what a reader must know of each (name, type, unit, title, description,
/// formula).
void AddColumns(std::span<const Column* const> columns, JsonBuilder& json);

}  // namespace korv
