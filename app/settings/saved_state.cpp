#include "app/settings/saved_state.h"

#include <charconv>
#include <memory>
#include <new>
#include <optional>

#include "base/utf8.h"

namespace korv {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSignature = "\xEF\xBB\xBF";

bool IsWellFormed(std::string_view text) {
  return MendedUtf8(text) == text;
}

/// Field visitor that builds the records.
class RecordWriter {
 public:
  void Text(const std::string& text) {
    if (text.find_first_of(std::string_view("\"\r\n\0", 4)) != text.npos)
      Fail("A text holds a double quote or a line break.");
    if (!IsWellFormed(text)) Fail("A text holds a character that cannot be saved.");
    bytes_ += '"';
    bytes_ += text;
    bytes_ += '"';
    bytes_ += kLineEnd;
  }
  void Check(bool checked) { Plain(checked ? 1 : 0); }
  void Option(const std::optional<IgnoreRule>& selected, IgnoreRule option) {
    Plain(selected == option ? -1 : 0);
  }
  template <typename Value>
  void Number(Value value, int least, int /*most*/, int step = 1) {
    Plain((static_cast<int>(value) - least) / step);
  }
  void List(const std::vector<std::string>& entries, int selected) {
    Plain(static_cast<int>(entries.size()));
    for (const std::string& entry : entries) Text(entry);
    Plain(selected);
  }

  Expected<std::string, StateError> Result() && {
    if (fault_.empty()) return std::move(bytes_);
    return StateError{fault_};
  }

 private:
  void Plain(int number) {
    bytes_ += std::to_string(number);
    bytes_ += kLineEnd;
  }
  void Fail(const char* why) {
    if (fault_.empty()) fault_ = why;
  }

  std::string bytes_;
  std::string fault_;
};

/// Field visitor that reads the records into their fields. After the first fault it leaves the fields alone.
class RecordReader {
 public:
  explicit RecordReader(std::string_view bytes) : rest_(bytes) {
    if (rest_.starts_with(kSignature)) rest_.remove_prefix(kSignature.size());
  }

  void Text(std::string& field) {
    if (const auto text = NextText()) field = *text;
  }
  void Check(bool& field) {
    if (const auto value = NextInRange(0, 1)) field = *value != 0;
  }
  void Option(std::optional<IgnoreRule>& selected, IgnoreRule option) {
    const auto value = NextInRange(-1, 0);
    if (!value) return;
    if (*value != 0)
      selected = option;
    else if (selected == option)
      selected.reset();
  }
  template <typename Value>
  void Number(Value& field, int least, int most, int step = 1) {
    if (const auto index = NextInRange(0, (most - least) / step))
      field = static_cast<Value>(least + *index * step);
  }
  void List(std::vector<std::string>& entries, int& selected) {
    const auto count = NextInRange(0, kMostWordsFiles);
    if (!count) return;
    entries.clear();
    selected = -1;
    for (int k = 0; k < *count; ++k) {
      const auto text = NextText();
      if (!text) return;
      entries.push_back(*text);
    }
    if (const auto index = NextInRange(-1, *count - 1)) selected = *index;
  }

  RestoreOutcome Outcome() const { return outcome_; }

 private:
  bool Failed() const { return outcome_.Result != kRestored || outcome_.EndedEarly; }
  void Fail(int result, const char* why) {
    outcome_.Result = result;
    outcome_.ErrorText = why;
  }

  // Past what separates two records.
  void PassDelimiter() {
    SkipBlanks();
    if (rest_.starts_with(kLineEnd))
      rest_.remove_prefix(kLineEnd.size());
    else if (!rest_.empty() && (rest_.front() == '\n' || rest_.front() == '\r' || rest_.front() == ','))
      rest_.remove_prefix(1);
    else if (!rest_.empty())
      Fail(kCannotRestore, "Type mismatch.");
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
      Fail(kCannotRestore, "Type mismatch.");
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
      Fail(kCannotRestore, "A text holds a character that no setting has.");
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
      Fail(kCannotRestore, "Type mismatch.");
      return std::nullopt;
    }
    rest_.remove_prefix(static_cast<size_t>(end - rest_.data()));
    PassDelimiter();
    if (!Failed() && (error != std::errc{} || value < least || value > most))
      Fail(kInvalidIndex, "Invalid data");
    if (Failed()) return std::nullopt;
    return value;
  }

