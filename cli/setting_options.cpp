#include "cli/setting_options.h"

#include <algorithm>
#include <string_view>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "cli/option_values.h"

namespace korv {

namespace {

constexpr std::string_view kNone = "none";
constexpr std::string_view kOff = "off";

void Give(const SettingRow& row, CountOptions& options) {
  options.Given.Which |= SetOf(row);
}

/// False where there is no such placeholder.
bool Replace(std::string& text, std::string_view placeholder, const std::string& with) {
  const size_t at = text.find(placeholder);
  if (at != text.npos) text.replace(at, placeholder.size(), with);
  return at != text.npos;
}

// ---- One setting

OptionRow OptionOf(const SettingRow& row, const CheckValue& value) {
  OptionRow option;
  option.Take = [&row, value](const std::string&, CountOptions& options) {
    value.Set(options.Given.Values, !value.Get(Settings{}));
    Give(row, options);
  };
  return option;
}

OptionRow OptionOf(const SettingRow& row, const NumberValue& value) {
  OptionRow option{.ValueName = "N", .Help = Tr(row.Option.Help)};
  const std::string least = std::to_string(value.Least);
  const std::string most = std::to_string(value.Most);
  if (!Replace(option.Help, "{least}", least)) option.Range = least + " to " + most;
  Replace(option.Help, "{most}", most);
  Replace(option.Help, "{default}", std::to_string(value.Get(Settings{})));
  option.Take = [&row, value](const std::string& text, CountOptions& options) {
    if (row.Option.Switch != nullptr) {
      const SettingRow& box = RowOf(row.Option.Switch);
      std::get<CheckValue>(box.Value).Set(options.Given.Values, text != kOff);
      Give(box, options);
      if (text == kOff) return;
    }
    value.Set(options.Given.Values, ParseInRange(text, row.Option.Name, value.Least, value.Most, value.Step));
    Give(row, options);
  };
  return option;
}

OptionRow OptionOf(const SettingRow& row, const ChoiceValue& value) {
  std::vector<std::string> words;
  for (const Choice& choice : value.Choices) words.emplace_back(choice.Word);
  OptionRow option{.ValueName = Joined(words, "|"), .Help = Tr(row.Option.Help)};
  Replace(option.Help, "{default}", words[static_cast<size_t>(value.Get(Settings{}))]);
  option.Take = [&row, value, words](const std::string& text, CountOptions& options) {
    value.Set(options.Given.Values, ParseChoice(text, row.Option.Name, words));
    Give(row, options);
  };
  return option;
}

OptionRow OptionOf(const SettingRow& row, const TextValue& value) {
  OptionRow option{.ValueName = row.Option.ValueName};
  option.Take = [&row, value](const std::string& text, CountOptions& options) {
    value.Set(options.Given.Values, value.Tidied ? value.Tidied(text) : text);
    Give(row, options);
  };
  return option;
}

OptionRow OptionOf(const SettingRow&, const FileListValue&) {
  return {};
}

OptionRow OptionOf(const SettingRow& row) {
  OptionRow option = std::visit([&](const auto& value) { return OptionOf(row, value); }, row.Value);
  option.Name = row.Option.Name;
  option.Group = row.Option.Group;
  if (option.Help.empty()) option.Help = Tr(row.Option.Help);
  return option;
}

// ---- The words of several checkboxes

struct Box {
  std::string Word;
  const SettingRow* Row;
};

std::vector<Box> BoxesOf(const ListOption& list) {
  std::vector<Box> boxes;
  for (const SettingRow& row : Schema())
    if (row.Option.Word != nullptr && std::string_view(row.Option.Name) == list.Name)
      boxes.push_back({row.Option.Word, &row});
  return boxes;
}

/// A list with commas, with or without blanks, of some of `words`, or "none".
std::vector<std::string> ParseWords(const std::string& text, const char* option,
                                    const std::vector<std::string>& words) {
  if (WithoutBlanksAround(text) == kNone) return {};
  std::vector<std::string> named;
  for (size_t at = 0; at <= text.size();) {
    const size_t end = std::min(text.find(',', at), text.size());
    const std::string word = WithoutBlanksAround(text.substr(at, end - at));
    if (std::ranges::find(words, word) == words.end())
      RefuseValue(option, Fill(Tr("'%1' is none of: %2"), {word, Joined(words, " ")}));
    named.push_back(word);
    at = end + 1;
  }
  return named;
}

OptionRow OptionOf(const ListOption& list) {
  const std::vector<Box> boxes = BoxesOf(list);
  std::vector<std::string> words;
  std::vector<std::string> ticked;
  for (const auto& [word, row] : boxes) {
    words.push_back(word);
    if (std::get<CheckValue>(row->Value).Get(Settings{})) ticked.push_back(word);
  }
  OptionRow option{.Name = list.Name, .ValueName = "LIST", .Group = list.Group, .Help = Tr(list.Help)};
  Replace(option.Help, "{default}", Joined(ticked, ","));
  Replace(option.Help, "{words}", Joined(words, " "));
  option.Take = [name = list.Name, boxes, words](const std::string& text, CountOptions& options) {
    const std::vector<std::string> named = ParseWords(text, name, words);
    for (const auto& [word, row] : boxes) {
      std::get<CheckValue>(row->Value)
          .Set(options.Given.Values, std::ranges::find(named, word) != named.end());
      Give(*row, options);
    }
  };
  return option;
}

}  // namespace

std::vector<OptionRow> SettingOptions() {
  std::vector<OptionRow> options;
  for (const SettingRow& row : Schema()) {
    if (row.Option.Name == nullptr || std::ranges::count(options, row.Option.Name, &OptionRow::Name) > 0)
      continue;
    if (row.Option.Word == nullptr) {
      options.push_back(OptionOf(row));
      continue;
    }
    const auto list = std::ranges::find_if(ListOptions(), [&](const ListOption& known) {
      return std::string_view(known.Name) == row.Option.Name;
    });
    options.push_back(OptionOf(*list));
  }
  return options;
}

}  // namespace korv
