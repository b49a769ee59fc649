#include "cli/setting_lines.h"

#include <variant>

#include "app/settings/setting_values.h"

namespace korv {

namespace {

struct ValueText {
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(int64_t value) const { return std::to_string(value); }
  std::string operator()(const std::string& value) const {
    std::string text;
    for (const char c : value) {
      if (c == '\n')
        text += "\\n";
      else if (c == '\r')
        text += "\\r";
      else if (c == '\t')
        text += "\\t";
      else
        text += c == '\\' ? "\\\\" : std::string(1, c);
    }
    return text;
  }
};

}  // namespace

std::string SettingLines(const Settings& settings) {
  std::string lines;
  for (const auto& [name, value] : SettingValues(settings))
    lines += name + "=" + std::visit(ValueText{}, value) + "\n";
  return lines;
}

}  // namespace korv
