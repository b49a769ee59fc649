#include "app/settings/setting_values.h"

#include "app/settings/schema.h"

namespace korv {

namespace {

using Value = TableDescription::Value;

struct Reader {
  const Settings& Of;

  Value operator()(const CheckValue& value) const { return value.Get(Of); }
  Value operator()(const NumberValue& value) const { return int64_t{value.Get(Of)}; }
  Value operator()(const TextValue& value) const { return value.Get(Of); }
  Value operator()(const ChoiceValue& value) const {
    const int chosen = value.Get(Of);
    if (chosen == kNoChoice) return std::string();
    const char* const word = value.Choices[static_cast<size_t>(chosen)].Word;
    return word == nullptr ? Value(int64_t{chosen}) : Value(std::string(word));
  }
  Value operator()(const FileListValue& value) const {
    const std::vector<std::string>& paths = Of.*value.Paths;
    const int selected = Of.*value.Selected;
    const bool any = selected >= 0 && static_cast<size_t>(selected) < paths.size();
    return any ? paths[static_cast<size_t>(selected)] : std::string();
  }
};

}  // namespace

std::vector<std::pair<std::string, Value>> SettingValues(const Settings& settings) {
  std::vector<std::pair<std::string, Value>> values;
  for (const SettingRow& row : Schema())
    values.emplace_back(row.Name, std::visit(Reader{settings}, row.Value));
  return values;
}

}  // namespace korv
