#include "cli/argument_names.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <string_view>

#include "base/translation.h"
#include "cli/nearest_name.h"

namespace korv {

namespace {

/// Without "--"; empty where none is near.
std::string_view Nearest(std::string_view typed, std::span<const OptionName> options) {
  std::vector<std::string_view> names;
  for (const OptionName& option : options) names.emplace_back(option.Long);
  return NearestName(typed, names);
}

std::string NoSuchOption(std::string_view shown, std::span<const OptionName> options) {
  std::string_view letters = shown;
  letters.remove_prefix(std::min(letters.find_first_not_of('-'), letters.size()));
  const std::string nearest(Nearest(letters, options));
  if (nearest.empty()) return Fill(Tr("there is no option %1"), {shown});
  return Fill(Tr("there is no option %1; did you mean %2?"), {shown, "--" + nearest});
}

bool IsName(std::string_view argument) {
  return argument.size() > 1 && argument[0] == '-' && !std::isdigit(static_cast<unsigned char>(argument[1]));
}

}  // namespace

std::string FaultInNames(std::span<const std::string> arguments, std::span<const OptionName> options) {
  std::set<std::string> given;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--") break;
    if (!IsName(argument)) continue;
    const bool isLong = argument.starts_with("--");
    const std::string_view shown = isLong ? argument.substr(0, argument.find('=')) : argument.substr(0, 2);
    const auto option = std::ranges::find_if(options, [&](const OptionName& known) {
      return isLong ? known.Long == shown.substr(2) : known.Short == shown.substr(1);
    });
    if (option == options.end()) return NoSuchOption(isLong ? shown : argument, options);
    const bool holdsValue = shown.size() < argument.size();
    const std::string name = "--" + option->Long;
    if (option->Value.empty()) {
      if (isLong && holdsValue) return Fill(Tr("%1 takes no value"), {name});
      continue;
    }
    if (!given.insert(option->Long).second && !option->Repeats) return Fill(Tr("%1 is given twice"), {name});
    const bool isLast = i + 1 == arguments.size();
    if (holdsValue) {
      if (isLong && isLast && argument.ends_with('='))
        return Fill(Tr("%1: 1 required %2 missing"), {name, option->Value});
      continue;
    }
    if (isLast) return Fill(Tr("%1 needs a value: %2"), {name, option->Value});
    ++i;
  }
  return {};
}

}  // namespace korv
