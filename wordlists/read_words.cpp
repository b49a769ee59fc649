#include "wordlists/read_words.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/translation.h"
#include "engine/patterns/list_entry.h"
#include "engine/text/unicode.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/text_reader.h"
#include "sources/scan/comment_stripper.h"
#include "sources/scan/line_scanner.h"
#include "wordlists/typed_words.h"

namespace korv {

namespace {

// The number under which errors of devices are reported.
constexpr int kErrorDevice = 57;
constexpr size_t kWordsPerReport = 10;

/// The distinct entries of a list, in the order of their first appearance.
class DistinctWords {
 public:
  explicit DistinctWords(const ListReading& reading) : reading_(reading) {}

  void Add(std::string word) {
    if (word.empty() || !known_.insert(word).second) return;
    words_.push_back(std::move(word));
    if (reading_.ShowWordsRead && words_.size() % kWordsPerReport == 0)
      reading_.ShowWordsRead(Fill(Tr("Number of words read so far: %1"),
                                  {reading_.Check.Format.Grouped(static_cast<int64_t>(words_.size()))}));
  }
  std::vector<std::string> Take() { return std::move(words_); }

 private:
  const ListReading& reading_;
  std::vector<std::string> words_;
  std::unordered_set<std::string> known_;
};

class ListSink final : public WordSink {
 public:
  explicit ListSink(DistinctWords& words) : words_(words) {}
  void TakeWord(std::string_view word) override { words_.Add(FoldCase(word)); }
  void ResetPhrases() override {}

 private:
  DistinctWords& words_;
};

constexpr std::string_view kBlanks = " \t";

std::string_view WithoutLeadingBlanks(std::string_view line) {
  const size_t begin = line.find_first_not_of(kBlanks);
  return begin == std::string_view::npos ? std::string_view() : line.substr(begin);
}

std::string_view Trimmed(std::string_view line) {
  const std::string_view rest = WithoutLeadingBlanks(line);
  return rest.substr(0, rest.find_last_not_of(kBlanks) + 1);
}

void ReadWordsToIgnore(TextReader& reader, const WordRules& rules, Yielder& yielder, DistinctWords& words) {
  WordRules listRules = rules;
  SetAllowedExtraChars(listRules);
  SetAllowedExtraChars2(listRules);
  listRules.AllowedExtraChars += kAnyRun;
  listRules.AllowedExtraChars += kAnyChar;
  CommentMarkers markers;
  SetCommentMarkers(markers, MarkupLanguage::C);
  ListSink sink(words);
  LineScanner<WordSink> scanner(listRules, markers, sink);
  scanner.BeginSource();
  bool begun = false;  // Something of the line that goes on has been scanned.
  while (reader.NextLine()) {
    const std::string_view line = begun ? reader.Line() : WithoutLeadingBlanks(reader.Line());
    if (begun || !line.empty()) scanner.ScanLine(line, !begun, reader.EndsLine());
    begun = !reader.EndsLine() && (begun || !line.empty());
    yielder.Yield();
  }
}

void ReadCountOnly(TextReader& reader, Yielder& yielder, DistinctWords& entries) {
  CommentStripper comments;
  while (reader.NextLine()) {
    entries.Add(std::string(Trimmed(NormaliseTypedText(comments.Strip(reader.Line())))));
    yielder.Yield();
  }
}

/// An entry that holds what no word can hold will never be found: the user should know.
void WarnOfCharacters(const WordList& list, const std::filesystem::path& path, ListKind kind,
                      const WordRules& rules, Messages& messages) {
  const char* const pattern = kind == ListKind::WordsToIgnore
                                  ? Tr("The character '%1' occurs in the word-to-ignore\n%2\n"
                                       "but is not currently set as a character allowed in a word.")
                                  : Tr("The character '%1' occurs in the count-only word\n%2\n"
                                       "but is not currently set as a character allowed in a word.");
  for (const std::string& entry : list.Words) {
    const std::string character = CheckForNonAlphaNumeric(entry, rules);
    if (character.empty()) continue;
    messages.Show({.Text = Fill(pattern, {character, entry}),
                   .Title = Tr("Character not allowed"),
                   .Icon = Icon::Exclamation,
                   .Addition = Fill(Tr("File: %1"), {PathToText(path)})});
    return;
  }
}

void ReportReadError(Messages& messages, const std::filesystem::path& path, const std::string& description) {
  messages.Show({.Text = Fill(Tr("At %1 error # %2.\nDescription: %3"),
                              {"ReadWords", std::to_string(kErrorDevice), description}),
                 .Title = Tr("Error"),
                 .Icon = Icon::Critical,
                 .Addition = Fill(Tr("File: %1"), {PathToText(path)})});
}

}  // namespace

bool ReadWords(ListReading& reading, const std::filesystem::path& path, ListKind kind, const WordRules& rules,
               WordList& list) {
  OpenedText source;
  if (!IsTextFile(reading.Check, path, false, true, source)) return false;

  Messages& messages = reading.Check.Messages;
  TextReader reader(std::move(source.Head), source.File.get(),
                    reading.Encodings.PlanFor(source.Facts, PathToText(path), messages),
                    kind == ListKind::WordsToIgnore ? LongLines::Anywhere : LongLines::Whole);
  DistinctWords words(reading);
  if (kind == ListKind::WordsToIgnore)
    ReadWordsToIgnore(reader, rules, reading.Yield, words);
  else
    ReadCountOnly(reader, reading.Yield, words);
  if (const auto error = reader.Error()) {
    ReportReadError(messages, path, error->Description);
    return false;
  }

  list.Words = words.Take();
  list.HasPatterns = std::any_of(list.Words.begin(), list.Words.end(), HoldsPattern);
  list.Path = path;
  // Words to ignore were cut as those of the text are, so that each can be found there; an apostrophe in one
  // is the ending of "isn't".
  if (kind == ListKind::CountOnly) WarnOfCharacters(list, path, kind, rules, messages);
  return true;
}

bool AttemptToReadWords(ListReading& reading, const std::filesystem::path& path, ListKind kind,
                        const WordRules& rules, WordList& list, std::string& stateLabel) {
  if (!reading.Check.Files.FileExists(path)) {
    reading.Check.Messages.Show({.Text = kind == ListKind::WordsToIgnore
                                             ? Tr("File for words-to-ignore not found.")
                                             : Tr("File for count-only words not found."),
                                 .Title = Tr("File not found"),
                                 .Icon = Icon::Exclamation,
                                 .Addition = Fill(Tr("File: %1"), {PathToText(path)})});
    return false;
  }
  if (!ReadWords(reading, path, kind, rules, list)) return false;
  stateLabel = LoadedLabel(kind, list.Words.size());
  return true;
}

}  // namespace korv
