#include "report/writers/json_description.h"

namespace korv {

namespace {

void AddSkipped(const RunSummary& facts, JsonBuilder& json) {
  json.Key("skipped").BeginArray();
  for (const SkippedFile& file : facts.SkippedFiles)
    json.BeginObject().Key("path").Value(file.Path).Key("reason").Value(file.Reason).End();
  json.End();
}

void AddTextOrNull(std::string_view name, std::string_view text, JsonBuilder& json) {
  json.Key(name);
  if (text.empty())
    json.Null();
  else
    json.Value(text);
}

void AddSize(const SideSize& size, JsonBuilder& json) {
  json.Key("files").Value(size.Files);
  json.Key("words").Value(size.Words.Read()).Key("words_taken").Value(size.Words.Taken);
}

}  // namespace

std::string_view JsonTypeName(ColumnType type) {
  switch (type) {
    case ColumnType::Integer:
      return "integer";
    case ColumnType::Real:
      return "number";
    case ColumnType::Text:
      break;
  }
  return "string";
}

void AddProgram(const TableDescription& about, JsonBuilder& json) {
  json.Key("version").Value(about.Version).Key("created").Value(about.Created);
  AddTextOrNull("command", about.Command, json);
}

void AddSource(const RunSummary& facts, const TableDescription& about, JsonBuilder& json) {
  json.Key("source").BeginObject().Key("paths").BeginArray();
  for (const std::string& path : about.Paths) json.Value(path);
  json.End();
  if (facts.SecondSide) {
    AddSize(SizeOf(facts, Side::A), json);
    json.Key("compared_with").BeginObject().Key("paths").BeginArray();
    for (const SourcePath& path : facts.SecondSide->Paths) json.Value(path.Path);
    json.End();
    AddSize(SizeOf(facts, Side::B), json);
    json.End().Key("compared_by").Value(NameOfBasis(about.ComparedBy));
    json.Key("simple_maths_k").Value(about.SimpleMathsK);
  } else if (facts.Counts) {
    json.Key("counts").Value(facts.Counts->Counts);
  } else {
    json.Key("files").Value(FilesRead(facts));
    json.Key("words").Value(facts.Words.Read()).Key("words_taken").Value(facts.Words.Taken);
  }
  AddSkipped(facts, json);
  json.End();
}

void AddSettings(const TableDescription& about, JsonBuilder& json) {
  json.Key("settings").BeginObject();
  for (const auto& [name, value] : about.Settings) {
    json.Key(name);
    std::visit([&](const auto& one) { json.Value(one); }, value);
  }
  json.End();
}

void AddColumns(std::span<const Column* const> columns, JsonBuilder& json) {
  json.Key("columns").BeginArray();
  for (const Column* column : columns) {
    json.BeginObject().Key("name").Value(column->Id).Key("type").Value(JsonTypeName(column->Type));
    AddTextOrNull("unit", column->Unit, json);
    json.Key("title").Value(column->Heading).Key("description").Value(column->Definition);
    AddTextOrNull("formula", column->Formula, json);
    json.End();
  }
  json.End();
}

}  // namespace korv