  std::string_view rest_;
  RestoreOutcome outcome_;
};

RestoreOutcome CannotRestore(std::string why) {
  return {.Result = kCannotRestore, .ErrorText = std::move(why)};
}

Expected<std::string, StateError> ReadWhole(FileSystem& files, const std::filesystem::path& path) {
  auto file = files.OpenForReading(path);
  if (!file) return StateError{file.Error().description};
  std::string bytes;
  constexpr size_t kBlock = 65536;
  while (bytes.size() <= kMostStateBytes) {
    const size_t before = bytes.size();
    bytes.resize(before + kBlock);
    const auto read = (*file)->Read({bytes.data() + before, kBlock});
    if (!read) return StateError{read.Error().description};
    bytes.resize(before + *read);
    if (*read == 0) return bytes;
  }
  return StateError{"The file is too long for a settings file."};
}

std::optional<FileError> MakeFolder(FileSystem& files, const std::filesystem::path& folder) {
  if (folder.empty() || files.FolderExists(folder)) return std::nullopt;
  if (folder.has_relative_path())
    if (auto fault = MakeFolder(files, folder.parent_path())) return fault;
  return files.CreateFolder(folder);
}

std::string WriteWhole(FileSystem& files, const std::filesystem::path& path, std::string_view bytes) {
  auto file = files.OpenForWriting(path);
  if (!file) return file.Error().description;
  std::optional<FileError> error = (*file)->Write(bytes);
  if (!error) error = (*file)->Commit();
  return error ? error->description : std::string();
}

}  // namespace

Expected<std::string, StateError> StateBytes(const Settings& settings) {
  RecordWriter writer;
  VisitFields(settings, writer);
  return std::move(writer).Result();
}

RestoreOutcome ReadStateBytes(std::string_view bytes, Settings& settings) {
  RecordReader reader(bytes);
  VisitFields(settings, reader);
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
      if (const auto refused = MakeFolder(files_, stateFile_.parent_path())) error = refused->description;
    if (error.empty()) error = WriteWhole(files_, target, *bytes);
  }
  return error.empty() ? error : "Error when attempting to save state: " + error;
}

RestoreOutcome SavedState::RestoreSavedState(const std::filesystem::path& path, Settings& settings) {
  try {
    const Expected<std::string, StateError> bytes = ReadWhole(files_, PathOf(path));
    if (!bytes) return CannotRestore(bytes.Error().Description);
    RestoreOutcome outcome = ReadStateBytes(*bytes, settings);
    if (outcome.EndedEarly) HandleEarlyEnd(settings);
    return outcome;
  } catch (const std::bad_alloc&) {
    return CannotRestore("Insufficient memory");
  }
}

void SavedState::HandleEarlyEnd(Settings& settings) {
  const Answer answer = messages_.Show({.text = "Input past end of file.  Set default values?",
                                        .title = "Error restoring saved state",
                                        .icon = Icon::Question,
                                        .buttons = Buttons::YesNo,
                                        .defaultAnswer = Answer::No,
                                        .question = Question::SetDefaults});
  if (answer == Answer::Yes) SetDefaultValues(settings);
  messages_.Show({.text = "Saving the settings should fix the 'Input past end of file' error.",
                  .title = "Input past end of file",
                  .icon = Icon::Information});
}

std::string LoadFailureText(const RestoreOutcome& outcome) {
  switch (outcome.Result) {
    case kInvalidIndex:
      return "Invalid combo box index.";
    case kCannotRestore:
      return "Error when attempting to load settings: " + outcome.ErrorText;
    default:
      return {};
  }
}

bool AskToLoadWordFile(const std::string& path, Messages& messages) {
  return messages.Show({.text = "Do you wish to load the words-to-ignore file\r\n" + path + " ?",
                        .title = "Load file?",
                        .icon = Icon::Question,
                        .buttons = Buttons::YesNo,
                        .defaultAnswer = Answer::Yes,
                        .question = Question::LoadWordFile,
                        .mayBeSilenced = true}) == Answer::Yes;
}

}  // namespace korv
