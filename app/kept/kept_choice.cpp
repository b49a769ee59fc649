#include "app/kept/kept_choice.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "app/run/comparison_request.h"
#include "app/settings/schema.h"
#include "base/utf8.h"

namespace korv {

namespace {

void AppendText(std::string_view text, std::string& bytes) {
  AppendBytes(MendedUtf8(text), bytes);
}

void AppendTexts(const std::vector<std::string>& texts, std::string& bytes) {
  AppendNumber(static_cast<uint32_t>(texts.size()), bytes);
  for (const std::string& text : texts) AppendText(text, bytes);
}

/// The value of a setting as bytes.
class ValueBytes {
 public:
  explicit ValueBytes(const Settings& settings) : settings_(settings) {}

  std::string operator()(const CheckValue& value) const {
    std::string bytes;
    AppendBool(value.Get(settings_), bytes);
    return bytes;
  }
  std::string operator()(const TextValue& value) const {
    std::string bytes;
    AppendText(value.Get(settings_), bytes);
    return bytes;
  }
  std::string operator()(const FileListValue& value) const {
    std::string bytes;
    AppendTexts(settings_.*value.Paths, bytes);
    AppendNumber(int32_t{settings_.*value.Selected}, bytes);
    return bytes;
  }
  template <typename Value>
  std::string operator()(const Value& value) const {
    std::string bytes;
    AppendNumber(int32_t{value.Get(settings_)}, bytes);
    return bytes;
  }

 private:
  const Settings& settings_;
};

/// Takes the value of a setting. False where it is out of its range.
class ValueTaker {
 public:
  ValueTaker(KeptReader& reader, const SettingRow& row, Settings& settings)
      : reader_(reader), row_(row), settings_(settings) {}

  bool operator()(const CheckValue& value) {
    value.Set(settings_, reader_.TakeBool());
    return true;
  }
  bool operator()(const TextValue& value) {
    value.Set(settings_, reader_.TakeText());
    return true;
  }
  bool operator()(const NumberValue& value) {
    const auto number = reader_.Take<int32_t>();
    if (number < value.Least || number > value.Most || (number - value.Least) % value.Step != 0) return false;
    value.Set(settings_, number);
    return true;
  }
  bool operator()(const ChoiceValue& value) {
    const auto choice = reader_.Take<int32_t>();
    // There may be no option button selected in this group alone.
    const bool none = choice == kNoChoice && std::string_view(row_.Name) == "IgnoreOption";
    if (!none && (choice < 0 || choice >= static_cast<int>(value.Choices.size()))) return false;
    value.Set(settings_, choice);
    return true;
  }
  bool operator()(const FileListValue& value) {
    std::vector<std::string> paths = reader_.TakeTexts();
    const auto selected = reader_.Take<int32_t>();
    if (paths.size() > kMostWordsFiles || selected < -1 || selected >= static_cast<int>(paths.size()))
      return false;
    settings_.*value.Paths = std::move(paths);
    settings_.*value.Selected = selected;
    return true;
  }

