#include "app/settings/settings_difference.h"

namespace korv {
namespace {

/// The fields in their order, each as a text.
struct Values {
  void Text(const std::string& value) { texts.push_back(value); }
  void Check(bool value) { texts.emplace_back(value ? "1" : "0"); }
  void Option(const std::optional<IgnoreRule>& value, IgnoreRule option) { Check(value == option); }
  template <typename Value>
  void Number(const Value& value, int, int, int = 1) {
    texts.push_back(std::to_string(static_cast<int>(value)));
  }
  void List(const std::vector<std::string>& entries, int selected) {
    texts.push_back(std::to_string(entries.size()));
    texts.insert(texts.end(), entries.begin(), entries.end());
    texts.push_back(std::to_string(selected));
  }

  std::vector<std::string> texts;
};

std::vector<std::string> ValuesOf(Settings settings) {
  settings.SourceKind = TextSource::SingleFile;
  settings.InputFile.clear();
  settings.Folder.clear();
  settings.OutputFile.clear();
  settings.Report.FilterText.clear();
  Values values;
  const Settings& kept = settings;
  VisitFields(kept, values);
  return std::move(values.texts);
}

}  // namespace

bool SettingsDiffer(const Settings& one, const Settings& other) {
  return ValuesOf(one) != ValuesOf(other);
}

}  // namespace korv
