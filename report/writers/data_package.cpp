#include "report/writers/data_package.h"

#include "engine/text/unicode.h"
#include "platform/files.h"
#include "report/writers/json_builder.h"
#include "report/writers/json_description.h"
#include "report/writers/json_text.h"
#include "report/writers/table_forms.h"

namespace korv {

namespace {

constexpr std::string_view kPathKey = "\"path\":";

/// Names of packages have lower-case ASCII letters, digits, ".", "_" and "-".
std::string PackageName(const std::string& path) {
  std::string name;
  for (const char c : LowerText(PathToText(PathFromText(path).stem()))) {
    const bool taken = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '.';
    if (taken)
      name += c;
    else if (!name.empty() && name.back() != '-')
      name += '-';
  }
  while (!name.empty() && name.back() == '-') name.pop_back();
  return name.empty() ? "phrases" : name;
}

void AddDialect(const TableDialect& dialect, JsonBuilder& json) {
  json.Key("dialect").BeginObject();
  json.Key("delimiter").Value(dialect.Delimiter).Key("lineTerminator").Value(dialect.LineEnd);
  if (dialect.Quotes) json.Key("quoteChar").Value("\"").Key("doubleQuote").Value(true);
  json.Key("header").Value(true).End();
}

void AddSchema(std::span<const Column* const> columns, std::string_view decimalPoint, JsonBuilder& json) {
  bool hasPhrase = false;
  json.Key("schema").BeginObject().Key("fields").BeginArray();
  for (const Column* column : columns) {
    json.BeginObject().Key("name").Value(column->Id).Key("type").Value(JsonTypeName(column->Type));
    if (column->Type == ColumnType::Real && decimalPoint != ".") json.Key("decimalChar").Value(decimalPoint);
    json.Key("title").Value(column->Heading).Key("description").Value(column->Definition).End();
    hasPhrase = hasPhrase || column->Id == "phrase";
  }
  json.End();
  if (hasPhrase) json.Key("primaryKey").Value("phrase");
  json.End();
}

void AddResource(const TableOutput& table, std::span<const Column* const> columns,
                 const WrittenTable& written, JsonBuilder& json) {
  const TableForm& form = *table.Form;
  json.BeginObject().Key("name").Value("phrases");
  if (!written.Path.empty()) json.Key("path").Value(written.Path);
  json.Key("profile").Value(form.Tabular ? "tabular-data-resource" : "data-resource");
  json.Key("format").Value(form.Name).Key("mediatype").Value(form.MediaType);
  if (!form.Binary) json.Key("encoding").Value("utf-8");
  std::string_view decimalPoint = ".";
  if (form.Dialect != nullptr) {
    const TableDialect dialect = form.Dialect(table.About);
    decimalPoint = dialect.DecimalPoint;
    AddDialect(dialect, json);
  }
  AddSchema(columns, decimalPoint, json);
  json.Key("bytes").Value(written.Bytes).Key("hash").Value("sha256:" + written.Sha256).End();
}

}  // namespace

std::string DataPackageText(const TableOutput& table, std::span<const Column* const> columns,
                            const RunSummary& facts, const WrittenTable& written) {
  const TableDescription& about = table.About;
  JsonBuilder json;
  json.BeginObject().Key("name").Value(PackageName(written.Path)).Key("created").Value(about.Created);
  json.Key("resources").BeginArray();
  AddResource(table, columns, written, json);
  json.End();
  json.Key("korv").BeginObject();
  AddProgram(about, json);
  AddSource(facts, about, json);
  AddSettings(about, json);
  json.Key("counts").BeginObject().Key("listed").Value(written.Listed);
  json.Key("phrases").Value(written.Phrases).Key("occurrences").Value(written.Occurrences).End();
  if (written.Stopped) json.Key("stopped").Value(true);
  json.End().End();
  return json.Text() + '\n';
}

std::string DataPackagePathMember(const std::string& path) {
  JsonText text;
  return std::string(kPathKey) + std::string(text.Of(path)) + ",\"profile\":";
}

}  // namespace korv
