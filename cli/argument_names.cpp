#include "cli/argument_names.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <string_view>

namespace korv {

namespace {

/// How many letters must be put in, left out, replaced or exchanged with their neighbour.
size_t Distance(std::string_view a, std::string_view b) {
  std::vector<size_t> before(b.size() + 1);
  std::vector<size_t> last(b.size() + 1);
  std::vector<size_t> row(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    before.swap(last);
    last.swap(row);
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row[b.size()];
}

/// The option that was probably meant; empty where none is near.
std::string Nearest(std::string_view typed, std::span<const OptionName> options) {
  constexpr size_t kLeastBeginning = 3;
  std::string best;
  size_t least = std::max<size_t>(1, typed.size() / 3) + 1;
  for (const OptionName& option : options) {
    // The beginning of a name is as good as one wrong letter.
    const bool begins = typed.size() >= kLeastBeginning && option.Long.starts_with(typed);
    const size_t distance = begins ? 1 : Distance(typed, option.Long);
    if (distance >= least) continue;
    least = distance;
    best = option.Long;
  }
  return best;
}

std::string NoSuchOption(std::string_view shown, std::span<const OptionName> options) {
  std::string_view letters = shown;
  letters.remove_prefix(std::min(letters.find_first_not_of('-'), letters.size()));
  const std::string nearest = Nearest(letters, options);
  return "there is no option " + std::string(shown) +
         (nearest.empty() ? "" : "; did you mean --" + nearest + "?");
}

bool IsName(std::string_view argument) {
  return argument.size() > 1 && argument[0] == '-' && !std::isdigit(static_cast<unsigned char>(argument[1]));
}

/// Patterns that the shell has already replaced look like this too.
std::string TooManyPaths(std::span<const std::string> paths) {
  constexpr size_t kShown = 3;
  std::string text = "only one file or folder can be counted, not";
  for (size_t k = 0; k < std::min(kShown, paths.size()); ++k) text += " " + paths[k];
  return text + (paths.size() > kShown ? " ..." : "") +
         "\nA folder is counted whole, or in part with --patterns \"*.txt\".";
}

}  // namespace

std::string FaultInNames(std::span<const std::string> arguments, std::span<const OptionName> options) {
  std::set<std::string> given;
  std::vector<std::string> paths;
  bool onlyPaths = false;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (!onlyPaths && argument == "--") {
      onlyPaths = true;
      continue;
    }
    if (onlyPaths || !IsName(argument)) {
      paths.emplace_back(argument);
      continue;
    }
    const bool isLong = argument.starts_with("--");
    const std::string_view shown = isLong ? argument.substr(0, argument.find('=')) : argument.substr(0, 2);
    const auto option = std::ranges::find_if(options, [&](const OptionName& known) {
      return isLong ? known.Long == shown.substr(2) : known.Short == shown.substr(1);
    });
    if (option == options.end()) return NoSuchOption(isLong ? shown : argument, options);
    const bool holdsValue = shown.size() < argument.size();
    if (option->Value.empty()) {
      if (isLong && holdsValue) return "--" + option->Long + " takes no value";
      continue;
    }
    if (!given.insert(option->Long).second) return "--" + option->Long + " is given twice";
    if (holdsValue) continue;
    if (++i == arguments.size()) return "--" + option->Long + " needs a value: " + option->Value;
  }
  return paths.size() > 1 ? TooManyPaths(paths) : std::string();
}

}  // namespace korv
