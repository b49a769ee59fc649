#include "report/writers/table_forms.h"

#include <algorithm>

#include "engine/unicode.h"
#include "platform/files.h"
#include "report/writers/tsv_writer.h"

namespace korv {

namespace {

template <typename Writer>
std::unique_ptr<ListWriter> Make(ReportSink& sink) {
  return std::make_unique<Writer>(sink);
}

constexpr TableForm kTableForms[] = {
    {"tsv", "tsv", Make<TsvWriter>},
};

const TableForm* Find(std::string_view text, std::string_view TableForm::*field) {
  const auto found = std::ranges::find(kTableForms, text, field);
  return found == std::end(kTableForms) ? nullptr : found;
}

}  // namespace

std::span<const TableForm> TableForms() {
  return kTableForms;
}

const TableForm* FindTableForm(std::string_view name) {
  return Find(name, &TableForm::Name);
}

const TableForm* TableFormOfFile(const std::filesystem::path& path) {
  const std::string extension = PathToText(path.extension());
  return extension.empty() ? nullptr : Find(LowerText(extension.substr(1)), &TableForm::Extension);
}

}  // namespace korv
