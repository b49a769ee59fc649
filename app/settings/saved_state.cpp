#include "app/settings/saved_state.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "app/settings/questions.h"
#include "base/line_ends.h"
#include "base/translation.h"
#include "base/utf8.h"

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";

/// What stands for the one choice that is made, where each has a place of its own.
constexpr int kChosen = -1;

bool IsWellFormed(std::string_view text) {
  return MendedUtf8(text) == text;
}

bool HasPlace(const SettingRow& row) {
  return row.Places.front() != 0;
}

/// The row that decides on the defaults of others. Its line comes before theirs.
bool IsReading(const SettingRow& row) {
  return std::string_view(row.Name) == "Reading";
}

/// Builds the records of settings.
class RecordWriter {
 public:
  explicit RecordWriter(const Settings& settings) : settings_(settings) {}

  void Write(const SavedPlace& place) {
    std::visit([&](const auto& value) { Put(value, place.Choice); }, place.Row->Value);
  }
  /// A record with the setting's name.
  void WriteNamed(const SettingRow& row) {
    std::visit([&](const auto& value) { Text(std::string(row.Name) + '=' + NamedValue(value)); }, row.Value);
  }

  Expected<std::string, StateError> Result() && {
    if (fault_.empty()) return std::move(bytes_);
    return StateError{fault_};
  }

 private:
  void Put(const TextValue& value, int) { Text(value.Get(settings_)); }
  void Put(const CheckValue& value, int) { Plain(value.Get(settings_) ? 1 : 0); }
  void Put(const NumberValue& value, int) { Plain(value.IndexOf(value.Get(settings_))); }
  void Put(const ChoiceValue& value, int choice) {
    const int chosen = value.Get(settings_);
    if (choice == kNoChoice)
      Plain(chosen);
    else
      Plain(chosen == choice ? kChosen : 0);
  }
  void Put(const FileListValue& value, int) {
    const std::vector<std::string>& paths = settings_.*value.Paths;
    Plain(static_cast<int>(paths.size()));
    for (const std::string& path : paths) Text(path);
    Plain(settings_.*value.Selected);
  }

  std::string NamedValue(const TextValue& value) const { return value.Get(settings_); }
  std::string NamedValue(const FileListValue&) const {
    throw std::logic_error("A list has a place of its own.");
  }
  template <typename Value>
  std::string NamedValue(const Value& value) const {
    return std::to_string(static_cast<int>(value.Get(settings_)));
  }

  void Text(const std::string& text) {
    if (text.find_first_of(std::string_view("\"\r\n\0", 4)) != text.npos)
      Fail(Tr("A text holds a double quote or a line break."));
    if (!IsWellFormed(text)) Fail(Tr("A text holds a character that cannot be saved."));
    bytes_ += '"';
    bytes_ += text;
    bytes_ += '"';
    bytes_ += kCrLf;
  }
  void Plain(int number) {
    bytes_ += std::to_string(number);
    bytes_ += kCrLf;
  }
  void Fail(const char* why) {
    if (fault_.empty()) fault_ = why;
  }

  const Settings& settings_;
  std::string bytes_;
  std::string fault_;
};

/// Reads the records into settings. After the first fault it leaves them alone.
class RecordReader {
 public:
  RecordReader(std::string_view bytes, Settings& settings) : rest_(bytes), settings_(settings) {
    if (rest_.starts_with(kSignature)) rest_.remove_prefix(kSignature.size());
  }

  void Read(const SavedPlace& place) {
    std::visit([&](const auto& value) { Take(value, place.Choice); }, place.Row->Value);
  }

  /// The records with names that follow the last place. What is no such record ends them, as it always did.
  void ReadNamed(std::span<const SettingRow> rows) {
    NamedValues named;
    while (outcome_.Complete()) {
      SkipBlanks();
      if (!rest_.starts_with('"')) break;
      const auto text = NextText();
      const size_t equals = text ? text->find('=') : std::string::npos;
      if (equals == std::string::npos) continue;
      const auto row = std::ranges::find_if(rows, [&](const SettingRow& known) {
        return !HasPlace(known) && text->substr(0, equals) == known.Name;
      });
      // A later version may know more.
      if (row == rows.end()) continue;
      named.emplace_back(&*row, text->substr(equals + 1));
    }
    TakeAll(named);
  }

  RestoreOutcome Outcome() const { return outcome_; }

 private:
  using NamedValues = std::vector<std::pair<const SettingRow*, std::string>>;

  /// In any order; but what the reading sets may be set otherwise by the others.
  void TakeAll(const NamedValues& named) {
    for (const bool reading : {true, false})
      for (const auto& [row, text] : named)
        if (IsReading(*row) == reading) TakeOne(*row, text);
  }
  void TakeOne(const SettingRow& row, const std::string& text) {
    if (Failed()) return;
    std::visit([&](const auto& value) { TakeNamed(value, text); }, row.Value);
    if (IsReading(row)) ApplyReading(settings_.Reading, settings_);
  }

