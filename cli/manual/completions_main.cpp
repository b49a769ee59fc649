// Writes the completions of korv-count: korv-count-completions bash|zsh|fish FILE

#include <fstream>
#include <iostream>
#include <string_view>

#include "cli/manual/completions.h"

namespace {

struct Shell {
  std::string_view Name;
  std::string (*Completions)(std::span<const korv::OptionRow>);
};

constexpr Shell kShells[] = {
    {"bash", korv::BashCompletions}, {"zsh", korv::ZshCompletions}, {"fish", korv::FishCompletions}};

}  // namespace

int main(int count, char** arguments) {
  if (count == 3)
    for (const Shell& shell : kShells) {
      if (shell.Name != arguments[1]) continue;
      std::ofstream out(arguments[2], std::ios::binary);
      out << shell.Completions(korv::OptionRows()) << std::flush;
      if (!out) std::cerr << arguments[2] << " cannot be written.\n";
      return out ? 0 : 1;
    }
  std::cerr << "Usage: korv-count-completions bash|zsh|fish FILE\n";
  return 2;
}
