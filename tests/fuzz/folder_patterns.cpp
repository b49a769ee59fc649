// Patterns and exclusions of a folder as somebody typed them, and a name: what is wanted is what plain
// rules say, the box's own text means the same when it is read again, and patterns in arguments stand for
// names that are there.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text/unicode.h"
#include "sources/folders/expand_pattern.h"
#include "sources/folders/file_selection.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string WellFormed(std::string_view bytes) {
  std::string text;
  for (size_t at = 0; at < bytes.size();) AppendCharacter(NextCharacter(bytes, at), text);
  return text;
}

std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (size_t at = 0; at < text.size();) characters += NextCharacter(text, at);
  return characters;
}

/// Row by row: whether the first characters of the name match the first of the pattern.
bool MatchesPlainly(std::u32string_view name, std::u32string_view pattern) {
  std::vector<bool> row(name.size() + 1, false);
  row[0] = true;
  for (const char32_t sign : pattern) {
    std::vector<bool> next(name.size() + 1, false);
    for (size_t n = 0; n <= name.size(); ++n) {
      if (sign == U'*')
        next[n] = row[n] || (n > 0 && next[n - 1]);
      else if (n > 0)
        next[n] = row[n - 1] && (sign == U'?' || sign == name[n - 1]);
    }
    row = next;
  }
  return row[name.size()];
}

void CheckExpansion(const std::string& name, const std::string& pattern) {
  const auto plain = [](const std::string& text) {
    return !text.empty() && text != "." && text != ".." && text.find_first_of("/\\:") == text.npos &&
           text.find('\0') == text.npos;
  };
  if (!plain(name) || !plain(pattern)) return;
  FakeFiles files;
  files.Add("/f/" + name, "x");
  files.Add("/f/other.txt", "x");
  for (const std::string& path : ExpandPattern("/f/" + pattern, files))
    Require(path == "/f/" + pattern || files.FileExists(PathFromText(path)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 1024;
  if (size > kMostBytes) return 0;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::string parts[3];  // Patterns, exclusions, the name.
  for (std::string& part : parts) {
    const size_t end = std::min(rest.find('\n'), rest.size());
    part = WellFormed(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  const std::string& name = parts[2];
  const FileSelection selection{SplitPatterns(parts[0]), SplitPatterns(parts[1])};
  Require(selection.Patterns.size() <= kMostPatterns);
  Require(SplitPatterns(JoinPatterns(selection.Patterns)) == selection.Patterns);
  FakeMessages messages;
  const bool valid = ValidatePatterns(selection, messages);
  Require(messages.Shown.size() == (valid ? 0u : 1u));
  WarnAboutDocPattern(parts[0], messages);

  const std::u32string lowered = Characters(LowerText(name));
  bool matches = selection.Patterns.empty();
  for (const std::string& pattern : selection.Patterns) {
    const bool one = MatchesPlainly(lowered, Characters(LowerText(pattern)));
    Require(MatchesWildcards(LowerText(name), LowerText(pattern)) == one);
    matches = matches || one || pattern == "*.*";
    CheckExpansion(name, pattern);
  }
  if (name.find_first_of("/\\") == name.npos) {
    const bool excluded = std::any_of(
        selection.Exclusions.begin(), selection.Exclusions.end(),
        [&](const std::string& text) { return LowerText(name).find(LowerText(text)) != std::string::npos; });
    const size_t dot = name.rfind('.');
    const bool refused = dot != name.npos && IsRefusedExtension(LowerText(name.substr(dot + 1)));
    Require(FileIsWanted(selection, name) == (matches && !excluded && !refused));
  } else {
    FileIsWanted(selection, name);
  }
  return 0;
}