  void Take(const TextValue& value, int) {
    if (const auto text = NextText()) value.Set(settings_, *text);
  }
  void Take(const CheckValue& value, int) {
    if (const auto number = NextInRange(0, 1)) value.Set(settings_, *number != 0);
  }
  void Take(const NumberValue& value, int) {
    if (const auto index = NextInRange(0, value.Items() - 1)) value.Set(settings_, value.AtIndex(*index));
  }
  void Take(const ChoiceValue& value, int choice) {
    if (choice == kNoChoice) {
      if (const auto chosen = NextInRange(0, MostOf(value))) value.Set(settings_, *chosen);
    } else if (const auto number = NextInRange(kChosen, 0)) {
      if (*number == kChosen)
        value.Set(settings_, choice);
      else if (value.Get(settings_) == choice)
        value.Set(settings_, kNoChoice);
    }
  }
  void Take(const FileListValue& value, int) {
    const auto count = NextInRange(0, kMostWordsFiles);
    if (!count) return;
    std::vector<std::string>& paths = settings_.*value.Paths;
    int& selected = settings_.*value.Selected;
    paths.clear();
    selected = -1;
    for (int k = 0; k < *count; ++k) {
      const auto text = NextText();
      if (!text) return;
      paths.push_back(*text);
    }
    if (const auto index = NextInRange(-1, *count - 1)) selected = *index;
  }

  void TakeNamed(const TextValue& value, const std::string& text) { value.Set(settings_, text); }
  void TakeNamed(const CheckValue& value, const std::string& text) {
    if (const auto number = NumberIn(text, 0, 1)) value.Set(settings_, *number != 0);
  }
  void TakeNamed(const NumberValue& value, const std::string& text) {
    const auto number = NumberIn(text, value.Least, value.Most);
    if (number) value.Set(settings_, value.AtIndex(value.IndexOf(*number)));
  }
  void TakeNamed(const ChoiceValue& value, const std::string& text) {
    if (const auto chosen = NumberIn(text, 0, MostOf(value))) value.Set(settings_, *chosen);
  }
  void TakeNamed(const FileListValue&, const std::string&) {}

  static int MostOf(const ChoiceValue& value) { return static_cast<int>(value.Choices.size()) - 1; }

  std::optional<int> NumberIn(const std::string& text, int least, int most) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc{} && stop == end && number >= least && number <= most) return number;
    Fail(kInvalidIndex, Tr("Invalid data"));
    return std::nullopt;
  }

  bool Failed() const { return outcome_.Result != kRestored || outcome_.EndedEarly; }
  void Fail(int result, const char* why) {
    outcome_.Result = result;
    outcome_.ErrorText = why;
  }

  // Past what separates two records.
  void PassDelimiter() {
    SkipBlanks();
    if (rest_.starts_with(kCrLf))
      rest_.remove_prefix(kCrLf.size());
    else if (!rest_.empty() && (rest_.front() == '\n' || rest_.front() == '\r' || rest_.front() == ','))
      rest_.remove_prefix(1);
    else if (!rest_.empty())
      Fail(kCannotRestore, Tr("Type mismatch."));
  }
  void SkipBlanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) rest_.remove_prefix(1);
  }
  bool BeginRecord() {
    if (Failed()) return false;
    SkipBlanks();
    outcome_.EndedEarly = rest_.empty();
    return !outcome_.EndedEarly;
  }

  std::optional<std::string> NextText() {
    if (!BeginRecord()) return std::nullopt;
    if (rest_.front() != '"') {
      Fail(kCannotRestore, Tr("Type mismatch."));
      return std::nullopt;
    }
    const size_t end = rest_.find('"', 1);
    if (end == rest_.npos) {
      outcome_.EndedEarly = true;
      return std::nullopt;
    }
    const std::string text(rest_.substr(1, end - 1));
    rest_.remove_prefix(end + 1);
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != text.npos || !IsWellFormed(text))
      Fail(kCannotRestore, Tr("A text holds a character that no setting has."));
    else
      PassDelimiter();
    if (Failed()) return std::nullopt;
    return text;
  }

  std::optional<int> NextInRange(int least, int most) {
    if (!BeginRecord()) return std::nullopt;
    int value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error == std::errc::invalid_argument) {
      Fail(kCannotRestore, Tr("Type mismatch."));
      return std::nullopt;
    }
    rest_.remove_prefix(static_cast<size_t>(end - rest_.data()));
    PassDelimiter();
    if (!Failed() && (error != std::errc{} || value < least || value > most))
      Fail(kInvalidIndex, Tr("Invalid data"));
    if (Failed()) return std::nullopt;
    return value;
  }

  std::string_view rest_;
  Settings& settings_;
  RestoreOutcome outcome_;
};

RestoreOutcome CannotRestore(std::string why) {
  return {.Result = kCannotRestore, .ErrorText = std::move(why)};
}

