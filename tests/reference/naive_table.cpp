#include "tests/reference/naive_table.h"

#include <algorithm>
#include <limits>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

constexpr size_t kDigits = 5;
constexpr size_t kMostFileDigits = 50000;
constexpr int kMostCountInFile = 99999;
constexpr size_t kEntryGrowth = 500;
constexpr size_t kPathGrowth = 100;
constexpr int32_t kMost = std::numeric_limits<int32_t>::max();

std::string FiveDigits(int number) {
  std::string digits = std::to_string(number);
  return std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

}  // namespace

Table::Table(TextSource source, Use use)
    : Entries(1 + kEntryGrowth), FilePaths(1 + kPathGrowth), source_(source), use_(use) {}

void Table::Empty() {
  PhraseCount = 0;
  CurrentFileNumber = 0;
  MaxSearchDepth = 0;
  Occurrences = 0;
  LongPhrases = 0;
  ChainHead = 0;
}

void Table::AddWordToList(std::string_view phrase) {
  if (use_ == Use::Phrases && CharacterCount(phrase) > kMostPhraseCharacters) {
    ++LongPhrases;
    return;
  }
  ++Occurrences;
  if (use_ == Use::Phrases && source_ == TextSource::Folder) NoteFile();

  if (PhraseCount == 0) {
    PhraseCount = 1;
    (*this)[1] = NewEntry(phrase);
    return;
  }
  Lookup lookup = FindPhrase(phrase);
  if (lookup.Found) {
    Phrase& entry = (*this)[lookup.Position];
    if (entry.Count < kMost) ++entry.Count;
    if (use_ == Use::Phrases) CountInFile(entry);
    return;
  }
  if (PhraseCount == UpperBound()) Entries.resize(Entries.size() + kEntryGrowth);
  ++PhraseCount;
  int32_t at = -lookup.Position;
  for (int32_t i = PhraseCount; i > at; --i) (*this)[i] = std::move((*this)[i - 1]);
  (*this)[at] = NewEntry(phrase);
}

void Table::NoteFile() {
  if (CurrentFileNumber > 0 && FilePaths[static_cast<size_t>(CurrentFileNumber)] == path_) return;
  ++CurrentFileNumber;
  auto number = static_cast<size_t>(CurrentFileNumber);
  if (number == FilePaths.size()) FilePaths.resize(FilePaths.size() + kPathGrowth);
  FilePaths[number] = path_;
}

Phrase Table::NewEntry(std::string_view phrase) const {
  Phrase entry;
  entry.Text = phrase;
  entry.Listed = true;
  entry.Key = FoldKey(FoldAccents(phrase));
  entry.Count = 1;
  if (use_ == Use::Phrases) {
    entry.FileNumbers = FiveDigits(CurrentFileNumber);
    entry.FileCounts = FiveDigits(1);
    entry.FileCount = 1;
  }
  return entry;
}

void Table::CountInFile(Phrase& entry) const {
  if (entry.FileNumbers.size() == kMostFileDigits) return;
  std::string number = FiveDigits(CurrentFileNumber);
  if (entry.FileNumbers.substr(entry.FileNumbers.size() - kDigits) != number) {
    entry.FileNumbers += number;
    entry.FileCounts += FiveDigits(1);
    if (entry.FileCount < kMost) ++entry.FileCount;
    return;
  }
  size_t last = entry.FileCounts.size() - kDigits;
  int count = std::stoi(entry.FileCounts.substr(last)) + 1;
  if (count > kMostCountInFile) return;
  entry.FileCounts = entry.FileCounts.substr(0, last) + FiveDigits(count);
}

Lookup Table::FindPhrase(std::string_view text) {
  const int32_t n = PhraseCount;
  if (n == 0) return {false, -1};
  if ((*this)[1].Text < text) return {false, -1};
  if ((*this)[n].Text > text) return {false, -(n + 1)};
  if (n == 1) return {true, 1};

  int32_t low = 1, high = n, middle = n / 2;
  int16_t steps = 0;
  Lookup result{false, 0};
  for (;;) {
    ++steps;
    const std::string& probed = (*this)[middle].Text;
    if (probed == text) {
      result = {true, middle};
      break;
    }
    if (low == high) {
      result = {false, probed > text ? -(middle + 1) : -middle};
      break;
    }
    if (probed > text) {
      low = middle + 1;
    } else {
      high = middle;
    }
    // With two entries left the upper of them may be the one just probed: the lower one comes next.
    middle = high - low == 1 ? low : low + (high - low + 1) / 2;
  }
  MaxSearchDepth = std::max(MaxSearchDepth, steps);
  return result;
}

}  // namespace korv::reference