 private:
  KeptReader& reader_;
  const SettingRow& row_;
  Settings& settings_;
};

Settings TakeSettings(KeptReader& reader) {
  Settings settings;
  for (auto rows = reader.Take<uint32_t>(); rows > 0 && !reader.Failed(); --rows) {
    const std::string name = reader.TakeText();
    const auto bytes = reader.Take<uint32_t>();
    const auto row =
        std::ranges::find_if(Schema(), [&](const SettingRow& known) { return name == known.Name; });
    if (row == Schema().end()) {
      reader.TakeBytes(bytes);
      continue;
    }
    const uint64_t left = reader.Left();
    if (!std::visit(ValueTaker(reader, *row, settings), row->Value) || left - reader.Left() != bytes)
      reader.Fail(OpenFault::Damaged);
  }
  if (settings.MinWords > settings.MaxWords) reader.Fail(OpenFault::Damaged);
  return settings;
}

void AppendLoaded(const std::optional<WordList>& loaded, std::string& bytes) {
  AppendBool(loaded.has_value(), bytes);
  if (!loaded) return;
  AppendBytes(BytesOfPath(loaded->Path), bytes);
  AppendBool(loaded->HasPatterns, bytes);
  AppendTexts(loaded->Words, bytes);
}

std::optional<WordList> TakeLoaded(KeptReader& reader) {
  if (!reader.TakeBool()) return std::nullopt;
  WordList list;
  list.Path = reader.TakePath();
  list.HasPatterns = reader.TakeBool();
  list.Words = reader.TakeTexts();
  return list;
}

void AppendPaths(const std::vector<SourcePath>& paths, std::string& bytes) {
  AppendNumber(static_cast<uint32_t>(paths.size()), bytes);
  for (const SourcePath& source : paths) {
    AppendNumber(static_cast<uint8_t>(source.What), bytes);
    AppendBytes(BytesOfPath(PathFromText(source.Path)), bytes);
  }
}

std::vector<SourcePath> TakePaths(KeptReader& reader, SourcePath::Kind last) {
  std::vector<SourcePath> paths;
  for (auto left = reader.Take<uint32_t>(); left > 0 && !reader.Failed(); --left) {
    const auto kind = reader.Take<uint8_t>();
    if (kind > static_cast<uint8_t>(last)) reader.Fail(OpenFault::Damaged);
    paths.push_back({BytesOfPath(reader.TakePath()), static_cast<SourcePath::Kind>(kind)});
  }
  return paths;
}

ComparisonBasis TakeBasis(KeptReader& reader) {
  const auto basis = reader.Take<uint8_t>();
  if (basis > static_cast<uint8_t>(ComparisonBasis::Net)) reader.Fail(OpenFault::Damaged);
  return static_cast<ComparisonBasis>(basis);
}

ComparisonChoice TakeHow(KeptReader& reader) {
  ComparisonChoice how;
  how.Basis = TakeBasis(reader);
  how.SimpleMathsK = std::bit_cast<double>(reader.Take<uint64_t>());
  how.Drafts = reader.TakeBool();
  if (!(how.SimpleMathsK >= kLeastSimpleMathsK && how.SimpleMathsK <= kMostSimpleMathsK))
    reader.Fail(OpenFault::Damaged);
  return how;
}

const Workspace::ListPart& PartOf(const Workspace::State& state, ListKind kind) {
  return state.Lists[static_cast<size_t>(kind)];
}

}  // namespace

RunRequest RequestOf(const KeptChoice& choice) {
  Workspace work(choice.Chosen.Chosen);
  work.PutBack(ChangedBy::Program, choice.Chosen);
  RunRequest request = work.RequestOfNow();
  if (!choice.Compared.empty()) request = ComparisonOf(std::move(request), choice.Compared, choice.How);
  if (choice.SingleWords) request = SingleWordsOf(std::move(request));
  request.OffersWaysOut = true;
  request.Options.KeepPlaces = true;
  return request;
}

void AppendChoice(const Workspace::State& chosen, const CountedRun& run, std::string& bytes) {
  AppendNumber(static_cast<uint32_t>(Schema().size()), bytes);
  for (const SettingRow& row : Schema()) {
    AppendText(row.Name, bytes);
    AppendBytes(std::visit(ValueBytes(chosen.Chosen), row.Value), bytes);
  }
  AppendBool(run.Facts.Options.MaxWords == 1, bytes);
  AppendText(chosen.CountOnly, bytes);
  const WordFileList& files = PartOf(chosen, ListKind::CountOnly).Files;
  AppendTexts(files.Paths(), bytes);
  AppendNumber(int32_t{files.Selected()}, bytes);
  AppendLoaded(PartOf(chosen, ListKind::WordsToIgnore).Loaded, bytes);
  AppendLoaded(PartOf(chosen, ListKind::CountOnly).Loaded, bytes);
  AppendPaths(chosen.Together, bytes);
  AppendPaths(run.Facts.SecondSide ? run.Facts.SecondSide->Paths : std::vector<SourcePath>(), bytes);
  AppendNumber(static_cast<uint8_t>(run.Comparison.Basis), bytes);
  AppendNumber(std::bit_cast<uint64_t>(run.Comparison.SimpleMathsK), bytes);
  AppendBool(run.Comparison.Drafts, bytes);
}

KeptChoice TakeChoice(KeptReader& reader) {
  Settings settings = TakeSettings(reader);
  Workspace work(std::move(settings));
  KeptChoice choice{.Chosen = work.Keep()};
  choice.SingleWords = reader.TakeBool();
  choice.Chosen.CountOnly = reader.TakeText();
  std::vector<std::string> files = reader.TakeTexts();
  const auto selected = reader.Take<int32_t>();
  choice.Chosen.Lists[static_cast<size_t>(ListKind::CountOnly)].Files.Restore(std::move(files), selected);
  for (const ListKind kind : {ListKind::WordsToIgnore, ListKind::CountOnly})
    choice.Chosen.Lists[static_cast<size_t>(kind)].Loaded = TakeLoaded(reader);
  // What came from standard input is gone, and no window reads it. Of two sides it is the clipboard.
  if (reader.Version() >= 2) choice.Chosen.Together = TakePaths(reader, SourcePath::Kind::Folder);
  if (reader.Version() >= 3) {
    choice.Compared = TakePaths(reader, SourcePath::Kind::StandardInput);
    choice.How = TakeHow(reader);
    if (choice.Compared.size() == 1 && choice.Compared.front().What != SourcePath::Kind::StandardInput)
      choice.Chosen.Compared = ComparedWith{choice.Compared.front().Path, choice.How};
  }
  return choice;
}

}  // namespace korv
