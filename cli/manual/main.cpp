// Writes the manual page of korv-count: korv-count-manual TEXT NOTES PAGE

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "cli/manual/manual_columns.h"
#include "cli/manual/manual_options.h"
#include "report/columns/registry.h"

namespace {

/// Empty where there is no such file; a page without its mark is refused later.
std::string Content(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) {
    std::cerr << "Usage: korv-count-manual TEXT NOTES PAGE\n";
    return 2;
  }
  auto page = korv::ManualPage(Content(arguments[1]), korv::OptionRows(), Content(arguments[2]));
  if (!page) {
    std::cerr << arguments[2] << ": " << page.Error().Description << '\n';
    return 1;
  }
  std::ofstream out(arguments[3], std::ios::binary);
  out << korv::WithColumns(*page, korv::TableColumns(korv::TableOf::TwoSides)) << std::flush;
  if (!out) std::cerr << arguments[3] << " cannot be written.\n";
  return out ? 0 : 1;
}