Expected<std::string, StateError> ReadWhole(FileSystem& files, const std::filesystem::path& path) {
  auto file = files.OpenForReading(path);
  if (!file) return StateError{file.Error().Description};
  std::string bytes;
  constexpr size_t kBlock = 65536;
  while (bytes.size() <= kMostStateBytes) {
    const size_t before = bytes.size();
    bytes.resize(before + kBlock);
    const auto read = (*file)->Read({bytes.data() + before, kBlock});
    if (!read) return StateError{read.Error().Description};
    bytes.resize(before + *read);
    if (*read == 0) return bytes;
  }
  return StateError{Tr("The file is too long for a settings file.")};
}

std::optional<FileError> MakeFolder(FileSystem& files, const std::filesystem::path& folder) {
  if (folder.empty() || files.FolderExists(folder)) return std::nullopt;
  if (folder.has_relative_path())
    if (auto fault = MakeFolder(files, folder.parent_path())) return fault;
  return files.CreateFolder(folder);
}

std::string WriteWhole(FileSystem& files, const std::filesystem::path& path, std::string_view bytes) {
  auto file = files.OpenForWriting(path);
  if (!file) return file.Error().Description;
  std::optional<FileError> error = (*file)->Write(bytes);
  if (!error) error = (*file)->Commit();
  return error ? error->Description : std::string();
}

}  // namespace

Expected<std::string, StateError> StateBytes(const Settings& settings, std::span<const SettingRow> rows) {
  RecordWriter writer(settings);
  for (const SavedPlace& place : SavedPlaces(rows)) writer.Write(place);
  const Settings defaults = DefaultsUnder(settings.Reading);
  for (const SettingRow& row : rows)
    if (!HasPlace(row) && !SameValue(row, settings, IsReading(row) ? Settings{} : defaults))
      writer.WriteNamed(row);
  return std::move(writer).Result();
}

RestoreOutcome ReadStateBytes(std::string_view bytes, Settings& settings, std::span<const SettingRow> rows) {
  RecordReader reader(bytes, settings);
  for (const SavedPlace& place : SavedPlaces(rows)) reader.Read(place);
  if (!reader.Outcome().Complete()) return reader.Outcome();
  // A name that is missing means the default.
  for (const SettingRow& row : rows)
    if (!HasPlace(row)) CopyValue(row, Settings{}, settings);
  reader.ReadNamed(rows);
  return reader.Outcome();
}

bool IsSettingsFile(FileSystem& files, const std::filesystem::path& path) {
  const Expected<std::string, StateError> bytes = ReadWhole(files, path);
  Settings scratch;
  return bytes && (bytes->empty() || ReadStateBytes(*bytes, scratch).Complete());
}

std::string SavedState::SaveState(const std::filesystem::path& path, const Settings& settings) {
  const std::filesystem::path& target = PathOf(path);
  const Expected<std::string, StateError> bytes = StateBytes(settings);
  std::string error;
  if (!bytes) {
    error = bytes.Error().Description;
  } else {
    // Only the state file's own folder is the program's to make, with those above it: a new user has none.
    if (path.empty())
      if (const auto refused = MakeFolder(files_, stateFile_.parent_path())) error = refused->Description;
    if (error.empty()) error = WriteWhole(files_, target, *bytes);
  }
  return error.empty() ? error : Fill(Tr("Error when attempting to save state: %1"), {error});
}

RestoreOutcome SavedState::RestoreSavedState(const std::filesystem::path& path, Settings& settings) {
  try {
    const Expected<std::string, StateError> bytes = ReadWhole(files_, PathOf(path));
    if (!bytes) return CannotRestore(bytes.Error().Description);
    RestoreOutcome outcome = ReadStateBytes(*bytes, settings);
    if (outcome.EndedEarly) HandleEarlyEnd(settings);
    return outcome;
  } catch (const std::bad_alloc&) {
    return CannotRestore(Tr("Insufficient memory"));
  }
}

void SavedState::HandleEarlyEnd(Settings& settings) {
  const Answer answer = messages_.Show({.Text = Tr("Input past end of file.  Set default values?"),
                                        .Title = Tr("Error restoring saved state"),
                                        .Icon = Icon::Question,
                                        .Buttons = Buttons::YesNo,
                                        .DefaultAnswer = Answer::No,
                                        .Question = questions::kSetDefaults});
  if (answer == Answer::Yes) SetDefaultValues(settings);
  messages_.Show({.Text = Tr("Saving the settings should fix the 'Input past end of file' error."),
                  .Title = Tr("Input past end of file"),
                  .Icon = Icon::Information});
}

std::string LoadFailureText(const RestoreOutcome& outcome) {
  switch (outcome.Result) {
    case kInvalidIndex:
      return Tr("Invalid combo box index.");
    case kCannotRestore:
      return Fill(Tr("Error when attempting to load settings: %1"), {outcome.ErrorText});
    default:
      return {};
  }
}

bool AskToLoadWordFile(const std::string& path, Messages& messages) {
  return messages.Show({.Text = Fill(Tr("Do you wish to load the words-to-ignore file\n%1 ?"), {path}),
                        .Title = Tr("Load file?"),
                        .Icon = Icon::Question,
                        .Buttons = Buttons::YesNo,
                        .DefaultAnswer = Answer::Yes,
                        .Question = questions::kLoadWordFile}) == Answer::Yes;
}

}  // namespace korv
