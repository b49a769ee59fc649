#include "report/writers/table_forms.h"

#include <algorithm>

#include "engine/text/unicode.h"
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

}  // namespace

std::span<const TableForm> TableForms() {
  return kTableForms;
}

const TableForm* TableFormOfFile(const std::filesystem::path& path) {
  const std::string extension = PathToText(path.extension());
  if (extension.empty()) return nullptr;
  const auto found = std::ranges::find(kTableForms, LowerText(extension.substr(1)), &TableForm::Extension);
  return found == std::end(kTableForms) ? nullptr : found;
}

}  // namespace korv
