#include "app/texts/program_text.h"

#include <charconv>
#include <memory>
#include <new>
#include <utility>

#include "base/translation.h"
#include "base/utf8.h"

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";
constexpr std::string_view kNoText = "~";

size_t Characters(std::string_view text) {
  size_t characters = 0;
  for (size_t at = 0; at < text.size(); at += Utf8SequenceAt(text, at).Length) ++characters;
  return characters;
}

// "\n" is a line break; any other backslash stands for itself.
std::string WithLineBreaks(std::string_view text) {
  std::string result;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text.substr(at, 2) == "\\n") {
      result += "\n";
      ++at;
    } else {
      result += text[at];
    }
  }
  return result;
}

using Text = std::pair<int, std::string>;

Expected<Text, ProgramTextFault> ParseLine(std::string_view line) {
  int number = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
  const std::string_view rest = line.substr(static_cast<size_t>(end - line.data()));
  if (error != std::errc{} || number < 0 || MendedUtf8(line) != line) return ProgramTextFault::NotRecovered;
  if (rest.empty() || rest == "\t") return ProgramTextFault::Missing;
  if (rest.front() != '\t') return ProgramTextFault::NotRecovered;
  std::string text = WithLineBreaks(rest.substr(1));
  if (Characters(text) > kMostProgramTextCharacters) return ProgramTextFault::TooLong;
  return Text{number, std::move(text)};
}

Expected<std::string, ProgramTextFault> ReadWhole(FileSystem& files, const std::filesystem::path& path) {
  auto file = files.OpenForReading(path);
  if (!file) return ProgramTextFault::CannotOpen;
  std::string bytes;
  constexpr size_t kBlock = 65536;
  while (bytes.size() <= kMostProgramTextBytes) {
    const size_t before = bytes.size();
    bytes.resize(before + kBlock);
    const auto read = (*file)->Read({bytes.data() + before, kBlock});
    if (!read) return ProgramTextFault::CannotRead;
    bytes.resize(before + *read);
    if (*read == 0) return bytes;
  }
  return ProgramTextFault::TooMuch;
}

}  // namespace

std::string ProgramTextError::Text() const {
  const std::string line = std::to_string(Line);
  switch (Fault) {
    case ProgramTextFault::NothingRead:
      return Tr("No program text was read.");
    case ProgramTextFault::CannotOpen:
      return Tr("Cannot open file containing program text.");
    case ProgramTextFault::NoMemoryForTexts:
      return Tr("Particular memory allocation error.");
    case ProgramTextFault::TooMuch:
      return Tr("Too much program text.");
    case ProgramTextFault::NotRecovered:
      return Tr("Text not recovered.");
    case ProgramTextFault::EmptyFile:
      return Tr("File is empty.");
    case ProgramTextFault::CannotRead:
      return Tr("Error reading file.");
    case ProgramTextFault::NoMemory:
      return Tr("General memory allocation error.");
    case ProgramTextFault::Duplicate:
      return Fill(Tr("Duplicate in program text at line %1."), {line});
    case ProgramTextFault::TooLong:
      return Fill(Tr("String too long at line %1."), {line});
    case ProgramTextFault::Missing:
      return Fill(Tr("Missing string at line %1."), {line});
  }
  return {};
}

Expected<ProgramTextFile, ProgramTextError> ProgramTextFile::Load(FileSystem& files,
                                                                  const std::filesystem::path& path) {
  try {
    const Expected<std::string, ProgramTextFault> bytes = ReadWhole(files, path);
    if (!bytes) return ProgramTextError{bytes.Error()};
    return Parse(*bytes);
  } catch (const std::bad_alloc&) {
    return ProgramTextError{ProgramTextFault::NoMemory};
  }
}

Expected<ProgramTextFile, ProgramTextError> ProgramTextFile::Parse(std::string_view bytes) {
  if (bytes.empty()) return ProgramTextError{ProgramTextFault::EmptyFile};
  if (bytes.size() > kMostProgramTextBytes) return ProgramTextError{ProgramTextFault::TooMuch};
  if (bytes.starts_with(kSignature)) bytes.remove_prefix(kSignature.size());
  ProgramTextFile file;
  try {
    for (int lineNumber = 1; !bytes.empty(); ++lineNumber) {
      const size_t end = bytes.find('\n');
      std::string_view line = bytes.substr(0, end);
      bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
      if (line.ends_with('\r')) line.remove_suffix(1);
      if (line.starts_with('#') || line.find_first_not_of(" \t") == line.npos) continue;
      auto text = ParseLine(line);
      if (!text) return ProgramTextError{text.Error(), lineNumber};
      if (!file.texts_.insert(std::move(*text)).second)
        return ProgramTextError{ProgramTextFault::Duplicate, lineNumber};
    }
  } catch (const std::bad_alloc&) {
    return ProgramTextError{ProgramTextFault::NoMemoryForTexts};
  }
  if (file.texts_.empty()) return ProgramTextError{ProgramTextFault::NothingRead};
  return file;
}

std::string ProgramTextFile::Get(int number) const {
  const auto text = texts_.find(number);
  return text == texts_.end() || text->second == kNoText ? std::string() : Tr(text->second.c_str());
}

}  // namespace korv
